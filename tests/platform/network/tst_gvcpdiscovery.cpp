// What discovery makes of the answers on the wire.
#include "../../../platform/network/gvcpdiscovery.h"
#include "gvcpresponder.h"

#include <QElapsedTimer>
#include <QTest>

using namespace MoxSdk;
using namespace MoxTest;
using Packets = GvcpResponder::Packets;
using Command = GvcpResponder::Command;
using Answers = std::function<Packets(std::uint16_t id)>;

namespace {

constexpr std::chrono::milliseconds limit{200};
const std::string model = "Maker-A model name that fills 32 bytes-";

/** Gives these answers to one kind of command, and leaves the others to the responder. */
GvcpResponder::Intercept to(Code code, const Answers &answers)
{
    return [code, answers](const Command &command) -> std::optional<Packets> {
        if (command.code != code)
            return std::nullopt;
        return answers(command.id);
    };
}

std::vector<DeviceRecord> discover(const GvcpResponder &responder, std::chrono::milliseconds time = limit)
{
    return GvcpDiscovery(loopback(), responder.port).run(time);
}

} // namespace

Q_DECLARE_METATYPE(Answers)

class TestGvcpDiscovery : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void factsOfACamera();
    void answersThatDoNotCount_data();
    void answersThatDoNotCount();
    void severalCameras();
    void accessStatus_data();
    void accessStatus();
    void cameraOfAnotherSubnet();
    void timeLimit();
};

void TestGvcpDiscovery::factsOfACamera()
{
    GvcpResponder responder;
    const auto records = discover(responder);
    // The general, the directed and the plain address each reach it, twice, and make one camera.
    QCOMPARE(records.size(), std::size_t(1));
    const DeviceRecord &record = records[0];
    QCOMPARE(record.id, model + "S1-001A2B3C4D5E");
    QCOMPARE(record.vendor, std::string("Maker"));
    QCOMPARE(record.model, std::string("A model name that fills 32 bytes"));
    QCOMPARE(record.displayName, std::string("Maker A model name that fills 32 bytes (S1)"));
    QCOMPARE(record.version, std::string("1.2"));
    QCOMPARE(record.serialNumber, std::string("S1"));
    QCOMPARE(record.userDefinedName, std::string("Left \xc3\xa4"));
    QCOMPARE(record.macAddress, std::uint64_t(0x001a2b3c4d5e));
    QCOMPARE(record.ipAddress, 0x7f000001u);
    QCOMPARE(record.netmask, 0xff000000u);
    QCOMPARE(record.gateway, 0x7f0000feu);
}

void TestGvcpDiscovery::answersThatDoNotCount_data()
{
    QTest::addColumn<Answers>("answers");
    const Packet payload = facts(1, 0x7f000001, "S1");
    const auto whole = [payload](std::uint16_t id) { return acknowledge(0x03, id, payload); };
    QTest::newRow("empty") << Answers([](std::uint16_t) { return Packets{Packet()}; });
    QTest::newRow("short header") << Answers([whole](std::uint16_t id) {
        const Packet packet = whole(id);
        return Packets{Packet(packet.begin(), packet.begin() + 7)};
    });
    QTest::newRow("short payload") << Answers([payload](std::uint16_t id) {
        return Packets{acknowledge(0x03, id, Packet(payload.begin(), payload.end() - 1))};
    });
    QTest::newRow("length beyond the packet") << Answers([whole](std::uint16_t id) {
        Packet packet = whole(id);
        packet[5] = 0xf9;
        return Packets{packet};
    });
    QTest::newRow("another id") << Answers([whole](std::uint16_t id) { return Packets{whole(id ^ 0x4000)}; });
    QTest::newRow("refusal") << Answers(
        [payload](std::uint16_t id) { return Packets{acknowledge(0x03, id, payload, 0x8001)}; });
    QTest::newRow("of another command") << Answers(
        [payload](std::uint16_t id) { return Packets{acknowledge(0x81, id, payload)}; });
    QTest::newRow("late") << Answers([whole](std::uint16_t id) {
        std::this_thread::sleep_for(limit + std::chrono::milliseconds(50));
        return Packets{whole(id)};
    });
}

void TestGvcpDiscovery::answersThatDoNotCount()
{
    QFETCH(Answers, answers);
    GvcpResponder responder(to(Discovery, answers));
    QCOMPARE(discover(responder).size(), std::size_t(0));
    QVERIFY(!responder.takeCommands().empty());
}

