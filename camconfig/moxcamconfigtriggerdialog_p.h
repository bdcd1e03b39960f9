#ifndef MOX_MOXCAMCONFIGTRIGGERDIALOG_P_H
#define MOX_MOXCAMCONFIGTRIGGERDIALOG_P_H

#include "moxcamconfigmapper.h"

#include <MoxCameraApi/MoxCam.h>

#include <memory>

class Ui_MoxCamConfigTriggerDialog;

namespace MoxGui {

class MoxCamConfigTriggerDialog;

/**
 * What stands behind the trigger dialog: its form, the bindings, and which controls are open.
 *
 * Owned by the dialog. GUI thread only.
 */
class MoxCamConfigTriggerDialogPrivate final
{
public:
    MoxCamConfigTriggerDialogPrivate();
    ~MoxCamConfigTriggerDialogPrivate();
    Q_DISABLE_COPY(MoxCamConfigTriggerDialogPrivate)

    /** Takes up a device, or none for null; on the first call sets up the form. */
    void init(MoxCamConfigTriggerDialog *dialog, MoxCam::Device *newDevice);

private:
    void initCheckBox();
    void initComboBoxes();
    void enableControls();
    void enableSoftwareTrigger();

    MoxCamConfigTriggerDialog *q = nullptr; // null until init()
    MoxGenParam::Array *params = nullptr; // null with no device, and with one that gives none
    std::unique_ptr<Ui_MoxCamConfigTriggerDialog> ui;
    MoxCamConfigMapper mapper;
    std::unique_ptr<QObject> bound; // ends the dialog's own connections: with the device, and before the controls
    QVector<QComboBox *> comboBoxes; // those whose parameter the camera has
};

} // namespace MoxGui

#endif
