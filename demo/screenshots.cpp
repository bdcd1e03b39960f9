#include "screenshots.h"

#include "cameras.h"
#include "mainwindow.h"

#include <MoxCameraApi/MoxSimulation.h>
#include <moxcameraselectordialog.h>

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <QTextStream>
#include <QTimer>
#include <QTreeView>

#include <functional>

namespace MoxDemo {

namespace {

QtMessageHandler nextHandler = nullptr;

/** Drops what the offscreen platform says of every window with a minimum size. */
void handleMessage(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (message != QLatin1String("This plugin does not support propagateSizeHints()"))
        nextHandler(type, context, message);
}

/** The first camera that is as @p wanted says; null without any. */
template<class Predicate> MoxCam::DeviceInfo *findCamera(MoxCam::System *system, Predicate wanted)
{
    for (const FoundInterface &entry : discover(system)) {
        for (MoxCam::DeviceInfo *camera : entry.cameras) {
            if (wanted(camera))
                return camera;
        }
    }
    return nullptr;
}

MoxCam::DeviceInfo *cameraWithStatus(MoxCam::System *system, int status)
{
    return findCamera(system, [=](MoxCam::DeviceInfo *camera) { return camera->GetAccessStatus() == status; });
}

MoxCam::DeviceInfo *cameraWithId(MoxCam::System *system, const std::string &id)
{
    return findCamera(system, [&](MoxCam::DeviceInfo *camera) { return id == camera->GetID(); });
}

bool save(QWidget &window, const QDir &directory, const char *name)
{
    const QString path = directory.filePath(QString::fromLatin1(name));
    const bool written = window.grab().save(path);
    if (written)
        QTextStream(stdout) << path << '\n';
    else
        QTextStream(stderr) << "moxdemo: cannot write " << path << '\n';
    return written;
}

/** Writes what a window looks like when it is shown first, without a flash on a real screen. */
bool render(QWidget &window, const QDir &directory, const char *name)
{
    window.setAttribute(Qt::WA_DontShowOnScreen);
    window.show();
    QApplication::processEvents(); // some widgets size themselves when they hear that they are shown
    return save(window, directory, name);
}

/** Makes the item with that text current in a selector's tree. */
void setCurrent(const MoxGui::MoxCameraSelectorDialog &selector, const char *text)
{
    auto *tree = selector.findChild<QTreeView *>(QStringLiteral("cameraTreeView"));
    const QModelIndexList found = tree->model()->match(
        tree->model()->index(0, 0), Qt::DisplayRole, QString::fromUtf8(text), 1, Qt::MatchExactly | Qt::MatchRecursive);
    if (!found.isEmpty())
        tree->setCurrentIndex(found.constFirst());
}

/** Renders a selector on the world as it is, with a camera current unless it is null. */
bool renderSelector(MoxCam::System *system, MoxCam::DeviceInfo *camera, bool poll, const QDir &directory,
                    const char *name)
{
    MoxGui::MoxCameraSelectorDialog selector(system, nullptr, poll);
    if (camera)
        setCurrent(selector, camera->GetDisplayName());
    return render(selector, directory, name);
}

/** Renders the modal dialog that @p open opens, as @p edit leaves it, and closes it again. */
bool renderModal(const std::function<void()> &open, const std::function<void(QDialog &)> &edit, const QDir &directory,
                 const char *name)
{
    bool written = false;
    QTimer::singleShot(0, qApp, [&] {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        QApplication::processEvents();
        edit(*dialog);
        QApplication::processEvents(); // the layout follows the texts
        written = save(*dialog, directory, name);
        dialog->reject();
    });
    open();
    return written;
}

/** Renders the address tools: each verdict of the Set IP dialog, and the Connect dialog. */
bool renderAddressTools(MoxCam::System *system, const QDir &directory)
{
    MoxCam::DeviceInfo *stranded = cameraWithStatus(system, MoxCam::AccessSubnetMismatch);
    if (!stranded)
        return false;
    MoxGui::MoxCameraSelectorDialog selector(system, nullptr, false);
    setCurrent(selector, stranded->GetDisplayName());
    const auto setIp = [&] { selector.findChild<QPushButton *>(QStringLiteral("setIpBtn"))->click(); };
    const auto type = [](const char *field, const char *text) {
        return [=](QDialog &dialog) {
            dialog.findChild<QLineEdit *>(QString::fromLatin1(field))->setText(QString::fromLatin1(text));
        };
    };
    bool written = renderModal(
        setIp, [](QDialog &) {}, directory, "set-ip-ok.png");
    written &= renderModal(setIp, type("subnetMaskLineEdit", "255.255.0.0"), directory, "set-ip-mask.png");
    written &= renderModal(setIp, type("ipAddressLineEdit", "10.0.0.7"), directory, "set-ip-subnet.png");
    written &= renderModal(setIp, type("ipAddressLineEdit", "192.168.10.1"), directory, "set-ip-address.png");

    setCurrent(selector, stranded->GetInterface()->GetDescription());
    const auto connectByIp = [&] {
        const auto actions = selector.findChildren<QAction *>();
        for (QAction *action : actions) {
            if (action->text() == QLatin1String("Connect by IP Address"))
                action->trigger();
        }
    };
    written &= renderModal(connectByIp, type("ipAddressLineEdit", "192.168.1.77"), directory, "connect.png");
    return written;
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
    MoxCam::DeviceInfo *camera = cameraWithStatus(system, MoxCam::AccessReadWrite);
    bool written = renderMainWindow(system, camera, target);
    written &= renderSelector(system, camera, false, target, "selector.png");
    written &= renderSelector(system, camera, true, target, "selector-polling.png");
    const std::string slowCamera = MoxSim::cameras("Sim::U3V0").back();
    written &= renderSelector(system, cameraWithId(system, slowCamera), false, target, "selector-usb.png");
    written &=
        renderSelector(system, cameraWithStatus(system, MoxCam::AccessNoAccess), false, target, "selector-busy.png");
    written &= renderAddressTools(system, target);

    MoxSim::clearWorld();
    written &= renderSelector(system, nullptr, false, target, "selector-empty.png");

    MoxSim::setWorlds(MoxSim::RealWorld);
    if (MoxCam::DeviceInfo *realCamera = cameraWithStatus(system, MoxCam::AccessReadWrite))
        written &= renderSelector(system, realCamera, false, target, "selector-real.png");
    qInstallMessageHandler(nextHandler);
    return written;
}

} // namespace MoxDemo
