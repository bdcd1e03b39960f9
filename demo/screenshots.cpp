#include "screenshots.h"

#include "actionscreenshots.h"
#include "album.h"
#include "appearance.h"
#include "cameras.h"
#include "configscreenshots.h"
#include "mainwindow.h"
#include "treescreenshots.h"
#include "widgetgallery.h"

#include <MoxCameraApi/MoxSimulation.h>
#include <moxcameraselectordialog.h>

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFontDatabase>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimer>
#include <QTreeView>

#include <algorithm>
#include <functional>

namespace MoxDemo {

namespace {

QtMessageHandler nextHandler = nullptr;

/** Drops what the offscreen platform says of windows with a minimum size, and of pop-ups. */
void handleMessage(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (!message.startsWith(QLatin1String("This plugin does not support ")))
        nextHandler(type, context, message);
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
void renderSelector(Album &album, MoxCam::System *system, MoxCam::DeviceInfo *camera, bool poll, const char *name)
{
    MoxGui::MoxCameraSelectorDialog selector(system, nullptr, poll);
    if (camera)
        setCurrent(selector, camera->GetDisplayName());
    album.render(selector, name);
}

/** A camera on the wrong subnet: each verdict of the Set IP dialog, the warning, and the repair. */
void renderRepair(Album &album, MoxCam::System *system)
{
    MoxCam::DeviceInfo *stranded = cameraWithStatus(system, MoxCam::AccessSubnetMismatch);
    if (!stranded)
        return album.fail(QStringLiteral("no camera is on the wrong subnet"));
    MoxGui::MoxCameraSelectorDialog selector(system, nullptr, false);
    setCurrent(selector, stranded->GetDisplayName());
    album.render(selector, "selector-stranded.png");

    const auto setIp = [&] { selector.findChild<QPushButton *>(QStringLiteral("setIpBtn"))->click(); };
    // Types into a field of the dialog and saves its picture.
    const auto typed = [&](const char *field, const char *text, const char *name) {
        return [&album, field, text, name](QDialog &dialog) {
            dialog.findChild<QLineEdit *>(QString::fromLatin1(field))->setText(QString::fromLatin1(text));
            album.save(dialog, name);
            dialog.reject();
        };
    };
    const char *title = "Set IP Address";
    walk(album, setIp, {{title, typed("subnetMaskLineEdit", "255.255.0.0", "set-ip-mask.png")}});
    walk(album, setIp, {{title, typed("ipAddressLineEdit", "10.0.0.7", "set-ip-subnet.png")}});
    walk(album, setIp, {{title, typed("ipAddressLineEdit", "192.168.10.1", "set-ip-address.png")}});
    walk(album, setIp,
         {{title,
           [](QDialog &dialog) {
               dialog.findChild<QLineEdit *>(QStringLiteral("ipAddressLineEdit"))->setText(QStringLiteral("10.0.0.7"));
               dialog.accept();
           }},
          {"IP Configuration Warning", [&](QDialog &dialog) {
               album.save(dialog, "set-ip-warning.png");
               dialog.reject(); // changes nothing
           }}});
    walk(album, setIp, {{title, [&](QDialog &dialog) {
                             album.save(dialog, "set-ip-ok.png"); // as it is proposed
                             dialog.accept();
                         }}});
    album.save(selector, "selector-repaired.png");
}

/** A camera that only its address finds, from the address to the opened camera. */
void renderConnect(Album &album, MoxCam::System *system)
{
    const std::string interface = MoxSim::interfaces().front();
    const std::vector<std::string> cameras = MoxSim::cameras(interface);
    const auto hidden = std::find_if(cameras.begin(), cameras.end(), [](const std::string &camera) {
        return MoxSim::reach(camera) == MoxSim::Reach::Undiscovered;
    });
    if (hidden == cameras.end())
        return album.fail(QStringLiteral("discovery finds every camera"));

    MoxGui::MoxCameraSelectorDialog selector(system, nullptr, false);
    setCurrent(selector, interfacesOf(system).front()->GetDescription());
    const auto connectByIp = [&] {
        const auto actions = selector.findChildren<QAction *>();
        for (QAction *action : actions) {
            if (action->text() == QLatin1String("Connect by IP Address"))
                action->trigger();
        }
    };
    walk(album, connectByIp, {{"Connect by IP Address", [&](QDialog &dialog) {
                                   dialog.findChild<QLineEdit *>(QStringLiteral("ipAddressLineEdit"))
                                       ->setText(QString::fromStdString(MoxSim::ipAddress(*hidden)));
                                   album.save(dialog, "connect.png");
                                   dialog.accept();
                               }}});
    MainWindow window(system, false);
    window.setChosenCamera(selector.selectedCamera());
    window.openChosenCamera();
    album.render(window, "connected.png");
}

/** The value widgets after a step of each. */
void renderGallery(Album &album)
{
    WidgetGallery gallery;
    gallery.resize(1200, 1000); // more than the offscreen platform's screen has
    const auto sliders = gallery.findChildren<QAbstractSlider *>();
    for (QAbstractSlider *slider : sliders)
        slider->triggerAction(QAbstractSlider::SliderPageStepAdd);
    const auto spinBoxes = gallery.findChildren<QAbstractSpinBox *>();
    for (QAbstractSpinBox *spinBox : spinBoxes) {
        spinBox->stepUp();
        spinBox->findChild<QLineEdit *>()->deselect();
    }
    album.render(gallery, "widget-gallery.png");
}

/** The main window after an attempt on every camera, the given one last. */
void renderMainWindow(Album &album, MoxCam::System *system, MoxCam::DeviceInfo *camera)
{
    MainWindow window(system, false);
    for (const FoundInterface &entry : discover(system)) {
        for (MoxCam::DeviceInfo *other : entry.cameras) {
            window.setChosenCamera(other);
            window.openChosenCamera();
        }
    }
    window.setChosenCamera(camera);
    album.render(window, "moxdemo.png");
}

/** Some of the windows in other colours and languages. */
void renderAppearances(Album &album, MoxCam::System *system, MoxCam::DeviceInfo *camera)
{
    {
        const DarkWindows dark;
        renderSelector(album, system, camera, false, "selector-dark.png");
        renderParameterTreeAgain(album, camera, "tree-dark.png");
        renderConfigurationAgain(album, camera, "-dark");
    }
    // Without the translation or the font there is nothing to see.
    if (const Translation german(QLocale::German); german.isFound())
        renderConfigurationAgain(album, camera, "-de");
    if (!QFontDatabase().writingSystems().contains(QFontDatabase::SimplifiedChinese))
        return;
    if (const Translation chinese(QLocale(QStringLiteral("zh_CN"))); chinese.isFound())
        renderConfigurationAgain(album, camera, "-zh");
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
    // The user's own settings are neither shown nor changed.
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    // The offscreen platform's font is larger than a desktop's.
    QFont font = QApplication::font();
    font.setPointSize(9);
    QApplication::setFont(font);

    Album album(target);
    MoxSim::setWorlds(MoxSim::SimulatedWorld);
    MoxCam::DeviceInfo *camera = cameraWithStatus(system, MoxCam::AccessReadWrite);
    renderMainWindow(album, system, camera);
    renderSelector(album, system, camera, false, "selector.png");
    renderSelector(album, system, camera, true, "selector-polling.png");
    const std::string slowCamera = MoxSim::cameras("Sim::U3V0").back();
    renderSelector(album, system, cameraWithId(system, slowCamera), false, "selector-usb.png");
    renderSelector(album, system, cameraWithStatus(system, MoxCam::AccessNoAccess), false, "selector-busy.png");
    renderRepair(album, system);
    renderConnect(album, system);

    renderParameterTree(album, system);
    renderConfiguration(album, system);
    renderActions(album, system);
    renderGallery(album);
    renderAppearances(album, system, camera);

    MoxSim::clearWorld();
    renderSelector(album, system, nullptr, false, "selector-empty.png");

    MoxSim::setWorlds(MoxSim::RealWorld);
    if (MoxCam::DeviceInfo *realCamera = cameraWithStatus(system, MoxCam::AccessReadWrite))
        renderSelector(album, system, realCamera, false, "selector-real.png");
    qInstallMessageHandler(nextHandler);
    return album.isComplete();
}

} // namespace MoxDemo
