// The IP address tools of the selector, for GigE Vision cameras.
#include "moxcameraselectordialog_p.h"

#include "connectbyipdialog.h"
#include "modaldialog.h"
#include "moxcameraselectordialog.h"
#include "sdkmetatypes.h"
#include "setipdialog.h"
#include "ui_moxcameraselectordialog.h"

#include <MoxCameraApi/MoxGenParam.h>

#include <QGuiApplication>
#include <QMessageBox>
#include <QPersistentModelIndex>
#include <QSettings>

namespace {

/** Shows that the GUI thread waits for the network, which takes up to a second or so. */
class WaitCursor
{
public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    Q_DISABLE_COPY(WaitCursor)
};

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
        void (*set)(SetIpDialog &dialog, quint64 value);
    };
    static const Field fields[] = {
        {"GevInterfaceMACAddress", [](SetIpDialog &d, quint64 v) { d.setNicMACAddress(v); }},
        {"GevInterfaceSubnetIPAddress", [](SetIpDialog &d, quint64 v) { d.setNicIPAddress(static_cast<quint32>(v)); }},
        {"GevInterfaceSubnetMask", [](SetIpDialog &d, quint64 v) { d.setNicNetmask(static_cast<quint32>(v)); }},
        {"GevDeviceMACAddress", [](SetIpDialog &d, quint64 v) { d.setMACAddress(v); }},
        {"GevInterfaceSubnetIPAddress",
         [](SetIpDialog &d, quint64 v) { d.setIPAddress(proposal(static_cast<quint32>(v))); }},
        {"GevInterfaceSubnetMask", [](SetIpDialog &d, quint64 v) { d.setNetmask(static_cast<quint32>(v)); }},
        {"GevDeviceForceGateway", [](SetIpDialog &d, quint64 v) { d.setGateway(static_cast<quint32>(v)); }},
    };
    for (const Field &field : fields) {
        MoxCamErr err = 0;
        field.set(dialog, static_cast<quint64>(params->GetIntegerValue(field.parameter, &err)));
        if (err != 0)
            return false;
    }
    return true;
}

/** Asks whether a configuration that may hide the camera is meant. The button that reads OK abandons it. */
bool isMeant(QWidget *parent)
{
    const ModalDialog<QMessageBox> box(
        QMessageBox::Critical, QStringLiteral("IP Configuration Warning"),
        QStringLiteral("Specified IP Configuraion is not correct, camera may become undiscoverable\n"
                       "Press OK to skip the IP Configuration, or press Ignore to confirm"),
        QMessageBox::Ok | QMessageBox::Ignore, parent);
    // Ends without a button when the application quits: that confirms nothing either.
    return box->exec() == QMessageBox::Ignore;
}

/** QMessageBox::critical, but for the parent that may be deleted meanwhile. */
void tellFailure(QWidget *parent, const QString &title, const QString &text)
{
    const ModalDialog<QMessageBox> box(QMessageBox::Critical, title, text, QMessageBox::Ok, parent);
    box->exec();
}

} // namespace

namespace MoxGui {

void MoxCameraSelectorDialogPrivate::setIpAddress()
{
    if (!ForceIP())
        tellFailure(q, MoxCameraSelectorDialog::tr("Set IP Address"),
                    MoxCameraSelectorDialog::tr("Can't set IP address"));
}

void MoxCameraSelectorDialogPrivate::connectByIpAddress()
{
    if (!ConnectByIP())
        tellFailure(q, MoxCameraSelectorDialog::tr("Connect by IP Address"),
                    MoxCameraSelectorDialog::tr("Can't connect by IP address"));
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
    if (!selectDevice(params, index.row()))
        return false;

    const ModalDialog<SetIpDialog> dialog(q);
    if (!fill(*dialog, params))
        return false;
    // Rejected also when the selector was deleted meanwhile: nothing of this object is there any more then.
    if (dialog->exec() == QDialog::Rejected)
        return true;
    if (!dialog->isConfigurationOk() && !isMeant(q))
        return true;
    // The camera is the one that was current at the beginning, whatever a poll has done to the tree meanwhile.
    {
        const WaitCursor wait;
        if (info->ForceIP(dialog->ipAddress(), dialog->Netmask(), dialog->Gateway()) != 0)
            return false;
    }
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

    const ModalDialog<ConnectByIpDialog> dialog(q);
    QSettings settings(QStringLiteral("Moxara"), QStringLiteral("MoxCameraGuiApi"));
    const QString addressKey = QStringLiteral("CameraSelector/IPAddress");
    dialog->setIPAddress(settings.value(addressKey, QString()).toString());
    if (dialog->exec() != QDialog::Accepted) // also after the selector was deleted, as above
        return true;

    // Before the attempt: an address where no camera answers is remembered too.
    settings.setValue(addressKey, dialog->ipAddress());
    MoxCam::DeviceInfo *found = nullptr;
    {
        const WaitCursor wait;
        // The text as it stands, also with signs and blanks that the field lets through: what it makes of them is the
        // SDK's affair.
        found = iface->ConnectByIp(dialog->ipAddress().toUtf8().constData());
    }
    // A camera that was found before does not survive a failed attempt.
    selected = found;
    if (found)
        q->accept();
    return found != nullptr;
}

} // namespace MoxGui
