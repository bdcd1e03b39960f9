// What the entry functions share: the application object, and parents given by a native handle.
#ifndef MOX_BOOTSTRAP_P_H
#define MOX_BOOTSTRAP_P_H

#include <QApplication>
#include <QWidget>
#include <QWindow>

#include <memory>

namespace MoxGui {

/**
 * Makes a QApplication when the process has no application object. It is never deleted and its address not kept.
 * Any application object counts: one that is no QApplication is left to the widgets to complain about.
 */
inline void ensureApplication()
{
    if (QCoreApplication::instance())
        return;
    // The application keeps references to both for the life of the process.
    static int argc = 0;
    static char *noArguments = nullptr;
    constexpr int qtVersion = 0x50c0a; // that the library is written against
    new QApplication(argc, &noArguments, qtVersion);
}

/**
 * A dialog's parent around a window of another toolkit or process. The container takes the window in and is never
 * shown, so the window leaves the screen; deleting the container would take the window along.
 */
struct ForeignParent
{
    /** Zero is no parent. A handle that the platform cannot use gives a container without a window. */
    explicit ForeignParent(unsigned long handle)
        : window(handle ? QWindow::fromWinId(handle) : nullptr),
          container(handle ? QWidget::createWindowContainer(window.get(), nullptr, Qt::WindowFlags()) : nullptr)
    { }

    std::unique_ptr<QWindow> window; // released by this object: after a modal dialog, right after making another
    QWidget *container; // stays behind, hidden and without a parent, one for each call
};

} // namespace MoxGui

#endif
