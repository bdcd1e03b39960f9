// The simulated world as the SDK sees it, and the knobs that change it.
#include "device/deviceinfo.h"
#include "device/interface.h"
#include "genapi/nodemapfactory.h"
#include "simulated/simulatedbackend.h"

#include <GenApi/GenApi.h>
#include <MoxCameraApi/MoxSimulation.h>
#include <testmain.h>

#include <QElapsedTimer>
#include <QTemporaryDir>

#include <atomic>
#include <functional>
#include <mutex>
#include <stdexcept>
#include <thread>

using namespace MoxSim;
using MoxSdk::DeviceRecord;
using MoxSdk::Link;

Q_DECLARE_METATYPE(MoxSim::Reach)

namespace {

/** The cameras that a discovery shows. */
std::vector<MoxSdk::DeviceInfo *> discovered(MoxSdk::Interface *interface)
{
    interface->ReDiscoverDevices(nullptr, 200);
    std::vector<MoxSdk::DeviceInfo *> result;
    MoxCam::DeviceInfoList *list = interface->GetDeviceInfoList();
    for (MoxCam::DeviceInfo *info = list->GetFirst(); info; info = list->GetNext())
        result.push_back(static_cast<MoxSdk::DeviceInfo *>(info));
    list->Release();
    return result;
}

/** All that a discovery shows, as lines of text. */
QString picture(MoxSdk::Backend &backend)
{
    QString result;
    for (MoxSdk::Interface *interface : backend.interfaces()) {
        result += QStringLiteral("%1 %2\n").arg(QLatin1String(interface->GetID())).arg(interface->GetType());
        for (MoxSdk::DeviceInfo *info : discovered(interface))
            result += QStringLiteral("  %1 %2\n").arg(QLatin1String(info->GetID())).arg(info->GetAccessStatus());
    }
    return result;
}

std::uint32_t readNumber(Link &link, std::int64_t address)
{
    std::uint8_t bytes[4];
    link.port().Read(bytes, address, 4);
    return std::uint32_t(bytes[0]) << 24 | std::uint32_t(bytes[1]) << 16 | std::uint32_t(bytes[2]) << 8 | bytes[3];
}

void writeNumber(Link &link, std::int64_t address, std::uint32_t value)
{
    const std::uint8_t bytes[4] = {std::uint8_t(value >> 24), std::uint8_t(value >> 16), std::uint8_t(value >> 8),
                                   std::uint8_t(value)};
    link.port().Write(bytes, address, 4);
}

/** What an action throws, as "kind: reason"; empty when it throws nothing. */
QString thrown(const std::function<void()> &action)
{
    try {
        action();
    } catch (const GenICam_3_0::AccessException &exception) {
        return QStringLiteral("access: ") + QString::fromUtf8(exception.GetDescription());
    } catch (const GenICam_3_0::TimeoutException &exception) {
        return QStringLiteral("timeout: ") + QString::fromUtf8(exception.GetDescription());
    } catch (const GenICam_3_0::GenericException &exception) {
        return QStringLiteral("other: ") + QString::fromUtf8(exception.GetDescription());
    } catch (const std::invalid_argument &exception) {
        return QStringLiteral("argument: ") + QString::fromUtf8(exception.what());
    } catch (const std::runtime_error &exception) {
        return QStringLiteral("runtime: ") + QString::fromUtf8(exception.what());
    }
    return QString();
}

constexpr std::int64_t HeartbeatTimeout = 0x938;

const char smallDescription[] =
    "<?xml version='1.0'?>\n"
    "<RegisterDescription ModelName='Tiny One' VendorName=\"Acme\" SchemaMajorVersion='1' SchemaMinorVersion='1'"
    " SchemaSubMinorVersion='0' MajorVersion='3' MinorVersion='0' SubMinorVersion='0' StandardNameSpace='None'"
    " ToolTip='' ProductGuid='1' VersionGuid='1' xmlns='http://www.genicam.org/GenApi/Version_1_1'>\n"
    "<Category Name=\"Root\"><pFeature>Note</pFeature></Category>\n"
    "<StringReg Name='Note'><Address>0xFFFFFFFFFFFFF000</Address><Length>32</Length>"
    "<AccessMode>RW</AccessMode><pPort>Device</pPort></StringReg>\n"
    "<Port Name='Device'/>\n"
    "</RegisterDescription>\n";

} // namespace

