// What the tests of the configuration dialogs share.
#ifndef MOX_DIALOGSCENE_H
#define MOX_DIALOGSCENE_H

#include "livecamera.h"

#include <QObject>

namespace MoxTest {

/** How many connections a signal has, given by SIGNAL(). */
inline int connectionsOf(const QObject *sender, const char *signal)
{
    struct Open : QObject
    {
        using QObject::receivers;
    };
    return (sender->*&Open::receivers)(signal);
}

} // namespace MoxTest

#endif
