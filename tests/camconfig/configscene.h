// The configuration main window as its user sees it.
#ifndef MOX_CONFIGSCENE_H
#define MOX_CONFIGSCENE_H

#include "moxcamconfig.h"
#include "moxcamconfig_p.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QStatusBar>
#include <QTest>
#include <QTimer>
#include <QTreeView>

#include <functional>

namespace MoxTest {

using Window = MoxGui::MoxCamConfig;
using WindowPrivate = MoxGui::MoxCamConfigPrivate;

// An explicit instantiation may name a private member: the way to what stands behind the window.
template<auto member> struct Reach
{
    friend WindowPrivate *privateOf(const Window &window) { return (window.*member).get(); }
};
WindowPrivate *privateOf(const Window &window);
template struct Reach<&Window::d>;

template<class Widget> Widget *child(const QWidget &window, const char *name)
{
    return window.findChild<Widget *>(QString::fromLatin1(name));
}

/** The texts of a camera's entries. */
inline QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '));
}

inline void tick(const Window &window)
{
    QMetaObject::invokeMethod(privateOf(window)->timer, "timeout");
}

inline void trigger(const Window &window, const char *action)
{
    child<QAction>(window, action)->trigger();
}

/** Status, the figures of frame A, those of frame B, temperature. */
inline QString figures(const Window &window)
{
    QStringList groups{privateOf(window)->statusText->text()};
    for (const char *frame : {"FrameA", "FrameB"}) {
        QStringList column;
        for (const char *figure : {"Size", "Fps", "Ftm", "Exp"})
            column << child<QLineEdit>(window, (QByteArray("lineEdit") + figure + frame).constData())->text();
        groups << column.join(QLatin1Char(' ')).trimmed();
    }
    groups << child<QLineEdit>(window, "lineEditTemperature")->text();
    return groups.join(QStringLiteral("; "));
}

/** Runs @p action and, with the camera selector that it opens, @p user; false when none was opened. */
inline bool select(const std::function<void()> &action, const std::function<void(QDialog *selector)> &user)
{
    bool opened = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        auto *selector = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!selector || selector->windowTitle() != QLatin1String("Select a device"))
            return;
        timer.stop();
        opened = true;
        user(selector);
    });
    timer.start(0);
    action();
    return opened;
}

/** Accepts the first camera of the first interface. */
inline void acceptFirst(QDialog *selector)
{
    auto *tree = child<QTreeView>(*selector, "cameraTreeView");
    tree->setCurrentIndex(tree->model()->index(0, 0, tree->model()->index(0, 0)));
    selector->accept();
}

} // namespace MoxTest

#endif
