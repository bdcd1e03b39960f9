// Giving cameras an address, and finding them by theirs.
#include "../../../platform/device/deviceinfo.h"
#include "../../../platform/network/gigeinterface.h"
#include "../../../platform/network/usbversion.h"
#include "gvcpresponder.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <atomic>
#include <sstream>

using namespace MoxSdk;
using namespace MoxTest;
using Packets = GvcpResponder::Packets;
using Command = GvcpResponder::Command;
using Answers = std::function<Packets(GvcpResponder &camera, std::uint16_t id)>;

namespace {

constexpr std::uint32_t mask = 0xff000000;
constexpr std::uint32_t elsewhere = 0xcb007107;

} // namespace

Q_DECLARE_METATYPE(Answers)

class TestGvcpAddresses : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void packet();
    void forceIp_data();
    void forceIp();
    void anotherCamera();
    void foundByAddress_data();
    void foundByAddress();
    void systemFiles();
};

void TestGvcpAddresses::packet()
{
    Packet expected{0x42, 0x11, 0x00, 0x04, 0x00, 0x38, 0x12, 0x34};
    expected.resize(8 + 56);
    const auto put = [&](std::ptrdiff_t at, const Packet &bytes) {
        std::copy(bytes.begin(), bytes.end(), expected.begin() + 8 + at);
    };
    put(2, {0xa1, 0xb2, 0xc3, 0xd4, 0xe5, 0xf6});
    put(20, {0xc0, 0xa8, 0x0a, 0x0d});
    put(36, {0xff, 0xff, 0xff, 0x00});
    put(52, {0xc0, 0xa8, 0x0a, 0xfe});
    QCOMPARE(Gvcp::forceIpCommand(0x1234, {0xa1b2c3d4e5f6, 0xc0a80a0d, 0xffffff00, 0xc0a80afe}), expected);
}

void TestGvcpAddresses::forceIp_data()
{
    QTest::addColumn<std::uint32_t>("before");
    QTest::addColumn<std::uint32_t>("ip");
    QTest::addColumn<Answers>("answers"); // empty: as a camera does
    QTest::addColumn<int>("result");
    QTest::addColumn<std::uint32_t>("after");
    QTest::addColumn<int>("status");
    const std::uint32_t inside = 0x7f000001;
    const std::uint32_t other = 0x7f000002;
    const int open = MoxCam::AccessReadWrite;
    const int mismatch = MoxCam::AccessSubnetMismatch;
    const int success = MoxCamError::Success;
    QTest::newRow("repair") << elsewhere << inside << Answers() << success << inside << open;
    QTest::newRow("out of the subnet") << inside << elsewhere << Answers() << success << elsewhere << mismatch;
    QTest::newRow("by itself") << elsewhere << 0u << Answers() << success << elsewhere << mismatch;
    QTest::newRow("silent change") << elsewhere << inside << Answers([=](GvcpResponder &camera, std::uint16_t) {
        camera.setIp(inside);
        return Packets();
    }) << success << inside << open;
    // The broadcasts of one try come together, those of the next one 300 ms later.
    const auto second = [=, first = QElapsedTimer()](GvcpResponder &camera, std::uint16_t id) mutable {
        if (!first.isValid())
            first.start();
        if (first.elapsed() < 150)
            return Packets();
        camera.setIp(inside);
        return Packets{acknowledge(0x05, id, {})};
    };
    QTest::newRow("first request lost") << elsewhere << inside << Answers(second) << success << inside << open;
    const auto fails = [=](const char *name, int result, const Answers &answers) {
        QTest::newRow(name) << inside << other << answers << result << inside << open;
    };
    const auto refusal = [](std::uint16_t word) {
        return Answers([word](GvcpResponder &, std::uint16_t id) { return Packets{acknowledge(0x05, id, {}, word)}; });
    };
    fails("not implemented", MoxCamError::GenTLNotImplemented, refusal(0x8001));
    fails("bad value", MoxCamError::GenTLInvalidParameter, refusal(0x8002));
    fails("denied", MoxCamError::GenTLAccessDenied, refusal(0x8006));
    fails("busy", MoxCamError::GenTLResourceInUse, refusal(0x8007));
    fails("other refusal", MoxCamError::GenTLError, refusal(0x8fff));
    fails("no answer that counts", MoxCamError::GenTLTimeout, [](GvcpResponder &, std::uint16_t id) {
        return Packets{acknowledge(0x05, id ^ 0x4000, {}), acknowledge(0x83, id, Packet(4)), Packet{1}};
    });
}

void TestGvcpAddresses::forceIp()
{
    QFETCH(std::uint32_t, before);
    QFETCH(std::uint32_t, ip);
    QFETCH(Answers, answers);
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

void TestGvcpAddresses::anotherCamera()
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

void TestGvcpAddresses::foundByAddress_data()
{
    QTest::addColumn<std::uint32_t>("ip"); // that the camera tells
    QTest::addColumn<int>("deaf"); // to so many questions
    QTest::addColumn<int>("privilege");
    QTest::addColumn<int>("status"); // -1: not found
    QTest::newRow("free") << 0x7f000001u << 0 << 0 << int(MoxCam::AccessReadWrite);
    QTest::newRow("question lost") << 0x7f000001u << 1 << 0 << int(MoxCam::AccessReadWrite);
    QTest::newRow("in use") << 0x7f000001u << 0 << 2 << int(MoxCam::AccessNoAccess);
    QTest::newRow("says another address") << 0x7f000002u << 0 << 0 << -1;
    QTest::newRow("silent") << 0x7f000001u << 1000 << 0 << -1;
}

void TestGvcpAddresses::foundByAddress()
{
    QFETCH(std::uint32_t, ip);
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

void TestGvcpAddresses::systemFiles()
{
    std::istringstream routes("Iface\tDestination\tGateway \neth0\t000AA8C0\t00000000\n"
                              "eth1\t00000000\tFE0BA8C0\neth0\t00000000\tFE0AA8C0\n");
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
    QCOMPARE(usbVersion("/nowhere", DeviceRecord()), 0u);
}

QTEST_GUILESS_MAIN(TestGvcpAddresses)

#include "tst_gvcpaddresses.moc"
