// Cameras on the wire: found by broadcast or by their address, given another one, and opened in other subnets.
#include "../../../platform/device/deviceinfo.h"
#include "../../../platform/network/gigeinterface.h"
#include "../../../platform/network/gvcpdiscovery.h"
#include "../../../platform/network/usbversion.h"
#include "gvcpresponder.h"

#include <MoxCameraApi/MoxGenParam.h>
#include <datarow.h>

#include <QElapsedTimer>
#include <QTemporaryDir>

#include <array>
#include <filesystem>
#include <fstream>
#include <sstream>

using namespace MoxSdk;
using namespace MoxTest;

namespace {

constexpr std::chrono::milliseconds limit{500};
constexpr quint32 here = 0x7f000001;
constexpr quint32 other = 0x7f000002;
constexpr quint32 elsewhere = 0xcb007107;
constexpr quint32 mask = 0xff000000;
const std::string model = "Maker-A model name that fills 32 bytes-";

std::vector<DeviceRecord> discover(const GvcpResponder &responder, std::chrono::milliseconds time = limit)
{
    return GvcpDiscovery(loopback(), responder.port).run(time);
}

/** An address on the loopback adapter that the system does not tell of, with a subnet that holds nothing else. */
Adapter apart()
{
    Adapter adapter = loopback();
    adapter.name = "apart";
    adapter.netmask = 0xffffffff;
    adapter.macAddress = 0xf1e2d3c4b5a6;
    adapter.gateway = 0x7f0000fd;
    return adapter;
}

QByteArray hex(const Packet &packet)
{
    return QByteArray(reinterpret_cast<const char *>(packet.data()), int(packet.size())).toHex();
}

} // namespace

