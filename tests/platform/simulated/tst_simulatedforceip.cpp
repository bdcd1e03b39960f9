// Addresses of simulated cameras: what is assigned, refused and given back.
#include "device/deviceinfo.h"
#include "device/interface.h"
#include "simulated/simulatedbackend.h"

#include <MoxCameraApi/MoxGenParam.h>
#include <MoxCameraApi/MoxSimulation.h>
#include <testmain.h>

using MoxSdk::DeviceInfo;

class TestSimulatedForceIp : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void byItself();
    void refused();
    void givenBack();
    void usbVersions();

private:
    /** Address, netmask, gateway and access status, as the kept object tells them. */
    QByteArray facts()
    {
        return QByteArray(m_info->GetIPAddress(nullptr)) + ' ' + m_info->GetNetmask(nullptr) + ' '
            + m_info->GetGateway(nullptr) + ' ' + QByteArray::number(m_info->GetAccessStatus());
    }

    std::unique_ptr<MoxSdk::Backend> m_backend = MoxSdk::createSimulatedBackend();
    MoxSdk::Interface *m_network = nullptr;
    DeviceInfo *m_info = nullptr; ///< the camera on the wrong subnet
};

void TestSimulatedForceIp::init()
{
    MoxSim::resetWorld();
    m_network = m_backend->interfaces().front();
    m_network->ReDiscoverDevices(nullptr, 200);
    m_info = m_network->listedDevice(2);
    QCOMPARE(facts(), QByteArray("172.16.5.12 255.255.255.0 0.0.0.0 1001"));
}

void TestSimulatedForceIp::byItself()
{
    QCOMPARE(m_info->ForceIP(0, 0xFF000000, 7), MoxCamError::Success);
    QCOMPARE(facts(), QByteArray("192.168.10.12 255.255.255.0 0.0.0.0 1"));
    QVERIFY(m_network->openLink(m_info->record()));
}

void TestSimulatedForceIp::refused()
{
    using Pair = std::pair<std::uint32_t, std::uint32_t>;
    // The subnet's own, broadcast, multicast, a first byte of zero; no mask, with a gap, upside down, without hosts.
    for (const auto &[ip, netmask] :
         {Pair(0xC0A80A00, 0xFFFFFF00), Pair(0xC0A80AFF, 0xFFFFFF00), Pair(0xFFFFFFFF, 0xFFFFFF00),
          Pair(0xE0000001, 0xFFFFFF00), Pair(0x00010203, 0xFF000000), Pair(0xC0A80A0D, 0), Pair(0xC0A80A0D, 0xFF00FF00),
          Pair(0xC0A80A0D, 0x000000FF), Pair(0xC0A80A0D, 0xFFFFFFFF)})
        QCOMPARE(m_info->ForceIP(ip, netmask, 0), MoxCamError::GenTLInvalidParameter);
    QCOMPARE(facts(), QByteArray("172.16.5.12 255.255.255.0 0.0.0.0 1001"));
    // A camera in use says no, and who does not hear says nothing.
    for (const auto &[reach, result] : {std::pair(MoxSim::Reach::Busy, MoxCamError::GenTLAccessDenied),
                                        std::pair(MoxSim::Reach::Undiscovered, MoxCamError::GenTLTimeout)}) {
        MoxSim::setReach(m_info->GetID(), reach);
        QCOMPARE(m_info->ForceIP(0xC0A80A37, 0xFFFFFF00, 0), result);
    }
}

void TestSimulatedForceIp::givenBack()
{
    QCOMPARE(m_info->ForceIP(0xC0A80A0D, 0xFFFFFFFC, 0x0A000001), MoxCamError::Success);
    QCOMPARE(facts(), QByteArray("192.168.10.13 255.255.255.252 10.0.0.1 1"));
    MoxSim::setReach(m_info->GetID(), MoxSim::Reach::WrongSubnet);
    m_network->ReDiscoverDevices(nullptr, 200);
    QCOMPARE(facts(), QByteArray("172.16.5.12 255.255.255.0 0.0.0.0 1001"));
}

void TestSimulatedForceIp::usbVersions()
{
    MoxSdk::Interface *usb = m_backend->interfaces()[1];
    usb->ReDiscoverDevices(nullptr, 200);
    MoxGenParam::Array *array = usb->GetParameters(nullptr);
    for (const auto &[position, version] : {std::pair(0, 0x300), std::pair(1, 0x210), std::pair(0, 0x300)}) {
        QCOMPARE(array->SetIntegerValue("DeviceSelector", position), MoxCamError::Success);
        QCOMPARE(array->GetIntegerValue("DeviceUSBVersionDetected", nullptr), std::int64_t(version));
    }
}

MOX_TEST_MAIN(TestSimulatedForceIp)
#include "tst_simulatedforceip.moc"
