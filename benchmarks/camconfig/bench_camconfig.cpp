// What the configuration windows cost above their forms on a simulated camera, and the mapper above the controls and the
// parameters that it ties together.
#include "dialogscene.h"
#include "fakefeatures.h"
#include "moxcamconfig.h"
#include "moxcamconfigcolordialog.h"
#include "moxcamconfigframeabdialog.h"
#include "moxcamconfigmapper.h"
#include "moxcamconfigoutputdialog.h"
#include "moxcamconfigpulsedialog.h"
#include "moxcamconfigstrobedialog.h"
#include "moxcamconfigtriggerdialog.h"
#include "qtmoxspinbox.h"
#include "qtmoxspinboxval64.h"
#include "table.h"
#include "ui_moxcamconfigcolordialog.h"
#include "ui_moxcamconfigframeabdialog.h"
#include "ui_moxcamconfigmainwindow.h"
#include "ui_moxcamconfigoutputdialog.h"
#include "ui_moxcamconfigpulsedialog.h"
#include "ui_moxcamconfigstrobedialog.h"
#include "ui_moxcamconfigtriggerdialog.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLoggingCategory>
#include <QVBoxLayout>

using namespace MoxTest;

namespace {

void show(QWidget &window)
{
    window.show();
    QCoreApplication::processEvents();
}

template<class Form, class Window> void showForm()
{
    Window window;
    Form form;
    form.setupUi(&window);
    show(window);
}

template<class Dialog, class Form> void opening(MoxBench::Table &table, const std::string &name, MoxCam::Device *device)
{
    table.compare(name + " opened and painted, beside its bare form", 0, 12, 1, showForm<Form, QDialog>, [device] {
        Dialog dialog(device);
        show(dialog);
    });
}

/** The main window makes its six dialogs at once. */
void openingMainWindow(MoxBench::Table &table, MoxCam::Device *device)
{
    const auto open = [device] {
        MoxGui::MoxCamConfig window(device);
        show(window);
    };
    table.compare("main window opened and painted, beside its bare form", 0, 12, 1,
                  showForm<Ui_MoxCamConfigMainWindow, QMainWindow>, open);
    table.compare(
        "main window opened and painted, beside all seven bare forms", 0, 12, 1,
        [] {
            QMainWindow window;
            Ui_MoxCamConfigMainWindow form;
            form.setupUi(&window);
            const auto make = [&](auto dialogForm) {
                auto *dialog = new QDialog(&window);
                dialogForm.setupUi(dialog);
            };
            make(Ui_MoxCamConfigColorDialog());
            make(Ui_MoxCamConfigFrameABDialog());
            make(Ui_MoxCamConfigOutputDialog());
            make(Ui_MoxCamConfigPulseDialog());
            make(Ui_MoxCamConfigStrobeDialog());
            make(Ui_MoxCamConfigTriggerDialog());
            show(window);
        },
        open);
}

void press(QWidget *widget, int key)
{
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &down);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &up);
}

/** Controls bound to features of a fake camera, each beside one that is bound to nothing. */
struct Scene
{
    Scene()
    {
        enumeration.name = "Choice"; // bindings go by the name
        enumeration.setEntries({QStringLiteral("Alpha"), QStringLiteral("Beta"), QStringLiteral("Gamma")});
        mapper.mapIntParam(&integer, spin);
        mapper.mapEnumParam(&enumeration, combo);
        plainSpin->setRange(0, 100);
        for (int i = 0; i < combo->count(); ++i)
            plainCombo->addItem(combo->itemText(i));
        auto *layout = new QVBoxLayout(&window);
        for (QWidget *control : {static_cast<QWidget *>(spin), static_cast<QWidget *>(plainSpin),
                                 static_cast<QWidget *>(combo), static_cast<QWidget *>(plainCombo)})
            layout->addWidget(control);
        show(window);
    }

    FakeInt integer, other;
    FakeEnum enumeration;
    QWidget window;
    QtMoxSpinBox *const spin = new QtMoxSpinBox(&window);
    QtMoxSpinBox *const plainSpin = new QtMoxSpinBox(&window);
    QComboBox *const combo = new QComboBox(&window);
    QComboBox *const plainCombo = new QComboBox(&window);
    MoxGui::MoxCamConfigMapper mapper;
};

constexpr int steps = 200;

/** Runs @p work with a number that differs from the last one; the fakes forget what was written. */
template<class Work> auto repeated(Scene &scene, Work work)
{
    return [&scene, work] {
        for (FakeFeature *feature :
             {static_cast<FakeFeature *>(&scene.integer), static_cast<FakeFeature *>(&scene.other),
              static_cast<FakeFeature *>(&scene.enumeration)})
            feature->writes.clear();
        for (int i = 0; i < steps; ++i)
            work(i);
    };
}

void mapping(MoxBench::Table &table)
{
    Scene scene;
    constexpr int rounds = 30;
    table.compare("an integer changes on the camera, beside setValue on the control", 0, rounds, steps,
                  repeated(scene, [&](int i) { scene.plainSpin->setValue(20 + i % 2); }),
                  repeated(scene, [&](int i) { scene.integer.change(20 + i % 2); }));
    table.compare("an entry changes on the camera, beside setCurrentIndex on the control", 0, rounds, steps,
                  repeated(scene, [&](int i) { scene.plainCombo->setCurrentIndex(i % 2); }),
                  repeated(scene, [&](int i) { scene.enumeration.change(i % 2); }));
    const auto step = [](QtMoxSpinBox *box) {
        return [box](int i) { press(box->spinBox(), i % 2 ? Qt::Key_Down : Qt::Key_Up); };
    };
    table.compare("the user steps an integer, beside a bare write of the parameter", 0, rounds, steps,
                  repeated(scene, [&](int i) { scene.other.SetValue(i % 2); }), repeated(scene, step(scene.spin)));
    QObject::connect(scene.plainSpin, QOverload<int>::of(&QtMoxSpinBox::valueChanged), scene.plainSpin,
                     [&scene](int value) { scene.other.SetValue(value); });
    table.compare("the user steps an integer, beside a control whose signal writes", 0, rounds, steps,
                  repeated(scene, step(scene.plainSpin)), repeated(scene, step(scene.spin)));
    if (scene.integer.writes.size() < steps || scene.other.writes.size() > steps)
        qFatal("not every step was written");
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false")); // the platform's, of each window
    MoxBench::Table table("camera configuration");
    {
        using namespace MoxGui;
        const LiveCamera camera(MoxSim::Model::FrameAB);
        MoxCam::Device *device = camera.device.get();
        openingMainWindow(table, device);
        opening<MoxCamConfigFrameABDialog, Ui_MoxCamConfigFrameABDialog>(table, "frame dialog", device);
        opening<MoxCamConfigTriggerDialog, Ui_MoxCamConfigTriggerDialog>(table, "trigger dialog", device);
        opening<MoxCamConfigStrobeDialog, Ui_MoxCamConfigStrobeDialog>(table, "strobe dialog", device);
        opening<MoxCamConfigPulseDialog, Ui_MoxCamConfigPulseDialog>(table, "pulse dialog", device);
        opening<MoxCamConfigOutputDialog, Ui_MoxCamConfigOutputDialog>(table, "output dialog", device);
    }
    {
        const LiveCamera camera(MoxSim::Model::Color);
        opening<MoxGui::MoxCamConfigColorDialog, Ui_MoxCamConfigColorDialog>(table, "color dialog",
                                                                             camera.device.get());
    }
    mapping(table);
    return 0;
}
