#include "bindingscene.h"
#include "datarow.h"
#include "dialogscene.h"
#include "moxcamconfigframeabdialog.h"
#include "moxcamconfigframeabdialog_p.h"
#include "qtmoxdoublespinboxval.h"
#include "qtmoxgainslider.h"
#include "testmain.h"

#include <random>

using namespace MoxTest;
using FrameDialog = MoxGui::MoxCamConfigFrameABDialog;
using FramePrivate = MoxGui::MoxCamConfigFrameABDialogPrivate;

namespace {

template<auto member> struct ReachFrame
{
    friend FramePrivate *privateOf(const FrameDialog &dialog) { return (dialog.*member).get(); }
};
FramePrivate *privateOf(const FrameDialog &dialog);
template struct ReachFrame<&FrameDialog::d>;

// clang-format off
const Bindings bindings{
    {"FrameMode", {"cmBoxFrameMode"}}, {"NumberOfFrameAs", {"spBoxNumberOfFrameAs"}},
    {"NumberOfFrameBs", {"spBoxNumberOfFrameBs"}}, {"Frame_LineTime", {"spBoxDualVideo"}},
    {"ShutterMode", {"radioBtnGlobalShutter"}}, {"SensorADCBitDepth", {"radioBtnAdcSelector12b"}},
    {"Frame_ExposureControl", {"radioBtnExpTrigger"}}, {"Frame_ExposureLines", {"spBoxExpLines"}},
    {"Frame_ExposureClocks", {"spBoxExpClocks"}}, {"Frame_FixedFramePeriodEnable", {"chBoxFixedFramePeriodEnable"}},
    {"Frame_OffsetX", {"spBoxFrameOffsetX"}}, {"Frame_OffsetY", {"spBoxFrameOffsetY"}},
    {"Frame_Width", {"spBoxFrameWidth"}}, {"Frame_Height", {"spBoxFrameHeight"}},
    {"Frame_Averaging", {"cmBoxAveraging"}}, {"Frame_SubsamplingP", {"cmBoxSubsamplingP"}},
    {"Frame_SubsamplingM", {"cmBoxSubsamplingM"}}, {"Frame_DecimationMode", {"radioBtnSubsampleSubsampling"}},
    {"Frame_AnalogGain", {"radioBtnAGain2x"}}, {"Frame_BlackLevel", {"spBoxBlackLevel"}},
    {"Frame_WdrEnable", {"chBoxWdrEnable"}}, {"Frame_WdrP1", {"cmBoxWdrP1"}}, {"Frame_WdrP2", {"cmBoxWdrP2"}},
    {"Frame_WdrP3", {"cmBoxWdrP3"}}, {"Frame_WdrE1", {"spBoxWdrE1"}}, {"Frame_WdrE2", {"spBoxWdrE2"}},
    {"Frame_WdrE3", {"spBoxWdrE3"}}
};
// clang-format on

/** A camera that sends both frames in turn: 10 lines of 1000 clocks and 80 clocks, at 160 MHz. */
struct FrameCamera : BoundCamera
{
    FrameCamera() : BoundCamera(FrameDialog(nullptr), bindings)
    {
        setNumbers({{"PixelClock", 160}, {"Frame_WidthActual", 640}, {"Frame_HeightActual", 480}});
        setEntries("TriggerMode", words("Off On"));
        mode.value = 2;
        lineTime.value = 1000;
        clocks.value = 80;
        for (FakeInt *number : {&lineTime, &lines, &clocks, &period})
            number->max = 100000;
        lines.value = 10;
        coarse.max = 4;
        fine.max = 63;
    }
    /** Takes effect at the next device. */
    MoxGenParam::Int *GetInt(const char *name, MoxCamErr *err) override
    {
        struct Unreadable : FakeFeatureOf<MoxGenParam::Int, MoxGenParam::TypeInteger>
        {
            MoxCamErr SetValue(std::int64_t) override { return MoxCamError::GenICamAccess; }
            std::int64_t GetValue(MoxCamErr *error) override { return *error = MoxCamError::GenICamAccess, 7; }
            std::int64_t GetMin(MoxCamErr *) override { return 0; }
            std::int64_t GetMax(MoxCamErr *) override { return 0; }
            std::int64_t GetIncrement(MoxCamErr *) override { return 0; }
        };
        static Unreadable unreadable;
        return name == brokenRead ? &unreadable : FakeDevice::GetInt(name, err);
    }
    std::string brokenRead;
    FakeEnum &selector = setEntries("FrameAB_Selector", words("FrameA FrameB"));
    FakeEnum &mode = setEntries("FrameMode", words("FrameA FrameB FrameAB"));
    FakeInt &clock = feature<FakeInt>("PixelClock"), &lineTime = feature<FakeInt>("Frame_LineTime");
    FakeInt &lines = feature<FakeInt>("Frame_ExposureLines"), &clocks = feature<FakeInt>("Frame_ExposureClocks");
    FakeInt &period = feature<FakeInt>("Frame_FixedFramePeriodValue");
    FakeInt &coarse = feature<FakeInt>("Frame_DigitalCourseGain"), &fine = feature<FakeInt>("Frame_DigitalFineGain");
};

struct FrameBench
{
    explicit FrameBench(MoxCam::Device *device) : dialog(std::make_unique<FrameDialog>(device)) { dialog->show(); }
    std::unique_ptr<FrameDialog> dialog;
    QtMoxSliderSpinBox *const time = child<QtMoxSliderSpinBox>(*dialog, "spBoxExpTime");
    QtMoxSliderSpinBox *const period = child<QtMoxSliderSpinBox>(*dialog, "spBoxFixedFramePeriodValue");
    QtMoxGainSlider *const gain = child<QtMoxGainSlider>(*dialog, "spBoxDigitalGain");
    QTabWidget *const tabs = child<QTabWidget>(*dialog, "tabFrames");
    QComboBox *const mode = child<QComboBox>(*dialog, "cmBoxFrameMode");
};

} // namespace

class TestFrameABDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void units_data()
    {
        columns<qint64, qint64, qint64, qint64, qint64>("lineTime", "clock", "value", "control", "device");
        row("usual", 1000ll, 160ll, 100ll, 625ll, 16ll);
        row("half goes up", 1ll, 2ll, 3ll, 2ll, 6ll);
        row("negative is cut", 1000ll, 160ll, -100ll, -624ll, -15ll);
        row("no line time", 0ll, 160ll, 100ll, 0ll, 0ll);
        row("no clock", 1000ll, 0ll, 100ll, 0ll, 0ll);
        row("unreadable clock", 1000ll, -1ll, 100ll, 625ll, 16ll); // 160 stands in
        row("beyond 32 bits", 65535ll, 160ll, 4294967296ll, 1759191760896ll, 10485920ll);
        row("wraps at 64 bits", 1ll << 62, 1ll, 4ll, 0ll, 0ll);
    }

    void units()
    {
        QFETCH(qint64, lineTime);
        QFETCH(qint64, clock);
        QFETCH(qint64, value);
        FrameCamera camera;
        camera.brokenRead = clock < 0 ? "PixelClock" : "";
        camera.clock.value = clock;
        camera.lineTime.value = lineTime;
        camera.lineTime.max = INT64_MAX;
        const FrameBench bench(&camera);
        QTEST(qint64(privateOf(*bench.dialog)->ToControl(value, nullptr)), "control");
        QTEST(qint64(privateOf(*bench.dialog)->ToDevice(value, nullptr)), "device");
        type(bench.time->spinBox(), 1); // must not divide by zero
    }

    void exposureTime()
    {
        FrameCamera camera;
        const FrameBench bench(&camera);
        QCOMPARE(bench.time->value(), 63);
        QCOMPARE(camera.lines.writes + camera.clocks.writes, Writes{});
        type(bench.time->spinBox(), 64); // stands for a position of the slider: the pair is written once
        QCOMPARE(camera.lines.writes + camera.clocks.writes, Writes{240});
        type(bench.time->spinBox(), 63);
        QCOMPARE(camera.lines.value * 1000 + camera.clocks.value, 10080);

        std::mt19937 random(1);
        const auto any = [&](int least, int most) {
            return std::int64_t(least + random() % unsigned(most - least + 1));
        };
        for (int i = 0; i < 300; ++i) {
            camera.clock.value = any(1, 400);
            camera.lines.max = any(1, 60000);
            camera.lineTime.value = any(1, 60000);
            camera.clocks.max = camera.lineTime.value - 1;
            camera.lines.value = any(0, int(camera.lines.max));
            camera.clocks.value = any(0, int(camera.clocks.max));
            QVERIFY(bench.dialog->SetDevice(&camera));
            const std::int64_t exposure = camera.lines.value * camera.lineTime.value + camera.clocks.value;
            QCOMPARE(std::int64_t(bench.time->value()), exposure / camera.clock.value);
            const std::int64_t most = camera.lines.max * camera.lineTime.value + camera.clocks.max;
            const std::int64_t wanted = any(0, int(most / camera.clock.value));
            type(bench.time->spinBox(), int(wanted));
            QCOMPARE(std::int64_t(bench.time->value()), wanted);
            // Exactly the time that was asked for, in whole lines and what is left.
            QCOMPARE(camera.lines.value * camera.lineTime.value + camera.clocks.value, wanted * camera.clock.value);
            QVERIFY(camera.clocks.value < camera.lineTime.value);
            camera.lines.change(any(0, int(camera.lines.max)));
            const std::int64_t changed = camera.lines.value * camera.lineTime.value + camera.clocks.value;
            QCOMPARE(std::int64_t(bench.time->value()), changed / camera.clock.value);
        }
        // A range that shrinks under the time reaches the camera: here, that of a fixed period.
        FrameCamera fixed;
        fixed.lines.value = 100;
        fixed.clocks.value = 0;
        fixed.period.value = 50;
        QVERIFY(bench.dialog->SetDevice(&fixed));
        QCOMPARE(bench.time->value(), 625);
        fixed.period.change(50);
        QCOMPARE(bench.period->value(), 313);
        QCOMPARE(fixed.lines.writes, Writes{});
        click(child<QCheckBox>(*bench.dialog, "chBoxFixedFramePeriodEnable"));
        QCOMPARE(fixed.lines.value * 1000 + fixed.clocks.value, 313 * 160);
        fixed.lineTime.change(2000); // the new range and the slider's scale answer with writes, and all settles
        QCOMPARE(bench.period->value(), 625);
        QCOMPARE(fixed.period.value, 50);
    }

    void digitalGain()
    {
        FrameCamera camera;
        camera.fine.min = -32;
        camera.coarse.value = 1;
        camera.fine.value = 48;
        const FrameBench bench(&camera);
        QCOMPARE(bench.gain->value(), 3.5);
        QCOMPARE(bench.gain->minimum(), 0.5);
        QCOMPARE(bench.gain->maximum(), 31.75);
        for (int eighths = 4; eighths <= 254; ++eighths) {
            const double wanted = eighths / 8.0;
            bench.gain->spinBox()->setLineEditText(QString::number(wanted));
            QTest::keyClick(bench.gain->spinBox(), Qt::Key_Return);
            // From the other end: doublings while they fit, and what is left in 64ths of them. Above 16 every other eighth
            // is finer than the camera's steps.
            int doublings = 0;
            while (wanted >= 2 << doublings)
                ++doublings;
            const int rest = eighths * 8 / (1 << doublings) - 64;
            QCOMPARE(int(camera.coarse.value), doublings);
            QCOMPARE(int(camera.fine.value), rest);
            QCOMPARE(bench.gain->value(), (64 + rest) * (1 << doublings) / 64.0);
        }
        bench.gain->setValue(2);
        for (FakeInt *part : {&camera.coarse, &camera.fine})
            part->writes.clear();
        bench.gain->setValue(3);
        QCOMPARE(camera.coarse.writes + camera.fine.writes, (Writes{1, 32}));
        camera.fine.change(63); // between two steps of the control: comes back rounded, once
        QCOMPARE(camera.coarse.writes + camera.fine.writes, (Writes{1, 2, 32, 0}));
        QCOMPARE(bench.gain->value(), 4.0);
        camera.fine.refusal = MoxCamError::GenTLIo;
        QCOMPARE(boxText([&] { bench.gain->setValue(5); }), QString());
        camera.hidden = "Frame_DigitalFineGain"; // its part counts as nothing
        QVERIFY(bench.dialog->SetDevice(&camera));
        QCOMPARE(bench.gain->maximum(), 16.0);
        FakeDevice bare;
        QVERIFY(bench.dialog->SetDevice(&bare));
        QCOMPARE(bench.gain->minimum(), 1.0);
        QCOMPARE(bench.gain->maximum(), 1.0);
    }

    void modesAndTabs()
    {
        FrameCamera camera;
        const FrameBench bench(&camera);
        std::mt19937 random(2);
        auto *const single = child<QtMoxSliderSpinBox>(*bench.dialog, "spBoxFrameLineTime");
        auto *const dual = child<QtMoxSliderSpinBox>(*bench.dialog, "spBoxDualVideo");
        for (int i = 0; i < 400; ++i) {
            const int mode = int(random() % 3), tab = int(random() % 2);
            switch (random() % 5) {
            case 0:
                bench.mode->setCurrentIndex(mode);
                break;
            case 1:
                camera.mode.change(mode);
                break;
            case 2:
                QTest::mouseClick(bench.tabs->tabBar(), Qt::LeftButton, {},
                                  bench.tabs->tabBar()->tabRect(tab).center());
                break;
            case 3:
                camera.selector.change(tab);
                break;
            case 4:
                QVERIFY(bench.dialog->SetDevice(&camera));
                break;
            }
            const bool both = camera.mode.value == 2;
            QCOMPARE(bench.tabs->isTabEnabled(0), camera.mode.value != 1);
            QCOMPARE(bench.tabs->isTabEnabled(1), camera.mode.value != 0);
            QVERIFY(both || bench.tabs->currentIndex() == camera.mode.value);
            QCOMPARE(bench.tabs->currentIndex(), int(camera.selector.value));
            QCOMPARE(bench.tabs->widget(0)->layout() != nullptr, camera.selector.value == 0);
            QCOMPARE(bench.tabs->widget(1)->layout() != nullptr, camera.selector.value == 1);
            QVERIFY(bench.tabs->currentWidget()->isAncestorOf(bench.time));
            QCOMPARE(dual->isEnabled(), both);
            QCOMPARE(single->isEnabled(), !both);
            for (const char *count : {"NumberOfFrameAs", "NumberOfFrameBs"}) {
                auto *spinBox = child<QtMoxSpinBox>(*bench.dialog, QByteArray("spBox").append(count));
                auto &feature = camera.feature<FakeInt>(count);
                QCOMPARE(spinBox->isEnabled(), both);
                feature.tell(); // not bound with a single frame: nothing comes back
                QCOMPARE(spinBox->isEnabled(), both);
            }
            camera.lineTime.writes.clear();
            type((both ? dual : single)->spinBox(), 2000 + i);
            QCOMPARE(camera.lineTime.writes, Writes{2000 + i});
        }
    }

    void bindsPlainly()
    {
        struct Camera : BoundCamera
        {
            Camera(const QDialog &dialog, const Bindings &all) : BoundCamera(dialog, all)
            {
                setEntries("FrameAB_Selector", words("FrameA FrameB")); // or else nothing on the tabs is enabled
            }
        };
        checkBindings<FrameDialog, Camera>(bindings,
                                           bindings.size() + 4); // listens to the exposure and line time itself
    }

    /** What a camera lacks is passed over, also where another one had it. */
    void lacking()
    {
        const FrameBench old(nullptr);
        for (const QByteArray name :
             {"", "PixelClock", "TriggerMode", "Frame_WidthActual", "Frame_HeightActual", "Frame_DigitalCourseGain",
              "Frame_DigitalFineGain", "Frame_LineTime", "Frame_ExposureLines", "Frame_ExposureClocks",
              "Frame_FixedFramePeriodValue", "FrameAB_Selector"}) {
            FrameCamera camera;
            camera.hidden = name.toStdString();
            const FrameBench fresh(nullptr); // knows no line time but this camera's
            for (const FrameBench *bench : {&fresh, &old}) {
                QVERIFY(bench->dialog->SetDevice(&camera));
                QCOMPARE(bench->time->isEnabledTo(bench->tabs),
                         name != "Frame_ExposureClocks"); // the lines have enabled it before
                QCOMPARE(bench->period->isEnabledTo(bench->tabs), name != "Frame_FixedFramePeriodValue");
                QCOMPARE(bench->tabs->isEnabled(), name != "FrameAB_Selector");
                type(bench->time->spinBox(), 64);
                type(bench->period->spinBox(), 64);
                bench->gain->setValue(2);
                camera.lines.tell();
                QVERIFY(!bench->dialog->SetDevice(nullptr));
            }
        }
    }

    void devices()
    {
        FrameCamera camera, other;
        other.lines.value = 20;
        other.lines.max = 30; // would cut the time of the first camera
        camera.lines.value = 1000;
        const FrameBench bench(nullptr);
        for (FrameCamera *device : {static_cast<FrameCamera *>(nullptr), &camera, &camera, &other, &camera,
                                    static_cast<FrameCamera *>(nullptr), &other, &camera}) {
            bench.dialog->SetDevice(device);
            QCOMPARE(bench.dialog->findChildren<QTimer *>(QString(), Qt::FindDirectChildrenOnly).size(), int(!!device));
            QCOMPARE(connectionsOf(bench.gain, SIGNAL(valueChanged(double))), int(!!device));
            QCOMPARE(connectionsOf(bench.time, SIGNAL(valueChanged(int))), int(!!device));
            QVERIFY(!device || bench.time->value() == (device->lines.value * 1000 + 80) / 160);
        }
        QCOMPARE(camera.lines.writes + camera.clocks.writes + other.lines.writes + other.clocks.writes, Writes{});
        QTRY_COMPARE(child<QLineEdit>(*bench.dialog, "lineEditFrameCurrentSize")->text(), QStringLiteral("640x480"));
    }

    /** The dialog dies, or is given another device, under each message box that its own work can raise. */
    void boxes()
    {
        for (const bool dies : {true, false}) {
            const std::function<void(FrameBench &, FrameCamera &)> actions[] = {
                [](FrameBench &bench, FrameCamera &) { type(bench.time->spinBox(), 500); },
                [](FrameBench &bench, FrameCamera &) { bench.tabs->setCurrentIndex(1); },
                [](FrameBench &bench, FrameCamera &camera) {
                    camera.mode.value = 1; // frame B comes to be chosen while the device is taken up
                    bench.dialog->SetDevice(&camera);
                },
                [](FrameBench &, FrameCamera &camera) { // the time no longer fits
                    camera.clocks.max = 0;
                    camera.clocks.tell();
                    camera.lines.max = 2;
                    camera.lines.tell();
                },
                [](FrameBench &, FrameCamera &camera) { camera.lines.change(3); },
                [](FrameBench &, FrameCamera &camera) { camera.lineTime.change(7); },
            };
            for (const auto &action : actions) {
                // Under an update it must not die: the camera goes on to the next subscription.
                if (dies && &action >= std::begin(actions) + 3)
                    break;
                FrameCamera camera, other;
                FrameBench bench(&camera);
                for (FakeFeature *feature :
                     std::initializer_list<FakeFeature *>{&camera.lines, &camera.clocks, &camera.lineTime,
                                                          &camera.period, &camera.mode, &camera.selector})
                    feature->refusal = MoxCamError::GenTLIo;
                QVERIFY(!boxText([&] { action(bench, camera); },
                                 [&](QMessageBox *) {
                                     if (dies)
                                         bench.dialog.reset();
                                     else
                                         bench.dialog->SetDevice(&other);
                                 })
                             .isNull());
                QCOMPARE(!bench.dialog, dies);
                // What was typed may go on to the other camera; what shows is what that one has.
                QVERIFY(dies || bench.time->value() == (other.lines.value * 1000 + other.clocks.value) / 160);
            }
        }
    }
};

MOX_TEST_MAIN(TestFrameABDialog)
#include "tst_frameabdialog.moc"
