// Reads message boxes as their user.
#ifndef MOX_MESSAGEBOX_H
#define MOX_MESSAGEBOX_H

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include <functional>

namespace MoxTest {

/**
 * Runs @p action and dismisses the box that it opens, once @p meanwhile has run with it. Returns the box's text, or a
 * null text when there was no box.
 */
inline QString boxText(const std::function<void()> &action, const std::function<void(QMessageBox *)> &meanwhile = {})
{
    QString text;
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, &user, [&] {
        const QPointer<QMessageBox> box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box)
            return;
        user.stop();
        text = box->text();
        if (meanwhile)
            meanwhile(box);
        if (box)
            QTest::keyClick(box.data(), Qt::Key_Return);
    });
    user.start(0);
    action();
    return text;
}

} // namespace MoxTest

#endif
