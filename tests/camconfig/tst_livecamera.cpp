// Simulated cameras, set up through the configuration window and its dialogs and read back from their registers.
#include "bench.h"
#include "configscene.h"
#include "datarow.h"
#include "livecamera.h"
#include "testmain.h"

#include <GenApi/GenApi.h>

using namespace MoxTest;

namespace {

/** What the user does with a control, and what a feature of the camera, or a control that shows it, says afterwards. */
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
                        {"spBoxDualVideo", "1234", "Frame_LineTime", "1234"},
                        {"spBoxExpTime", "5001", "Frame_ExposureLines", "648"},
                        {"spBoxExpTime", "5001", "Frame_ExposureClocks", "528"},
                        {"spBoxDigitalGain", "1.75", "Frame_DigitalFineGain", "48"},
                        {"radioBtnAGain4x", "", "Frame_AnalogGain", "Gain4x"},
                        {"tabFrames", "FrameA", "CurrentExposureTime", "2000"},
                        {"tabFrames", "FrameA", "Frame_DigitalFineGain", "32"},
                        {"tabFrames", "FrameA", "lineEditExpFrameA", "2000"},
                        {"tabFrames", "FrameB", "CurrentExposureTime", "5001"},
                        {"tabFrames", "FrameB", "Frame_DigitalFineGain", "48"},
                        {"tabFrames", "FrameB", "lineEditExpFrameB", "5001"}}},
    {"pushBtnTrigger", {{"chBoxTriggerEnable", "", "TriggerMode", "On"},
                        {"cmBoxTriggerEdge", "FallingEdge", "TriggerActivation", "FallingEdge"},
                        {"cmBoxTriggerSource", "Software", "cmBoxTriggerEdge", "closed"},
                        {"pushBtnSoftwareTrigger", "", "TriggerCount", "1"},
                        {"pushBtnSoftwareTrigger", "", "TriggerCount", "2"}}},
    {"pushBtnPulse", {{"spBoxPeriod", "500", "PulseGenWidth", "500"},
                      {"spBoxWidth", "100", "PulseGenWidth", "100"},
                      {"radioBtnContinious", "", "spBoxNumPulses", "closed"},
                      {"radioBtnSend", "", "PulseGenMode", "Send"},
                      {"spBoxNumPulses", "3", "PulseGenNumPulses", "3"},
                      {"pushBtnPulseEnable", "", "PulseGenCount", "3"}}},
    {"pushBtnStrobe", {{"cmBoxStrobe2Mode", "Timed", "Strobe2Mode", "Timed"},
                       {"cmBoxStrobe2Ref", "ReadoutStart", "Strobe2Reference", "ReadoutStart"},
                       {"spBoxStrobe2Width", "123457", "Strobe2Width", "123457"},
                       {"cmBoxOut1Selector", "Strobe2", "OUT1Selector", "Strobe2"}}},
    {"pushBtnDataOut", {{"cmBoxPixelFormat", "Mono12", "PixelFormat", "Mono12"},
                        {"chBoxHorMirror", "", "ReverseX", "true"},
                        {"cmBoxDpc", "Static", "spBoxDpcDynThres", "closed"},
                        {"cmBoxDpc", "Dynamic", "DefectPixelCorrection", "Dynamic"},
                        {"spBoxDpcDynThres", "77", "DefectPixelThreshold", "77"}}},
};
const Plan colorPlan{
    {"pushBtnTrigger", {{"chBoxTriggerEnable", "", "TriggerMode", "On"}}},
    {"pushBtnDataOut", {{"cmBoxPixelFormat", "RGB8", "PixelFormat", "RGB8"}}},
    {"pushBtnColor", {{"cmBoxTrackingSpeed", "Fast", "AutoTrackingSpeed", "Fast"},
                      {"cmBoxWhiteBalance", "Once", "lblBlueCoef", "538"}, // and goes back to "Off"
                      {"spBoxRed", "300", "RedCoefficient", "300"},
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

class TestLiveCamera : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void setUp_data()
    {
        columns<int>("model");
        row("frames A and B", MoxSim::Model::FrameAB);
        row("colour", MoxSim::Model::Color);
    }
    void setUp()
    {
        QFETCH(int, model);
        const std::string camera = onlyCamera(setupOf(MoxSim::Model(model)));
        const Plan &plan = MoxSim::Model(model) == MoxSim::Model::FrameAB ? frameAbPlan : colorPlan;
        std::unique_ptr<Window> window;
        QVERIFY(
            select([&] { window = std::make_unique<Window>(nullptr); }, [](QDialog *selector) { selector->reject(); }));
        window->show();
        const QString nothing = figures(*window);
        QCOMPARE(nothing, QStringLiteral("Disconnected; ; ; "));
        const auto connect = [&] { return select([&] { trigger(*window, "actionConnect"); }, acceptFirst); };
        QVERIFY(connect());

        const auto read = [&](const char *feature) {
            if (const auto *control = child<QWidget>(*window, feature))
                return control->isEnabled() ? control->property("text").toString() : QStringLiteral("closed");
            // Past the node map's caches, and past all that the window and its dialogs hold.
            GenApi::INodeMap *map = privateOf(*window)->device->GetCameraParameters(nullptr)->GetNodeMap(nullptr);
            auto *value = dynamic_cast<GenApi::IValue *>(map->GetNode(feature));
            return value ? QString::fromLatin1(value->ToString(false, true)) : QStringLiteral("missing");
        };
        const QString name = read("DeviceModelName");
        QVERIFY(!name.isEmpty() && figures(*window).startsWith(name + QStringLiteral("; ")));
        QCOMPARE(read("lineEditSizeFrameA"), read("Width") + QLatin1Char('x') + read("Height"));
        QCOMPARE(read("lineEditFtmFrameA"), read("CurrentFrameTime"));
        for (const auto &[button, steps] : plan) {
            click(child<QAbstractButton>(*window, button));
            for (const Step &step : steps) {
                auto *control = child<QWidget>(*window, step.control);
                QTRY_VERIFY2(control->isVisible() && control->isEnabled(), step.control);
                operate(control, QString::fromLatin1(step.input));
                QTRY_VERIFY2(read(step.feature) == QLatin1String(step.expected), step.control);
            }
        }

        // The dialogs stay open without the camera, and take it up again with all that was set.
        const auto registers = [&] {
            QStringList texts;
            for (const auto &steps : plan) {
                for (const Step &step : steps.second) {
                    if (!child<QWidget>(*window, step.feature))
                        texts << QLatin1String(step.feature) + QLatin1Char('=') + read(step.feature);
                }
            }
            return texts;
        };
        const QStringList before = registers();
        const auto dialogs = [&](bool enabled) {
            return std::all_of(plan.begin(), plan.end(), [&](const auto &steps) {
                const auto *dialog = child<QWidget>(*window, steps.second.first().control)->window();
                return dialog->isVisible() && dialog->isEnabled() == enabled;
            });
        };
        MoxSim::setPlugged(camera, false);
        QTRY_COMPARE(figures(*window), nothing);
        QVERIFY(dialogs(false));
        MoxSim::setPlugged(camera, true);
        QTRY_VERIFY(figures(*window).startsWith(name));
        QVERIFY(dialogs(true));
        tick(*window);
        QCOMPARE(registers(), before);
        click(child<QCheckBox>(*window, "chBoxTriggerEnable"));
        QCOMPARE(read("TriggerMode"), QStringLiteral("Off"));

        trigger(*window, "actionDisconnect");
        QCOMPARE(figures(*window), nothing);
        QVERIFY(connect()); // it is free again
        QVERIFY(figures(*window).startsWith(name));
        MoxSim::setPlugged(camera, false); // and goes while the window does
    }
};

MOX_TEST_MAIN(TestLiveCamera)
#include "tst_livecamera.moc"
