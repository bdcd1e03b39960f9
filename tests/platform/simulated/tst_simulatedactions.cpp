// Action commands in the simulated world: which cameras obey, when, and what the interface tells of them.
#include "../ackevents.h"
#include "../featurescript.h"
#include "bench.h"
#include "device/interface.h"
#include "simulated/simulatedbackend.h"

#include <MoxCameraApi/MoxGenParam.h>
#include <MoxCameraApi/MoxSimulation.h>
#include <datarow.h>
#include <testmain.h>

using namespace MoxSim;
using namespace MoxTest;
using MoxSdk::Action;

class TestSimulatedActions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { resetWorld(); }
    void keys_data();
    void keys();
    void schedule();
    void acknowledgements();
    void pulledPlugsAndEnds();
};

void TestSimulatedActions::keys_data()
{
    columns<QByteArray, unsigned, unsigned, unsigned, QByteArray>("settings", "device", "group", "mask", "counts");
    row("as delivered", "", 5u, 7u, 0xffffffffu, "10");
    row("any bit", "", 5u, 7u, 0x80000000u, "10");
    row("no bit", "", 5u, 7u, 0u, "00");
    row("another device", "", 6u, 7u, 1u, "00");
    row("another group", "", 5u, 8u, 1u, "00");
    row("key of all bits", "ActionDeviceKey=4294967295", 0xffffffffu, 7u, 1u, "10");
    row("other bits", "ActionGroupMask=6", 5u, 7u, 0xfffffff9u, "00");
    row("switched off", "ActionGroupMask=0", 5u, 7u, 0xffffffffu, "00");
    row("the second one", "ActionSelector=1 ActionGroupKey=9 ActionGroupMask=4", 5u, 9u, 5u, "01");
    row("both", "ActionSelector=1 ActionGroupKey=7 ActionGroupMask=4", 5u, 7u, 4u, "11");
}

void TestSimulatedActions::keys()
{
    QFETCH(QByteArray, settings);
    QFETCH(unsigned, device);
    QFETCH(unsigned, group);
    QFETCH(unsigned, mask);
    QFETCH(QByteArray, counts); // of both actions
    const Action action{device, group, mask, {}, false, 0};
    for (const Model model : {Model::FrameAB, Model::Plain}) {
        Bench bench(model);
        for (const QByteArray &step : settings.isEmpty() ? QByteArrayList() : settings.split(' '))
            QCOMPARE(play(*bench.map, QString::fromLatin1(step)), QString());
        QCOMPARE(bench.firmware.act(action), counts.contains('1'));
        for (const int number : {0, 1}) {
            QCOMPARE(play(*bench.map, QStringLiteral("ActionSelector=%1").arg(number)), QString());
            QCOMPARE(play(*bench.map, QStringLiteral("ActionCount==") + QLatin1Char(counts[number])), QString());
        }
    }
    QVERIFY(!Bench(Model::Color).firmware.act({0, 0, 0xffffffff, {}, false, 0}));
}

void TestSimulatedActions::schedule()
{
    Bench bench(Model::Plain);
    const auto at = [](std::uint64_t time) { return Action{5, 7, 1, time, false, 0}; };
    const auto count = [&] {
        auto *feature = dynamic_cast<GenApi::IInteger *>(bench.map->GetNode("ActionCount"));
        return int(feature->GetValue(false, true));
    };
    bench.now = std::chrono::nanoseconds(0xfffffffe);
    QVERIFY(bench.firmware.act(at(0xfffffffd))); // too late: at once
    QCOMPARE(count(), 1);
    QVERIFY(bench.firmware.act(at(0x100000000)));
    QVERIFY(bench.firmware.act(at(0xffffffff)));
    QCOMPARE(count(), 1);
    for (const int expected : {2, 3, 3}) {
        ++bench.now;
        QCOMPARE(count(), expected);
    }
    for (int waiting = 0; waiting < 8; ++waiting)
        QVERIFY(bench.firmware.act(at(UINT64_MAX)));
    QVERIFY(!bench.firmware.act(at(UINT64_MAX)));
    QVERIFY(bench.firmware.act(at(0)));
    QCOMPARE(count(), 4);
    QCOMPARE(play(*bench.map, QStringLiteral("DeviceReset()")), QString());
    QCOMPARE(count(), 0);
    QVERIFY(bench.firmware.act(at(UINT64_MAX)));
}

