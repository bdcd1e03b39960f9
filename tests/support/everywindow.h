// Every window of the library, on the open SDK's simulated cameras.
#ifndef MOX_EVERYWINDOW_H
#define MOX_EVERYWINDOW_H

#include "connectbyipdialog.h"
#include "livecamera.h"
#include "moxcamconfig.h"
#include "moxcamconfigcolordialog.h"
#include "moxcamconfigframeabdialog.h"
#include "moxcamconfigoutputdialog.h"
#include "moxcamconfigpulsedialog.h"
#include "moxcamconfigstrobedialog.h"
#include "moxcamconfigtriggerdialog.h"
#include "moxcameraactiondialog.h"
#include "moxcameraselectordialog.h"
#include "moxgenparamtreeview.h"
#include "sdkmetatypes.h"
#include "setipdialog.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QScopeGuard>
#include <QTest>
#include <QTimer>
#include <QTreeView>

#include <functional>
#include <vector>

namespace MoxTest {

/** One window: how it is called here, whose translation its title is, and how it is opened. */
struct WindowKind
{
    const char *name;
    const char *context;
    const char *title;
    /** Runs the function on the shown and active window, and closes it. */
    std::function<void(const std::function<void(QWidget &window)> &look)> open;
};

/** Opens a camera with frames A and B and a colour camera, and the windows on them. */
class EveryWindow
{
public:
    using Look = std::function<void(QWidget &window)>;

    EveryWindow()
    {
        MoxSim::resetWorld();
        MoxSim::setWorlds(MoxSim::SimulatedWorld);
        system.reset(MoxCam_GetSystem());
        MoxGui::MoxCameraSelectorDialog selector(system.get(), nullptr, false);
        framesAB = openFirst(selector, 0);
        color = openFirst(selector, 1);
        framesAB->GetCameraParameters(nullptr)->GetEnum("FrameMode", nullptr)->SetValueStr("FrameAB");
        framesAB->GetCameraParameters(nullptr)->GetEnum("TriggerMode", nullptr)->SetValueStr("On");
    }

    std::vector<WindowKind> kinds() const
    {
        using namespace MoxGui;
        return {
            {"selector", "MoxCameraSelectorDialog", "Select camera",
             [this](const Look &look) {
                 MoxCameraSelectorDialog window(system.get(), nullptr, false);
                 auto *tree = window.findChild<QTreeView *>(QStringLiteral("cameraTreeView"));
                 tree->setCurrentIndex(tree->model()->index(2, 0, tree->model()->index(0, 0))); // which can be repaired
                 lookAt(window, look);
             }},
            {"set ip", "SetIpDialog", "Set IP Address", on<SetIpDialog>(nullptr)},
            {"connect", "ConnectByIpDialog", "Connect by IP Address", on<ConnectByIpDialog>(nullptr)},
            {"tree", "GenParamTreeView", "GenParamTreeView",
             on<MoxGenParamTreeView>(framesAB->GetCameraParameters(nullptr), nullptr)},
            {"errors", "GenErrorsDlg", "Gen<i>Cam errors",
             [this](const Look &look) {
                 MoxGenParamTreeView view(framesAB->GetCameraParameters(nullptr), nullptr);
                 modal(look, [&] { view.findChild<QAbstractButton *>(QStringLiteral("pbStatus"))->click(); });
             }},
            {"config", "MoxCamConfigMainWindow", "CamConfig", on<MoxCamConfig>(framesAB.get())},
            {"about", "MoxCamConfigAboutDialog", "About",
             [this](const Look &look) {
                 MoxCamConfig window(framesAB.get());
                 window.findChild<QAction *>(QStringLiteral("actionAbout"))->trigger();
                 lookAt(*window.findChild<QWidget *>(QStringLiteral("MoxCamConfigAboutDialog")), look);
             }},
            {"frame a/b", "MoxCamConfigFrameABDialog", "Frame A/B",
             on<MoxCamConfigFrameABDialog>(framesAB.get(), nullptr)},
            {"trigger", "MoxCamConfigTriggerDialog", "Trigger Control",
             on<MoxCamConfigTriggerDialog>(framesAB.get(), nullptr)},
            {"pulse", "MoxCamConfigPulseDialog", "Pulse Control", on<MoxCamConfigPulseDialog>(framesAB.get(), nullptr)},
            {"strobe", "MoxCamConfigStrobeDialog", "Strobe Control",
             on<MoxCamConfigStrobeDialog>(framesAB.get(), nullptr)},
            {"output", "MoxCamConfigOutputDialog", "Data Output",
             on<MoxCamConfigOutputDialog>(framesAB.get(), nullptr)},
            {"color", "MoxCamConfigColorDialog", "Color", on<MoxCamConfigColorDialog>(color.get(), nullptr)},
            {"action", "MoxCameraActionDialog", "Action Command",
             on<MoxCameraActionDialog>(system.get(), nullptr, nullptr)},
        };
    }

    /** A window made with these arguments. */
    template<class Window, class... Arguments> static std::function<void(const Look &)> on(Arguments... arguments)
    {
        return [=](const Look &look) {
            Window window(arguments...);
            lookAt(window, look);
        };
    }

private:
    using Camera = SdkPointer<MoxCam::Device>;

    /** The first camera of an interface that a selector shows. */
    static Camera openFirst(const QWidget &selector, int interface)
    {
        const QAbstractItemModel *model = selector.findChild<QTreeView *>(QStringLiteral("cameraTreeView"))->model();
        const QModelIndex camera = model->index(0, 0, model->index(interface, 0));
        return Camera(MoxCam_CreateDevice(camera.data(Qt::UserRole).value<MoxCam::DeviceInfo *>(), 2, 0));
    }

    static void lookAt(QWidget &window, const Look &look)
    {
        const auto closes = qScopeGuard([&window] { window.close(); }); // a modal one also when it fails
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QApplication::processEvents(); // the layouts follow the texts
        look(window);
    }

    /** The modal dialog that an action opens. */
    static void modal(const Look &look, const std::function<void()> &action)
    {
        bool opened = false;
        QTimer::singleShot(0, qApp, [&] {
            if (QWidget *window = QApplication::activeModalWidget()) {
                opened = true;
                lookAt(*window, look);
            }
        });
        action();
        QVERIFY(opened);
    }

    SdkPointer<MoxCam::System> system;
    Camera framesAB, color;
};

} // namespace MoxTest

#endif
