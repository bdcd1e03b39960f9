#include "moxcamconfigpulsedialog.h"

#include "deviceparams.h"
#include "diagram.h"
#include "moxcamconfigpulsedialog_p.h"
#include "popupsize.h"
#include "qtmoxslider.h"

#include "ui_moxcamconfigpulsedialog.h"

#include <QButtonGroup>
#include <QCoreApplication>

namespace MoxGui {

MoxCamConfigPulseDialogPrivate::MoxCamConfigPulseDialogPrivate() : ui(std::make_unique<Ui_MoxCamConfigPulseDialog>())
{ }

MoxCamConfigPulseDialogPrivate::~MoxCamConfigPulseDialogPrivate() = default;

bool MoxCamConfigPulseDialogPrivate::init(MoxCamConfigPulseDialog *dialog, MoxCam::Device *newDevice)
{
    if (!q) {
        q = dialog;
        buildDialog();
    }
    mapper.clearMappings();
    bound = std::make_unique<QObject>();
    params = paramsOf(newDevice);
    q->setEnabled(params);
    if (!params)
        return false;

    bind();
    updateTiming();
    setButtonState(ui->pushBtnPulseEnable->isChecked());
    return true;
}

void MoxCamConfigPulseDialogPrivate::buildDialog()
{
    ui->setupUi(q);
    ui->label->setPixmap(diagram(QStringLiteral(":/images/pulseimage.bmp")));
    const QString suffix = QStringLiteral(" [%1s]:").arg(QChar(0x03BC));
    for (QLabel *label : {ui->lblPeriod, ui->lblWidth, ui->lblDelay})
        label->setText(label->text() + suffix);
    modeGroup = new QButtonGroup(q);
    modeGroup->addButton(ui->radioBtnContinious);
    modeGroup->addButton(ui->radioBtnSend);
    const int width = ui->lineEditFreq->fontMetrics().horizontalAdvance(QStringLiteral("1000000000.00000000"));
    ui->lineEditDelay->setMaximumWidth(width);
    ui->lineEditFreq->setMaximumWidth(width);
}

/** Each binding takes all connections from its control, so the dialog's own come after it. */
void MoxCamConfigPulseDialogPrivate::bind()
{
    mapper.mapEnumParam(params->GetEnum("PulseGenGranularity", nullptr), ui->cmBoxGranularity);
    bindTime("PulseGenPeriod", ui->spBoxPeriod);
    bindTime("PulseGenWidth", ui->spBoxWidth);
    ui->spBoxNumPulses->setSliderOrientation(Qt::Horizontal);
    mapper.mapIntParam(params->GetInt("PulseGenNumPulses", nullptr), ui->spBoxNumPulses);
    mapper.mapEnumParam(params->GetEnum("PulseGenMode", nullptr), modeGroup);
    mapper.mapBooleanParam(params->GetBoolean("PulseGenEnable", nullptr), ui->pushBtnPulseEnable);
    // At clicks only: a generator that the camera starts or stops moves the button and leaves caption and light alone.
    QObject::connect(ui->pushBtnPulseEnable, &QAbstractButton::clicked, bound.get(),
                     [this](bool checked) { setButtonState(checked); });
}

void MoxCamConfigPulseDialogPrivate::bindTime(const char *name, QtMoxSpinBox *spinBox)
{
    spinBox->slider()->setScaleType(QtMoxSlider::Log10Scale); // before the binding, which sets the range
    spinBox->setSliderOrientation(Qt::Horizontal);
    mapper.mapIntParam(params->GetInt(name, nullptr), spinBox);
    QObject::connect(spinBox, QOverload<int>::of(&QtMoxSpinBox::valueChanged), bound.get(), [this] { updateTiming(); });
}

/** The period counts as microseconds, whatever the granularity says. The delay is an int, and wraps like one. */
void MoxCamConfigPulseDialogPrivate::updateTiming()
{
    const int period = ui->spBoxPeriod->value();
    ui->lineEditDelay->setText(QString::number(int(unsigned(period) - unsigned(ui->spBoxWidth->value()))));
    ui->lineEditFreq->setText(QString::number(period == 0 ? 0.0 : 1000000.0 / period, 'f', 6));
}

void MoxCamConfigPulseDialogPrivate::setButtonState(bool checked)
{
    QPushButton *button = ui->pushBtnPulseEnable;
    const QKeySequence shortcut = button->shortcut(); // a new text takes it away
    button->setText(checked ? QCoreApplication::translate("MoxCamConfigPulseDialog", "Stop")
                            : QCoreApplication::translate("MoxCamConfigPulseDialog", "Start"));
    button->setShortcut(shortcut);
    const QIcon light(checked ? QStringLiteral(":/icons/greenball.ico") : QStringLiteral(":/icons/redball.ico"));
    ui->lblPulseEnable->setPixmap(light.pixmap(16)); // not QPixmap: the file holds the picture in several sizes
}

void MoxCamConfigPulseDialogPrivate::adjustSizes()
{
    for (QtMoxSpinBox *spinBox : {ui->spBoxPeriod, ui->spBoxWidth, ui->spBoxNumPulses})
        spinBox->resizeSlider(popupSize(*spinBox));
    const int height = ui->pushBtnPulseEnable->height();
    ui->lblPulseEnable->setMaximumSize(height, height);
}

MoxCamConfigPulseDialog::MoxCamConfigPulseDialog(MoxCam::Device *device, QWidget *parent)
    : QDialog(parent), d(std::make_unique<MoxCamConfigPulseDialogPrivate>())
{
    d->init(this, device);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

MoxCamConfigPulseDialog::~MoxCamConfigPulseDialog() = default;

bool MoxCamConfigPulseDialog::SetDevice(MoxCam::Device *device)
{
    return d->init(this, device);
}

void MoxCamConfigPulseDialog::closeEvent(QCloseEvent *event)
{
    Q_EMIT closing();
    QDialog::closeEvent(event);
}

void MoxCamConfigPulseDialog::showEvent(QShowEvent *event)
{
    d->adjustSizes();
    QDialog::showEvent(event);
}

} // namespace MoxGui
