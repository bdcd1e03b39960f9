// A network adapter as an interface: its features, and cameras of other subnets.
#include "../../../platform/device/deviceinfo.h"
#include "../../../platform/network/gigeinterface.h"
#include "../../../platform/network/udpsocket.h"
#include "gvcpresponder.h"

#include <MoxCameraApi/MoxGenParam.h>

#include <QTest>

#include <atomic>

using namespace MoxSdk;
using namespace MoxTest;

namespace {

constexpr std::uint32_t here = 0x7f000001;
constexpr std::uint32_t other = 0x7f000002;

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

/** What the interface's features tell of its adapter, in base 16. */
QByteArray numbers(Interface &interface)
{
    QByteArray result;
    for (const char *name :
         {"GevInterfaceMACAddress", "GevInterfaceSubnetIPAddress", "GevInterfaceSubnetMask", "GevInterfaceGateway"})
        result +=
            ' ' + QByteArray::number(qint64(interface.GetParameters(nullptr)->GetIntegerValue(name, nullptr)), 16);
    return result;
}

} // namespace

class TestGigEInterface : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void features();
    void otherSubnet();
    void deadlineBeforeDatagrams();
};

void TestGigEInterface::features()
{
    GvcpResponder camera;
    // As the adapter was when it appeared; what it is now counts.
    Adapter before = loopback();
    before.netmask = 0xffff0000;
    before.macAddress = 1;
    GigEInterface interface("GEV::lo", before, camera.port);
    QCOMPARE(numbers(interface), QByteArray(" 0 7f000001 ff000000 0"));
    GigEInterface gone("GEV::apart", apart(), camera.port);
    QCOMPARE(numbers(gone), QByteArray(" f1e2d3c4b5a6 7f000001 ffffffff 7f0000fd"));
}

void TestGigEInterface::otherSubnet()
{
    std::atomic<bool> off{false};
    GvcpResponder camera([&](const auto &) { return off ? std::optional(GvcpResponder::Packets()) : std::nullopt; },
                         other);
    camera.setIp(other);
    const auto control = [&](char privilege) {
        camera.setBytes(Gvcp::ControlChannelPrivilege + 3, std::string(1, privilege));
    };
    GigEInterface interface("GEV::apart", apart(), camera.port);
    interface.ReDiscoverDevices(nullptr, 100);
    QCOMPARE(interface.deviceCount(), std::size_t(0));
    control(2);
    auto *info = static_cast<DeviceInfo *>(interface.ConnectByIp("127.0.0.2"));
    QVERIFY(info);
    QCOMPARE(info->GetAccessStatus(), int(MoxCam::AccessNoAccess));
    control(0);
    QCOMPARE(interface.ConnectByIp("127.0.0.2"), info);
    QCOMPARE(info->GetAccessStatus(), int(MoxCam::AccessReadWrite));
    const auto link = interface.openLink(info->record());
    camera.setBytes(0x1000, "x");
    char byte = 0;
    link->port().Read(&byte, 0x1000, 1);
    QCOMPARE(byte, 'x');

    // Switched off and on again, it is found by its address.
    off = true;
    QTRY_COMPARE(link->port().GetAccessMode(), GenApi::NA);
    control(0);
    off = false;
    QTRY_COMPARE(link->port().GetAccessMode(), GenApi::RW);
}

void TestGigEInterface::deadlineBeforeDatagrams()
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

QTEST_GUILESS_MAIN(TestGigEInterface)

#include "tst_gigeinterface.moc"