class TestSimulatedWorld : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void standardWorld();
    void networkIdentity();
    void reachDecides_data();
    void reachDecides();
    void oneControlsAtATime();
    void pluggingTellsTheLink();
    void listenerTakesItselfAway();
    void interfacesComeAndGo();
    void pointersOutliveAReset();
    void camerasAreAdded();
    void unknownIdentifiers();
    void userNames();
    void slowLink();
    void accessesFailByOrder();
    void accessesTakeTheirTime();
    void discoveryTakesItsTime();
    void descriptionFiles_data();
    void descriptionFiles();
    void anyDescriptionIsACamera();
    void manyThreads();

private:
    std::unique_ptr<Link> open(const std::string &cameraId);

    std::unique_ptr<MoxSdk::Backend> m_backend = MoxSdk::createSimulatedBackend();
    const std::string m_frameAB = "Moxara_MX-4K-AB_000001";
};

void TestSimulatedWorld::init()
{
    resetWorld();
}

std::unique_ptr<Link> TestSimulatedWorld::open(const std::string &cameraId)
{
    for (MoxSdk::Interface *interface : m_backend->interfaces()) {
        DeviceRecord record;
        record.id = cameraId;
        record.displayName = cameraId;
        const std::vector<std::string> here = cameras(interface->GetID());
        if (std::find(here.begin(), here.end(), cameraId) != here.end())
            return interface->openLink(record);
    }
    throw std::invalid_argument("no camera " + cameraId);
}

void TestSimulatedWorld::standardWorld()
{
    const QString expected = QStringLiteral("Sim::GEV0 2\n"
                                            "  Moxara_MX-4K-AB_000001 1\n"
                                            "  Moxara_MX-2K-M_000002 3\n"
                                            "  Moxara_MX-2K-M_000003 1001\n"
                                            "Sim::U3V0 1\n"
                                            "  Moxara_MX-2K-C_U3_000005 1\n"
                                            "  Moxara_MX-2K-C_U3_000006 1\n"
                                            "Sim::CL0 3\n");
    QCOMPARE(picture(*m_backend), expected);
    // Another view shows the same world.
    QCOMPARE(picture(*MoxSdk::createSimulatedBackend()), expected);
    // The camera that only its address finds is there all the same.
    QCOMPARE(cameras("Sim::GEV0").back(), std::string("Moxara_MX-2K-M_000004"));

    const std::vector<MoxSdk::DeviceInfo *> found = discovered(m_backend->interfaces().front());
    QCOMPARE(found.front()->GetVendor(), "Moxara");
    QCOMPARE(found.front()->GetModel(), "MX-4K-AB");
    QCOMPARE(found.front()->GetDisplayName(), "Moxara MX-4K-AB (000001)");
    QCOMPARE(found.front()->GetSerialNumber(), "000001");
    QCOMPARE(found.front()->GetVersion(), "2.4.1");
    QCOMPARE(found.front()->GetUserDefinedName(), "Conveyor top");
    QCOMPARE(m_backend->interfaces().front()->GetVersion(), "2.0");
}

void TestSimulatedWorld::networkIdentity()
{
    const std::vector<MoxSdk::DeviceInfo *> found = discovered(m_backend->interfaces().front());
    const DeviceRecord inside = found[0]->record();
    const DeviceRecord outside = found[2]->record();
    QCOMPARE(inside.ipAddress, 0xC0A80A0Au);
    QCOMPARE(inside.netmask, 0xFFFFFF00u);
    QVERIFY((outside.ipAddress & 0xFFFFFF00) != 0xC0A80A00u);
    QVERIFY(inside.macAddress != outside.macAddress && inside.macAddress >> 48 == 0);
    // The registers say what discovery says.
    const std::unique_ptr<Link> link = open(m_frameAB);
    QCOMPARE(readNumber(*link, 0x24), inside.ipAddress);
    QCOMPARE(readNumber(*link, 0x34), inside.netmask);
    QCOMPARE(std::uint64_t(readNumber(*link, 0x8)) << 32 | readNumber(*link, 0xC), inside.macAddress);
    for (MoxSdk::DeviceInfo *info : discovered(m_backend->interfaces()[1]))
        QCOMPARE(info->record().ipAddress, 0u);
}

