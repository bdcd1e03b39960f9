// Simulated cameras that their address keeps away: repair, and connecting by address.
#include "device/deviceinfo.h"
#include "device/interface.h"
#include "simulated/simulatedbackend.h"

#include <GenApi/GenApi.h>
#include <MoxCameraApi/MoxGenParam.h>
#include <MoxCameraApi/MoxSimulation.h>
#include <testmain.h>

using namespace MoxSim;
using MoxSdk::DeviceInfo;

namespace {

// In the standard world, by their place on the network adapter.
const std::string frameAB = "Moxara_MX-4K-AB_000001";
const std::string loadingBay = "Moxara_MX-2K-M_000003";
constexpr std::uint32_t mask = 0xFFFFFF00;

std::uint32_t readNumber(MoxSdk::Link &link, std::int64_t address)
{
    std::uint8_t bytes[4];
    link.port().Read(bytes, address, 4);
    return std::uint32_t(bytes[0]) << 24 | std::uint32_t(bytes[1]) << 16 | std::uint32_t(bytes[2]) << 8 | bytes[3];
}

} // namespace

class TestSimulatedAddresses : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void repairedAndOpened();
    void addressNotTaken();
    void foundByAddress_data();
    void foundByAddress();
    void features_data();
    void features();

private:
    DeviceInfo *camera(const std::string &id)
    {
        m_network->ReDiscoverDevices(nullptr, 200);
        for (std::size_t i = 0; i < m_network->deviceCount(); ++i) {
            if (m_network->listedDevice(i)->GetID() == id)
                return m_network->listedDevice(i);
        }
        return nullptr;
    }

    std::unique_ptr<MoxSdk::Backend> m_backend = MoxSdk::createSimulatedBackend();
    MoxSdk::Interface *m_network = nullptr;
};

void TestSimulatedAddresses::init()
{
    resetWorld();
    m_network = m_backend->interfaces().front();
}

void TestSimulatedAddresses::repairedAndOpened()
{
    DeviceInfo *info = camera(loadingBay);
    QVERIFY_EXCEPTION_THROWN(m_network->openLink(info->record()), GenICam_3_0::AccessException);
    QCOMPARE(info->ForceIP(0xC0A80A37, mask, 0xC0A80AFE), MoxCamError::Success);
    // At once, and as a discovery sees it.
    for (int discoveries = 0; discoveries < 2; ++discoveries) {
        QCOMPARE(info->GetAccessStatus(), int(MoxCam::AccessReadWrite));
        QCOMPARE(info->GetIPAddress(nullptr), "192.168.10.55");
        QCOMPARE(camera(loadingBay), info);
    }
    auto link = m_network->openLink(info->record());
    QCOMPARE(readNumber(*link, 0x24), 0xC0A80A37u);
    QCOMPARE(readNumber(*link, 0x34), mask);
    QCOMPARE(readNumber(*link, 0x44), 0xC0A80AFEu);
    QCOMPARE(info->ForceIP(0xC0A80A38, mask, 0), MoxCamError::GenTLAccessDenied);
    link.reset();
    QVERIFY(!m_network->ConnectByIp("172.16.5.12"));
    QCOMPARE(m_network->ConnectByIp("192.168.10.55"), info);
    // And out of the subnet again.
    QCOMPARE(info->ForceIP(0xC0A80B09, mask, 0), MoxCamError::Success);
    QCOMPARE(info->GetAccessStatus(), int(MoxCam::AccessSubnetMismatch));
    QCOMPARE(reach(loadingBay), Reach::WrongSubnet);
}

void TestSimulatedAddresses::addressNotTaken()
{
    DeviceInfo *info = camera(frameAB);
    const auto force = [&](std::uint32_t ip) { return info->ForceIP(ip, mask, 0); };
    QCOMPARE(force(0), MoxCamError::Success);
    setReach(frameAB, Reach::Busy);
    QCOMPARE(force(0xC0A80A37), MoxCamError::GenTLAccessDenied);
    setReach(frameAB, Reach::Undiscovered);
    QCOMPARE(force(0xC0A80A37), MoxCamError::GenTLTimeout);
    QCOMPARE(reach(frameAB), Reach::Undiscovered);
    setPlugged(frameAB, false);
    QCOMPARE(force(0xC0A80A37), MoxCamError::GenTLTimeout);
    QCOMPARE(info->GetIPAddress(nullptr), "192.168.10.10");
}

void TestSimulatedAddresses::foundByAddress_data()
{
    QTest::addColumn<QByteArray>("address");
    QTest::addColumn<QByteArray>("id");
    QTest::addColumn<int>("status"); // 0: not found
    const auto row = [](const char *name, const char *address, const char *id, int status) {
        QTest::newRow(name) << QByteArray(address) << QByteArray(id) << status;
    };
    row("open", "192.168.10.10", "Moxara_MX-4K-AB_000001", MoxCam::AccessReadWrite);
    row("busy", "192.168.10.11", "Moxara_MX-2K-M_000002", MoxCam::AccessNoAccess);
    row("wrong subnet", "172.16.5.12", "Moxara_MX-2K-M_000003", MoxCam::AccessSubnetMismatch);
    row("undiscovered", "192.168.10.13", "Moxara_MX-2K-M_000004", MoxCam::AccessReadWrite);
    row("the adapter's", "192.168.10.1", "", 0);
    row("none", "0.0.0.0", "", 0);
}

