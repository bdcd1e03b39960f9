// A dialog that picks a camera from everything that a camera system can see.
#ifndef MOXCAMERASELECTORDIALOG_H
#define MOXCAMERASELECTORDIALOG_H

#include "moxcameraguiapi_global.h"

#include <QtWidgets/QDialog>

#include <memory>

namespace MoxCam {
class DeviceInfo;
class System;
} // namespace MoxCam

namespace MoxGui {

class MoxCameraSelectorDialogPrivate;

/**
 * Lists interfaces and their cameras in a tree and lets the user select one camera. It can watch the system from a
 * thread of its own and then shows cameras as they come and go, keeping the current item as long as it is there.
 *
 * For GigE Vision it has two address tools: "Set IP Address" assigns the current camera an address, and "Connect by IP
 * Address", in an interface's context menu, accepts the dialog with the camera that answers at an address. Both block
 * the GUI thread while they wait for the network. The address asked for last is the one thing kept on disk: QSettings
 * "Moxara" / "MoxCameraGuiApi", key "CameraSelector/IPAddress".
 *
 * It may be deleted at any time on the GUI thread, also while a dialog of these tools is open.
 *
 * Needs a QApplication. All of it is used on the GUI thread. See also SelectCameraA(), which runs it modally.
 */
class MOXGUI_EXPORT MoxCameraSelectorDialog : public QDialog
{
    Q_OBJECT

public:
    /**
     * Enumerates @p system before it returns, which takes the time of one discovery per interface.
     *
     * @p system must not be null and must outlive the dialog. @p parent may be null. With @p poll the dialog starts
     * out watching the system, once a second. What the SDK throws passes through.
     */
    MoxCameraSelectorDialog(MoxCam::System *system, QWidget *parent, bool poll);
    /** Waits for the watching thread, up to a second and the time of one enumeration. */
    ~MoxCameraSelectorDialog() override;

    /**
     * The camera that was reached by its address; otherwise the one that is current in the tree, and null when an
     * interface or nothing is. It belongs to the system.
     */
    MoxCam::DeviceInfo *selectedCamera() const;
    /** Ignores its argument and changes nothing. */
    void setSelectedCamera(MoxCam::DeviceInfo *camera);
    /** Whether the dialog watches the system. */
    bool isPollChecked();

private:
    Q_DISABLE_COPY(MoxCameraSelectorDialog)

    std::unique_ptr<MoxCameraSelectorDialogPrivate> const d;
};

} // namespace MoxGui

#endif
