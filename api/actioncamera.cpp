#include "bootstrap_p.h"
#include "moxcameraactiondialog.h"
#include "moxcameraguiapi.h"

namespace MoxGui {

// The one console of the process. It is never deleted; one that the application deletes is not noticed.
static MoxCameraActionDialog *ActionDlg = nullptr;

static void ActionCamera(MoxCam::System *system, const QString &title, unsigned long parent)
{
    ensureApplication();
    if (!ActionDlg) {
        // The foreign window is released before the dialog is shown; the dialog keeps the empty container as its parent.
        const ForeignParent foreign(parent);
        ActionDlg = new MoxCameraActionDialog(system, foreign.container, nullptr);
    }
    ActionDlg->setWindowTitle(title);
    ActionDlg->setModal(false);
    ActionDlg->show();
}

} // namespace MoxGui

void ActionCameraA(MoxCam::System *system, const char *title, unsigned long parent)
{
    MoxGui::ActionCamera(system, QString::fromUtf8(title), parent);
}

void ActionCameraW(MoxCam::System *system, const wchar_t *title, unsigned long parent)
{
    MoxGui::ActionCamera(system, QString::fromWCharArray(title), parent);
}