void TestGvcpDiscovery::severalCameras()
{
    // The second camera that is asked for its privilege is in use. The answer for the first one comes from the address
    // of the second one, and does not count.
    GvcpResponder responder([held = std::uint16_t(0)](const Command &command) mutable -> std::optional<Packets> {
        if (command.code == ReadRegister) {
            held = held ? held : std::uint16_t(command.id + 1);
            return Packets{acknowledge(0x81, command.id, {0, 0, 0, std::uint8_t(command.id == held ? 2 : 0)})};
        }
        const auto answer = [id = command.id](std::uint64_t mac, std::uint32_t ip, const char *serial) {
            return acknowledge(0x03, id, facts(mac, ip, serial));
        };
        return Packets{answer(0, 0x7f000002, "S1"),   answer(0, 0x7f000001, "S1"), Packet{1, 2, 3},
                       answer(0xb, 0x7f000001, "S1"), answer(7, 0x7f000001, ""),   answer(0xb, 0x7f000001, "S1")};
    });
    const auto records = discover(responder);
    const std::vector<std::string> ids{model + "000000000007", model + "S1-00000000000B", model + "S1-127.0.0.1",
                                       model + "S1-127.0.0.2"};
    const int statuses[] = {MoxCam::AccessReadWrite, MoxCam::AccessReadWrite, MoxCam::AccessNoAccess,
                            MoxCam::AccessUnknown};
    QCOMPARE(records.size(), ids.size());
    for (std::size_t i = 0; i < ids.size(); ++i) {
        QCOMPARE(records[i].id, ids[i]);
        QCOMPARE(records[i].accessStatus, statuses[i]);
    }
}

void TestGvcpDiscovery::accessStatus_data()
{
    QTest::addColumn<Answers>("answers");
    QTest::addColumn<int>("status");
    QTest::addColumn<int>("time");
    const auto row = [](const char *name, const Packet &payload, std::uint16_t status, int expected) {
        QTest::newRow(name) << Answers([=](std::uint16_t id) {
            return Packets{acknowledge(0x81, id, payload, status)};
        }) << expected << int(limit.count());
    };
    row("free", {0, 0, 0, 0}, 0, MoxCam::AccessReadWrite);
    row("free, switchover allowed", {0, 0, 0, 4}, 0, MoxCam::AccessReadWrite);
    row("controlled", {0, 0, 0, 2}, 0, MoxCam::AccessNoAccess);
    row("held exclusively", {0, 0, 0, 1}, 0, MoxCam::AccessNoAccess);
    row("denied", {}, 0x8006, MoxCam::AccessNoAccess);
    row("refused otherwise", {}, 0x8007, MoxCam::AccessUnknown);
    row("short", {0, 0, 0}, 0, MoxCam::AccessUnknown);
    QTest::newRow("silent") << Answers([](std::uint16_t) { return Packets(); }) << int(MoxCam::AccessUnknown)
                            << int(limit.count());
    QTest::newRow("first question lost") << Answers([asked = std::make_shared<int>(0)](std::uint16_t id) {
        return ++*asked == 1 ? Packets() : Packets{acknowledge(0x81, id, {0, 0, 0, 2})};
    }) << int(MoxCam::AccessNoAccess) << 2000;
}

void TestGvcpDiscovery::accessStatus()
{
    QFETCH(Answers, answers);
    QFETCH(int, time);
    GvcpResponder responder(to(ReadRegister, answers));
    const auto records = discover(responder, std::chrono::milliseconds(time));
    QCOMPARE(records.size(), std::size_t(1));
    QTEST(records[0].accessStatus, "status");
}

void TestGvcpDiscovery::cameraOfAnotherSubnet()
{
    GvcpResponder responder(
        to(Discovery, [](std::uint16_t id) { return Packets{acknowledge(0x03, id, facts(1, 0xcb007107, "S1"))}; }));
    const auto records = discover(responder);
    QCOMPARE(records.size(), std::size_t(1));
    QCOMPARE(records[0].accessStatus, int(MoxCam::AccessSubnetMismatch));
    for (const Command &command : responder.takeCommands())
        QCOMPARE(command.code, std::uint16_t(Discovery));
}

void TestGvcpDiscovery::timeLimit()
{
    GvcpResponder responder;
    QElapsedTimer timer;
    timer.start();
    discover(responder);
    // Early answers do not end the search.
    QVERIFY(timer.elapsed() >= limit.count());

    Adapter gone = loopback();
    gone.index = 1u << 30;
    timer.restart();
    QCOMPARE(GvcpDiscovery(gone, responder.port).run(std::chrono::seconds(20)).size(), std::size_t(0));
    QVERIFY(timer.elapsed() < 10000);
}

QTEST_GUILESS_MAIN(TestGvcpDiscovery)

#include "tst_gvcpdiscovery.moc"
