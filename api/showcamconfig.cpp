#include "bootstrap_p.h"
#include "moxcamconfig.h"
#include "moxcamconfigcolordialog.h"
#include "moxcamconfigoutputdialog.h"
#include "moxcamconfigpulsedialog.h"
#include "moxcamconfigstrobedialog.h"
#include "moxcamconfigtriggerdialog.h"
#include "moxcameraguiapi.h"

#include <QPointer>

namespace MoxGui {

/** Shows a window and takes it away again before any event loop has run: nothing of it stays. */
template<class Window> static void showOnce(MoxCam::Device *device, unsigned long parent)
{
    ensureApplication();
    const QPointer<QWidget> owner = parent ? QWidget::find(parent) : nullptr;
    const bool owned = owner;
    auto window = std::make_unique<Window>(device, owner.data());
    if (owned && !owner)
        static_cast<void>(window.release()); // deleted with its owner while it let the user select a camera
    else
        window->show();
}

} // namespace MoxGui

void ShowCamConfigDialog(MoxCam::Device *device, unsigned long parent)
{
    MoxGui::showOnce<MoxGui::MoxCamConfig>(device, parent);
}

void ShowColorDialog(MoxCam::Device *device, unsigned long parent)
{
    MoxGui::showOnce<MoxGui::MoxCamConfigColorDialog>(device, parent);
}

// The colour dialog on purpose. The frame A/B dialog is reached as a class and from the main window.
void ShowFrameABDialog(MoxCam::Device *device, unsigned long parent)
{
    MoxGui::showOnce<MoxGui::MoxCamConfigColorDialog>(device, parent);
}

void ShowOutputDialog(MoxCam::Device *device, unsigned long parent)
{
    MoxGui::showOnce<MoxGui::MoxCamConfigOutputDialog>(device, parent);
}

void ShowPulseDialog(MoxCam::Device *device, unsigned long parent)
{
    MoxGui::showOnce<MoxGui::MoxCamConfigPulseDialog>(device, parent);
}

void ShowStrobeDialog(MoxCam::Device *device, unsigned long parent)
{
    MoxGui::showOnce<MoxGui::MoxCamConfigStrobeDialog>(device, parent);
}

void ShowTriggerDialog(MoxCam::Device *device, unsigned long parent)
{
    MoxGui::showOnce<MoxGui::MoxCamConfigTriggerDialog>(device, parent);
}
