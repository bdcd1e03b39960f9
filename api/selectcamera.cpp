#include "bootstrap_p.h"
#include "moxcameraguiapi.h"
#include "moxcameraselectordialog.h"

namespace MoxGui {

static MoxCam::DeviceInfo *SelectCamera(MoxCam::System *system, const QString &title, unsigned long parent, bool poll)
{
    ensureApplication();
    // The dialog goes first, the foreign window after it.
    const ForeignParent foreign(parent);
    MoxCameraSelectorDialog dialog(system, foreign.container, poll);
    dialog.setWindowTitle(title);
    dialog.setModal(true); // the form is modal to its window already, and stays so
    return dialog.exec() == QDialog::Accepted ? dialog.selectedCamera() : nullptr;
}

} // namespace MoxGui

MoxCam::DeviceInfo *SelectCameraA(MoxCam::System *system, const char *title, unsigned long parent, bool poll)
{
    return MoxGui::SelectCamera(system, QString::fromUtf8(title), parent, poll);
}

MoxCam::DeviceInfo *SelectCameraW(MoxCam::System *system, const wchar_t *title, unsigned long parent, bool poll)
{
    static_assert(sizeof(wchar_t) == sizeof(char32_t), "wide titles hold one code point per element");
    return MoxGui::SelectCamera(system, QString::fromWCharArray(title), parent, poll);
}
