#include "screenshots.h"

#include "cameras.h"
#include "mainwindow.h"

#include <MoxCameraApi/MoxSimulation.h>
#include <moxcameraselectordialog.h>

#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <QTextStream>
#include <QTreeView>

namespace MoxDemo {

namespace {

QtMessageHandler nextHandler = nullptr;

/** Drops what the offscreen platform says of every window with a minimum size. */
void handleMessage(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (message != QLatin1String("This plugin does not support propagateSizeHints()"))
        nextHandler(type, context, message);
}

/** Writes what a window looks like when it is shown first, without a flash on a real screen. */
bool render(QWidget &window, const QDir &directory, const char *name)
{
    const QString path = directory.filePath(QString::fromLatin1(name));
    window.setAttribute(Qt::WA_DontShowOnScreen);
    window.show();
    QApplication::processEvents(); // some widgets size themselves when they hear that they are shown
    const bool written = window.grab().save(path);
    if (written)
        QTextStream(stdout) << path << '\n';
    else
        QTextStream(stderr) << "moxdemo: cannot write " << path << '\n';
    return written;
}

/** Renders a selector on the world as it is, with a camera current unless it is null. */
bool renderSelector(MoxCam::System *system, MoxCam::DeviceInfo *camera, bool poll, const QDir &directory,
                    const char *name)
{
    MoxGui::MoxCameraSelectorDialog selector(system, nullptr, poll);
    auto *tree = selector.findChild<QTreeView *>(QStringLiteral("cameraTreeView"));
    if (camera) {
        const QModelIndexList found =
            tree->model()->match(tree->model()->index(0, 0), Qt::DisplayRole,
                                 QString::fromUtf8(camera->GetDisplayName()), 1, Qt::MatchExactly | Qt::MatchRecursive);
        if (!found.isEmpty())
            tree->setCurrentIndex(found.constFirst());
    }
    return render(selector, directory, name);
}

/** The first camera that can be opened: in the standard world the one with frames A and B. Null without any. */
MoxCam::DeviceInfo *firstCamera(MoxCam::System *system)
{
    for (const FoundInterface &entry : discover(system)) {
        for (MoxCam::DeviceInfo *camera : entry.cameras) {
            if (camera->GetAccessStatus() == MoxCam::AccessReadWrite)
                return camera;
        }
    }
    return nullptr;
}

/** The main window after an attempt on every camera, the given one last. */
bool renderMainWindow(MoxCam::System *system, MoxCam::DeviceInfo *camera, const QDir &directory)
{
    MainWindow window(system, false);
    for (const FoundInterface &entry : discover(system)) {
        for (MoxCam::DeviceInfo *other : entry.cameras) {
            window.setChosenCamera(other);
            window.openChosenCamera();
        }
    }
    window.setChosenCamera(camera);
    return render(window, directory, "moxdemo.png");
}

} // namespace

bool takeScreenshots(MoxCam::System *system, const QString &directory)
{
    const QDir target(directory);
    if (!target.mkpath(QStringLiteral("."))) {
        QTextStream(stderr) << "moxdemo: cannot make the directory " << directory << '\n';
        return false;
    }

    nextHandler = qInstallMessageHandler(handleMessage);
    // The offscreen platform's font is larger than a desktop's.
    QFont font = QApplication::font();
    font.setPointSize(9);
    QApplication::setFont(font);
    MoxSim::setWorlds(MoxSim::SimulatedWorld);
    MoxCam::DeviceInfo *camera = firstCamera(system);
    bool written = renderMainWindow(system, camera, target);
    written &= renderSelector(system, camera, false, target, "selector.png");
    written &= renderSelector(system, camera, true, target, "selector-polling.png");

    MoxSim::clearWorld();
    written &= renderSelector(system, nullptr, false, target, "selector-empty.png");

    MoxSim::setWorlds(MoxSim::RealWorld);
    if (MoxCam::DeviceInfo *realCamera = firstCamera(system))
        written &= renderSelector(system, realCamera, false, target, "selector-real.png");
    qInstallMessageHandler(nextHandler);
    return written;
}

} // namespace MoxDemo
