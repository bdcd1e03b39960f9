#ifndef MOX_MOXCAMERAACTIONDIALOG_P_H
#define MOX_MOXCAMERAACTIONDIALOG_P_H

#include <QtGlobal>

#include <memory>
#include <vector>

class Ui_MoxCameraActionDialog;

namespace MoxCam {
class Interface;
class System;
} // namespace MoxCam

namespace MoxGui {

class MoxCameraActionDialog;

/**
 * What stands behind the action command console: the form, and the interfaces in the order of its list.
 *
 * Owned by the dialog and destroyed before the dialog's children. Lives on the GUI thread. Acknowledgements arrive on
 * another one and touch nothing of this object, which may be long gone by then.
 */
class MoxCameraActionDialogPrivate
{
public:
    explicit MoxCameraActionDialogPrivate(MoxCameraActionDialog *dialog);
    virtual ~MoxCameraActionDialogPrivate(); // nothing derives from it; virtual all the same
    Q_DISABLE_COPY(MoxCameraActionDialogPrivate)

    /** Fills the list of interfaces, which is not refreshed afterwards. Called once. */
    void listInterfaces(MoxCam::System *system);
    /** Sends through each ticked interface and waits for its acknowledgements. The dialog may be gone when it returns. */
    void onSend();

    MoxCameraActionDialog *const q;
    const std::unique_ptr<Ui_MoxCameraActionDialog> ui;
    std::vector<MoxCam::Interface *> interfaces; // the system's; GigE Vision only
};

} // namespace MoxGui

#endif
