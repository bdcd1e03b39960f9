// The whole way to a camera: the camera program of Aravis on the loopback adapter.
#include "../../../platform/device/deviceinfo.h"
#include "../../../platform/genapi/nodemapfactory.h"
#include "../../../platform/network/networkbackend.h"
#include "cameraprogram.h"

#include <QTest>

#include <atomic>
#include <cstring>

using namespace MoxSdk;

namespace {

constexpr int patience = 20000;
const char *const serial = "MOX-TEST-1";

constexpr std::int64_t widthRegister = 0x100;
constexpr std::int64_t lineTimeRegisterOfFrameB = 0xB51C;

/** Discovers on an interface; the camera of this test, or null. */
MoxCam::DeviceInfo *discovered(Interface &interface)
{
    interface.ReDiscoverDevices(nullptr, 200);
    MoxCam::DeviceInfoList *list = interface.GetDeviceInfoList();
    MoxCam::DeviceInfo *found = nullptr;
    for (MoxCam::DeviceInfo *info = list->GetFirst(); info; info = list->GetNext()) {
        if (std::strcmp(info->GetSerialNumber(), serial) == 0)
            found = info;
    }
    list->Release();
    return found;
}

} // namespace

class TestNetworkCamera : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { startCamera(); }
    void cleanup() { m_camera.stop(); }
    void interfaces();
    void discoveryAndFacts();
    void features();
    void ownDescription();
    void busyForASecondLink();
    void lossAndReturn();

private:
    void startCamera(const QString &description = QString());
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
}

void TestNetworkCamera::startCamera(const QString &description)
{
    QVERIFY(m_camera.start(description));
    QTRY_VERIFY_WITH_TIMEOUT((m_info = static_cast<DeviceInfo *>(discovered(*m_loopback))), patience);
}

void TestNetworkCamera::interfaces()
{
    const std::vector<Interface *> interfaces = m_backend->interfaces();
    QCOMPARE(interfaces, m_backend->interfaces());
    QCOMPARE(QString::fromUtf8(m_loopback->GetDescription()), QStringLiteral("lo (127.0.0.1)"));
    QCOMPARE(m_loopback->GetType(), int(MoxCam::InterfaceGigEVision));
    Interface *usb = interfaces.back();
    QCOMPARE(QString::fromUtf8(usb->GetDescription()), QStringLiteral("USB3 Vision"));
    QCOMPARE(usb->GetType(), int(MoxCam::InterfaceUsb3Vision));
    usb->ReDiscoverDevices(nullptr, 200);
    // The camera of the loopback adapter is heard on the others too, and shown on its own alone.
    for (Interface *interface : interfaces) {
        if (interface != m_loopback)
            QVERIFY(!discovered(*interface));
    }
}

void TestNetworkCamera::discoveryAndFacts()
{
    const DeviceRecord facts = m_info->record();
    QCOMPARE(facts.id, std::string("Aravis-Fake-MOX-TEST-1-127.0.0.1"));
    QCOMPARE(facts.vendor, std::string("Aravis"));
    QCOMPARE(facts.model, std::string("Fake"));
    QCOMPARE(facts.displayName, std::string("Aravis Fake (MOX-TEST-1)"));
    QCOMPARE(facts.ipAddress, 0x7f000001u);
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
    const GenApi::CStringPtr vendor = nodeMap->GetNode("DeviceVendorName");
    QCOMPARE(QByteArray(vendor->GetValue().c_str()), QByteArray("Aravis"));
    const GenApi::CIntegerPtr width = nodeMap->GetNode("Width");
    width->SetValue(320);
    unsigned char word[4] = {};
    link->port().Read(word, widthRegister, 4);
    QCOMPARE(int(word[2]) << 8 | word[3], 320);
    QCOMPARE(width->GetValue(false, true), std::int64_t(320));
}

void TestNetworkCamera::ownDescription()
{
    m_camera.stop();
    startCamera(QStringLiteral(MOX_FRAMEAB_DESCRIPTION));
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
    link->port().Read(word, lineTimeRegisterOfFrameB, 4);
    QCOMPARE(int(word[2]) << 8 | word[3], 4321);
    frame->FromString("FrameA");
    QCOMPARE(lineTime->GetValue(), std::int64_t(0));
}

void TestNetworkCamera::busyForASecondLink()
{
    auto link = m_loopback->openLink(m_info->record());
    QTRY_COMPARE(accessStatus(), int(MoxCam::AccessNoAccess));
    QVERIFY_EXCEPTION_THROWN(m_loopback->openLink(m_info->record()), GenICam_3_0::AccessException);
    char byte = 0;
    link->port().Read(&byte, widthRegister, 1);
    link.reset();
    QTRY_COMPARE(accessStatus(), int(MoxCam::AccessReadWrite));
    QVERIFY(m_loopback->openLink(m_info->record()));

    DeviceRecord elsewhere = m_info->record();
    elsewhere.ipAddress = 0xcb007107;
    QVERIFY_EXCEPTION_THROWN(m_loopback->openLink(elsewhere), GenICam_3_0::AccessException);
}

void TestNetworkCamera::lossAndReturn()
{
    const auto link = m_loopback->openLink(m_info->record());
    std::atomic<int> losses{0};
    std::atomic<int> returns{0};
    link->setListener([&](bool connected) { ++(connected ? returns : losses); });

    m_camera.stop();
    QTRY_COMPARE_WITH_TIMEOUT(int(losses), 1, patience);
    char byte = 0;
    QVERIFY_EXCEPTION_THROWN(link->port().Read(&byte, widthRegister, 1), GenICam_3_0::TimeoutException);
    QCOMPARE(int(returns), 0);

    startCamera();
    QTRY_COMPARE_WITH_TIMEOUT(int(returns), 1, patience);
    link->port().Read(&byte, widthRegister, 1);
    QCOMPARE(int(losses), 1);
    link->setListener({});
}

QTEST_GUILESS_MAIN(TestNetworkCamera)

#include "tst_networkcamera.moc"
