// How the main window comes to a camera, follows it, and lets go of it.
#include "moxcamconfig_p.h"

#include "modaldialog.h"
#include "moxcamconfig.h"
#include "moxcameraselectordialog.h"

#include "ui_moxcamconfigmainwindow.h"

#include <QLineEdit>
#include <QTimer>

namespace MoxGui {

/** Null when none was selected or it could not be opened, and when this object is gone, with the window, meanwhile. */
std::unique_ptr<MoxCam::Device, MoxCamConfigPrivate::Releaser> MoxCamConfigPrivate::selectDevice()
{
    system.reset(MoxCam_GetSystem());
    if (!system)
        return nullptr;
    const ModalDialog<MoxCameraSelectorDialog> dialog(system.get(), q, false);
    selector = &*dialog;
    dialog->setWindowTitle(MoxCamConfig::tr("Select a device"));
    if (dialog->exec() != QDialog::Accepted)
        return nullptr;
    MoxCam::DeviceInfo *info = dialog->selectedCamera();
    return std::unique_ptr<MoxCam::Device, Releaser>(info ? MoxCam_CreateDevice(info, 2, 0) : nullptr);
}

void MoxCamConfigPrivate::connectDevice()
{
    disconnectDevice();
    std::unique_ptr<MoxCam::Device, Releaser> selected = selectDevice();
    if (!selected)
        return;
    ownDevice = std::move(selected);
    setDevice(ownDevice.get());
}

void MoxCamConfigPrivate::disconnectDevice()
{
    delete selector.data(); // it still uses the system
    setDevice(nullptr);
    ownDevice.reset();
    system.reset();
}

void MoxCamConfigPrivate::shutDown()
{
    const bool selecting = selector;
    delete selector.data();
    if (!initialized) // deleted while the constructor is selecting
        return;
    disconnectDevice();
    // The selection may have been called for by the menu, to which Qt goes back when the selection ends.
    if (selecting) {
        ui->menuMenu->setParent(nullptr);
        ui->menuMenu->deleteLater();
    }
}

void MoxCamConfigPrivate::setDevice(MoxCam::Device *newDevice)
{
    letGo();
    if (init(q, newDevice))
        setDialogDevice(newDevice);
}

void MoxCamConfigPrivate::letGo()
{
    if (device) {
        device->UnregisterEvent(MoxCam::EventDeviceDisconnected, &CameraDisconnectCallback, this);
        device->UnregisterEvent(MoxCam::EventDeviceConnected, &CameraConnectCallback, this);
    }
    connectionEvent = NoEvent;
    forgetParams();
}

void MoxCamConfigPrivate::forgetParams()
{
    if (needed.frameABSelector)
        needed.frameABSelector->UnregisterEventSink(this);
    if (needed.frameMode)
        needed.frameMode->UnregisterEventSink(this);
    needed = {};
    params = nullptr;
    bound = std::make_unique<QObject>();
    for (const Column &column : columns()) {
        for (QLineEdit *edit : {column.size, column.fps, column.frameTime, column.exposureTime})
            edit->clear();
    }
    ui->lineEditTemperature->clear();
}

bool MoxCamConfigPrivate::setDialogDevice(MoxCam::Device *newDevice)
{
    const QPointer<QObject> same(bound.get());
    for (const Function &function : functions) {
        function.setDevice(function.dialog, newDevice);
        if (!same)
            return false;
    }
    return true;
}

void MoxCamConfigPrivate::CameraConnectCallback(const void *, unsigned long, void *context)
{
    static_cast<MoxCamConfigPrivate *>(context)->connectionEvent = DeviceConnected;
}

void MoxCamConfigPrivate::CameraDisconnectCallback(const void *, unsigned long, void *context)
{
    static_cast<MoxCamConfigPrivate *>(context)->connectionEvent = DeviceDisconnected;
}

void MoxCamConfigPrivate::tick()
{
    // Of several events since the last tick the last one counts. One that comes from now on is for the next tick.
    switch (connectionEvent.exchange(NoEvent)) {
    case DeviceDisconnected:
        // The device stays, for the day when it is plugged in again.
        forgetParams();
        if (!setDialogDevice(nullptr))
            return;
        adjustAbout();
        updateStatus();
        return;
    case DeviceConnected:
        needBothUpdate = true;
        if (setDialogDevice(device))
            init(q, device);
        return;
    }
    updateTemperature();
    if (frameMode == OtherFrameMode && needBothUpdate) {
        needBothUpdate = false;
        updateBoth();
    } else if (frameMode == OnlyFrameB || (frameMode == OtherFrameMode && frameBSelected)) {
        updateFrameBInfo();
    } else {
        updateFrameAInfo();
    }
}

void MoxCamConfigPrivate::OnParameterUpdate(MoxGenParam::Param *param)
{
    if (!device || param->GetType() != MoxGenParam::TypeEnum)
        return;
    auto *enumeration = dynamic_cast<MoxGenParam::Enum *>(param);
    if (!enumeration || !enumeration->IsReadable())
        return;
    const QString name = QString::fromUtf8(enumeration->GetName());
    const QString value = QString::fromUtf8(enumeration->GetValueStr(nullptr));
    if (name == QLatin1String("FrameAB_Selector")) {
        frameBSelected = value != QLatin1String("FrameA");
    } else if (name == QLatin1String("FrameMode")) {
        needBothUpdate = true;
        setFrameMode(value);
    }
}

} // namespace MoxGui