void TestSimulatedWorld::reachDecides_data()
{
    QTest::addColumn<Reach>("reach");
    QTest::addColumn<int>("status"); // 0 is not shown
    QTest::addColumn<QString>("refusal");
    QTest::newRow("open") << Reach::Open << 1 << QString();
    QTest::newRow("busy") << Reach::Busy << 3
                          << QStringLiteral("access: Moxara MX-4K-AB (000001) is in use by another host");
    QTest::newRow("wrong subnet")
        << Reach::WrongSubnet << 1001
        << QStringLiteral("access: The address of Moxara MX-4K-AB (000001) lies outside the subnet of its adapter");
    QTest::newRow("undiscovered") << Reach::Undiscovered << 0 << QString();
}

void TestSimulatedWorld::reachDecides()
{
    QFETCH(Reach, reach);
    QFETCH(int, status);
    QFETCH(QString, refusal);
    setReach(m_frameAB, reach);
    QCOMPARE(MoxSim::reach(m_frameAB), reach);
    int shown = 0;
    for (MoxSdk::DeviceInfo *info : discovered(m_backend->interfaces().front())) {
        if (info->GetID() == m_frameAB)
            shown = info->GetAccessStatus();
    }
    QCOMPARE(shown, status);
    QCOMPARE(thrown([&] { open(m_frameAB); }), refusal);
}

void TestSimulatedWorld::oneControlsAtATime()
{
    std::unique_ptr<Link> first = open(m_frameAB);
    QCOMPARE(thrown([&] { open(m_frameAB); }),
             QStringLiteral("access: Moxara MX-4K-AB (000001) is in use by this application"));
    QCOMPARE(discovered(m_backend->interfaces().front()).front()->GetAccessStatus(), 3);
    first.reset();
    QCOMPARE(discovered(m_backend->interfaces().front()).front()->GetAccessStatus(), 1);
    QCOMPARE(thrown([&] { open(m_frameAB); }), QString());
}

void TestSimulatedWorld::pluggingTellsTheLink()
{
    const std::unique_ptr<Link> link = open(m_frameAB);
    std::mutex mutex;
    std::vector<int> heard;
    std::atomic<bool> elsewhere{true};
    const auto listened = [&] {
        const std::lock_guard<std::mutex> lock(mutex);
        return heard;
    };
    const std::thread::id here = std::this_thread::get_id();
    link->setListener([&](bool connected) {
        const std::lock_guard<std::mutex> lock(mutex);
        elsewhere = elsewhere && std::this_thread::get_id() != here;
        heard.push_back(connected);
    });
    writeNumber(*link, HeartbeatTimeout, 4321);
    setPlugged(m_frameAB, false);
    QTRY_COMPARE(listened(), (std::vector<int>{0}));
    QVERIFY(!isPlugged(m_frameAB));
    QCOMPARE(link->port().GetAccessMode(), GenApi_3_0::NA);
    QCOMPARE(thrown([&] { readNumber(*link, HeartbeatTimeout); }),
             QStringLiteral("timeout: Moxara MX-4K-AB (000001) is not reachable"));
    QVERIFY(thrown([&] { writeNumber(*link, HeartbeatTimeout, 1000); }).startsWith(QLatin1String("timeout")));
    QVERIFY(thrown([&] { link->description(); }).startsWith(QLatin1String("timeout")));
    QVERIFY(!picture(*m_backend).contains(QLatin1String("MX-4K-AB")));

    setPlugged(m_frameAB, false);
    setPlugged(m_frameAB, true);
    setInterfacePlugged("Sim::GEV0", false);
    // With the adapter gone too, the camera's own plug makes no difference.
    setPlugged(m_frameAB, false);
    setInterfacePlugged("Sim::GEV0", true);
    setPlugged(m_frameAB, true);
    QTRY_COMPARE(listened(), (std::vector<int>{0, 1, 0, 1}));
    QCOMPARE(readNumber(*link, HeartbeatTimeout), 4321u);
    QVERIFY(elsewhere);
    // It is at its place again.
    QCOMPARE(discovered(m_backend->interfaces().front()).front()->GetID(), m_frameAB.c_str());

    removeCamera(m_frameAB);
    QTRY_COMPARE(listened(), (std::vector<int>{0, 1, 0, 1, 0}));
    QVERIFY(!picture(*m_backend).contains(QLatin1String("MX-4K-AB")));
    link->setListener(Link::Listener());
}

