// Cameras set up through the configuration window and its dialogs, and read back from their registers.
#include "bench.h"
#include "configscene.h"
#include "datarow.h"
#include "dialogscene.h"
#include "testmain.h"

#include <GenApi/GenApi.h>

using namespace MoxTest;

namespace {

/** What the user does with a control, and what a feature of the camera says afterwards. */
struct Step
{
    const char *control, *input, *feature, *expected;
};
/** By the buttons of the dialogs. */
using Plan = QVector<QPair<const char *, QVector<Step>>>;

// clang-format off
const Plan frameAbPlan{
    {"pushBtnFrameAB", {{"radioBtnAdcSelector12b", "", "SensorADCBitDepth", "Bits12"},
                        {"cmBoxFrameMode", "FrameAB", "FrameMode", "FrameAB"},
                        {"tabFrames", "FrameA", "FrameAB_Selector", "FrameA"},
                        {"spBoxExpTime", "2000", "CurrentExposureTime", "2000"},
                        {"spBoxDigitalGain", "1.5", "Frame_DigitalFineGain", "32"},
                        {"tabFrames", "FrameB", "FrameAB_Selector", "FrameB"},
                        {"spBoxExpTime", "5001", "CurrentExposureTime", "5001"},
                        {"spBoxDigitalGain", "1.75", "Frame_DigitalFineGain", "48"},
                        {"radioBtnAGain4x", "", "Frame_AnalogGain", "Gain4x"},
                        {"tabFrames", "FrameA", "CurrentExposureTime", "2000"},
                        {"tabFrames", "FrameA", "Frame_DigitalFineGain", "32"},
                        {"tabFrames", "FrameB", "CurrentExposureTime", "5001"},
                        {"tabFrames", "FrameB", "Frame_DigitalFineGain", "48"}}},
    {"pushBtnTrigger", {{"chBoxTriggerEnable", "", "TriggerMode", "On"},
                        {"cmBoxTriggerSource", "Software", "TriggerSource", "Software"},
                        {"pushBtnSoftwareTrigger", "", "TriggerCount", "1"},
                        {"pushBtnSoftwareTrigger", "", "TriggerCount", "2"}}},
    {"pushBtnPulse", {{"spBoxPeriod", "500", "PulseGenPeriod", "500"},
                      {"spBoxWidth", "100", "PulseGenWidth", "100"},
                      {"radioBtnSend", "", "PulseGenMode", "Send"},
                      {"spBoxNumPulses", "3", "PulseGenNumPulses", "3"},
                      {"pushBtnPulseEnable", "", "PulseGenCount", "3"}}},
    {"pushBtnStrobe", {{"cmBoxStrobe2Mode", "Timed", "Strobe2Mode", "Timed"},
                       {"cmBoxStrobe2Ref", "ReadoutStart", "Strobe2Reference", "ReadoutStart"},
                       {"spBoxStrobe2Width", "1234", "Strobe2Width", "1234"},
                       {"cmBoxOut1Selector", "Strobe2", "OUT1Selector", "Strobe2"}}},
    {"pushBtnDataOut", {{"cmBoxPixelFormat", "Mono12", "PixelFormat", "Mono12"},
                        {"chBoxHorMirror", "", "ReverseX", "true"},
                        {"cmBoxDpc", "Dynamic", "DefectPixelCorrection", "Dynamic"},
                        {"spBoxDpcDynThres", "77", "DefectPixelThreshold", "77"}}},
};
const Plan colorPlan{
    {"pushBtnTrigger", {{"chBoxTriggerEnable", "", "TriggerMode", "On"}}},
    {"pushBtnDataOut", {{"cmBoxPixelFormat", "RGB8", "PixelFormat", "RGB8"}}},
    {"pushBtnColor", {{"cmBoxTrackingSpeed", "Fast", "AutoTrackingSpeed", "Fast"},
                      {"spBoxRed", "300", "RedCoefficient", "300"},
                      {"spBoxBlue", "400", "BlueCoefficient", "400"},
                      {"pushBtnBlueUnity", "", "BlueCoefficient", "256"}}},
};
// clang-format on

void operate(QWidget *control, const QString &input)
{
    if (auto *combo = qobject_cast<QComboBox *>(control)) {
        QTest::keyClick(combo, Qt::Key_Home);
        for (int i = 0; i < combo->count() && combo->currentText() != input; ++i)
            QTest::keyClick(combo, Qt::Key_Down);
    } else if (auto *tabs = qobject_cast<QTabWidget *>(control)) {
        const int index = tabs->tabText(0) == input ? 0 : 1;
        QTest::mouseClick(tabs->tabBar(), Qt::LeftButton, {}, tabs->tabBar()->tabRect(index).center());
    } else if (auto *button = qobject_cast<QAbstractButton *>(control)) {
        click(button);
    } else {
        auto *spinBox = control->findChild<QAbstractSpinBox *>();
        spinBox->selectAll();
        QTest::keyClicks(spinBox, input);
        QTest::keyClick(spinBox, Qt::Key_Return);
    }
}

} // namespace

