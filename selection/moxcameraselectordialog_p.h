#ifndef MOX_MOXCAMERASELECTORDIALOG_P_H
#define MOX_MOXCAMERASELECTORDIALOG_P_H

#include "privateslotforwarder.h"

#include <QString>

#include <atomic>
#include <memory>
#include <thread>

class DeviceTreeModel;
class QMenu;
class QModelIndex;
class QPoint;
class QPushButton;
class Ui_MoxCameraSelectorDialog;

namespace MoxCam {
class DeviceInfo;
class Interface;
class System;
} // namespace MoxCam

namespace MoxGenParam {
class Array;
}

namespace MoxGui {

class MoxCameraSelectorDialog;

/**
 * Makes the parameters of an interface speak of the camera in that row of the tree. The row counts even where the
 * interface has discovered anew for somebody else since, and has that place taken by another camera. False when refused.
 */
bool selectDevice(MoxGenParam::Array *params, int row);

/**
 * What stands behind the camera selector: form, model and poll thread.
 *
 * Owned by the dialog and destroyed before the dialog's children, so the thread, which ends with this object, never
 * outlives the model. Lives on the GUI thread but for pollThread(), which touches `polling`, `changed`,
 * DeviceTreeModel::checkNew() and the forwarder's signal, nothing else.
 */
class MoxCameraSelectorDialogPrivate
{
public:
    explicit MoxCameraSelectorDialogPrivate(bool poll);
    virtual ~MoxCameraSelectorDialogPrivate(); // nothing derives from it; virtual all the same
    Q_DISABLE_COPY(MoxCameraSelectorDialogPrivate)

    /** Sets up the form, enumerates the system, and starts polling when told to. Called once. */
    void Init(MoxCameraSelectorDialog *dialog, MoxCam::System *system);
    /** Follows the current item. @p previous is not used. */
    void onCurrentChanged(const QModelIndex &current, const QModelIndex &previous);
    /** Fills the information panels for a camera or an interface, or empties them for an invalid index. */
    void FillInfo(const QModelIndex &index);
    /** Lets the user assign the current camera an address. False when that failed, not when the user cancelled. */
    bool ForceIP();
    /** Lets the user name a camera of the current interface by its address, and accepts the dialog with it. As above. */
    bool ConnectByIP();
    /** Starts the poll thread, or ends it and waits for that, up to a second and the time of one enumeration. */
    void setPolling(bool poll);
    /** Enumerates anew. Nothing is current afterwards: unlike a poll, this does not put the current item back. */
    void rescan();
    /** Body of the poll thread. */
    void pollThread();

    PrivateSlotForwarder forwarder; // context of every connection made here: none of them outlives this object
    MoxCameraSelectorDialog *q = nullptr;
    std::unique_ptr<Ui_MoxCameraSelectorDialog> ui;
    QMenu *deviceMenu = nullptr; // child of the dialog
    QMenu *interfaceMenu = nullptr; // child of the dialog
    DeviceTreeModel *model = nullptr; // child of the dialog
    MoxCam::DeviceInfo *selected = nullptr; // reached by its address; wins over the tree
    QPushButton *rescanButton = nullptr; // in the form's button box
    int interfaceColumnWidth = 0; // of the panel's first column when it was last seen; 0 until known
    int deviceColumnWidth = 0;
    QString lastItemId; // of the current item
    std::unique_ptr<std::thread> thread; // null while not polling
    // Relaxed: the loop need only see the store in time.
    std::atomic<bool> polling;
    std::atomic<bool> changed{false};

private:
    using Handler = void (MoxCameraSelectorDialogPrivate::*)();

    bool hasNewDevices();
    void stopThread();
    void showContextMenu(const QPoint &pos);
    void choose(Handler handler);
    void setIpAddress();
    void connectByIpAddress();
    void fillDeviceInfo(MoxCam::DeviceInfo *info, int row);
    void fillInterfaceInfo(MoxCam::Interface *iface);

    QMenu *openMenu = nullptr; // one of the two, while it is open
    Handler chosen = nullptr; // its entry that waits until it is left
};

} // namespace MoxGui

#endif
