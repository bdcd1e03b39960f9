#include "bindingscene.h"
#include "datarow.h"
#include "dialogscene.h"
#include "moxcamconfigpulsedialog.h"
#include "testmain.h"

using namespace MoxTest;

namespace {

struct PulseCamera : FakeDevice
{
    explicit PulseCamera(int itsPeriod = 1000, int itsWidth = 250)
    {
        setEntries("PulseGenGranularity", words("x1 x10"));
        setEntries("PulseGenMode", words("Continuous Send"));
        setNumbers({{"PulseGenPeriod", itsPeriod}, {"PulseGenWidth", itsWidth}, {"PulseGenNumPulses", 10}});
        period.min = width.min = INT_MIN;
        period.max = width.max = INT_MAX;
    }
    FakeInt &period = feature<FakeInt>("PulseGenPeriod");
    FakeInt &width = feature<FakeInt>("PulseGenWidth");
    FakeBoolean &enable = feature<FakeBoolean>("PulseGenEnable");
};

struct Panel
{
    MoxGui::MoxCamConfigPulseDialog dialog{nullptr};
    QtMoxSpinBox *const period = child<QtMoxSpinBox>(dialog, "spBoxPeriod");
    QtMoxSpinBox *const width = child<QtMoxSpinBox>(dialog, "spBoxWidth");
    QPushButton *const start = child<QPushButton>(dialog, "pushBtnPulseEnable");

    QByteArray timing(MoxCam::Device *device = nullptr)
    {
        if (device)
            dialog.SetDevice(device);
        dialog.show();
        return (child<QLineEdit>(dialog, "lineEditDelay")->text() + QLatin1Char(' ')
                + child<QLineEdit>(dialog, "lineEditFreq")->text())
            .toLatin1();
    }
    /** Caption, colour of the light, and whether the button is down. */
    QByteArray state() const
    {
        const QImage light = child<QLabel>(dialog, "lblPulseEnable")->pixmap()->toImage();
        const QColor color = light.pixelColor(light.rect().center());
        return start->text().toLatin1() + (color.green() > color.red() ? " green" : " red")
            + (start->isChecked() ? " down" : " up");
    }
};

} // namespace

class TestPulseDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void timing_data()
    {
        columns<int, int, QByteArray>("period", "width", "shown");
        row("usual", 1000, 250, "750 1000.000000");
        row("zero", 0, 0, "0 0.000000");
        row("width above period", 3, 10, "-7 333333.333333");
        row("top", INT_MAX, 1, "2147483646 0.000466");
        row("wraps", INT_MIN, 1, "2147483647 -0.000466");
    }
    void timing()
    {
        QFETCH(int, period);
        QFETCH(int, width);
        PulseCamera there(period, width), byUser, byCamera;
        Panel panel;
        QTEST(panel.timing(&there), "shown");
        QCOMPARE(there.period.writes + there.width.writes, Writes{});
        panel.timing(&byUser);
        type(panel.period->spinBox(), period);
        type(panel.width->spinBox(), width);
        QTEST(panel.timing(), "shown");
        QCOMPARE(byUser.period.value, period); // in the end: on the way the slider has its say
        panel.timing(&byCamera);
        byCamera.width.change(width);
        byCamera.period.change(period);
        QTEST(panel.timing(), "shown");
        QCOMPARE(byCamera.period.value, period);
    }

    /** Caption and light follow clicks and devices, not the camera. */
    void buttonState()
    {
        PulseCamera camera;
        Panel panel;
        panel.timing(&camera);
        camera.enable.change(1);
        QCOMPARE(panel.state(), "Start red down");
        QVERIFY(panel.dialog.SetDevice(&camera));
        QCOMPARE(panel.state(), "Stop green down");
        QCOMPARE(connectionsOf(panel.width, SIGNAL(valueChanged(int))), 2); // the binding's and the dialog's
        QCOMPARE(connectionsOf(panel.start, SIGNAL(clicked(bool))), 2);
        panel.dialog.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&panel.dialog));
        for (const char *state : {"Start red up", "Stop green down"}) {
            // The shortcut has two strokes and outlives the changes of the caption.
            for (int stroke = 0; stroke < 2; ++stroke)
                QTest::keyClick(&panel.dialog, Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
            QTRY_COMPARE(panel.state(), state);
        }
        type(panel.width->spinBox(), INT_MAX); // Return does not reach the button
        camera.enable.refusal = MoxCamError::GenICamAccess;
        QVERIFY(!boxText([&] { click(panel.start); }).isEmpty());
        QCOMPARE(panel.state(), "Start red up");
        camera.enable.tell();
        QCOMPARE(panel.state(), "Start red down");
        QCOMPARE(camera.enable.writes, (Writes{0, 1, 0}));
    }

    void bindings()
    {
        checkBindings<MoxGui::MoxCamConfigPulseDialog>({{"PulseGenGranularity", {"cmBoxGranularity"}},
                                                        {"PulseGenPeriod", {"spBoxPeriod"}},
                                                        {"PulseGenWidth", {"spBoxWidth"}},
                                                        {"PulseGenNumPulses", {"spBoxNumPulses"}},
                                                        {"PulseGenMode", {"radioBtnSend", "radioBtnContinious"}},
                                                        {"PulseGenEnable", {"pushBtnPulseEnable"}}},
                                                       6);
    }
};

MOX_TEST_MAIN(TestPulseDialog)
#include "tst_pulsedialog.moc"