void TestSimulatedWorld::listenerTakesItselfAway()
{
    const std::unique_ptr<Link> link = open(m_frameAB);
    std::atomic<int> calls{0};
    link->setListener([&](bool) {
        ++calls;
        link->setListener(Link::Listener());
    });
    setPlugged(m_frameAB, false);
    QTRY_COMPARE(calls.load(), 1);
    setPlugged(m_frameAB, true);
    // A later event of another camera has passed the same thread when it arrives.
    const std::unique_ptr<Link> other = open("Moxara_MX-2K-C_U3_000005");
    std::atomic<bool> passed{false};
    other->setListener([&](bool) { passed = true; });
    setPlugged("Moxara_MX-2K-C_U3_000005", false);
    QTRY_VERIFY(passed.load());
    QCOMPARE(calls.load(), 1);
}

void TestSimulatedWorld::interfacesComeAndGo()
{
    QCOMPARE(addInterface(MoxCam::InterfaceGigEVision, "Second adapter"), std::string("Sim::GEV1"));
    QCOMPARE(addInterface(MoxCam::InterfaceCoaXPress, "Card"), std::string("Sim::CXP0"));
    const auto shown = [&] {
        QByteArrayList ids;
        for (MoxSdk::Interface *interface : m_backend->interfaces())
            ids += interface->GetID();
        return ids.join(' ');
    };
    QCOMPARE(shown(), QByteArray("Sim::GEV0 Sim::U3V0 Sim::CL0 Sim::GEV1 Sim::CXP0"));
    MoxSdk::Interface *usb = m_backend->interfaces()[1];
    setInterfacePlugged("Sim::U3V0", false);
    QCOMPARE(shown(), QByteArray("Sim::GEV0 Sim::CL0 Sim::GEV1 Sim::CXP0"));
    QCOMPARE(discovered(usb).size(), std::size_t(0));
    QCOMPARE(interfaces().size(), std::size_t(5));
    setInterfacePlugged("Sim::U3V0", true);
    QCOMPARE(m_backend->interfaces()[1], usb);
    QCOMPARE(discovered(usb).size(), std::size_t(2));
    removeInterface("Sim::U3V0");
    QCOMPARE(shown(), QByteArray("Sim::GEV0 Sim::CL0 Sim::GEV1 Sim::CXP0"));
    QCOMPARE(discovered(usb).size(), std::size_t(0));
    QCOMPARE(usb->GetID(), "Sim::U3V0");
}

void TestSimulatedWorld::pointersOutliveAReset()
{
    MoxSdk::Interface *network = m_backend->interfaces().front();
    MoxSdk::DeviceInfo *camera = discovered(network).front();
    const std::unique_ptr<Link> link = open(m_frameAB);
    clearWorld();
    QVERIFY(m_backend->interfaces().empty());
    QCOMPARE(link->port().GetAccessMode(), GenApi_3_0::NA);
    QCOMPARE(camera->GetID(), m_frameAB.c_str());
    // Another interface under an old identifier is another one.
    QCOMPARE(addInterface(MoxCam::InterfaceGigEVision, "Other"), std::string("Sim::GEV0"));
    QVERIFY(m_backend->interfaces().front() != network);
    resetWorld();
    QCOMPARE(m_backend->interfaces().front(), network);
    QCOMPARE(discovered(network).front(), camera);
    QVERIFY(open(m_frameAB));
}

