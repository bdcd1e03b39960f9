// A tour of the library from an application's side: opens one window after the other on a simulated camera, closes it
// again, and checks what came of it. Exits with 1 when anything is not as expected.
//
// Built by CMake as the CMakeLists.txt beside it tells, or by hand:
//
//     c++ -std=c++17 -fPIC main.cpp -o consumer $(pkg-config --cflags --libs moxcameraguiapi moxcameraapi)
//
// Usage: consumer [milliseconds that each window stays]

#include <MoxCameraApi/MoxCam.h>
#include <MoxCameraApi/MoxGenParam.h>
#include <MoxCameraApi/MoxSimulation.h>

#include <moxcamconfig.h>
#include <moxcamconfigcolordialog.h>
#include <moxcamconfigframeabdialog.h>
#include <moxcamconfigoutputdialog.h>
#include <moxcamconfigpulsedialog.h>
#include <moxcamconfigstrobedialog.h>
#include <moxcamconfigtriggerdialog.h>
#include <moxcameraguiapi.h>
#include <moxgenparamtreeview.h>

#include <QApplication>
#include <QDialog>
#include <QEventLoop>
#include <QLineEdit>
#include <QTimer>
#include <QTreeView>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

int stay = 1500; // milliseconds
int failures = 0;

void expect(bool asExpected, const char *what)
{
    std::printf("%s  %s\n", asExpected ? "ok    " : "FAILED", what);
    failures += !asExpected;
}

/** Lets the user look at what is open. */
void pause()
{
    QEventLoop loop;
    QTimer::singleShot(stay, &loop, &QEventLoop::quit);
    loop.exec();
}

QWidget *windowWithTitle(const char *title)
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->windowTitle() == QString::fromUtf8(title))
            return window;
    }
    return nullptr;
}

/** The selector is modal: its call returns when somebody has chosen a camera, which a timer does here. */
MoxCam::DeviceInfo *selectCamera(MoxCam::System *system)
{
    QTimer::singleShot(stay, qApp, [] {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        expect(dialog && dialog->windowTitle() == QString::fromUtf8("Choose a camera"), "the selector has its title");
        if (!dialog)
            std::exit(1);
        auto *tree = dialog->findChild<QTreeView *>();
        const QModelIndex adapter = tree->model()->index(0, 0);
        expect(tree->model()->rowCount() == 3, "it lists the three interfaces of the simulated world");
        expect(tree->model()->rowCount(adapter) == 3, "three cameras answer on the first");
        tree->setCurrentIndex(tree->model()->index(0, 0, adapter));
        dialog->accept();
    });
    return SelectCameraA(system, "Choose a camera", 0, false);
}

void showParameterTree(MoxGenParam::Array *parameters)
{
    MoxGui::IMoxGenParamTreeView *tree = CreateGenParamTreeViewForArrayA(parameters, "All parameters", 0);
    QWidget *window = windowWithTitle("All parameters");
    expect(window, "the parameter tree is open under its title");
    auto *view = dynamic_cast<MoxGui::MoxGenParamTreeView *>(tree);
    expect(view && view == window, "it is a widget as well as an interface");
    const int basic = view ? view->treeView()->model()->rowCount() : 0;
    expect(basic > 5, "it shows the camera's categories");
    tree->setVisibility(MoxGui::VisibilityGuru);
    expect(view && view->treeView()->model()->rowCount() > basic, "and more of them to a guru");
    tree->enablePolling(true);
    expect(std::strlen(tree->saveState()) > 0, "its state can be kept");
    pause();
    DestroyGenParamTreeView(tree); // before the parameters go
    expect(!windowWithTitle("All parameters"), "it is gone");
}

void showMainWindow(MoxCam::Device *device)
{
    MoxGui::MoxCamConfig window(device);
    window.show();
    expect(windowWithTitle("CamConfig"), "the configuration window is open");
    pause();
    const auto figures = window.findChildren<QLineEdit *>();
    bool shown = false;
    for (const QLineEdit *figure : figures)
        shown = shown || figure->text().contains(QString::fromUtf8("4096"));
    expect(shown, "it shows the width of the camera's image");
}

template<class Dialog> void showDialog(MoxCam::Device *device, const char *title)
{
    Dialog dialog(device);
    dialog.show();
    expect(windowWithTitle(title) == &dialog, title);
    expect(dialog.isEnabled(), "  has the camera's parameters");
    int closed = 0;
    QObject::connect(&dialog, &Dialog::closing, &dialog, [&closed] { ++closed; });
    pause();
    dialog.close();
    expect(closed == 1, "  tells that it closes");
    dialog.SetDevice(nullptr);
    expect(!dialog.isEnabled(), "  is disabled without a camera");
}

void showActionConsole(MoxCam::System *system)
{
    ActionCameraA(system, "Actions", 0);
    QWidget *console = windowWithTitle("Actions");
    expect(console, "the action console is open under its title");
    pause();
    if (console)
        console->close(); // hides it: the process keeps its one console
    ActionCameraW(system, L"Actions again", 0);
    expect(console && windowWithTitle("Actions again") == console, "the next call shows the same console");
    if (console)
        console->close();
}

/** Everything that needs the camera; the caller opens and releases it. */
void tour(MoxCam::Device *device)
{
    MoxGenParam::Array *parameters = device->GetCameraParameters(nullptr);
    expect(parameters, "the camera gives its parameters");
    if (!parameters)
        return;
    showParameterTree(parameters);
    showMainWindow(device);
    showDialog<MoxGui::MoxCamConfigFrameABDialog>(device, "Frame A/B");
    showDialog<MoxGui::MoxCamConfigTriggerDialog>(device, "Trigger Control");
    showDialog<MoxGui::MoxCamConfigPulseDialog>(device, "Pulse Control");
    showDialog<MoxGui::MoxCamConfigStrobeDialog>(device, "Strobe Control");
    showDialog<MoxGui::MoxCamConfigOutputDialog>(device, "Data Output");
    showDialog<MoxGui::MoxCamConfigColorDialog>(device, "Color");
    const int windows = QApplication::topLevelWidgets().size();
    ShowTriggerDialog(device, 0); // takes the dialog through its whole life within the call
    expect(QApplication::topLevelWidgets().size() == windows, "an entry function leaves no window behind");
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    if (argc > 1)
        stay = QByteArray(argv[1]).toInt();

    // An application that ships leaves this line out and sees the cameras that are really there.
    MoxSim::setWorlds(MoxSim::SimulatedWorld);

    MoxCam::System *system = MoxCam_GetSystem();
    expect(system, "the camera SDK starts");
    if (!system)
        return 1;
    MoxCam::DeviceInfo *info = selectCamera(system);
    expect(info && !std::strcmp(info->GetModel(), "MX-4K-AB"), "the selector gives the camera that was chosen");
    constexpr int control = 2;
    MoxCam::Device *device = info ? MoxCam_CreateDevice(info, control, 0) : nullptr;
    expect(device, "the camera can be opened");
    if (device) {
        tour(device);
        device->Release();
    }
    showActionConsole(system);
    system->Release(); // after the last window that uses it

    std::printf("%s\n", failures ? "There were failures." : "All as expected.");
    return failures ? 1 : 0;
}