void TestSimulatedAddresses::foundByAddress()
{
    QFETCH(QByteArray, address);
    QFETCH(QByteArray, id);
    QFETCH(int, status);
    MoxCam::DeviceInfo *info = m_network->ConnectByIp(address);
    QCOMPARE(QByteArray(info ? info->GetID() : ""), id);
    QCOMPARE(info ? info->GetAccessStatus() : 0, status);
    QVERIFY(!m_backend->interfaces()[1]->ConnectByIp(address));
    if (status == MoxCam::AccessReadWrite)
        QCOMPARE(m_network->openLink(DeviceInfo::living(info)->record())->port().GetAccessMode(), GenApi_3_0::RW);
    // That it answers to its address does not put it on the list.
    camera(frameAB);
    QCOMPARE(m_network->deviceCount(), std::size_t(3));
    if (status)
        setPlugged(id.toStdString(), false);
    QVERIFY(!m_network->ConnectByIp(address));
}

void TestSimulatedAddresses::features_data()
{
    QTest::addColumn<std::size_t>("interface");
    QTest::addColumn<QByteArray>("expected"); // empty: there are no parameters
    QTest::newRow("network") << std::size_t(0)
                             << QByteArray("InterfaceType GigEVision\nInterfaceID Sim::GEV0\n"
                                           "InterfaceDisplayName Simulated network adapter\n"
                                           "GevInterfaceMACAddress 24d58000000\nGevInterfaceSubnetIPAddress c0a80a01\n"
                                           "GevInterfaceSubnetMask ffffff00\nGevInterfaceGateway c0a80afe\n"
                                           "GevInterfaceTransport Socket\nDeviceSelector 1\n"
                                           "DeviceID Moxara_MX-2K-M_000002\nDeviceVendorName Moxara\n"
                                           "DeviceModelName MX-2K-M\nDeviceSerialNumber 000002\n"
                                           "GevDeviceMACAddress 24d58000002\nGevDeviceIPAddress c0a80a0b\n"
                                           "GevDeviceSubnetMask ffffff00\nGevDeviceGateway 0\n"
                                           "GevDeviceForceIPAddress c0a80a0b\nGevDeviceForceSubnetMask ffffff00\n"
                                           "GevDeviceForceGateway 0\nGevDeviceForceIP\n");
    QTest::newRow("USB") << std::size_t(1)
                         << QByteArray("InterfaceType USB3Vision\nInterfaceID Sim::U3V0\n"
                                       "InterfaceDisplayName Simulated USB host\nDeviceSelector 1\n"
                                       "DeviceID Moxara_MX-2K-C_U3_000006\nDeviceVendorName Moxara\n"
                                       "DeviceModelName MX-2K-C U3\nDeviceSerialNumber 000006\n"
                                       "DeviceUSBVersionDetected 210\n");
    QTest::newRow("frame grabber") << std::size_t(2) << QByteArray();
}

void TestSimulatedAddresses::features()
{
    QFETCH(std::size_t, interface);
    QFETCH(QByteArray, expected);
    MoxSdk::Interface *shown = m_backend->interfaces()[interface];
    shown->ReDiscoverDevices(nullptr, 200);
    MoxCamErr err = 1;
    MoxGenParam::Array *array = shown->GetParameters(&err);
    QCOMPARE(err, expected.isEmpty() ? MoxCamError::GenTLNotAvailable : MoxCamError::Success);
    QCOMPARE(shown->GetParameters(nullptr), array);
    QCOMPARE(!array, expected.isEmpty());
    if (!array)
        return;
    QCOMPARE(array->SetIntegerValue("DeviceSelector", 1), MoxCamError::Success);
    QByteArray seen;
    for (const char *category : {"InterfaceInformation", "DeviceEnumeration"}) {
        GenApi::FeatureList_t features;
        dynamic_cast<GenApi::ICategory &>(*array->GetNodeMap(nullptr)->GetNode(category)).GetFeatures(features);
        for (GenApi::IValue *feature : features) {
            const QByteArray name = feature->GetNode()->GetName().c_str();
            const qint64 number = array->GetIntegerValue(name, &err);
            seen += name;
            if (!err)
                seen += ' ' + QByteArray::number(number, 16);
            else if (GenApi::IsReadable(feature))
                seen += QByteArray(" ") + feature->ToString().c_str();
            seen += '\n';
        }
    }
    QCOMPARE(seen, expected);
}

MOX_TEST_MAIN(TestSimulatedAddresses)
#include "tst_simulatedaddresses.moc"
