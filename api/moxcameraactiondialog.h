// A console that sends GigE Vision action commands.
#ifndef MOXCAMERAACTIONDIALOG_H
#define MOXCAMERAACTIONDIALOG_H

#include "moxcameraguiapi_global.h"

#include <QtWidgets/QDialog>

#include <memory>

QT_BEGIN_NAMESPACE
class QSettings;
QT_END_NAMESPACE

namespace MoxCam {
class System;
}

namespace MoxGui {

class MoxCameraActionDialogPrivate;

/**
 * Sends an action command through each GigE Vision interface that the user has ticked, one after the other, and lists
 * the addresses that acknowledged it. Keys, group mask and time are the user's; what does not read as a number is sent
 * as 0. A camera that does not answer shows as a missing line only, and an interface without action commands is passed
 * over.
 *
 * Sending blocks the GUI thread, up to 3 seconds for each ticked interface: until as many acknowledgements have come as
 * the user waits for. They are counted over all dialogs and sends of the process, so once that many have come, later
 * sends do not wait, and list what is there at once.
 *
 * It may be deleted at any time on the GUI thread. Acknowledgements that come later do no harm.
 *
 * Needs a QApplication. All of it is used on the GUI thread. See also ActionCameraA().
 */
class MOXGUI_EXPORT MoxCameraActionDialog : public QDialog
{
    Q_OBJECT

public:
    /**
     * Lists the interfaces that @p system has now, none of them ticked, and loads the state from @p settings.
     *
     * @p system must not be null, and must outlive the dialog. @p parent may be null. @p settings may be null, stays the
     * caller's and must outlive the dialog otherwise. What the SDK throws passes through.
     */
    MoxCameraActionDialog(MoxCam::System *system, QWidget *parent, QSettings *settings);
    /** Saves the state. */
    ~MoxCameraActionDialog() override;

    /**
     * Fills the controls from the group of the settings that is named after objectName(): "devKey", "groupKey",
     * "groupMask", "reqAck", "scheduled", "cntWaitAck" and "sTime", with a default for each that is missing. Which
     * interfaces are ticked is not part of it. False, and nothing is changed, when the dialog has no settings.
     */
    bool LoadStateFromGlobalSettings();
    /** Writes what LoadStateFromGlobalSettings() reads. False when the dialog has no settings. */
    bool SaveStateToGlobalSettings();

private:
    Q_DISABLE_COPY(MoxCameraActionDialog)

    std::unique_ptr<MoxCameraActionDialogPrivate> const d;
    QSettings *const settings; // the caller's; may be null
};

} // namespace MoxGui

#endif