void TestSimulatedWorld::camerasAreAdded()
{
    CameraSetup setup;
    setup.model = Model::Color;
    setup.serialNumber = "AB 12";
    setup.reach = Reach::Busy;
    QCOMPARE(addCamera("Sim::CL0", setup), std::string("Moxara_MX-2K-C_U3_AB_12"));
    QVERIFY(picture(*m_backend).endsWith(QLatin1String("Sim::CL0 3\n  Moxara_MX-2K-C_U3_AB_12 3\n")));
    QCOMPARE(thrown([&] { addCamera("Sim::U3V0", setup); }),
             QStringLiteral("runtime: There is a camera Moxara_MX-2K-C_U3_AB_12 already"));
    setup.serialNumber = "\n\xc3\xa4";
    QCOMPARE(addCamera("Sim::U3V0", setup), std::string("Moxara_MX-2K-C_U3_000007"));
    setup.serialNumber = "0123456\t789ABCDEFGH";
    QCOMPARE(addCamera("Sim::U3V0", setup), std::string("Moxara_MX-2K-C_U3_0123456789ABCDEF"));
    QCOMPARE(cameras("Sim::U3V0").size(), std::size_t(4));
}

void TestSimulatedWorld::unknownIdentifiers()
{
    const QString camera = QStringLiteral("argument: There is no simulated camera nobody");
    const QString interface = QStringLiteral("argument: There is no simulated interface nobody");
    QCOMPARE(thrown([] { setPlugged("nobody", true); }), camera);
    QCOMPARE(thrown([] { isPlugged("nobody"); }), camera);
    QCOMPARE(thrown([] { setReach("nobody", Reach::Open); }), camera);
    QCOMPARE(thrown([] { reach("nobody"); }), camera);
    QCOMPARE(thrown([] { setUserName("nobody", ""); }), camera);
    QCOMPARE(thrown([] { failAccess("nobody", 1); }), camera);
    QCOMPARE(thrown([] { removeCamera("nobody"); }), camera);
    QCOMPARE(thrown([] { accessCount("nobody"); }), camera);
    QCOMPARE(thrown([] { cameras("nobody"); }), interface);
    QCOMPARE(thrown([] { addCamera("nobody", CameraSetup()); }), interface);
    QCOMPARE(thrown([] { removeInterface("nobody"); }), interface);
    QCOMPARE(thrown([] { setInterfacePlugged("nobody", true); }), interface);
    QCOMPARE(thrown([] { setDiscoveryTime("nobody", 1); }), interface);
    for (int type : {-1, 6, 40})
        QVERIFY(thrown([=] { addInterface(type, ""); }).startsWith(QLatin1String("argument: ")));
    CameraSetup setup;
    setup.model = Model(3);
    QCOMPARE(thrown([&] { addCamera("Sim::U3V0", setup); }), QStringLiteral("argument: There is no such camera model"));
    setup = CameraSetup();
    setup.descriptionFile = "/";
    QCOMPARE(thrown([&] { addCamera("Sim::U3V0", setup); }),
             QStringLiteral("runtime: The description / cannot be read"));
}

void TestSimulatedWorld::userNames()
{
    MoxSdk::Interface *network = m_backend->interfaces().front();
    setUserName(m_frameAB, "New name");
    QCOMPARE(discovered(network).front()->GetUserDefinedName(), "New name");
    // The camera may be told its name as well.
    const std::unique_ptr<Link> link = open(m_frameAB);
    link->port().Write("Other\0\0\0\0\0\0\0\0\0\0", 0xE8, 16);
    QCOMPARE(discovered(network).front()->GetUserDefinedName(), "Other");
}

