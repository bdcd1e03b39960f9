#ifndef MOX_MOXCAMCONFIGPULSEDIALOG_P_H
#define MOX_MOXCAMCONFIGPULSEDIALOG_P_H

#include "moxcamconfigmapper.h"

#include <MoxCameraApi/MoxCam.h>

#include <memory>

class Ui_MoxCamConfigPulseDialog;

namespace MoxGui {

class MoxCamConfigPulseDialog;

/**
 * What stands behind the pulse generator's dialog: its form, the bindings, and the figures that follow from them.
 *
 * Owned by the dialog. GUI thread only.
 */
class MoxCamConfigPulseDialogPrivate final
{
public:
    MoxCamConfigPulseDialogPrivate();
    ~MoxCamConfigPulseDialogPrivate();
    Q_DISABLE_COPY(MoxCamConfigPulseDialogPrivate)

    /** Takes up a device, or none for null; on the first call builds the dialog. False when there are no parameters. */
    bool init(MoxCamConfigPulseDialog *dialog, MoxCam::Device *newDevice);
    /** Before the dialog is shown. */
    void adjustSizes();

private:
    void buildDialog();
    void bind();
    void bindTime(const char *name, QtMoxSpinBox *spinBox);
    void updateTiming();
    void setButtonState(bool checked);

    MoxCamConfigPulseDialog *q = nullptr; // null until init()
    MoxGenParam::Array *params = nullptr; // null with no device, and with one that gives none
    std::unique_ptr<Ui_MoxCamConfigPulseDialog> ui;
    QButtonGroup *modeGroup = nullptr; // child of the dialog
    MoxCamConfigMapper mapper;
    std::unique_ptr<QObject> bound; // ends the dialog's own connections: with the device, and before the controls
};

} // namespace MoxGui

#endif
