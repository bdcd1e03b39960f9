// The whole way to a camera of another maker: the camera program of Aravis on the loopback adapter.
#include "../../../platform/device/deviceinfo.h"
#include "../../../platform/genapi/nodemapfactory.h"
#include "../../../platform/network/networkbackend.h"
#include "cameraprogram.h"

#include <QTest>

#include <cstring>

using namespace MoxSdk;

namespace {

constexpr int patience = 20000;
const char *const serial = "MOX-TEST-1";

/** Discovers on an interface; the camera of this test, or null. */
DeviceInfo *discovered(Interface &interface)
{
    interface.ReDiscoverDevices(nullptr, 200);
    for (std::size_t i = 0; i < interface.deviceCount(); ++i) {
        if (std::strcmp(interface.listedDevice(i)->GetSerialNumber(), serial) == 0)
            return interface.listedDevice(i);
    }
    return nullptr;
}

} // namespace

class TestNetworkCamera : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void discovery();
    void features();
    void busyForASecondLink();

private:
    void startCamera()
    {
        QVERIFY(m_camera.start(QStringLiteral(MOX_FRAMEAB_DESCRIPTION)));
        QTRY_VERIFY_WITH_TIMEOUT((m_info = discovered(*m_loopback)), patience);
    }
    int accessStatus()
    {
        m_loopback->ReDiscoverDevices(nullptr, 200);
        return m_info->GetAccessStatus();
    }

    std::unique_ptr<Backend> m_backend;
    Interface *m_loopback = nullptr;
    DeviceInfo *m_info = nullptr;
    MoxTest::CameraProgram m_camera{QLatin1String(serial)};
};

void TestNetworkCamera::initTestCase()
{
    if (!MoxTest::CameraProgram::isInstalled())
        QSKIP("The camera program of aravis-tools is not installed");
    m_backend = createNetworkBackend();
    for (Interface *interface : m_backend->interfaces()) {
        if (std::strcmp(interface->GetID(), "GEV::lo") == 0)
            m_loopback = interface;
    }
    QVERIFY(m_loopback);
    startCamera();
}

void TestNetworkCamera::discovery()
{
    const std::vector<Interface *> interfaces = m_backend->interfaces();
    QCOMPARE(interfaces, m_backend->interfaces());
    QCOMPARE(m_loopback->GetDescription(), "lo (127.0.0.1)");
    QCOMPARE(interfaces.back()->GetDescription(), "USB3 Vision");
    // The camera of the loopback adapter is heard on the others too, and shown on its own alone.
    for (Interface *interface : interfaces)
        QVERIFY(interface == m_loopback || !discovered(*interface));

    QCOMPARE(m_info->record().id, std::string("Aravis-Fake-MOX-TEST-1-127.0.0.1"));
    QCOMPARE(m_info->record().displayName, std::string("Aravis Fake (MOX-TEST-1)"));
    QCOMPARE(m_info->record().ipAddress, 0x7f000001u);
    QTRY_COMPARE(accessStatus(), int(MoxCam::AccessReadWrite));
    const DeviceInfo *const before = m_info;
    m_camera.stop();
    QVERIFY(!discovered(*m_loopback));
    startCamera();
    QCOMPARE(m_info, before);
}

void TestNetworkCamera::features()
{
    const auto link = m_loopback->openLink(m_info->record());
    const auto nodeMap = MoxGenApi::createNodeMap(link->description(), link->port(), "camera");
    const GenApi::CEnumerationPtr frame = nodeMap->GetNode("FrameAB_Selector");
    const GenApi::CIntegerPtr lineTime = nodeMap->GetNode("Frame_LineTime");
    QVERIFY(frame && lineTime);
    // Each frame has registers of its own; the program's memory starts out as zeros there.
    frame->FromString("FrameB");
    lineTime->SetValue(4321);
    QCOMPARE(lineTime->GetValue(false, true), std::int64_t(4321));
    unsigned char word[4] = {};
    link->port().Read(word, 0xB51C, 4);
    QCOMPARE(int(word[2]) << 8 | word[3], 4321);
    frame->FromString("FrameA");
    QCOMPARE(lineTime->GetValue(), std::int64_t(0));
}

void TestNetworkCamera::busyForASecondLink()
{
    auto link = m_loopback->openLink(m_info->record());
    QTRY_COMPARE(accessStatus(), int(MoxCam::AccessNoAccess));
    QVERIFY_EXCEPTION_THROWN(m_loopback->openLink(m_info->record()), GenICam::AccessException);
    char byte = 0;
    link->port().Read(&byte, 0x100, 1);
    link.reset();
    QTRY_COMPARE(accessStatus(), int(MoxCam::AccessReadWrite));
    QVERIFY(m_loopback->openLink(m_info->record()));

    DeviceRecord elsewhere = m_info->record();
    elsewhere.ipAddress = 0xcb007107;
    QVERIFY_EXCEPTION_THROWN(m_loopback->openLink(elsewhere), GenICam::RuntimeException);
}

QTEST_GUILESS_MAIN(TestNetworkCamera)

#include "tst_networkcamera.moc"