void TestSimulatedWorld::slowLink()
{
    QStringList seen;
    for (const std::string &id : cameras("Sim::U3V0")) {
        const std::unique_ptr<Link> link = open(id);
        const auto map = MoxGenApi::createNodeMap(link->description(), link->port(), "Device");
        const GenApi_3_0::CValuePtr speed(map->GetNode("U3vCurrentSpeed"));
        const GenApi_3_0::CValuePtr time(map->GetNode("CurrentFrameTime"));
        seen += QLatin1String(speed->ToString().c_str()) + QLatin1Char(' ') + QLatin1String(time->ToString().c_str());
    }
    QCOMPARE(seen, (QStringList{QStringLiteral("SuperSpeed 11820"), QStringLiteral("HighSpeed 89877")}));
}

void TestSimulatedWorld::accessesFailByOrder()
{
    const std::unique_ptr<Link> link = open(m_frameAB);
    const std::uint64_t before = accessCount(m_frameAB);
    const auto attempts = [&](int number) {
        QByteArray result;
        for (int i = 0; i < number; ++i)
            result += thrown([&] { readNumber(*link, HeartbeatTimeout); }).isEmpty() ? '+' : '-';
        return result;
    };
    failAccess(m_frameAB, 3);
    QCOMPARE(attempts(7), QByteArray("++-++++"));
    failAccess(m_frameAB, 2, true);
    QCOMPARE(attempts(6), QByteArray("+-+-+-"));
    QVERIFY(thrown([&] { writeNumber(*link, HeartbeatTimeout, 1000); }).isEmpty());
    QCOMPARE(thrown([&] { writeNumber(*link, HeartbeatTimeout, 2000); }),
             QStringLiteral("timeout: Moxara MX-4K-AB (000001) did not answer in time"));
    failAccess(m_frameAB, 0);
    QCOMPARE(readNumber(*link, HeartbeatTimeout), 1000u);
    QCOMPARE(attempts(5), QByteArray("+++++"));
    QCOMPARE(accessCount(m_frameAB) - before, std::uint64_t(21));
    QVERIFY(thrown([&] { link->port().Read(nullptr, 0, -1); }).startsWith(QLatin1String("other")));
}

void TestSimulatedWorld::accessesTakeTheirTime()
{
    const std::unique_ptr<Link> link = open(m_frameAB);
    setAccessDelay(m_frameAB, 40);
    QElapsedTimer timer;
    timer.start();
    readNumber(*link, HeartbeatTimeout);
    QVERIFY(timer.elapsed() >= 40);
    // The plug is pulled in the middle of an access; neither waits for the other.
    setAccessDelay(m_frameAB, 1000);
    QString outcome;
    std::thread reader([&] { outcome = thrown([&] { readNumber(*link, HeartbeatTimeout); }); });
    QTRY_COMPARE(accessCount(m_frameAB), std::uint64_t(2));
    setPlugged(m_frameAB, false);
    QVERIFY(!isPlugged(m_frameAB));
    reader.join();
    QCOMPARE(outcome, QStringLiteral("timeout: Moxara MX-4K-AB (000001) is not reachable"));
}

void TestSimulatedWorld::discoveryTakesItsTime()
{
    MoxSdk::Interface *usb = m_backend->interfaces()[1];
    QElapsedTimer timer;
    setDiscoveryTime("Sim::U3V0", 50);
    timer.start();
    usb->ReDiscoverDevices(nullptr, 200);
    QVERIFY(timer.elapsed() >= 50);
    // An hour, if the caller's limit did not count.
    setDiscoveryTime("Sim::U3V0", 3600000);
    usb->ReDiscoverDevices(nullptr, 60);
    QCOMPARE(discovered(usb).size(), std::size_t(2));
}

void TestSimulatedWorld::descriptionFiles_data()
{
    QTest::addColumn<QByteArray>("content"); // null: there is no file
    QTest::addColumn<QString>("reason");
    QTest::newRow("missing") << QByteArray() << QStringLiteral("cannot be read");
    QTest::newRow("empty") << QByteArray("") << QStringLiteral("cannot be used: ");
    QTest::newRow("no XML") << QByteArray("Width=640\n") << QStringLiteral("cannot be used: ");
    QTest::newRow("cut short") << QByteArray(smallDescription).chopped(100) << QStringLiteral("cannot be used: ");
    QTest::newRow("other XML") << QByteArray("<html><body/></html>") << QStringLiteral("cannot be used: ");
    QTest::newRow("without Root") << QByteArray(smallDescription).replace("\"Root\"", "\"Top\"")
                                  << QStringLiteral("cannot be used: ");
}

