#include "moxcamconfigtriggerdialog.h"

#include "deviceparams.h"
#include "moxcamconfigtriggerdialog_p.h"

#include "ui_moxcamconfigtriggerdialog.h"

namespace MoxGui {

MoxCamConfigTriggerDialogPrivate::MoxCamConfigTriggerDialogPrivate()
    : ui(std::make_unique<Ui_MoxCamConfigTriggerDialog>())
{ }

MoxCamConfigTriggerDialogPrivate::~MoxCamConfigTriggerDialogPrivate() = default;

void MoxCamConfigTriggerDialogPrivate::init(MoxCamConfigTriggerDialog *dialog, MoxCam::Device *newDevice)
{
    if (!q) {
        q = dialog;
        ui->setupUi(q);
    }
    mapper.clearMappings();
    bound = std::make_unique<QObject>();
    comboBoxes.clear();
    params = paramsOf(newDevice);
    q->setEnabled(params);
    if (!params)
        return;

    initCheckBox();
    initComboBoxes();
    mapper.mapCommandParam(params->GetCommand("TriggerSoftware", nullptr), ui->pushBtnSoftwareTrigger, nullptr);
    enableControls();
}

void MoxCamConfigTriggerDialogPrivate::initCheckBox()
{
    // The binding first: it takes all connections from the control.
    mapper.mapEnumParam(params->GetEnum("TriggerMode", nullptr), ui->chBoxTriggerEnable);
    QObject::connect(ui->chBoxTriggerEnable, &QCheckBox::stateChanged, bound.get(), [this] { enableControls(); });
}

void MoxCamConfigTriggerDialogPrivate::initComboBoxes()
{
    const auto map = [this](const char *name, QComboBox *comboBox) {
        if (mapper.mapEnumParam(params->GetEnum(name, nullptr), comboBox))
            comboBoxes.append(comboBox);
    };
    map("TriggerSource", ui->cmBoxTriggerSource);
    QObject::connect(ui->cmBoxTriggerSource, QOverload<int>::of(&QComboBox::currentIndexChanged), bound.get(),
                     [this] { enableSoftwareTrigger(); });
    map("TriggerActivation", ui->cmBoxTriggerEdge);
    map("TriggerDebounce", ui->cmBoxTriggerDebounce);
}

/** By the switch alone. Whether the camera lets a parameter write tells itself with the parameter's next update. */
void MoxCamConfigTriggerDialogPrivate::enableControls()
{
    for (QComboBox *comboBox : qAsConst(comboBoxes))
        comboBox->setEnabled(ui->chBoxTriggerEnable->isChecked());
    enableSoftwareTrigger();
}

/** Also on a camera without the command, where the button does nothing. */
void MoxCamConfigTriggerDialogPrivate::enableSoftwareTrigger()
{
    ui->pushBtnSoftwareTrigger->setEnabled(ui->chBoxTriggerEnable->isChecked()
                                           && ui->cmBoxTriggerSource->currentText() == QLatin1String("Software"));
}

MoxCamConfigTriggerDialog::MoxCamConfigTriggerDialog(MoxCam::Device *device, QWidget *parent)
    : QDialog(parent), d(std::make_unique<MoxCamConfigTriggerDialogPrivate>())
{
    d->init(this, device);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

MoxCamConfigTriggerDialog::~MoxCamConfigTriggerDialog() = default;

void MoxCamConfigTriggerDialog::SetDevice(MoxCam::Device *device)
{
    d->init(this, device);
}

void MoxCamConfigTriggerDialog::closeEvent(QCloseEvent *event)
{
    Q_EMIT closing();
    QDialog::closeEvent(event);
}

} // namespace MoxGui
