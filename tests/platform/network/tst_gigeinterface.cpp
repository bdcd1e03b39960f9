// A network adapter and the USB hosts as interfaces: their features, and what goes out on the wire.
#include "../../../platform/device/deviceinfo.h"
#include "../../../platform/network/gigeinterface.h"
#include "../../../platform/network/gvcpforceip.h"
#include "../../../platform/network/udpsocket.h"
#include "../../../platform/network/usbinterface.h"
#include "gvcpresponder.h"

#include <MoxCameraApi/MoxGenParam.h>

#include <QFile>
#include <QMap>
#include <QTest>

#include <atomic>
#include <cstring>
#include <set>

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

/** Features of an interface in base 16; the code of what cannot be read in base 10. */
QByteArray numbers(Interface &interface, std::initializer_list<const char *> names)
{
    QByteArray result;
    for (const char *name : names) {
        MoxCamErr err = 1;
        const qint64 value = interface.GetParameters(nullptr)->GetIntegerValue(name, &err);
        result += ' ' + (err ? QByteArray::number(err) : QByteArray::number(value, 16));
    }
    return result;
}

QByteArray adapterNumbers(Interface &interface)
{
    return numbers(
        interface,
        {"GevInterfaceMACAddress", "GevInterfaceSubnetIPAddress", "GevInterfaceSubnetMask", "GevInterfaceGateway"});
}

/** Hears commands and answers none. */
class Ear
{
public:
    Ear()
    {
        const int on = 1;
        ::setsockopt(m_descriptor, IPPROTO_IP, IP_PKTINFO, &on, sizeof on);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        socklen_t length = sizeof address;
        ::bind(m_descriptor, reinterpret_cast<sockaddr *>(&address), length);
        ::getsockname(m_descriptor, reinterpret_cast<sockaddr *>(&address), &length);
        port = ntohs(address.sin_port);
    }
    ~Ear() { ::close(m_descriptor); }

    /** How often each destination was told since the last call, by commands of that code with one and the same id. */
    QMap<std::uint32_t, int> heard(std::uint16_t code)
    {
        QMap<std::uint32_t, int> result;
        std::set<std::uint32_t> ids;
        Packet packet(2048);
        alignas(cmsghdr) char control[CMSG_SPACE(sizeof(in_pktinfo))];
        for (;;) {
            iovec data{packet.data(), packet.size()};
            msghdr message{nullptr, 0, &data, 1, control, sizeof control, 0};
            if (::recvmsg(m_descriptor, &message, MSG_DONTWAIT) < 8)
                break;
            in_pktinfo information{};
            std::memcpy(&information, CMSG_DATA(CMSG_FIRSTHDR(&message)), sizeof information);
            ++result[(Gvcp::loadWord(&packet[0]) & 0xffff) == code ? ntohl(information.ipi_addr.s_addr) : 0];
            ids.insert(Gvcp::loadWord(&packet[4]) & 0xffff);
        }
        return ids.size() == 1 ? result : QMap<std::uint32_t, int>();
    }

    std::uint16_t port = 0;

private:
    const int m_descriptor = ::socket(AF_INET, SOCK_DGRAM, 0);
};

} // namespace

class TestGigEInterface : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void features();
    void hardwareAddresses();
    void otherSubnet();
    void broadcasts();
    void deadlineBeforeDatagrams();
    void usb();
};

void TestGigEInterface::features()
{
    GvcpResponder camera;
    // As the adapter was when it appeared; what it is now counts.
    Adapter before = loopback();
    before.netmask = 0xffff0000;
    before.macAddress = 1;
    GigEInterface interface("GEV::lo", before, camera.port);
    QCOMPARE(adapterNumbers(interface), QByteArray(" 0 7f000001 ff000000 0"));
    GigEInterface gone("GEV::apart", apart(), camera.port);
    QCOMPARE(adapterNumbers(gone), QByteArray(" f1e2d3c4b5a6 7f000001 ffffffff 7f0000fd"));

    interface.ReDiscoverDevices(nullptr, 100);
    QCOMPARE(numbers(interface,
                     {"DeviceSelector", "GevDeviceMACAddress", "GevDeviceIPAddress", "GevDeviceSubnetMask",
                      "GevDeviceGateway", "GevDeviceForceGateway"}),
             QByteArray(" 0 1a2b3c4d5e 7f000001 ff000000 7f0000fe 7f0000fe"));
}

void TestGigEInterface::hardwareAddresses()
{
    for (const Adapter &adapter : readAdapters()) {
        const std::string device = adapter.name.substr(0, adapter.name.find(':'));
        QFile file(QStringLiteral("/sys/class/net/%1/address").arg(QString::fromStdString(device)));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray expected = file.readAll().trimmed().replace(':', "");
        QCOMPARE(QByteArray::number(qulonglong(adapter.macAddress), 16).rightJustified(12, '0'), expected);
    }
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

void TestGigEInterface::broadcasts()
{
    Ear ear;
    GigEInterface interface("GEV::lo", loopback(), ear.port);
    // To all, to all of the subnet, and to programs that listen on the adapter's address alone.
    const auto times = [](int count) {
        return QMap<std::uint32_t, int>{{0xffffffff, count}, {0x7fffffff, count}, {here, count}};
    };
    interface.ReDiscoverDevices(nullptr, 100);
    QCOMPARE(ear.heard(Discovery), times(2));
    QCOMPARE(forceIpThrough(loopback(), ear.port, {1, here, 0xff000000, 0}), std::optional<std::uint16_t>());
    QCOMPARE(ear.heard(ForceIp), times(3));
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

void TestGigEInterface::usb()
{
    UsbInterface interface;
    MoxCamErr err = 1;
    MoxGenParam::Array *array = interface.GetParameters(&err);
    QCOMPARE(err, MoxCamError::Success);
    QCOMPARE(array->GetEnumValueStr("InterfaceType", nullptr), "USB3Vision");
    QVERIFY(!array->GetInt("GevInterfaceMACAddress", nullptr));
    // Before any discovery nothing is selected.
    QVERIFY(array->GetInt("DeviceUSBVersionDetected", nullptr));
    QCOMPARE(numbers(interface, {"DeviceUSBVersionDetected"}), ' ' + QByteArray::number(MoxCamError::GenICamAccess));
    QCOMPARE(DeviceInfo(interface, {}).ForceIP(here, 0xff000000, 0), MoxCamError::GenTLNotImplemented);
    QVERIFY(!interface.ConnectByIp("127.0.0.1"));
}

QTEST_GUILESS_MAIN(TestGigEInterface)

#include "tst_gigeinterface.moc"
