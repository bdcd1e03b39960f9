// The IP address tools of the selector, for GigE Vision cameras.
#include "moxcameraselectordialog_p.h"

#include "connectbyipdialog.h"
#include "moxcameraselectordialog.h"
#include "sdkmetatypes.h"
#include "setipdialog.h"
#include "ui_moxcameraselectordialog.h"

#include <MoxCameraApi/MoxGenParam.h>

#include <QMessageBox>
#include <QPersistentModelIndex>
#include <QSettings>

namespace {

/** A neighbour of the adapter's own address; a camera's present address plays no part. */
quint32 proposal(quint32 adapterAddress)
{
    return (adapterAddress & 0xFF) > 0x80 ? adapterAddress - 1 : adapterAddress + 1;
}

/** Reads the adapter and the camera that is selected in @p params into the dialog; false when a read fails. */
bool fill(SetIpDialog &dialog, MoxGenParam::Array *params)
{
    struct Field
    {
        const char *parameter;
        void (*set)(SetIpDialog &dialog, std::int64_t value);
    };
    static const Field fields[] = {
        {"GevInterfaceMACAddress", [](SetIpDialog &d, std::int64_t v) { d.setNicMACAddress(quint64(v)); }},
        {"GevInterfaceSubnetIPAddress", [](SetIpDialog &d, std::int64_t v) { d.setNicIPAddress(quint32(v)); }},
        {"GevInterfaceSubnetMask", [](SetIpDialog &d, std::int64_t v) { d.setNicNetmask(quint32(v)); }},
        {"GevDeviceMACAddress", [](SetIpDialog &d, std::int64_t v) { d.setMACAddress(quint64(v)); }},
        {"GevInterfaceSubnetIPAddress", [](SetIpDialog &d, std::int64_t v) { d.setIPAddress(proposal(quint32(v))); }},
        {"GevInterfaceSubnetMask", [](SetIpDialog &d, std::int64_t v) { d.setNetmask(quint32(v)); }},
        {"GevDeviceForceGateway", [](SetIpDialog &d, std::int64_t v) { d.setGateway(quint32(v)); }},
    };
    for (const Field &field : fields) {
        MoxCamErr err = 0;
        field.set(dialog, params->GetIntegerValue(field.parameter, &err));
        if (err != 0)
            return false;
    }
    return true;
}

/** Asks whether a configuration that may hide the camera is meant. The button that reads OK abandons it. */
bool isMeant(QWidget *parent)
{
    QMessageBox box(QMessageBox::Critical, QStringLiteral("IP Configuration Warning"),
                    QStringLiteral("Specified IP Configuraion is not correct, camera may become undiscoverable\n"
                                   "Press OK to skip the IP Configuration, or press Ignore to confirm"),
                    QMessageBox::Ok | QMessageBox::Ignore, parent);
    // Ends without a button when the application quits: that confirms nothing either.
    return box.exec() == QMessageBox::Ignore;
}

} // namespace

namespace MoxGui {

void MoxCameraSelectorDialogPrivate::setIpAddress()
{
    if (!ForceIP())
        QMessageBox::critical(q, MoxCameraSelectorDialog::tr("Set IP Address"),
                              MoxCameraSelectorDialog::tr("Can't set IP address"), QMessageBox::Ok);
}

void MoxCameraSelectorDialogPrivate::connectByIpAddress()
{
    if (!ConnectByIP())
        QMessageBox::critical(q, MoxCameraSelectorDialog::tr("Connect by IP Address"),
                              MoxCameraSelectorDialog::tr("Can't connect by IP address"), QMessageBox::Ok);
}

bool MoxCameraSelectorDialogPrivate::ForceIP()
{
    const QPersistentModelIndex index = ui->cameraTreeView->currentIndex();
    auto *info = index.data(Qt::UserRole).value<MoxCam::DeviceInfo *>();
    if (!info)
        return false;
    MoxCam::Interface *iface = info->GetInterface();
    if (!iface || iface->GetType() != MoxCam::InterfaceGigEVision)
        return false;
    MoxCamErr err = 0;
    MoxGenParam::Array *params = iface->GetParameters(&err);
    if (err != 0 || !params)
        return false;
    // The device parameters that are read next are those of the device selected here.
    if (params->SetIntegerValue("DeviceSelector", index.row()) != 0)
        return false;

    SetIpDialog dialog(q);
    if (!fill(dialog, params))
        return false;
    if (dialog.exec() == QDialog::Rejected)
        return true;
    if (!dialog.isConfigurationOk() && !isMeant(q))
        return true;
    // The camera is the one that was current at the beginning, whatever a poll has done to the tree meanwhile.
    if (info->ForceIP(dialog.ipAddress(), dialog.Netmask(), dialog.Gateway()) != 0)
        return false;
    // After a poll has rebuilt the tree the index is dead, and the item that took its place is current.
    FillInfo(index.isValid() ? QModelIndex(index) : ui->cameraTreeView->currentIndex());
    return true;
}

bool MoxCameraSelectorDialogPrivate::ConnectByIP()
{
    const QModelIndex index = ui->cameraTreeView->currentIndex();
    auto *iface = index.data(Qt::UserRole).value<MoxCam::Interface *>();
    if (!iface || iface->GetType() != MoxCam::InterfaceGigEVision)
        return false;

    ConnectByIpDialog dialog(q);
    QSettings settings(QStringLiteral("Moxara"), QStringLiteral("MoxCameraGuiApi"));
    const QString addressKey = QStringLiteral("CameraSelector/IPAddress");
    dialog.setIPAddress(settings.value(addressKey, QString()).toString());
    if (dialog.exec() != QDialog::Accepted)
        return true;

    // Before the attempt: an address where no camera answers is remembered too.
    settings.setValue(addressKey, dialog.ipAddress());
    // A camera that was found before does not survive a failed attempt.
    selected = iface->ConnectByIp(dialog.ipAddress().toUtf8().constData());
    if (selected)
        q->accept();
    return selected != nullptr;
}

} // namespace MoxGui
