#include "configscreenshots.h"

#include "album.h"
#include "cameras.h"

#include <MoxCameraApi/MoxGenParam.h>
#include <MoxCameraApi/MoxSimulation.h>
#include <moxcamconfig.h>

#include <QAction>
#include <QDialog>

namespace MoxDemo {

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
}

} // namespace MoxDemo
