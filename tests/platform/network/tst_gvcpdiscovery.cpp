// What discovery makes of the answers on the wire; giving cameras an address, and finding them by theirs.
#include "../../../platform/device/deviceinfo.h"
#include "../../../platform/network/gigeinterface.h"
#include "../../../platform/network/gvcpdiscovery.h"
#include "../../../platform/network/usbversion.h"
#include "gvcpresponder.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <array>
#include <atomic>
#include <datarow.h>
#include <sstream>

using namespace MoxSdk;
using namespace MoxTest;
using Packets = GvcpResponder::Packets;
using Command = GvcpResponder::Command;
using Answers = std::function<Packets(std::uint16_t id)>;
using CameraAnswers = std::function<Packets(GvcpResponder &camera, std::uint16_t id)>;

namespace {

constexpr std::chrono::milliseconds limit{500};
constexpr quint32 mask = 0xff000000;
constexpr quint32 elsewhere = 0xcb007107;
const std::string model = "Maker-A model name that fills 32 bytes-";

/** Gives these answers to one kind of command, and leaves the others to the responder. */
GvcpResponder::Intercept to(Code code, const Answers &answers)
{
    return [code, answers](const Command &command) {
        return command.code == code ? std::optional(answers(command.id)) : std::nullopt;
    };
}

std::vector<DeviceRecord> discover(const GvcpResponder &responder, std::chrono::milliseconds time = limit)
{
    return GvcpDiscovery(loopback(), responder.port).run(time);
}

} // namespace

Q_DECLARE_METATYPE(Answers)
Q_DECLARE_METATYPE(CameraAnswers)

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
    void forceIpPacket();
    void forceIp_data();
    void forceIp();
    void anotherCamera();
    void foundByAddress_data();
    void foundByAddress();
    void systemFiles();
};

void TestGvcpDiscovery::factsOfACamera()
{
    GvcpResponder responder;
    QElapsedTimer timer;
    timer.start();
    const auto records = discover(responder);
    // Early answers do not end the search.
    QVERIFY(timer.elapsed() >= limit.count());
    // The general, the directed and the plain address each reach it, twice, and make one camera.
    QCOMPARE(records.size(), std::size_t(1));
    const DeviceRecord &record = records[0];
    QCOMPARE(record.id, model + "S1-001A2B3C4D5E");
    QCOMPARE(record.displayName, std::string("Maker A model name that fills 32 bytes (S1)"));
    QCOMPARE(record.version, std::string("1.2"));
    QCOMPARE(record.userDefinedName, std::string("Left \xc3\xa4"));
    QCOMPARE(record.ipAddress, 0x7f000001u);
}

void TestGvcpDiscovery::answersThatDoNotCount_data()
{
    QTest::addColumn<Answers>("answers");
    const Packet payload = facts(1, 0x7f000001, "S1");
    const auto row = [](const char *name, const std::function<Packet(std::uint16_t)> &answer) {
        MoxTest::row(name, Answers([answer](std::uint16_t id) { return Packets{answer(id)}; }));
    };
    row("empty", [](std::uint16_t) { return Packet(); });
    row("short payload",
        [=](std::uint16_t id) { return acknowledge(0x03, id, Packet(payload.begin(), payload.end() - 1)); });
    row("length beyond the packet", [=](std::uint16_t id) {
        Packet packet = acknowledge(0x03, id, payload);
        packet[5] = 0xf9;
        return packet;
    });
    row("another id", [=](std::uint16_t id) { return acknowledge(0x03, id ^ 0x4000, payload); });
    row("refusal", [=](std::uint16_t id) { return acknowledge(0x03, id, payload, 0x8001); });
    row("of another command", [=](std::uint16_t id) { return acknowledge(0x81, id, payload); });
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
    QStringList found;
    for (const DeviceRecord &record : discover(responder))
        found += QString::fromStdString(record.id.substr(model.size()) + ' ' + std::to_string(record.accessStatus));
    QCOMPARE(found.join(QStringLiteral(", ")),
             QStringLiteral("000000000007 1, S1-00000000000B 1, S1-127.0.0.1 3, S1-127.0.0.2 0"));
}

void TestGvcpDiscovery::accessStatus_data()
{
    columns<Answers, int>("answers", "status");
    const auto row = [](const char *name, const Packet &payload, std::uint16_t status, int expected) {
        MoxTest::row(name, Answers([=](std::uint16_t id) { return Packets{acknowledge(0x81, id, payload, status)}; }),
                     expected);
    };
    row("free", {0, 0, 0, 0}, 0, MoxCam::AccessReadWrite);
    row("controlled", {0, 0, 0, 2}, 0, MoxCam::AccessNoAccess);
    row("denied", {}, 0x8006, MoxCam::AccessNoAccess);
    row("short", {0, 0, 0}, 0, MoxCam::AccessUnknown);
    MoxTest::row("silent", Answers([](std::uint16_t) { return Packets(); }), MoxCam::AccessUnknown);
    const Answers second = [asked = std::make_shared<int>(0)](std::uint16_t id) {
        return ++*asked == 1 ? Packets() : Packets{acknowledge(0x81, id, {0, 0, 0, 2})};
    };
    MoxTest::row("first question lost", second, MoxCam::AccessNoAccess);
}

