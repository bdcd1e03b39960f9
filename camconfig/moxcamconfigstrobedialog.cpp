#include "moxcamconfigstrobedialog.h"

#include "deviceparams.h"
#include "diagram.h"
#include "moxcamconfigstrobedialog_p.h"
#include "qtmoxslider.h"
#include "qtmoxsliderspinbox.h"

#include "ui_moxcamconfigstrobedialog.h"

#include <QCoreApplication>
#include <QLayout>

#include <algorithm>

namespace MoxGui {

MoxCamConfigStrobeDialogPrivate::MoxCamConfigStrobeDialogPrivate() : ui(std::make_unique<Ui_MoxCamConfigStrobeDialog>())
{ }

MoxCamConfigStrobeDialogPrivate::~MoxCamConfigStrobeDialogPrivate() = default;

bool MoxCamConfigStrobeDialogPrivate::init(MoxCamConfigStrobeDialog *dialog, MoxCam::Device *newDevice)
{
    if (!q) {
        ui->setupUi(dialog);
        q = dialog;
        ui->lblStrobeImage->setPixmap(diagram(QStringLiteral(":/images/strobeBothExp.bmp")));
        const QString delay =
            QCoreApplication::translate("MoxCamConfigStrobeDialog", "Delay [%1s]:").arg(QChar(0x03BC));
        const QString width =
            QCoreApplication::translate("MoxCamConfigStrobeDialog", "Width [%1s]:").arg(QChar(0x03BC));
        for (QtMoxSliderSpinBox *box : {ui->spBoxStrobe1Delay, ui->spBoxStrobe2Delay})
            box->setLeftLabelText(delay);
        for (QtMoxSliderSpinBox *box : {ui->spBoxStrobe1Width, ui->spBoxStrobe2Width})
            box->setLeftLabelText(width);
        // Sliders of one group start at the same place.
        const int labelWidth = std::max(ui->spBoxStrobe1Delay->leftLabel()->sizeHint().width(),
                                        ui->spBoxStrobe1Width->leftLabel()->sizeHint().width());
        for (const QtMoxSliderSpinBox *box :
             {ui->spBoxStrobe1Delay, ui->spBoxStrobe1Width, ui->spBoxStrobe2Delay, ui->spBoxStrobe2Width})
            box->leftLabel()->setMinimumWidth(labelWidth);
    }

    mapper.clearMappings();
    params = paramsOf(newDevice);
    q->setEnabled(params);
    if (!params)
        return false;

    bind("Strobe1Mode", ui->cmBoxStrobe1Mode);
    bind("Strobe2Mode", ui->cmBoxStrobe2Mode);
    bindReference("Strobe1Reference", ui->cmBoxStrobe1Ref);
    bindReference("Strobe2Reference", ui->cmBoxStrobe2Ref);
    bind("OUT1Polarity", ui->cmBoxOut1Polarity);
    bind("OUT2Polarity", ui->cmBoxOut2Polarity);
    bind("OUT1Selector", ui->cmBoxOut1Selector);
    bind("OUT2Selector", ui->cmBoxOut2Selector);
    setImageState();

    const auto bindTime = [this](const char *name, QtMoxSliderSpinBox *box) {
        // First the scale, so that the range is laid out on it.
        box->slider()->setScaleType(QtMoxSlider::Log10Scale);
        mapper.mapIntParam(params->GetInt(name, nullptr), box, nullptr);
    };
    bindTime("Strobe1Delay", ui->spBoxStrobe1Delay);
    bindTime("Strobe2Delay", ui->spBoxStrobe2Delay);
    bindTime("Strobe1Width", ui->spBoxStrobe1Width);
    bindTime("Strobe2Width", ui->spBoxStrobe2Width);
    return true;
}

bool MoxCamConfigStrobeDialogPrivate::bind(const char *name, QComboBox *comboBox)
{
    return mapper.mapEnumParam(params->GetEnum(name, nullptr), comboBox);
}

/** Behind the binding, which takes the connections that were there before. Unbound, the text never changes. */
void MoxCamConfigStrobeDialogPrivate::bindReference(const char *name, QComboBox *comboBox)
{
    if (bind(name, comboBox))
        QObject::connect(comboBox, &QComboBox::currentTextChanged, comboBox, [this] { setImageState(); });
}

void MoxCamConfigStrobeDialogPrivate::setImageState()
{
    if (!ui->cmBoxStrobe1Ref->isEnabled() || !ui->cmBoxStrobe2Ref->isEnabled())
        return;
    // Whatever else the camera offers counts as the start of the readout.
    const QString exposure = QStringLiteral("ExposureStart");
    const bool exposure1 = ui->cmBoxStrobe1Ref->currentText() == exposure;
    const bool exposure2 = ui->cmBoxStrobe2Ref->currentText() == exposure;
    QString image = QStringLiteral(":/images/strobeBothRead.bmp");
    if (exposure1 && exposure2)
        image = QStringLiteral(":/images/strobeBothExp.bmp");
    else if (exposure1)
        image = QStringLiteral(":/images/strobe1Exp_strobe2Read.bmp");
    else if (exposure2)
        image = QStringLiteral(":/images/strobe1Read_strobe2Exp.bmp");
    ui->lblStrobeImage->setPixmap(diagram(image));
}

MoxCamConfigStrobeDialog::MoxCamConfigStrobeDialog(MoxCam::Device *device, QWidget *parent)
    : QDialog(parent), d(std::make_unique<MoxCamConfigStrobeDialogPrivate>())
{
    d->init(this, device);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

MoxCamConfigStrobeDialog::~MoxCamConfigStrobeDialog() = default;

bool MoxCamConfigStrobeDialog::SetDevice(MoxCam::Device *device)
{
    return d->init(this, device);
}

void MoxCamConfigStrobeDialog::closeEvent(QCloseEvent *event)
{
    Q_EMIT closing();
    QDialog::closeEvent(event);
}

} // namespace MoxGui
