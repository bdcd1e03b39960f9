// A dialog for a camera's pulse generator.
#ifndef MOXCAMCONFIGPULSEDIALOG_H
#define MOXCAMCONFIGPULSEDIALOG_H

#include "moxcameraguiapi_global.h"

#include <QtWidgets/QDialog>

#include <memory>

namespace MoxCam {
class Device;
}

namespace MoxGui {

class MoxCamConfigPulseDialogPrivate;

/**
 * Sets granularity, period, width and number of the pulses of a camera's internal generator, and starts and stops it. Two
 * fields tell what follows from period and width, both taken as microseconds whatever the granularity: the delay from a
 * pulse to the next one, which is negative for a width above the period, and the frequency in hertz.
 *
 * What the user changes is written to the camera at once, and what changes on the camera shows; but caption and light of
 * the start button follow the user's clicks and SetDevice() alone, not a generator that starts or stops by itself. A
 * control whose parameter the camera lacks, or does not let write at the moment, is disabled. A refused write is told in a
 * message box.
 *
 * A device must be valid as long as the dialog has it: until it is given another one or null, or is deleted. The dialog
 * subscribes to parameters of the device and never undoes that. Once it has another device, the one before must send no
 * parameter updates any more, which would pass for those of the other. Of a deleted dialog the open SDK drops the
 * subscriptions by itself; with another SDK the application releases every device that the dialog has had, or sees to it
 * that none of them sends updates.
 *
 * Needs a QApplication. All of it is used on the GUI thread, where the device must send its parameter updates too.
 */
class MOXGUI_EXPORT MoxCamConfigPulseDialog : public QDialog
{
    Q_OBJECT

public:
    /** Takes up @p device, which stays the caller's, or none for null. @p parent may be null. Shows nothing yet. */
    explicit MoxCamConfigPulseDialog(MoxCam::Device *device, QWidget *parent = nullptr);
    /** Releases no device and undoes no subscription, as told above. */
    ~MoxCamConfigPulseDialog() override;

    /**
     * Configures @p device from now on, which stays the caller's. True if it gives its parameters; otherwise, and for
     * null, the dialog is disabled as a whole. The same device may be given again, which reads everything anew.
     */
    bool SetDevice(MoxCam::Device *device);

Q_SIGNALS:
    /** The dialog is being closed. */
    void closing();

protected:
    /** Emits closing(). */
    void closeEvent(QCloseEvent *event) override;
    /** Sizes the slider pop-ups and the start button's light. */
    void showEvent(QShowEvent *event) override;

private:
    Q_DISABLE_COPY(MoxCamConfigPulseDialog)

    std::unique_ptr<MoxCamConfigPulseDialogPrivate> const d;
};

} // namespace MoxGui

#endif