void TestGvcpDiscovery::accessStatus()
{
    QFETCH(Answers, answers);
    GvcpResponder responder(to(ReadRegister, answers));
    const bool isAskedAgain = QByteArray(QTest::currentDataTag()) == "first question lost";
    const auto records = discover(responder, isAskedAgain ? std::chrono::seconds(2) : limit);
    QCOMPARE(records.size(), std::size_t(1));
    QTEST(records[0].accessStatus, "status");
}

void TestGvcpDiscovery::cameraOfAnotherSubnet()
{
    GvcpResponder responder(
        to(Discovery, [](std::uint16_t id) { return Packets{acknowledge(0x03, id, facts(1, elsewhere, "S1"))}; }));
    const auto records = discover(responder);
    QCOMPARE(records.size(), std::size_t(1));
    QCOMPARE(records[0].accessStatus, int(MoxCam::AccessSubnetMismatch));
    for (const Command &command : responder.takeCommands())
        QCOMPARE(command.code, std::uint16_t(Discovery));
}

void TestGvcpDiscovery::forceIpPacket()
{
    const QByteArray expected = "42110004003812340000a1b2c3d4e5f6" + QByteArray(24, '0') + "c0a80a0d"
        + QByteArray(24, '0') + "ffffff00" + QByteArray(24, '0') + "c0a80afe";
    const Packet packet = Gvcp::forceIpCommand(0x1234, {0xa1b2c3d4e5f6, 0xc0a80a0d, 0xffffff00, 0xc0a80afe});
    QCOMPARE(QByteArray(reinterpret_cast<const char *>(packet.data()), int(packet.size())).toHex(), expected);
}

void TestGvcpDiscovery::forceIp_data()
{
    // No answers: those of a camera.
    columns<quint32, quint32, CameraAnswers, int, quint32, int>("before", "ip", "answers", "result", "after", "status");
    const quint32 inside = 0x7f000001;
    const quint32 other = 0x7f000002;
    const int open = MoxCam::AccessReadWrite;
    const int mismatch = MoxCam::AccessSubnetMismatch;
    const int success = MoxCamError::Success;
    row("repair", elsewhere, inside, CameraAnswers(), success, inside, open);
    row("out of the subnet", inside, elsewhere, CameraAnswers(), success, elsewhere, mismatch);
    const auto takes = [](std::uint32_t address) {
        return CameraAnswers([=](GvcpResponder &camera, std::uint16_t id) {
            camera.setIp(address);
            return Packets{acknowledge(0x05, id, {})};
        });
    };
    row("not there yet", elsewhere, inside, takes(elsewhere), success, inside, MoxCam::AccessUnknown);
    const CameraAnswers silent = [=](GvcpResponder &camera, std::uint16_t) {
        camera.setIp(inside);
        return Packets();
    };
    row("silent change", elsewhere, inside, silent, success, inside, open);
    // The broadcasts of one try come together, those of the next one 300 ms later.
    const CameraAnswers second = [=, first = QElapsedTimer()](GvcpResponder &camera, std::uint16_t id) mutable {
        if (!first.isValid())
            first.start();
        if (first.elapsed() < 150)
            return Packets();
        camera.setIp(inside);
        return Packets{acknowledge(0x05, id, {})};
    };
    row("first request lost", elsewhere, inside, second, success, inside, open);
    const auto refusal = [=](const char *name, std::uint16_t word, int result) {
        const CameraAnswers answer = [=](GvcpResponder &, std::uint16_t id) {
            return Packets{acknowledge(5, id, {}, word)};
        };
        row(name, inside, other, answer, result, inside, open);
    };
    refusal("denied", 0x8006, MoxCamError::GenTLAccessDenied);
    refusal("other refusal", 0x8fff, MoxCamError::GenTLError);
    const CameraAnswers noise = [](GvcpResponder &, std::uint16_t id) {
        return Packets{acknowledge(0x05, id ^ 0x4000, {}), acknowledge(0x83, id, Packet(4)), Packet{1}};
    };
    row("no answer that counts", inside, other, noise, int(MoxCamError::GenTLTimeout), inside, open);
}

void TestGvcpDiscovery::forceIp()
{
    QFETCH(quint32, before);
    QFETCH(quint32, ip);
    QFETCH(CameraAnswers, answers);
    std::atomic<GvcpResponder *> itself{nullptr};
    GvcpResponder camera([&](const Command &command) {
        return command.code == ForceIp && answers ? std::optional(answers(*itself, command.id)) : std::nullopt;
    });
    itself = &camera;
    camera.setIp(before);
    GigEInterface interface("GEV::lo", loopback(), camera.port);
    interface.ReDiscoverDevices(nullptr, 100);
    DeviceInfo *info = interface.listedDevice(0);
    QTEST(info->ForceIP(ip, mask, 0x7f000009), "result");
    for (const Command &command : camera.takeCommands()) {
        if (command.code == ForceIp)
            QCOMPARE(command.packet, Gvcp::forceIpCommand(command.id, {0x001a2b3c4d5e, ip, mask, 0x7f000009}));
    }
    // At once; in the end the camera decides what its address is.
    QTEST(info->record().ipAddress, "after");
    QTEST(info->GetAccessStatus(), "status");
}