void TestSimulatedActions::acknowledgements()
{
    Events events;
    Events ofSecond;
    const auto backend = MoxSdk::createSimulatedBackend();
    addInterface(MoxCam::InterfaceGigEVision, "Second adapter");
    addCamera("Sim::GEV1", CameraSetup());
    addCamera("Sim::GEV0", CameraSetup());
    const auto interfaces = backend->interfaces();
    events.listenTo(*interfaces[0]);
    ofSecond.listenTo(*interfaces[3]);
    const auto send = [](MoxSdk::Interface *interface, int flags, int awaited) {
        MoxGenParam::Array &array = *interface->GetParameters(nullptr);
        const std::pair<const char *, int> values[] = {{"ActionDevKey", 5},    {"ActionGroupKey", 7},
                                                       {"ActionGroupMask", 1}, {"ActionFlags", flags},
                                                       {"ActionTimeHi", 1000}, {"CntWaitActionAcks", awaited}};
        for (const auto &[name, value] : values)
            array.SetIntegerValue(name, value);
        return array.ExecuteCommand("GevAction");
    };
    QVERIFY(!interfaces[1]->GetParameters(nullptr)->GetCommand("GevAction", nullptr));
    // The one in use obeys too; the one in another subnet and the one that no broadcast reaches do not.
    QCOMPARE(send(interfaces[0], 0x00, 0), MoxCamError::Success);
    QCOMPARE(send(interfaces[0], 0x01, 0), MoxCamError::Success);
    QTRY_COMPARE(events.data(), QByteArray("c0a80a0a00000002 c0a80a0b00000002 c0a80a0e00000002 "));
    // The first one is the last now, and nobody waits for it; that a command is for later does not delay the answers.
    setAccessDelay("Moxara_MX-4K-AB_000001", 100);
    QCOMPARE(send(interfaces[0], 0x81, 2), MoxCamError::Success);
    QCOMPARE(send(interfaces[3], 0x01, 5), MoxCamError::Success);
    QCOMPARE(send(interfaces[0], 0x01, 3), MoxCamError::Success);
    QTRY_COMPARE(events.data().mid(3 * 17),
                 QByteArray("c0a80a0b00000003 c0a80a0b00000004 c0a80a0e00000003 c0a80a0e00000004 c0a80a0a00000004 "));
    QCOMPARE(ofSecond.data(), QByteArray("c0a80b0a00000001 "));
}

void TestSimulatedActions::pulledPlugsAndEnds()
{
    Events events;
    auto backend = MoxSdk::createSimulatedBackend();
    MoxSdk::Interface *interface = backend->interfaces()[0];
    events.listenTo(*interface);
    const Action action{5, 7, 1, {}, true, 1};
    // Its answer is lost with it, and does not count as one that came.
    setAccessDelay("Moxara_MX-4K-AB_000001", 20);
    setAccessDelay("Moxara_MX-2K-M_000002", 100);
    interface->sendAction(action);
    setPlugged("Moxara_MX-4K-AB_000001", false);
    QTRY_COMPARE(events.data(), QByteArray("c0a80a0b00000001 "));
    setInterfacePlugged("Sim::GEV0", false);
    QCOMPARE(interface->sendAction(action), MoxCamError::Success);
    setInterfacePlugged("Sim::GEV0", true);
    // Nobody waits for an answer that is an hour away when the interface goes.
    setAccessDelay("Moxara_MX-2K-M_000002", 3600000);
    interface->sendAction(action);
    backend.reset();
    QCOMPARE(events.data(), QByteArray("c0a80a0b00000001 "));
}

MOX_TEST_MAIN(TestSimulatedActions)
#include "tst_simulatedactions.moc"
