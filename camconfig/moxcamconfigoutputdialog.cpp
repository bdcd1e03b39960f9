#include "moxcamconfigoutputdialog.h"

#include "deviceparams.h"
#include "moxcamconfigoutputdialog_p.h"
#include "popupsize.h"

#include "ui_moxcamconfigoutputdialog.h"

#include <QLayout>

namespace MoxGui {

MoxCamConfigOutputDialogPrivate::MoxCamConfigOutputDialogPrivate() : ui(std::make_unique<Ui_MoxCamConfigOutputDialog>())
{ }

MoxCamConfigOutputDialogPrivate::~MoxCamConfigOutputDialogPrivate() = default;

bool MoxCamConfigOutputDialogPrivate::init(MoxCamConfigOutputDialog *dialog, MoxCam::Device *newDevice)
{
    if (!q) {
        ui->setupUi(dialog);
        q = dialog;
        // The same in every language.
        ui->spBoxDpcDynThres->setLeftLabelText(QStringLiteral("Dyn.Thres.:"));
        ui->spBoxHpcDynThres->setLeftLabelText(QStringLiteral("Dyn.Thres.:"));
        // For Camera Link models: hidden for good, and bound below all the same.
        ui->groupBox->hide();
    }

    mapper.clearMappings();
    params = paramsOf(newDevice);
    q->setEnabled(params);
    if (!params)
        return false;

    mapper.mapEnumParam(params->GetEnum("PixelFormat", nullptr), ui->cmBoxPixelFormat);
    mapper.mapEnumParam(params->GetEnum("SensorADCBitDepth11", nullptr), ui->cmBoxTaps);
    mapper.mapEnumParam(params->GetEnum("SensorADCBitDepth", nullptr), ui->cmBoxDepth);
    mapper.mapEnumParam(params->GetEnum("TestPattern", nullptr), ui->cmBoxTestMode);
    mapper.mapEnumParam(params->GetEnum("LUTSelector", nullptr), ui->cmBoxLut);
    mapper.mapEnumParam(params->GetEnum("DefectPixelCorrection", nullptr), ui->cmBoxDpc);
    mapper.mapEnumParam(params->GetEnum("HotPixelCorrection", nullptr), ui->cmBoxHpc);
    mapper.mapIntParam(params->GetInt("DefectPixelThreshold", nullptr), ui->spBoxDpcDynThres);
    mapper.mapIntParam(params->GetInt("HotPixelThreshold", nullptr), ui->spBoxHpcDynThres);
    mapper.mapBooleanParam(params->GetBoolean("LUTEnable", nullptr), ui->chBoxEnableLut);
    mapper.mapBooleanParam(params->GetBoolean("ReverseX", nullptr), ui->chBoxHorMirror);
    mapper.mapBooleanParam(params->GetBoolean("ReverseY", nullptr), ui->chBoxVerMirror);
    return true;
}

MoxCamConfigOutputDialog::MoxCamConfigOutputDialog(MoxCam::Device *device, QWidget *parent)
    : QDialog(parent), d(std::make_unique<MoxCamConfigOutputDialogPrivate>())
{
    d->init(this, device);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

MoxCamConfigOutputDialog::~MoxCamConfigOutputDialog() = default;

bool MoxCamConfigOutputDialog::SetDevice(MoxCam::Device *device)
{
    return d->init(this, device);
}

void MoxCamConfigOutputDialog::closeEvent(QCloseEvent *event)
{
    Q_EMIT closing();
    QDialog::closeEvent(event);
}

void MoxCamConfigOutputDialog::showEvent(QShowEvent *event)
{
    for (QtMoxSpinBox *box : {d->ui->spBoxDpcDynThres, d->ui->spBoxHpcDynThres})
        box->resizeSlider(popupSize(*box).transposed()); // the slider stands upright
    QDialog::showEvent(event);
}

} // namespace MoxGui
