#include "moxcamconfigcolordialog.h"

#include "cutsignals.h"
#include "deviceparams.h"
#include "moxcamconfigcolordialog_p.h"
#include "popupsize.h"

#include "ui_moxcamconfigcolordialog.h"

#include <QLayout>

namespace MoxGui {

MoxCamConfigColorDialogPrivate::MoxCamConfigColorDialogPrivate() : ui(std::make_unique<Ui_MoxCamConfigColorDialog>())
{ }

// The subscriptions to the coefficients are not ended here.
MoxCamConfigColorDialogPrivate::~MoxCamConfigColorDialogPrivate() = default;

bool MoxCamConfigColorDialogPrivate::init(MoxCamConfigColorDialog *dialog, MoxCam::Device *newDevice)
{
    if (!q) {
        ui->setupUi(dialog);
        q = dialog;
        // The statistics hang on red alone.
        coefficients = {{{QStringLiteral("RedCoefficient"),
                          ui->spBoxRed,
                          ui->pushBtnRedUnity,
                          ui->lblRedCoef,
                          {ui->pushBtnRedUnity, ui->grBoxStatistics}},
                         {QStringLiteral("GreenCoefficient"),
                          ui->spBoxGreen,
                          ui->pushBtnGreenUnity,
                          ui->lblGreenCoef,
                          {ui->pushBtnGreenUnity}},
                         {QStringLiteral("BlueCoefficient"),
                          ui->spBoxBlue,
                          ui->pushBtnBlueUnity,
                          ui->lblBlueCoef,
                          {ui->pushBtnBlueUnity}}}};
    }

    device = newDevice;
    mapper.clearMappings();
    for (const Coefficient &coefficient : coefficients)
        cutSignals(coefficient.unity);
    params = paramsOf(device);
    q->setEnabled(params);
    if (!params)
        return false;

    const QFontMetrics buttonMetrics = ui->pushBtnRedUnity->fontMetrics();
    const int buttonWidth = buttonMetrics.horizontalAdvance(ui->pushBtnRedUnity->text())
        + 2 * buttonMetrics.horizontalAdvance(QLatin1Char('_'));
    for (const Coefficient &coefficient : coefficients) {
        coefficient.unity->setMaximumWidth(buttonWidth);
        QObject::connect(coefficient.unity, &QAbstractButton::clicked, coefficient.spinBox,
                         [spinBox = coefficient.spinBox] { spinBox->setValue(256); });
    }
    for (const Coefficient &coefficient : coefficients) {
        MoxGenParam::Int *param = params->GetInt(coefficient.name.toUtf8().constData(), nullptr);
        if (mapper.mapIntParam(param, coefficient.spinBox, coefficient.companions)) {
            // Subscribed once, beside the mapper.
            param->UnregisterEventSink(this);
            param->RegisterEventSink(this);
        }
    }
    mapper.mapEnumParam(params->GetEnum("BalanceWhiteAuto", nullptr), ui->cmBoxWhiteBalance);
    mapper.mapEnumParam(params->GetEnum("AutoTrackingSpeed", nullptr), ui->cmBoxTrackingSpeed);

    const QFontMetrics labelMetrics = ui->lblRedCoef->fontMetrics();
    const int labelWidth = labelMetrics.horizontalAdvance(QString::number(ui->spBoxRed->maximum()))
        + labelMetrics.horizontalAdvance(QLatin1Char(' '));
    for (const Coefficient &coefficient : coefficients) {
        coefficient.label->setFixedWidth(labelWidth);
        coefficient.label->setText(QString::number(coefficient.spinBox->value()));
    }
    return true;
}

void MoxCamConfigColorDialogPrivate::OnParameterUpdate(MoxGenParam::Param *param)
{
    if (!device || !param->IsReadable())
        return;
    auto *integer = dynamic_cast<MoxGenParam::Int *>(param);
    if (!integer)
        return;
    const QString name = QString::fromUtf8(param->GetName());
    for (const Coefficient &coefficient : coefficients) {
        if (name == coefficient.name)
            coefficient.label->setText(QString::number(integer->GetValue(nullptr)));
    }
}

MoxCamConfigColorDialog::MoxCamConfigColorDialog(MoxCam::Device *device, QWidget *parent)
    : QDialog(parent), d(std::make_unique<MoxCamConfigColorDialogPrivate>())
{
    d->init(this, device);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

MoxCamConfigColorDialog::~MoxCamConfigColorDialog() = default;

bool MoxCamConfigColorDialog::SetDevice(MoxCam::Device *device)
{
    return d->init(this, device);
}

void MoxCamConfigColorDialog::closeEvent(QCloseEvent *event)
{
    Q_EMIT closing();
    QDialog::closeEvent(event);
}

void MoxCamConfigColorDialog::showEvent(QShowEvent *event)
{
    for (QtMoxSpinBox *box : {d->ui->spBoxRed, d->ui->spBoxGreen, d->ui->spBoxBlue})
        box->resizeSlider(popupSize(*box).transposed()); // the slider stands upright
    QDialog::showEvent(event);
}

} // namespace MoxGui
