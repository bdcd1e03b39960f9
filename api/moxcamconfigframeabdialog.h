// A dialog for the two alternating frames of a camera.
#ifndef MOXCAMCONFIGFRAMEABDIALOG_H
#define MOXCAMCONFIGFRAMEABDIALOG_H

#include "moxcameraguiapi_global.h"

#include <QtWidgets/QDialog>

#include <memory>

namespace MoxCam {
class Device;
}

namespace MoxGui {

class MoxCamConfigFrameABDialogPrivate;

/**
 * Sets what shapes the frames A and B of a camera that can send both: which of them are sent, shutter and conversion,
 * and for each frame exposure, frame period, line time, size, gain, black level and wide dynamic range. The controls are
 * there once and stand on the tab of the frame that is chosen; choosing a tab chooses the frame on the camera.
 *
 * What the user changes is written to the camera at once, and what changes on the camera shows. A control whose
 * parameter the camera lacks, or does not let write at the moment, is disabled. A refused write is told in a message box,
 * but for the digital gain, whose refusals are not told. Times are shown in microseconds, in whole ones, where the camera
 * counts lines and clocks. A pixel clock that cannot be read counts as 160 MHz, one that the camera does not have as that
 * of the camera before, or as 160 MHz.
 *
 * Choosing another frame, also by the main window or another program, changes the values of many parameters at once, and
 * the dialog answers them one by one. Where the frames differ, this can change the one that is chosen: its digital gain
 * goes to the nearest eighth, its fine part may become that of the frame before, and an exposure that does not fit the
 * limits of the frame before is shortened. Who sets the frames apart does so through the parameters, without this dialog.
 *
 * A device must be valid as long as the dialog has it: until it is given another one or null, or is deleted. The dialog
 * subscribes to parameters of the device and never undoes that. Once it has another device, the one before must send no
 * parameter updates any more, which would pass for those of the other. Of a deleted dialog the open SDK drops the
 * subscriptions by itself; with another SDK the application releases every device that the dialog has had, or sees to it
 * that none of them sends updates.
 *
 * Needs a QApplication. All of it is used on the GUI thread, where the device must send its parameter updates too.
 */
class MOXGUI_EXPORT MoxCamConfigFrameABDialog : public QDialog
{
    Q_OBJECT

public:
    /**
     * Takes up @p device as SetDevice() does. @p parent may be null. Shows nothing yet, but for a message box when the
     * camera refuses the choice of a frame; whoever deletes @p parent meanwhile deletes this dialog with it.
     */
    explicit MoxCamConfigFrameABDialog(MoxCam::Device *device, QWidget *parent = nullptr);
    /** Releases no device and undoes no subscription, as told above. */
    ~MoxCamConfigFrameABDialog() override;

    /**
     * Configures @p device from now on, which stays the caller's. True if it gives its parameters; otherwise, and for
     * null, the dialog is disabled as a whole. The same device may be given again, which reads everything anew. Where
     * only one of the frames is sent, that frame is chosen on the camera.
     */
    bool SetDevice(MoxCam::Device *device);

Q_SIGNALS:
    /** The dialog is being closed. */
    void closing();

protected:
    /** Emits closing(). */
    void closeEvent(QCloseEvent *event) override;
    /** Sizes the slider pop-ups. */
    void showEvent(QShowEvent *event) override;

private:
    Q_DISABLE_COPY(MoxCamConfigFrameABDialog)

    std::unique_ptr<MoxCamConfigFrameABDialogPrivate> const d;
};

} // namespace MoxGui

#endif
