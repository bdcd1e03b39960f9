// The information panels of the selector: what the SDK tells about the current item, in words.
#include "moxcameraselectordialog_p.h"

#include "ip4validator.h"
#include "mactext.h"
#include "moxcameraselectordialog.h"
#include "sdkmetatypes.h"
#include "ui_moxcameraselectordialog.h"

#include <MoxCameraApi/MoxGenParam.h>

#include <QPushButton>
#include <QStandardItemModel>

namespace {

// Highest "DeviceUSBVersionDetected" of a link below USB 3.
constexpr std::int64_t lastUsb2Version = 0x2FF;

/** Ends a panel's model and remembers the width that its first column has. */
void retire(QTreeView *panel, int &rememberedWidth)
{
    if (const int width = panel->columnWidth(0))
        rememberedWidth = width;
    // Not at once: a signal of the view may be on the stack.
    if (QAbstractItemModel *model = panel->model())
        model->deleteLater();
}

/** Shows a panel's new model, at first with the column boundary in the middle. */
void present(QTreeView *panel, QStandardItemModel *model, int rememberedWidth)
{
    panel->setModel(model);
    const int middle = (panel->columnWidth(0) + panel->columnWidth(1)) / 2;
    panel->setColumnWidth(0, rememberedWidth ? rememberedWidth : middle);
}

/** Adds a row and gives its value item. */
QStandardItem *addRow(QStandardItemModel *model, const QString &caption, const QString &value)
{
    auto *valueItem = new QStandardItem(value);
    model->appendRow({new QStandardItem(caption), valueItem});
    return valueItem;
}

QStandardItem *addRow(QStandardItemModel *model, const QString &caption, const char *value)
{
    return addRow(model, caption, QString::fromUtf8(value));
}

/** Adds a row for a parameter, unless it cannot be read. */
void addParameter(QStandardItemModel *model, const QString &caption, MoxGenParam::Array *params, const char *name,
                  QString (*toText)(quint64))
{
    MoxCamErr err = 0;
    const std::int64_t value = params->GetIntegerValue(name, &err);
    if (err == 0)
        addRow(model, caption, toText(static_cast<quint64>(value)));
}

QString addressText(quint64 value)
{
    return IP4Validator::getIpStr(static_cast<quint32>(value));
}

QString statusWord(int accessStatus)
{
    switch (accessStatus) {
    case MoxCam::AccessReadWrite:
        return QStringLiteral("ReadWrite");
    case MoxCam::AccessReadOnly:
        return QStringLiteral("ReadOnly");
    case MoxCam::AccessNoAccess:
        return QStringLiteral("NO ACCESS");
    case MoxCam::AccessSubnetMismatch:
        return QStringLiteral("IP Subnet Mismatch");
    default:
        return QStringLiteral("Unknown");
    }
}

QString transportWord(int interfaceType)
{
    switch (interfaceType) {
    case MoxCam::InterfaceUsb3Vision:
        return QStringLiteral("USB3 Vision");
    case MoxCam::InterfaceGigEVision:
        return QStringLiteral("GigE Vision");
    case MoxCam::InterfaceCameraLink:
        return QStringLiteral("CameraLink");
    case MoxCam::InterfaceCoaXPress:
        return QStringLiteral("CoaXPress");
    case MoxCam::InterfaceHdSdi:
        return QStringLiteral("HD-SDI");
    default:
        return QStringLiteral("Custom");
    }
}

/** The row "USB Version", for a camera whose interface tells it; @p row is the camera's in the tree. */
void addUsbVersion(QStandardItemModel *model, MoxCam::Interface *iface, int row)
{
    MoxGenParam::Array *params = iface->GetParameters(nullptr);
    if (!params)
        return;
    MoxGenParam::Int *version = params->GetInt("DeviceUSBVersionDetected", nullptr);
    if (!version || !MoxGui::selectDevice(params, row))
        return;
    const std::int64_t value = version->GetValue(nullptr);
    if (value == 0)
        return;
    QStandardItem *item =
        addRow(model, QStringLiteral("USB Version"), QStringLiteral("0x%1").arg(value, 4, 16, QLatin1Char('0')));
    if (value <= lastUsb2Version)
        item->setForeground(QBrush(Qt::red));
}

/** The rows of a camera's network identity. */
void addNetwork(QStandardItemModel *model, MoxCam::Interface *iface, MoxCam::DeviceInfo *info, int row)
{
    MoxCamErr err = 0;
    MoxGenParam::Array *params = iface->GetParameters(&err);
    if (err != 0 || !params || !MoxGui::selectDevice(params, row))
        return;
    addParameter(model, QStringLiteral("MAC Address"), params, "GevDeviceMACAddress", macText);

    const auto addText = [&](const QString &caption, const char *(MoxCam::DeviceInfo::*read)(MoxCamErr *)) {
        MoxCamErr readErr = 0;
        const char *text = (info->*read)(&readErr);
        if (readErr == 0)
            addRow(model, caption, text);
    };
    addText(QStringLiteral("IP Address"), &MoxCam::DeviceInfo::GetIPAddress);
    addText(QStringLiteral("Netmask"), &MoxCam::DeviceInfo::GetNetmask);
    addText(QStringLiteral("Gateway"), &MoxCam::DeviceInfo::GetGateway);
}

} // namespace

