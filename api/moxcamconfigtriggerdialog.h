// A dialog for a camera's trigger.
#ifndef MOXCAMCONFIGTRIGGERDIALOG_H
#define MOXCAMCONFIGTRIGGERDIALOG_H

#include "moxcameraguiapi_global.h"

#include <QtWidgets/QDialog>

#include <memory>

namespace MoxCam {
class Device;
}

namespace MoxGui {

class MoxCamConfigTriggerDialogPrivate;

/**
 * Switches a camera's trigger, sets its source, edge and debounce time, and fires software triggers. Source, edge and
 * debounce are open while the trigger is on, the button while its source is "Software" besides.
 *
 * What the user changes is written to the camera at once, and what changes on the camera shows. A control whose
 * parameter the camera lacks is disabled, but for the button, which does nothing then; so is one that the camera has just
 * reported as not writable. A refused write and a software trigger that fails are told in a message box.
 *
 * A device must be valid as long as the dialog has it: until it is given another one or null, or is deleted. The dialog
 * subscribes to parameters of the device and never undoes that. Once it has another device, the one before must send no
 * parameter updates any more, which would pass for those of the other. Of a deleted dialog the open SDK drops the
 * subscriptions by itself; with another SDK the application releases every device that the dialog has had, or sees to it
 * that none of them sends updates.
 *
 * Needs a QApplication. All of it is used on the GUI thread, where the device must send its parameter updates too.
 */
class MOXGUI_EXPORT MoxCamConfigTriggerDialog : public QDialog
{
    Q_OBJECT

public:
    /** Takes up @p device, which stays the caller's, or none for null. @p parent may be null. Shows nothing yet. */
    explicit MoxCamConfigTriggerDialog(MoxCam::Device *device, QWidget *parent = nullptr);
    /** Releases no device and undoes no subscription, as told above. */
    ~MoxCamConfigTriggerDialog() override;

    /**
     * Configures @p device from now on, which stays the caller's. For null, and for a device that does not give its
     * parameters, the dialog is disabled as a whole. The same device may be given again, which reads everything anew.
     */
    void SetDevice(MoxCam::Device *device);

Q_SIGNALS:
    /** The dialog is being closed. */
    void closing();

protected:
    /** Emits closing(). */
    void closeEvent(QCloseEvent *event) override;

private:
    Q_DISABLE_COPY(MoxCamConfigTriggerDialog)

    std::unique_ptr<MoxCamConfigTriggerDialogPrivate> const d;
};

} // namespace MoxGui

#endif