void TestSimulatedWorld::descriptionFiles()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, reason);
    QTemporaryDir dir;
    CameraSetup setup;
    setup.descriptionFile = dir.filePath(QStringLiteral("camera.xml")).toStdString();
    QFile file(QString::fromStdString(setup.descriptionFile));
    if (!content.isNull()) {
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
    }
    const QString said = thrown([&] { addCamera("Sim::CL0", setup); });
    QVERIFY2(said.startsWith(QLatin1String("runtime: The description ") + file.fileName()), qPrintable(said));
    QVERIFY2(said.contains(reason) && !said.endsWith(QLatin1String(": ")), qPrintable(said));
    QCOMPARE(cameras("Sim::CL0").size(), std::size_t(0));
}

void TestSimulatedWorld::anyDescriptionIsACamera()
{
    QTemporaryDir dir;
    QFile file(dir.filePath(QStringLiteral("camera.xml")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(smallDescription);
    file.close();
    CameraSetup setup;
    setup.descriptionFile = file.fileName().toStdString();
    setup.userName = "Mine";
    const std::string id = addCamera("Sim::CL0", setup);
    QCOMPARE(id, std::string("Acme_Tiny_One_000007"));
    QCOMPARE(discovered(m_backend->interfaces()[2]).front()->GetUserDefinedName(), "Mine");
    {
        const std::unique_ptr<Link> link = open(id);
        const auto map = MoxGenApi::createNodeMap(link->description(), link->port(), "Device");
        const GenApi_3_0::CStringPtr note(map->GetNode("Note"));
        QCOMPARE(note->GetValue().c_str(), "");
        note->SetValue("kept at the end of all addresses");
    }
    const std::unique_ptr<Link> link = open(id);
    char bytes[33] = {};
    link->port().Read(bytes, std::int64_t(0xFFFFFFFFFFFFF000), 32);
    QCOMPARE(bytes, "kept at the end of all addresses");
    // Accesses over the last address go on at the first, and over the border of a page.
    link->port().Write("abcdef", -3, 6);
    link->port().Read(bytes, 0, 3);
    QCOMPARE(QByteArray(bytes, 3), QByteArray("def"));
    link->port().Write("123456", 4093, 6);
    link->port().Read(bytes, 4094, 4);
    QCOMPARE(QByteArray(bytes, 4), QByteArray("2345"));
}

void TestSimulatedWorld::manyThreads()
{
    std::atomic<bool> running{true};
    std::atomic<int> opened{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 2; ++i) {
        threads.emplace_back([&, i] {
            while (running) {
                for (MoxSdk::Interface *interface : m_backend->interfaces()) {
                    for (MoxSdk::DeviceInfo *info : discovered(interface)) {
                        thrown([&] {
                            const std::unique_ptr<Link> link = interface->openLink(info->record());
                            link->setListener([](bool) {});
                            ++opened;
                            readNumber(*link, i ? HeartbeatTimeout : 0);
                        });
                    }
                }
            }
        });
    }
    for (int round = 0; round < 60 || opened < 20; ++round) {
        const std::string added = addCamera("Sim::U3V0", CameraSetup());
        setPlugged(m_frameAB, false);
        setInterfacePlugged("Sim::U3V0", round % 2);
        setReach(m_frameAB, Reach(round % 4));
        setPlugged(m_frameAB, true);
        removeCamera(added);
        if (round % 10 == 9)
            resetWorld();
    }
    running = false;
    for (std::thread &thread : threads)
        thread.join();
    resetWorld();
    QCOMPARE(picture(*m_backend).count(QLatin1Char('\n')), 8);
}

MOX_TEST_MAIN(TestSimulatedWorld)
#include "tst_simulatedworld.moc"
