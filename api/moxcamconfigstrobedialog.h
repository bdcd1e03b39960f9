// A dialog for a camera's strobes and output lines.
#ifndef MOXCAMCONFIGSTROBEDIALOG_H
#define MOXCAMCONFIGSTROBEDIALOG_H

#include "moxcameraguiapi_global.h"

#include <QtWidgets/QDialog>

#include <memory>

namespace MoxCam {
class Device;
}

namespace MoxGui {

class MoxCamConfigStrobeDialogPrivate;

/**
 * Sets mode, reference, delay and width of a camera's two strobes, the times in microseconds on logarithmic sliders, and
 * polarity and source of its two output lines. A picture shows the strobes' timing for the references that are set.
 *
 * What the user changes is written to the camera at once, and what changes on the camera shows. A control whose
 * parameter the camera lacks, or does not let write at the moment, is disabled. A refused write is told in a message box.
 *
 * A device must be valid as long as the dialog has it: until it is given another one or null, or is deleted. The dialog
 * subscribes to parameters of the device and never undoes that. Once it has another device, the one before must send no
 * parameter updates any more, which would pass for those of the other. Of a deleted dialog the open SDK drops the
 * subscriptions by itself; with another SDK the application releases every device that the dialog has had, or sees to it
 * that none of them sends updates.
 *
 * Needs a QApplication. All of it is used on the GUI thread, where the device must send its parameter updates too.
 */
class MOXGUI_EXPORT MoxCamConfigStrobeDialog : public QDialog
{
    Q_OBJECT

public:
    /** Takes up @p device, which stays the caller's, or none for null. @p parent may be null. Shows nothing yet. */
    explicit MoxCamConfigStrobeDialog(MoxCam::Device *device, QWidget *parent = nullptr);
    /** Releases no device and undoes no subscription, as told above. */
    ~MoxCamConfigStrobeDialog() override;

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

private:
    Q_DISABLE_COPY(MoxCamConfigStrobeDialog)

    std::unique_ptr<MoxCamConfigStrobeDialogPrivate> const d;
};

} // namespace MoxGui

#endif