namespace MoxGui {

bool selectDevice(MoxGenParam::Array *params, int row)
{
    return params->SetIntegerValue("DeviceSelector", row) == 0;
}

void MoxCameraSelectorDialogPrivate::FillInfo(const QModelIndex &index)
{
    QVariant object = index.data(Qt::UserRole);
    if (!object.isValid()) {
        retire(ui->interfaceInfoTreeView, interfaceColumnWidth);
        retire(ui->deviceInfoTreeView, deviceColumnWidth);
        return;
    }

    if (auto *info = object.value<MoxCam::DeviceInfo *>()) {
        fillDeviceInfo(info, index.row());
        object = index.parent().data(Qt::UserRole);
    } else {
        retire(ui->deviceInfoTreeView, deviceColumnWidth);
    }
    if (auto *iface = object.value<MoxCam::Interface *>())
        fillInterfaceInfo(iface);
}

void MoxCameraSelectorDialogPrivate::fillDeviceInfo(MoxCam::DeviceInfo *info, int row)
{
    retire(ui->deviceInfoTreeView, deviceColumnWidth);
    auto *rows = new QStandardItemModel(q);
    addRow(rows, QStringLiteral("Display name"), info->GetDisplayName());
    addRow(rows, QStringLiteral("Vendor"), info->GetVendor());
    addRow(rows, QStringLiteral("Model"), info->GetModel());
    addRow(rows, QStringLiteral("Serial number"), info->GetSerialNumber());
    addRow(rows, QStringLiteral("Version"), info->GetVersion());
    addRow(rows, QStringLiteral("User name"), info->GetUserDefinedName());
    MoxCam::Interface *iface = info->GetInterface();
    if (iface)
        addUsbVersion(rows, iface, row);

    const int status = info->GetAccessStatus();
    QStandardItem *statusItem = addRow(rows, QStringLiteral("Access status"), statusWord(status));
    // For every status. The selection corrects it straight afterwards; after an address was assigned it stays so.
    ui->buttonBox->button(QDialogButtonBox::Ok)->setEnabled(true);
    if (status == MoxCam::AccessNoAccess || status == MoxCam::AccessSubnetMismatch)
        statusItem->setBackground(QBrush(Qt::red));

    if (iface && iface->GetType() == MoxCam::InterfaceGigEVision)
        addNetwork(rows, iface, info, row);
    present(ui->deviceInfoTreeView, rows, deviceColumnWidth);
}

void MoxCameraSelectorDialogPrivate::fillInterfaceInfo(MoxCam::Interface *iface)
{
    retire(ui->interfaceInfoTreeView, interfaceColumnWidth);
    auto *rows = new QStandardItemModel(q);
    addRow(rows, QStringLiteral("Description"), iface->GetDescription());

    QString type = transportWord(iface->GetType());
    MoxGenParam::Array *params =
        iface->GetType() == MoxCam::InterfaceGigEVision ? iface->GetParameters(nullptr) : nullptr;
    if (params) {
        MoxCamErr err = 0;
        const QString transport = QString::fromUtf8(params->GetEnumValueStr("GevInterfaceTransport", &err));
        if (err == 0)
            type += QStringLiteral(" [%1]").arg(transport);
    }
    addRow(rows, QStringLiteral("Type"), type);
    addRow(rows, QStringLiteral("Version"), iface->GetVersion());
    if (params) {
        addParameter(rows, QStringLiteral("MAC Address"), params, "GevInterfaceMACAddress", macText);
        addParameter(rows, QStringLiteral("IP Address"), params, "GevInterfaceSubnetIPAddress", addressText);
        addParameter(rows, QStringLiteral("Netmask"), params, "GevInterfaceSubnetMask", addressText);
    }
    present(ui->interfaceInfoTreeView, rows, interfaceColumnWidth);
}

} // namespace MoxGui
