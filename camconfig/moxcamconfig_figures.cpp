// What the main window reads from its camera: live figures, status and the About texts.
#include "moxcamconfig_p.h"

#include "ui_moxcamconfigaboutdialog.h"
#include "ui_moxcamconfigmainwindow.h"

#include <QIcon>
#include <QLabel>
#include <QLineEdit>

namespace MoxGui {

namespace {

struct LiveNumber
{
    const char *name;
    MoxGenParam::Int *MoxCamConfigParams::*param;
};

template<class Param> struct AboutValue
{
    const char *name;
    Param *MoxCamConfigParams::*param;
    QLabel *Ui_MoxCamConfigAboutDialog::*label;
};

using Params = MoxCamConfigParams;
using About = Ui_MoxCamConfigAboutDialog;

// In the order in which the parameters are looked up.
constexpr LiveNumber liveNumbers[] = {
    {"CurrentTemperature", &Params::temperature},
    {"CurrentExposureTime", &Params::exposureTime},
    {"CurrentFrameTime", &Params::frameTime},
    {"Width", &Params::width},
    {"Height", &Params::height},
};
constexpr AboutValue<MoxGenParam::String> aboutTexts[] = {
    {"DeviceVendorName", &Params::vendorName, &About::lblDeviceManufacturerName},
    {"DeviceModelName", &Params::modelName, &About::lblDeviceModelName},
    {"DeviceFamilyName", &Params::familyName, &About::lblDeviceFamilyName},
    {"DeviceVersion", &Params::deviceVersion, &About::lblDeviceVersion},
    {"DeviceFirmwareVersion", &Params::firmwareVersion, &About::lblFirmwareVersion},
    {"DeviceManufacturerInfo", &Params::manufacturerInfo, &About::lblDeviceManufacturerInfo},
    {"DeviceSerialNumber", &Params::serialNumber, &About::lblDeviceSerialNumber},
    {"DeviceUserID", &Params::userId, &About::lblDeviceUserDefinedName},
};
constexpr AboutValue<MoxGenParam::Int> aboutNumbers[] = {
    {"RgsID", &Params::rgsId, &About::lblRgsID},
    {"FpgaID", &Params::fpgaId, &About::lblFpgaID},
    {"EpcsID", &Params::epcsId, &About::lblEpcsID},
    {"FirmwareImage", &Params::firmwareImage, &About::lblFirmwareImage},
    {"CustomerID", &Params::customerId, &About::lblCustomerID},
    {"FamilyID", &Params::familyId, &About::lblFamilyID},
    {"XmlVersion", &Params::xmlVersion, &About::lblXmlVersion},
};

QString textOf(MoxGenParam::String *param)
{
    return QString::fromUtf8(param->GetValue(nullptr));
}

QString textOf(MoxGenParam::Enum *param)
{
    return QString::fromUtf8(param->GetValueStr(nullptr));
}

QString textOf(MoxGenParam::Int *param)
{
    return QString::number(param->GetValue(nullptr));
}

template<class Param> void show(Param *param, QLabel *label)
{
    label->setText(param ? textOf(param) : QStringLiteral("N/A"));
}

} // namespace

void MoxCamConfigPrivate::subscribe(MoxGenParam::Enum *param)
{
    param->UnregisterEventSink(this);
    param->RegisterEventSink(this);
}

void MoxCamConfigPrivate::setFrameMode(const QString &mode)
{
    if (mode == QLatin1String("FrameA")) {
        frameMode = OnlyFrameA;
    } else if (mode == QLatin1String("FrameB")) {
        frameMode = OnlyFrameB;
    } else {
        frameMode = OtherFrameMode;
        needBothUpdate = true;
    }
}

void MoxCamConfigPrivate::getNeededParams()
{
    needed = {};
    bound = std::make_unique<QObject>();
    // This parameter alone tells the kinds of cameras apart; what family the camera names plays no part.
    needed.frameABSelector = params->GetEnum("FrameAB_Selector", nullptr);
    hasFrameAB = needed.frameABSelector;
    frameBSelected = false;
    frameMode = OnlyFrameA;
    if (hasFrameAB) {
        subscribe(needed.frameABSelector);
        frameBSelected = textOf(needed.frameABSelector) != QLatin1String("FrameA");
        needed.frameMode = params->GetEnum("FrameMode", nullptr);
        if (needed.frameMode) {
            subscribe(needed.frameMode);
            setFrameMode(textOf(needed.frameMode));
        }
    }
    for (const auto &number : liveNumbers)
        needed.*number.param = params->GetInt(number.name, nullptr);
    for (const auto &text : aboutTexts)
        needed.*text.param = params->GetString(text.name, nullptr);
    needed.sensorType = params->GetEnum("SensorType", nullptr);
    for (const auto &number : aboutNumbers)
        needed.*number.param = params->GetInt(number.name, nullptr);
}

void MoxCamConfigPrivate::updateTemperature()
{
    if (needed.temperature)
        ui->lineEditTemperature->setText(textOf(needed.temperature));
}

void MoxCamConfigPrivate::updateFrameInfo(const Column &column)
{
    QString size;
    if (needed.width)
        size = textOf(needed.width);
    if (needed.height)
        size += QLatin1Char('x') + textOf(needed.height);
    column.size->setText(size);
    if (needed.exposureTime)
        column.exposureTime->setText(textOf(needed.exposureTime));
    if (needed.frameTime) {
        const std::int64_t time = needed.frameTime->GetValue(nullptr);
        column.frameTime->setText(QString::number(time));
        column.fps->setText(QString::number(time == 0 ? 0 : 1000000.0 / double(time), 'f', 2));
    }
}

void MoxCamConfigPrivate::updateFrameAInfo()
{
    updateFrameInfo(columns()[0]);
}

void MoxCamConfigPrivate::updateFrameBInfo()
{
    updateFrameInfo(columns()[1]);
}

/** False when the window is gone or has let go of its parameters meanwhile. */
bool MoxCamConfigPrivate::selectFrame(const char *frame)
{
    const QPointer<QObject> same(bound.get());
    if (needed.frameABSelector)
        needed.frameABSelector->SetValueStr(frame);
    return same;
}

// The camera sees two writes, and its selector ends where it has been. What the writes tell the sink changes nothing
// about the order.
void MoxCamConfigPrivate::updateBoth()
{
    if (frameBSelected) {
        updateFrameBInfo();
        if (!selectFrame("FrameA"))
            return;
        updateFrameAInfo();
        selectFrame("FrameB");
    } else {
        updateFrameAInfo();
        if (!selectFrame("FrameB"))
            return;
        updateFrameBInfo();
        selectFrame("FrameA");
    }
}

void MoxCamConfigPrivate::updateStatus()
{
    QString text = QStringLiteral("Disconnected");
    if (params)
        text = needed.modelName ? textOf(needed.modelName) : QStringLiteral("Unknown");
    statusText->setText(text);
    const QString icon = params ? QStringLiteral(":/icons/connected.ico") : QStringLiteral(":/icons/disconnected.ico");
    statusIcon->setPixmap(QIcon(icon).pixmap(16)); // not QPixmap: the file holds the picture in several sizes
}

void MoxCamConfigPrivate::adjustAbout()
{
    for (const auto &text : aboutTexts)
        show(needed.*text.param, aboutUi.get()->*text.label);
    for (const auto &number : aboutNumbers)
        show(needed.*number.param, aboutUi.get()->*number.label);
    show(needed.sensorType, aboutUi->lblSensorType);
}

} // namespace MoxGui
