// Takes a widget's connections from it.
#ifndef MOX_CUTSIGNALS_H
#define MOX_CUTSIGNALS_H

#include <QMetaMethod>
#include <QObject>

/**
 * Cuts every connection of the signals of @p sender, which may be null, but those of destroyed(). QObject::disconnect()
 * would cut these as well, and QAccessible hears by them that it must forget a widget: it would tell of the next one at
 * the same address with what it knows of the one that is gone, and crash.
 */
inline void cutSignals(const QObject *sender)
{
    if (!sender)
        return;
    const QMetaObject *const meta = sender->metaObject();
    for (int i = 0; i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        if (method.methodType() == QMetaMethod::Signal && method.name() != "destroyed")
            QObject::disconnect(sender, method, nullptr, QMetaMethod());
    }
}

#endif