void TestGvcpDiscovery::anotherCamera()
{
    GvcpResponder camera;
    GigEInterface interface("GEV::lo", loopback(), camera.port);
    DeviceRecord record;
    record.macAddress = 0x001a2b3c4d5f;
    QCOMPARE(DeviceInfo(interface, record).ForceIP(0x7f000002, mask, 0), MoxCamError::GenTLTimeout);
    QVERIFY(interface.ConnectByIp("127.0.0.1"));
    // Without a hardware address nobody is asked.
    record.macAddress = 0;
    camera.takeCommands();
    QCOMPARE(DeviceInfo(interface, record).ForceIP(0x7f000002, mask, 0), MoxCamError::GenTLInvalidParameter);
    QVERIFY(camera.takeCommands().empty());
}

void TestGvcpDiscovery::foundByAddress_data()
{
    // What address the camera tells, how many questions it does not hear, who controls it; -1 is not found.
    columns<quint32, int, int, int>("ip", "deaf", "privilege", "status");
    row("free", 0x7f000001u, 0, 0, MoxCam::AccessReadWrite);
    row("question lost", 0x7f000001u, 1, 0, MoxCam::AccessReadWrite);
    row("in use", 0x7f000001u, 0, 2, MoxCam::AccessNoAccess);
    row("says another address", 0x7f000002u, 0, 0, -1);
    row("silent", 0x7f000001u, 1000, 0, -1);
}

void TestGvcpDiscovery::foundByAddress()
{
    QFETCH(quint32, ip);
    QFETCH(int, deaf);
    QFETCH(int, privilege);
    QFETCH(int, status);
    GvcpResponder camera([deaf, asked = 0](const Command &command) mutable {
        return command.code == Discovery && ++asked <= deaf ? std::optional(Packets()) : std::nullopt;
    });
    camera.setIp(ip);
    camera.setBytes(Gvcp::ControlChannelPrivilege + 3, std::string(1, char(privilege)));
    GigEInterface interface("GEV::lo", loopback(), camera.port);
    auto *info = static_cast<DeviceInfo *>(interface.ConnectByIp("127.0.0.1"));
    QCOMPARE(info ? info->GetAccessStatus() : -1, status);
    QCOMPARE(interface.deviceCount(), std::size_t(0));
    if (status == MoxCam::AccessReadWrite) {
        const auto link = interface.openLink(info->record());
        char byte = 0;
        link->port().Read(&byte, 0x1000, 1);
        QCOMPARE(interface.ConnectByIp("127.0.0.1"), info);
        QCOMPARE(info->GetAccessStatus(), int(MoxCam::AccessNoAccess));
    }
}

void TestGvcpDiscovery::systemFiles()
{
    // A subnet, another adapter, half of all addresses, the default route.
    std::istringstream routes("Iface\tDestination\tGateway \tFlags\tRefCnt\tUse\tMetric\tMask\tMTU\n"
                              "eth0\t000AA8C0\t00000000\t0001\t0\t0\t0\t00FFFFFF\t0\n"
                              "eth1\t00000000\tFE0BA8C0\t0003\t0\t0\t0\t00000000\t0\n"
                              "eth0\t00000000\t0100080A\t0003\t0\t0\t0\t00000080\t0\n"
                              "eth0\t00000000\tFE0AA8C0\t0003\t0\t0\t4294967295\t00000000\t0\n");
    QCOMPARE(defaultGateway(routes, "eth0"), 0xc0a80afeu);
    QCOMPARE(defaultGateway(routes, "eth0"), 0u);

    QTemporaryDir devices;
    const auto write = [&](const char *device, const char *name, const char *content) {
        QVERIFY(QDir(devices.path()).mkpath(QLatin1String(device)));
        QFile file(devices.filePath(QLatin1String(device) + QLatin1Char('/') + QLatin1String(name)));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) > 0);
    };
    write("1-0:1.0", "version", " 1.10\n");
    for (const auto &[device, serial, version] :
         {std::array{"2-1", "1", " 3.20\n"}, std::array{"2-2", "2", " 2.10\n"}, std::array{"2-3", "3", "three\n"}}) {
        write(device, "serial", serial);
        write(device, "product", "MX-2K-C\n");
        write(device, "version", version);
    }
    const auto version = [&](const char *serial) {
        DeviceRecord record;
        record.model = "MX-2K-C";
        record.serialNumber = serial;
        return usbVersion(devices.path().toStdString(), record);
    };
    QCOMPARE(version("1"), 0x0320u);
    QCOMPARE(version("2"), 0x0210u);
    QCOMPARE(version("3"), 0u);
    QCOMPARE(version("4"), 0u);
}

QTEST_GUILESS_MAIN(TestGvcpDiscovery)

#include "tst_gvcpdiscovery.moc"