class TestSetup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void camera_data()
    {
        columns<int>("model");
        row("frames A and B", MoxSim::Model::FrameAB);
        row("colour", MoxSim::Model::Color);
    }
    void camera();
};

void TestSetup::camera()
{
    QFETCH(int, model);
    const LiveCamera camera{MoxSim::Model(model)};
    const Plan &plan = MoxSim::Model(model) == MoxSim::Model::FrameAB ? frameAbPlan : colorPlan;
    // Past the node map's caches, and past all that the window and its dialogs hold.
    const auto read = [&](const char *feature) {
        auto *value = dynamic_cast<GenApi::IValue *>(camera.params->GetNodeMap(nullptr)->GetNode(feature));
        return QString::fromLatin1(value->ToString(false, true).c_str());
    };
    Window window(camera.device.get());
    window.show();
    for (const auto &[button, steps] : plan) {
        click(child<QAbstractButton>(window, button));
        for (const Step &step : steps) {
            auto *control = child<QWidget>(window, step.control);
            QTRY_VERIFY2(control->isVisible() && control->isEnabled(), step.control);
            operate(control, QString::fromLatin1(step.input));
            QTRY_VERIFY2(read(step.feature) == QLatin1String(step.expected), step.control);
        }
    }

    // The dialogs stay open without the camera, and take it up again with all that was set.
    const auto registers = [&] {
        QStringList texts;
        for (const auto &steps : plan) {
            for (const Step &step : steps.second)
                texts << QLatin1String(step.feature) + QLatin1Char('=') + read(step.feature);
        }
        return texts;
    };
    const QStringList before = registers();
    const QString name = figures(window).section(QLatin1Char(';'), 0, 0);
    const auto dialogs = [&](bool enabled) {
        return std::all_of(plan.begin(), plan.end(), [&](const auto &steps) {
            const auto *dialog = child<QWidget>(window, steps.second.first().control)->window();
            return dialog->isVisible() && dialog->isEnabled() == enabled;
        });
    };
    MoxSim::setPlugged(camera.id, false);
    QTRY_COMPARE(figures(window), QStringLiteral("Disconnected; ; ; "));
    QVERIFY(dialogs(false));
    MoxSim::setPlugged(camera.id, true);
    QTRY_COMPARE(figures(window).section(QLatin1Char(';'), 0, 0), name);
    QVERIFY(dialogs(true));
    tick(window);
    QCOMPARE(registers(), before);
    click(child<QCheckBox>(window, "chBoxTriggerEnable"));
    QCOMPARE(read("TriggerMode"), QStringLiteral("Off"));
}

MOX_TEST_MAIN(TestSetup)
#include "tst_setup.moc"
