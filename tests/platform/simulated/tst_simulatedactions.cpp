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
    row("as delivered, any bit", "ActionSelector=0", 5u, 7u, 0x80000000u, "10");
    row("another device", "ActionSelector=0", 6u, 7u, 1u, "00");
    row("another group", "ActionSelector=0", 5u, 8u, 1u, "00");
    row("key of all bits", "ActionDeviceKey=4294967295", 0xffffffffu, 7u, 1u, "10");
    row("other bits", "ActionGroupMask=6", 5u, 7u, 0xfffffff9u, "00");
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
    Bench bench(Model::Plain);
    for (const QByteArray &step : settings.split(' '))
        QCOMPARE(play(*bench.map, QString::fromLatin1(step)), QString());
    QCOMPARE(bench.firmware.act({device, group, mask, {}, false, 0}), counts.contains('1'));
    for (const int number : {0, 1}) {
        QCOMPARE(play(*bench.map, QStringLiteral("ActionSelector=%1").arg(number)), QString());
        QCOMPARE(play(*bench.map, QStringLiteral("ActionCount==") + QLatin1Char(counts[number])), QString());
    }
}

void TestSimulatedActions::schedule()
{
    Bench bench(Model::Plain);
    const auto act = [&bench](std::uint64_t time) { return bench.firmware.act({5, 7, 1, time, false, 0}); };
    const auto count = [&] {
        auto *feature = dynamic_cast<GenApi::IInteger *>(bench.map->GetNode("ActionCount"));
        return int(feature->GetValue(false, true));
    };
    bench.now = std::chrono::nanoseconds(0xfffffffe);
    QVERIFY(!act(0xfffffffd)); // too late: at once, and no success
    QCOMPARE(count(), 1);
    QVERIFY(act(0x100000000) && act(0xffffffff));
    QCOMPARE(count(), 1);
    for (const int expected : {2, 3, 3}) {
        ++bench.now;
        QCOMPARE(count(), expected);
    }
    for (int waiting = 0; waiting < 8; ++waiting)
        QVERIFY(act(UINT64_MAX));
    QVERIFY(!act(UINT64_MAX));
    QCOMPARE(play(*bench.map, QStringLiteral("DeviceReset()")), QString());
    QCOMPARE(count(), 0);
    QVERIFY(act(UINT64_MAX));
}

void TestSimulatedActions::acknowledgements()
{
    Events events;
    const auto backend = MoxSdk::createSimulatedBackend();
    addCamera("Sim::GEV0", CameraSetup());
    const auto interfaces = backend->interfaces();
    events.listenTo(*interfaces[0]);
    const auto send = [&interfaces](int flags, int awaited) {
        MoxGenParam::Array &array = *interfaces[0]->GetParameters(nullptr);
        const std::pair<const char *, int> values[] = {{"ActionDevKey", 5},    {"ActionGroupKey", 7},
                                                       {"ActionGroupMask", 1}, {"ActionFlags", flags},
                                                       {"ActionTimeHi", 1000}, {"CntWaitActionAcks", awaited}};
        for (const auto &[name, value] : values)
            array.SetIntegerValue(name, value);
        QCOMPARE(array.ExecuteCommand("GevAction"), MoxCamError::Success);
    };
    QVERIFY(!interfaces[1]->GetParameters(nullptr)->GetCommand("GevAction", nullptr));
    // The one in use obeys too; the one in another subnet and the one that no broadcast reaches do not.
    send(0x00, 0);
    send(0x01, 0);
    QTRY_COMPARE(events.data(), QByteArray("c0a80a0a00000002 c0a80a0b00000002 c0a80a0e00000002 "));
    // The first one is the last now, and nobody waits for it; that a command is for later does not delay the answers.
    setAccessDelay("Moxara_MX-4K-AB_000001", 100);
    send(0x81, 2);
    send(0x01, 3);
    QTRY_COMPARE(events.data().mid(3 * 17),
                 QByteArray("c0a80a0b00000003 c0a80a0b00000004 c0a80a0e00000003 c0a80a0e00000004 c0a80a0a00000004 "));
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
    // Nobody waits for an answer that is an hour away when the interface goes.
    setAccessDelay("Moxara_MX-2K-M_000002", 3600000);
    interface->sendAction(action);
    backend.reset();
    QCOMPARE(events.data(), QByteArray("c0a80a0b00000001 "));
}

MOX_TEST_MAIN(TestSimulatedActions)
#include "tst_simulatedactions.moc"
