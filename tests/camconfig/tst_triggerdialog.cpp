#include "bench.h"
#include "configscene.h"
#include "datarow.h"
#include "dialogscene.h"
#include "fakedevice.h"
#include "moxcamconfigtriggerdialog.h"
#include "testmain.h"

using namespace MoxTest;
using TriggerDialog = MoxGui::MoxCamConfigTriggerDialog;

namespace {

struct TriggerCamera : FakeDevice
{
    explicit TriggerCamera(int on, int itsSource)
    {
        mode.value = on;
        source.value = itsSource;
        setEntries("TriggerDebounce", words("None"));
    }
    FakeEnum &mode = setEntries("TriggerMode", words("Off On"));
    FakeEnum &source = setEntries("TriggerSource", words("Line0 Software software"));
    FakeEnum &edge = setEntries("TriggerActivation", words("Rising"));
    FakeCommand &fire = feature<FakeCommand>("TriggerSoftware");
};

struct Panel
{
    TriggerDialog dialog{nullptr};
    QCheckBox *const mode = child<QCheckBox>(dialog, "chBoxTriggerEnable");
    QComboBox *const source = child<QComboBox>(dialog, "cmBoxTriggerSource");
    QPushButton *const button = child<QPushButton>(dialog, "pushBtnSoftwareTrigger");

    /** Which controls are open: mode, source, edge, debounce, button. */
    QByteArray open(MoxCam::Device *device = nullptr)
    {
        if (device)
            dialog.SetDevice(device);
        dialog.show();
        QByteArray letters;
        for (const QWidget *control :
             std::initializer_list<QWidget *>{mode, source, child<QWidget>(dialog, "cmBoxTriggerEdge"),
                                              child<QWidget>(dialog, "cmBoxTriggerDebounce"), button})
            letters += control->isEnabled() ? "MSEDB"[letters.size()] : '-';
        return letters;
    }
};

} // namespace

class TestTriggerDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rule_data()
    {
        columns<int, int, QByteArray>("on", "source", "open");
        row("off, software", 0, 1, "M----");
        row("on, line", 1, 0, "MSED-");
        row("on, software", 1, 1, "MSEDB");
        row("on, other case", 1, 2, "MSED-");
    }
    void rule()
    {
        QFETCH(int, on);
        QFETCH(int, source);
        TriggerCamera there(on, source), byUser(1, 0), byCamera(!on, 0);
        Panel panel;
        QTEST(panel.open(&there), "open");
        panel.open(&byUser);
        for (int i = 0; i < source; ++i)
            QTest::keyClick(panel.source, Qt::Key_Down);
        if (!on)
            click(panel.mode);
        QTEST(panel.open(), "open");
        QCOMPARE(byUser.mode.writes, on ? Writes{} : Writes{0});
        QCOMPARE(byUser.source.writes, (Writes{1, 2}).mid(0, source));
        panel.open(&byCamera);
        byCamera.source.change(source);
        byCamera.mode.change(on);
        QTEST(panel.open(), "open");
    }

    /** What an update tells outlasts the rule until the switch is turned; a refused source stays until the next update. */
    void updates()
    {
        auto camera = std::make_unique<TriggerCamera>(0, 1);
        auto panel = std::make_unique<Panel>();
        panel->open(camera.get());
        camera->edge.tell();
        QCOMPARE(panel->open(), "M-E--");
        click(panel->mode);
        camera->edge.writable = false;
        camera->edge.tell();
        QCOMPARE(panel->open(), "MS-DB");
        camera->source.refusal = camera->fire.refusal = MoxCamError::GenICamAccess;
        QVERIFY(boxText([&] { QTest::keyClick(panel->source, Qt::Key_Up); }).contains(QStringLiteral("TriggerSource")));
        QCOMPARE(panel->open(), "MS-D-");
        camera->source.refusal = MoxCamError::Success;
        camera->source.tell();
        const auto gone = [&](QMessageBox *box) {
            QCOMPARE(box->parentWidget(), panel->button);
            panel->dialog.SetDevice(nullptr);
            camera.reset();
            panel.reset();
        };
        QVERIFY(boxText([&] { click(panel->button); }, gone).contains(QStringLiteral("TriggerSoftware")));
    }

    void devices()
    {
        TriggerCamera camera(1, 1), full(1, 1);
        Panel panel;
        const QList<QPair<const char *, QByteArray>> lacking{{"TriggerMode", "-----"},
                                                             {"TriggerSource", "M-ED-"},
                                                             {"TriggerActivation", "MS-DB"},
                                                             {"TriggerDebounce", "MSE-B"},
                                                             {"TriggerSoftware", "MSEDB"}, // the button does nothing
                                                             {"", "MSEDB"}};
        for (const auto &[name, open] : lacking) {
            camera.hidden = name;
            Panel fresh;
            QCOMPARE(fresh.open(&camera), open);
            for (MoxCam::Device *device : {&camera, &camera, &full, &full})
                panel.open(device);
            QCOMPARE(panel.open(), "MSEDB");
            QCOMPARE(full.sinkCount(), 5);
            QCOMPARE(connectionsOf(panel.mode, SIGNAL(stateChanged(int))), 1);
            QCOMPARE(connectionsOf(panel.source, SIGNAL(currentIndexChanged(int))), 1);
            panel.dialog.SetDevice(nullptr);
            QVERIFY(!panel.dialog.isEnabled());
            QCOMPARE(panel.open(), "-----");
        }
        camera.parametersError = MoxCamError::GenTLIo;
        QCOMPARE(panel.open(&camera), "-----");
        QCOMPARE(camera.mode.writes + camera.source.writes + full.mode.writes, Writes{});
    }
};

MOX_TEST_MAIN(TestTriggerDialog)
#include "tst_triggerdialog.moc"
