// A main window that shows a camera's live figures and opens its configuration dialogs.
#ifndef MOXCAMCONFIG_H
#define MOXCAMCONFIG_H

#include "moxcameraguiapi_global.h"

#include <QtWidgets/QMainWindow>

#include <memory>

namespace MoxCam {
class Device;
}

namespace MoxGui {

class MoxCamConfigPrivate;

/**
 * Shows frame size, frame rate, frame and exposure time and temperature of a camera, once a second, with a column for
 * each frame where the camera alternates between frames A and B. Its buttons open the configuration dialogs; its menu
 * connects to a camera that the user selects, and disconnects again.
 *
 * The window follows its camera through unplugging and replugging by itself, at most a second later. On a camera with
 * frames A and B it selects the other frame and goes back, to read its figures: when it takes up the camera, and when
 * the frame mode becomes one that is neither A nor B. Its dialogs, which it makes at once, do what their classes tell.
 *
 * A device given from outside stays the caller's. It must be valid until the window has let go of it: until SetDevice()
 * has given the window another one or null, the user has disconnected, or the window is gone. A device that the user
 * selected here belongs to the window, which releases it.
 *
 * The window ends its own subscriptions when it lets go of a device, the dialogs never end theirs: a device before must
 * send no parameter updates any more once there is another one. After the window is deleted the open SDK sees to that by
 * itself; with another SDK the application releases every device that it has given, or keeps it from sending updates.
 *
 * It may be deleted at any time on the GUI thread, also while its camera selector is open. The exception is the box
 * that tells of a refused change: Qt is still inside the control then, so whoever wants the window gone hides it and
 * deletes it when the box is closed. Needs a QApplication. All of it is used on the GUI thread, where the device must
 * send its parameter updates too.
 */
class MOXGUI_EXPORT MoxCamConfig : public QMainWindow
{
    Q_OBJECT

public:
    /**
     * Takes up @p device. With a null @p device the user selects one first, in a modal dialog, which is skipped when the
     * SDK has no camera system; cancelling it gives a window without a camera. A message box comes up here when the
     * camera refuses the choice of a frame. Whoever deletes @p parent, which may be null, while one of them is open
     * deletes this window with it: the constructor still returns then.
     *
     * With empty @p flags the window has no maximize button. Its size is that of its contents in any case. What the
     * camera selector throws passes through.
     */
    explicit MoxCamConfig(MoxCam::Device *device, QWidget *parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
    /** Lets go of the device, and releases it if it is the window's own. */
    ~MoxCamConfig() override;

    /**
     * Shows @p device from now on, or none for null, and lets go of the one before. A device that the window has opened
     * itself is let go of too, but neither this call nor the window releases it any more.
     */
    void SetDevice(MoxCam::Device *device);

protected:
    /** Reads the temperature, so that the window does not open with an old one. */
    void showEvent(QShowEvent *event) override;

private:
    Q_DISABLE_COPY(MoxCamConfig)

    std::unique_ptr<MoxCamConfigPrivate> const d;
};

} // namespace MoxGui

#endif