class TestGvcpDiscovery : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void factsOfACamera()
    {
        GvcpResponder responder;
        QElapsedTimer timer;
        timer.start();
        const auto records = discover(responder);
        QVERIFY(timer.elapsed() >= limit.count()); // early answers do not end the search
        // The general, the directed and the plain address each reach it, twice, and make one camera.
        QCOMPARE(records.size(), std::size_t(1));
        const DeviceRecord &record = records[0];
        QCOMPARE(record.id, model + "S1-001A2B3C4D5E");
        QCOMPARE(record.displayName, std::string("Maker A model name that fills 32 bytes (S1)"));
        QCOMPARE(record.version, std::string("1.2"));
        QCOMPARE(record.userDefinedName, std::string("Left \xc3\xa4"));
        QCOMPARE(record.ipAddress, here);
    }

    void severalCameras()
    {
        // The second camera that is asked for its privilege is in use. The answer for the first one comes from the
        // address of the second one, and does not count. Cameras of other subnets are not asked.
        GvcpResponder responder([held = std::uint16_t(0)](const Command &command) mutable {
            if (command.code == ReadRegister) {
                held = held ? held : std::uint16_t(command.id + 1);
                const std::uint8_t privilege = command.id == held ? 2 : 0;
                return std::optional(Packets{acknowledge(0x81, command.id, {0, 0, 0, privilege})});
            }
            // None of these counts.
            const Packet payload = facts(9, here, "S9");
            Packets answers{acknowledge(3, command.id, payload), Packet{1, 2, 3}, Packet()};
            answers[0].pop_back();
            answers.push_back(acknowledge(3, command.id, Packet(payload.begin(), payload.end() - 1)));
            answers.push_back(acknowledge(3, command.id ^ 0x4000, payload));
            answers.push_back(acknowledge(3, command.id, payload, 0x8001));
            answers.push_back(acknowledge(0x81, command.id, payload));
            for (const auto &[mac, ip, serial] :
                 {std::tuple(0, other, "S1"), std::tuple(0, here, "S1"), std::tuple(11, here, "S1"),
                  std::tuple(7, here, ""), std::tuple(11, here, "S1"), std::tuple(1, elsewhere, "S2")})
                answers.push_back(acknowledge(0x03, command.id, facts(std::uint64_t(mac), ip, serial)));
            return std::optional(answers);
        });
        QStringList found;
        for (const DeviceRecord &record : discover(responder))
            found += QString::fromStdString(record.id.substr(model.size()) + ' ' + std::to_string(record.accessStatus));
        QCOMPARE(found.join(QStringLiteral(", ")),
                 QStringLiteral("000000000007 1, S1-00000000000B 1, S1-127.0.0.1 3, S1-127.0.0.2 0, "
                                "S2-000000000001 1001"));
    }

    void accessStatus_data()
    {
        columns<QByteArray, int, int, int>("privilege", "answer", "lost", "status");
        row("denied", "", 0x8006, 0, MoxCam::AccessNoAccess);
        row("short", "000000", 0, 0, MoxCam::AccessUnknown);
        row("first question lost", "00000002", 0, 1, MoxCam::AccessNoAccess);
    }
    void accessStatus()
    {
        QFETCH(QByteArray, privilege);
        QFETCH(int, answer);
        QFETCH(int, lost);
        const QByteArray bytes = QByteArray::fromHex(privilege);
        GvcpResponder responder([=, asked = 0](const Command &command) mutable -> std::optional<Packets> {
            if (command.code != ReadRegister)
                return std::nullopt;
            if (++asked <= lost)
                return Packets();
            return Packets{acknowledge(0x81, command.id, {bytes.begin(), bytes.end()}, std::uint16_t(answer))};
        });
        const auto records = discover(responder, lost ? std::chrono::seconds(2) : limit);
        QCOMPARE(records.size(), std::size_t(1));
        QTEST(records[0].accessStatus, "status");
    }

    void forceIp_data()
    {
        columns<quint32, quint32, QByteArray, int, quint32, int>("before", "ip", "camera", "result", "after", "status");
        const int done = MoxCamError::Success;
        const int open = MoxCam::AccessReadWrite;
        row("repair", elsewhere, here, "obeys", done, here, open);
        row("out of the subnet", here, elsewhere, "obeys", done, elsewhere, MoxCam::AccessSubnetMismatch);
        row("not there yet", elsewhere, here, "0000", done, here, MoxCam::AccessUnknown);
        row("not out of the subnet yet", here, elsewhere, "0000", done, elsewhere, MoxCam::AccessSubnetMismatch);
        row("silent change", elsewhere, here, "is silent", done, here, open);
        row("first request lost", elsewhere, here, "is deaf", done, here, open);
        row("denied", here, other, "8006", MoxCamError::GenTLAccessDenied, here, open);
        row("other refusal", here, other, "8fff", MoxCamError::GenTLError, here, open);
        row("no answer that counts", here, other, "babbles", MoxCamError::GenTLTimeout, here, open);
    }
    void forceIp()
    {
        QFETCH(quint32, before);
        QFETCH(quint32, ip);
        QFETCH(QByteArray, camera);
        GvcpResponder responder([&, first = QElapsedTimer()](const Command &command) mutable -> std::optional<Packets> {
            if (command.code != ForceIp || camera == "obeys")
                return std::nullopt;
            if (camera == "is silent")
                responder.ip = ip;
            if (camera == "babbles")
                return Packets{acknowledge(5, command.id ^ 0x4000, {}), acknowledge(0x83, command.id, Packet(4)), {1}};
            if (camera == "is deaf") {
                // The broadcasts of one try come together, those of the next one 300 ms later.
                if (!first.isValid())
                    first.start();
                if (first.elapsed() >= 150)
                    return std::nullopt;
            }
            bool isStatus = false;
            const std::uint16_t status = camera.toUShort(&isStatus, 16);
            return isStatus ? Packets{acknowledge(5, command.id, {}, status)} : Packets();
        });
        responder.ip = before;
        GigEInterface interface("GEV::lo", loopback(), responder.port);
        QTRY_VERIFY((interface.ReDiscoverDevices(nullptr, 100), interface.listedDevice(0)));
        DeviceInfo *info = interface.listedDevice(0);
        QTEST(info->ForceIP(ip, mask, 0x7f000009), "result");
        const QByteArray gap(24, '0');
        int requests = 0;
        for (const Command &command : responder.takeCommands()) {
            if (command.code != ForceIp)
                continue;
            ++requests;
            QCOMPARE(hex(command.packet).remove(12, 4),
                     "421100040038" + ("0000001a2b3c4d5e" + gap) + QByteArray::number(ip, 16) + gap + "ff000000" + gap
                         + "7f000009");
        }
        QVERIFY(requests > 0);
        // At once; in the end the camera decides what its address is.
        QTEST(info->record().ipAddress, "after");
        QTEST(info->GetAccessStatus(), "status");
    }

    void forcedByHardwareAddress()
    {
        GvcpResponder camera;
        GigEInterface interface("GEV::lo", loopback(), camera.port);
        DeviceRecord record;
        record.macAddress = 0x001a2b3c4d5f;
        QCOMPARE(DeviceInfo(interface, record).ForceIP(other, mask, 0), MoxCamError::GenTLTimeout);
        QCOMPARE(camera.ip.load(), here);
        // Without one nobody is asked.
        record.macAddress = 0;
        camera.takeCommands();
        QCOMPARE(DeviceInfo(interface, record).ForceIP(other, mask, 0), MoxCamError::GenTLInvalidParameter);
        QVERIFY(camera.takeCommands().empty());
    }

    void foundByAddress()
    {
        for (const quint32 told : {here, other}) {
            // It does not hear the first question.
            GvcpResponder camera([asked = 0](const Command &command) mutable {
                return command.code == Discovery && ++asked == 1 ? std::optional(Packets()) : std::nullopt;
            });
            camera.ip = told;
            GigEInterface interface("GEV::lo", loopback(), camera.port);
            QCOMPARE(bool(interface.ConnectByIp("127.0.0.1")), told == here);
        }
    }

    void otherSubnet()
    {
        std::atomic<bool> off{false};
        GvcpResponder camera([&](const Command &) { return off ? std::optional(Packets()) : std::nullopt; }, other);
        camera.ip = other;
        GigEInterface interface("GEV::apart", apart(), camera.port);
        const auto find = [&] { return static_cast<DeviceInfo *>(interface.ConnectByIp("127.0.0.2")); };
        interface.ReDiscoverDevices(nullptr, 100);
        camera.setPrivilege(2);
        DeviceInfo *info = find();
        QCOMPARE(interface.deviceCount(), std::size_t(0));
        QVERIFY(info);
        QCOMPARE(info->GetAccessStatus(), int(MoxCam::AccessNoAccess));
        camera.setPrivilege(0);
        QCOMPARE(find(), info);
        QCOMPARE(info->GetAccessStatus(), int(MoxCam::AccessReadWrite));
        const auto link = interface.openLink(info->record());
        QCOMPARE(find()->GetAccessStatus(), int(MoxCam::AccessNoAccess));
        camera.setBytes(0x1000, "x");
        char byte = 0;
        link->port().Read(&byte, 0x1000, 1);
        QCOMPARE(byte, 'x');

        // Switched off and on again, it is found by its address.
        off = true;
        QTRY_COMPARE(link->port().GetAccessMode(), GenApi::NA);
        camera.setPrivilege(0);
        off = false;
        QTRY_COMPARE(link->port().GetAccessMode(), GenApi::RW);
    }

    void adapterFeatures()
    {
        // As the adapter was when it appeared; what it is now counts, if it is there.
        Adapter before = loopback();
        before.netmask = 0xffff0000;
        before.macAddress = 1;
        for (const auto &[adapter, expected] : {std::pair(before, " 0 7f000001 ff000000 0"),
                                                std::pair(apart(), " f1e2d3c4b5a6 7f000001 ffffffff 7f0000fd")}) {
            GigEInterface interface("GEV::lo", adapter, 1);
            QByteArray told;
            for (const char *name : {"GevInterfaceMACAddress", "GevInterfaceSubnetIPAddress", "GevInterfaceSubnetMask",
                                     "GevInterfaceGateway"}) {
                const qint64 value = interface.GetParameters(nullptr)->GetIntegerValue(name, nullptr);
                told += ' ' + QByteArray::number(value, 16);
            }
            QCOMPARE(told, QByteArray(expected));
        }
    }

    void deadlineBeforeDatagrams()
    {
        GvcpResponder camera;
        UdpSocket socket;
        QVERIFY(socket.connectTo(here, here, camera.port));
        for (std::uint16_t id : {1, 2})
            QVERIFY(socket.send(Gvcp::discoveryCommand(id)));
        std::size_t heard = 0;
        QTRY_COMPARE(heard += camera.takeCommands().size(), std::size_t(2)); // the first one is answered then
        const auto now = UdpSocket::Clock::now();
        QVERIFY(!socket.receive(now));
        QVERIFY(socket.receive(now + std::chrono::hours(1)));
    }

    void systemFiles()
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
        for (const auto &[device, serial, version] :
             {std::array{"1-0", "", " 1.10\n"}, std::array{"2-1", "1\n", " 3.20\n"}, std::array{"2-2", "2", " 2.10\n"},
              std::array{"2-3", "3", "x3\n"}}) {
            const std::filesystem::path dir = std::filesystem::path(devices.path().toStdString()) / device;
            std::filesystem::create_directory(dir);
            std::ofstream(dir / "serial") << serial;
            std::ofstream(dir / "product") << "MX-2K-C\n";
            std::ofstream(dir / "version") << version;
        }
        DeviceRecord record;
        record.model = "MX-2K-C";
        for (const auto &[serial, version] :
             {std::pair("1", 0x320u), std::pair("2", 0x210u), std::pair("3", 0u), std::pair("4", 0u)}) {
            record.serialNumber = serial;
            QCOMPARE(usbVersion(devices.path().toStdString(), record), version);
        }
    }
};

QTEST_GUILESS_MAIN(TestGvcpDiscovery)
#include "tst_gvcpdiscovery.moc"
