#include "configscreenshots.h"

#include "album.h"
#include "cameras.h"

#include <MoxCameraApi/MoxGenParam.h>
#include <MoxCameraApi/MoxSimulation.h>
#include <moxcamconfig.h>
#include <moxcamconfigcolordialog.h>
#include <moxcamconfigframeabdialog.h>
#include <moxcamconfigoutputdialog.h>
#include <moxcamconfigpulsedialog.h>
#include <moxcamconfigstrobedialog.h>
#include <moxcamconfigtriggerdialog.h>

#include <QAction>
#include <QDialog>
#include <QEventLoop>
#include <QTimer>

namespace MoxDemo {

namespace {

/** Renders a dialog on its camera. */
void renderBound(Album &album, QDialog &dialog, const char *name)
{
    dialog.setAttribute(Qt::WA_DontShowOnScreen);
    dialog.show();
    QEventLoop loop; // the frame size is read a second later
    QTimer::singleShot(1100, &loop, &QEventLoop::quit);
    loop.exec();
    album.save(dialog, name);
}

/** Renders a dialog on a camera, and without one. */
template<class Dialog>
void renderDialog(Album &album, MoxCam::Device *camera, const char *name, const char *nameWithout)
{
    Dialog dialog(camera);
    renderBound(album, dialog, name);
    dialog.close();
    dialog.SetDevice(nullptr);
    album.render(dialog, nameWithout);
}

void choose(MoxGenParam::Array *parameters, const char *enumeration, const char *entry)
{
    if (MoxGenParam::Enum *param = parameters->GetEnum(enumeration, nullptr))
        param->SetValueStr(entry);
}

/** Each dialog on a camera that has something to show in it. */
void renderDialogs(Album &album, MoxCam::Device *camera, MoxCam::Device *colorCamera)
{
    MoxGenParam::Array *parameters = camera->GetCameraParameters(nullptr);
    choose(parameters, "TriggerMode", "On");
    choose(parameters, "TriggerSource", "Software");
    choose(parameters, "Strobe2Reference", "ReadoutStart");
    using namespace MoxGui;
    renderDialog<MoxCamConfigFrameABDialog>(album, camera, "config-frameab.png", "config-frameab-none.png");
    renderDialog<MoxCamConfigTriggerDialog>(album, camera, "config-trigger.png", "config-trigger-none.png");
    renderDialog<MoxCamConfigPulseDialog>(album, camera, "config-pulse.png", "config-pulse-none.png");
    renderDialog<MoxCamConfigStrobeDialog>(album, camera, "config-strobe.png", "config-strobe-none.png");
    renderDialog<MoxCamConfigOutputDialog>(album, camera, "config-output.png", "config-output-none.png");
    renderDialog<MoxCamConfigColorDialog>(album, colorCamera, "config-color.png", "config-color-none.png");
}

} // namespace

void renderConfiguration(Album &album, MoxCam::System *system)
{
    const auto open = [&](MoxCam::DeviceInfo *camera) {
        OpenedCamera opened;
        if (camera)
            opened = openCamera(camera);
        if (!opened.parameters)
            album.fail(camera ? opened.failure : QStringLiteral("no camera can be opened"));
        return opened;
    };

    const OpenedCamera camera = open(cameraWithStatus(system, MoxCam::AccessReadWrite));
    const OpenedCamera plainCamera = open(cameraWithId(system, MoxSim::cameras("Sim::U3V0").front()));
    if (!camera.parameters || !plainCamera.parameters)
        return;
    camera.parameters->GetEnum("FrameMode", nullptr)->SetValueStr("FrameAB");
    MoxGui::MoxCamConfig window(camera.device.get());
    album.render(window, "config.png");

    auto *about = window.findChild<QDialog *>(QStringLiteral("MoxCamConfigAboutDialog"));
    about->setAttribute(Qt::WA_DontShowOnScreen);
    window.findChild<QAction *>(QStringLiteral("actionAbout"))->trigger();
    album.save(*about, "config-about.png");
    about->close();

    window.close(); // shown anew with each device, it reads the temperature at once
    window.SetDevice(plainCamera.device.get());
    album.render(window, "config-plain.png");
    window.close();
    window.SetDevice(nullptr);
    album.render(window, "config-disconnected.png");

    renderDialogs(album, camera.device.get(), plainCamera.device.get());
}

void renderConfigurationAgain(Album &album, MoxCam::DeviceInfo *camera, const char *ending)
{
    const OpenedCamera opened = openCamera(camera);
    if (!opened.parameters)
        return album.fail(opened.failure);
    MoxGui::MoxCamConfig window(opened.device.get());
    album.render(window, QByteArray("config").append(ending).append(".png"));
    MoxGui::MoxCamConfigFrameABDialog dialog(opened.device.get());
    renderBound(album, dialog, QByteArray("config-frameab").append(ending).append(".png"));
}

} // namespace MoxDemo
