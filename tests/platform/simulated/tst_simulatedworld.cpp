// The simulated world as the SDK sees it, and the knobs that change it.
#include "../featurescript.h"
#include "device/deviceinfo.h"
#include "device/interface.h"
#include "genapi/nodemapfactory.h"
#include "simulated/simulatedbackend.h"

#include <MoxCameraApi/MoxGenParam.h>
#include <MoxCameraApi/MoxSimulation.h>
#include <datarow.h>
#include <testmain.h>

#include <QTemporaryDir>
#include <QtEndian>

#include <atomic>
#include <functional>
#include <mutex>
#include <stdexcept>
#include <thread>

using namespace MoxSim;
using MoxSdk::DeviceInfo;
using MoxSdk::Link;
using MoxTest::columns;
using MoxTest::row;

namespace {

/** The cameras that a discovery shows. */
std::vector<DeviceInfo *> discovered(MoxSdk::Interface *interface)
{
    interface->ReDiscoverDevices(nullptr, 200);
    std::vector<DeviceInfo *> result;
    for (std::size_t i = 0; i < interface->deviceCount(); ++i)
        result.push_back(interface->listedDevice(i));
    result.erase(std::remove(result.begin(), result.end(), nullptr), result.end()); // gone meanwhile
    return result;
}

/** All that a discovery shows, as lines of text. */
QString picture(MoxSdk::Backend &backend)
{
    QString result;
    for (MoxSdk::Interface *interface : backend.interfaces()) {
        result += QStringLiteral("%1 %2\n").arg(QLatin1String(interface->GetID())).arg(interface->GetType());
        for (DeviceInfo *info : discovered(interface))
            result += QStringLiteral("  %1 %2 %3\n")
                          .arg(QLatin1String(info->GetID()))
                          .arg(info->GetAccessStatus())
                          .arg(QLatin1String(info->GetIPAddress(nullptr)));
    }
    return result;
}

quint32 readNumber(Link &link, std::int64_t address)
{
    quint32 number = 0;
    link.port().Read(&number, address, 4);
    return qFromBigEndian(number);
}

void writeNumber(Link &link, std::int64_t address, quint32 number)
{
    number = qToBigEndian(number);
    link.port().Write(&number, address, 4);
}

/** As MoxTest::thrown(), and the standard library's errors. */
QString thrown(const std::function<void()> &action)
{
    try {
        return MoxTest::thrown(action);
    } catch (const std::invalid_argument &exception) {
        return QStringLiteral("argument: ") + QString::fromUtf8(exception.what());
    } catch (const std::runtime_error &exception) {
        return QStringLiteral("runtime: ") + QString::fromUtf8(exception.what());
    }
}

constexpr std::int64_t HeartbeatTimeout = 0x938;
constexpr std::uint32_t mask = 0xFFFFFF00;

const char smallDescription[] =
    "<RegisterDescription ModelName='Tiny One' VendorName=\"Acme\">"
    "<Category Name='Root'><pFeature>Note</pFeature></Category>"
    "<StringReg Name='Note'><Address>0xFFFFFFFFFFFFF000</Address><Length>32</Length>"
    "<AccessMode>RW</AccessMode><pPort>Device</pPort></StringReg><Port Name='Device'/></RegisterDescription>";

} // namespace

class TestSimulatedWorld : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void standardWorld();
    void reachDecides_data();
    void reachDecides();
    void pluggingTellsTheLink();
    void listenerTakesItselfAway();
    void interfacesComeAndGo();
    void pointersOutliveAReset();
    void camerasAreAdded();
    void accessesFailByOrder();
    void everythingTakesItsTime();
    void descriptionFiles();
    void repairedAndOpened();
    void foundByAddress();
    void manyThreads();

private:
    std::unique_ptr<Link> open(const std::string &cameraId);
    /** The first camera that discovery shows on the network. */
    DeviceInfo *firstCamera() { return discovered(m_network).front(); }

    std::unique_ptr<MoxSdk::Backend> m_backend = MoxSdk::createSimulatedBackend();
    MoxSdk::Interface *m_network = nullptr;
    const std::string m_frameAB = "Moxara_MX-4K-AB_000001";
};

void TestSimulatedWorld::init()
{
    resetWorld();
    m_network = m_backend->interfaces().front();
}

std::unique_ptr<Link> TestSimulatedWorld::open(const std::string &cameraId)
{
    for (MoxSdk::Interface *interface : m_backend->interfaces()) {
        MoxSdk::DeviceRecord record;
        record.id = cameraId;
        const std::vector<std::string> here = cameras(interface->GetID());
        if (std::find(here.begin(), here.end(), cameraId) != here.end())
            return interface->openLink(record);
    }
    throw std::invalid_argument("no camera " + cameraId);
}

void TestSimulatedWorld::standardWorld()
{
    const QString expected = QStringLiteral("Sim::GEV0 2\n"
                                            "  Moxara_MX-4K-AB_000001 1 192.168.10.10\n"
                                            "  Moxara_MX-2K-M_000002 3 192.168.10.11\n"
                                            "  Moxara_MX-2K-M_000003 1001 172.16.5.12\n"
                                            "Sim::U3V0 1\n"
                                            "  Moxara_MX-2K-C_U3_000005 1 \n"
                                            "  Moxara_MX-2K-C_U3_000006 1 \n"
                                            "Sim::CL0 3\n");
    QCOMPARE(picture(*m_backend), expected);
    // Another view shows the same world.
    QCOMPARE(picture(*MoxSdk::createSimulatedBackend()), expected);
    // The camera that only its address finds is there all the same.
    QCOMPARE(cameras("Sim::GEV0").back(), std::string("Moxara_MX-2K-M_000004"));
    DeviceInfo *first = firstCamera();
    QCOMPARE(first->GetDisplayName(), "Moxara MX-4K-AB (000001)");
    QCOMPARE(QByteArray(first->GetVendor()) + ' ' + first->GetModel() + ' ' + first->GetSerialNumber(),
             QByteArray("Moxara MX-4K-AB 000001"));
    QCOMPARE(first->GetVersion(), "2.4.1");
    QCOMPARE(m_network->GetVersion(), "2.0");
    QCOMPARE(first->GetUserDefinedName(), "Conveyor top");
    // The registers say what discovery says.
    const MoxSdk::DeviceRecord facts = first->record();
    const std::unique_ptr<Link> link = open(m_frameAB);
    QCOMPARE(readNumber(*link, 0x24), facts.ipAddress);
    QCOMPARE(readNumber(*link, 0x34), facts.netmask);
    QCOMPARE(quint64(readNumber(*link, 0x8)) << 32 | readNumber(*link, 0xC), quint64(facts.macAddress));
    QVERIFY(facts.netmask == mask && facts.macAddress != discovered(m_network)[2]->record().macAddress);
}

void TestSimulatedWorld::reachDecides_data()
{
    columns<int, int, QByteArray>("reach", "status", "refusal"); // the status 0 is not shown
    row("open", Reach::Open, 1, "");
    row("busy", Reach::Busy, 3, "AccessException: Moxara MX-4K-AB (000001) is in use by another host");
    row("wrong subnet", Reach::WrongSubnet, 1001,
        "AccessException: The address of Moxara MX-4K-AB (000001) lies outside the subnet of its adapter");
    row("undiscovered", Reach::Undiscovered, 0, "");
}

void TestSimulatedWorld::reachDecides()
{
    QFETCH(int, reach);
    QFETCH(int, status);
    QFETCH(QByteArray, refusal);
    setReach(m_frameAB, Reach(reach));
    QCOMPARE(int(MoxSim::reach(m_frameAB)), reach);
    const auto shown = [this] { return firstCamera()->GetID() == m_frameAB ? firstCamera()->GetAccessStatus() : 0; };
    QCOMPARE(shown(), status);
    std::unique_ptr<Link> link;
    QCOMPARE(thrown([&] { link = open(m_frameAB); }), QString::fromLatin1(refusal));
    if (!link)
        return;
    QCOMPARE(thrown([&] { open(m_frameAB); }),
             QStringLiteral("AccessException: Moxara MX-4K-AB (000001) is in use by this application"));
    QCOMPARE(shown(), status ? 3 : 0);
    link.reset();
    QCOMPARE(shown(), status);
    QCOMPARE(thrown([&] { open(m_frameAB); }), QString());
}

void TestSimulatedWorld::pluggingTellsTheLink()
{
    const std::unique_ptr<Link> link = open(m_frameAB);
    std::mutex mutex;
    std::vector<int> heard;
    bool elsewhere = true;
    const auto listened = [&] {
        const std::lock_guard<std::mutex> lock(mutex);
        return heard;
    };
    link->setListener([&, here = std::this_thread::get_id()](bool connected) {
        const std::lock_guard<std::mutex> lock(mutex);
        elsewhere = elsewhere && std::this_thread::get_id() != here;
        heard.push_back(connected);
    });
    writeNumber(*link, HeartbeatTimeout, 4321);
    setPlugged(m_frameAB, false);
    QTRY_COMPARE(listened(), (std::vector<int>{0}));
    QVERIFY(!isPlugged(m_frameAB));
    QCOMPARE(link->port().GetAccessMode(), GenApi::NA);
    const QString reason = QStringLiteral("TimeoutException: Moxara MX-4K-AB (000001) is not reachable");
    QCOMPARE(thrown([&] { readNumber(*link, HeartbeatTimeout); }), reason);
    QCOMPARE(thrown([&] { writeNumber(*link, HeartbeatTimeout, 1000); }), reason);
    QCOMPARE(thrown([&] { link->description(); }), reason);
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
    // It is at its place again.
    QCOMPARE(firstCamera()->GetID(), m_frameAB.c_str());
    removeCamera(m_frameAB);
    QTRY_COMPARE(listened(), (std::vector<int>{0, 1, 0, 1, 0}));
    QVERIFY(!picture(*m_backend).contains(QLatin1String("MX-4K-AB")));
    link->setListener(Link::Listener());
    QVERIFY(elsewhere);
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
    DeviceInfo *camera = firstCamera();
    const std::unique_ptr<Link> link = open(m_frameAB);
    clearWorld();
    QVERIFY(m_backend->interfaces().empty());
    QCOMPARE(link->port().GetAccessMode(), GenApi::NA);
    QCOMPARE(camera->GetID(), m_frameAB.c_str());
    // Another interface under an old identifier is another one.
    QCOMPARE(addInterface(MoxCam::InterfaceGigEVision, "Other"), std::string("Sim::GEV0"));
    QVERIFY(m_backend->interfaces().front() != m_network);
    resetWorld();
    QCOMPARE(m_backend->interfaces().front(), m_network);
    QCOMPARE(firstCamera(), camera);
    QVERIFY(open(m_frameAB));
}

void TestSimulatedWorld::camerasAreAdded()
{
    CameraSetup setup;
    setup.model = Model::Color;
    setup.serialNumber = "AB 12";
    setup.reach = Reach::Busy;
    QCOMPARE(addCamera("Sim::CL0", setup), std::string("Moxara_MX-2K-C_U3_AB_12"));
    QVERIFY(picture(*m_backend).endsWith(QLatin1String("Sim::CL0 3\n  Moxara_MX-2K-C_U3_AB_12 3 \n")));
    QCOMPARE(thrown([&] { addCamera("Sim::U3V0", setup); }),
             QStringLiteral("runtime: There is a camera Moxara_MX-2K-C_U3_AB_12 already"));
    setup.serialNumber = "\n\xc3\xa4";
    QCOMPARE(addCamera("Sim::U3V0", setup), std::string("Moxara_MX-2K-C_U3_000007"));
    setup.serialNumber = "0123456\t789ABCDEFGH";
    QCOMPARE(addCamera("Sim::U3V0", setup), std::string("Moxara_MX-2K-C_U3_0123456789ABCDEF"));
    QCOMPARE(cameras("Sim::U3V0").size(), std::size_t(4));
    setup.model = Model(3);
    QCOMPARE(thrown([&] { addCamera("Sim::U3V0", setup); }), QStringLiteral("argument: There is no such camera model"));
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
    writeNumber(*link, HeartbeatTimeout, 1000);
    QCOMPARE(thrown([&] { writeNumber(*link, HeartbeatTimeout, 2000); }),
             QStringLiteral("TimeoutException: Moxara MX-4K-AB (000001) did not answer in time"));
    failAccess(m_frameAB, 0);
    QCOMPARE(readNumber(*link, HeartbeatTimeout), 1000u);
    QCOMPARE(attempts(5), QByteArray("+++++"));
    QCOMPARE(accessCount(m_frameAB) - before, std::uint64_t(21));
    QVERIFY(!thrown([&] { link->port().Read(nullptr, 0, -1); }).isEmpty());
}

void TestSimulatedWorld::everythingTakesItsTime()
{
    const std::unique_ptr<Link> link = open(m_frameAB);
    // An hour, if the caller's limit did not count.
    setDiscoveryTime("Sim::U3V0", 3600000);
    QCOMPARE(discovered(m_backend->interfaces()[1]).size(), std::size_t(2));

    // The plug is pulled in the middle of an access; neither waits for the other.
    setAccessDelay(m_frameAB, 1000);
    QString outcome;
    std::thread reader([&] { outcome = thrown([&] { readNumber(*link, HeartbeatTimeout); }); });
    QTRY_COMPARE(accessCount(m_frameAB), std::uint64_t(1));
    setPlugged(m_frameAB, false);
    QVERIFY(!isPlugged(m_frameAB));
    reader.join();
    QCOMPARE(outcome, QStringLiteral("TimeoutException: Moxara MX-4K-AB (000001) is not reachable"));
}

void TestSimulatedWorld::descriptionFiles()
{
    QTemporaryDir dir;
    QFile file(dir.filePath(QStringLiteral("camera.xml")));
    CameraSetup setup;
    setup.descriptionFile = file.fileName().toStdString();
    setup.serialNumber = "9";
    const auto added = [&setup] { return thrown([&] { addCamera("Sim::CL0", setup); }); };
    const QString reason = QStringLiteral("runtime: The description ") + file.fileName();
    QCOMPARE(added(), reason + QStringLiteral(" cannot be read"));
    const QByteArray whole = smallDescription;
    for (const QByteArray &content :
         {QByteArray(""), whole.chopped(100), QByteArray(whole).replace("'Root'", "'Top'"), whole}) {
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        file.close();
        if (content != whole)
            QVERIFY(added().startsWith(reason + QStringLiteral(" cannot be used: The ")));
    }
    QCOMPARE(cameras("Sim::CL0").size(), std::size_t(0));

    // Any other description is a camera.
    setup.userName = "Mine";
    const std::string id = addCamera("Sim::CL0", setup);
    QCOMPARE(id, std::string("Acme_Tiny_One_9"));
    QCOMPARE(discovered(m_backend->interfaces()[2]).front()->GetUserDefinedName(), "Mine");
    std::unique_ptr<Link> link = open(id);
    {
        const auto map = MoxGenApi::createNodeMap(link->description(), link->port(), "Device");
        QCOMPARE(MoxTest::play(*map, QStringLiteral("Note==")), QString());
        QCOMPARE(MoxTest::play(*map, QStringLiteral("Note=kept at the end of all addresses")), QString());
    }
    link.reset();
    link = open(id);
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

void TestSimulatedWorld::repairedAndOpened()
{
    DeviceInfo *info = discovered(m_network)[2];
    QVERIFY(thrown([&] { m_network->openLink(info->record()); }).startsWith(QLatin1String("AccessException")));
    QCOMPARE(info->ForceIP(0xC0A80A37, mask, 0xC0A80AFE), MoxCamError::Success);
    // At once, and as a discovery sees it.
    for (int discoveries = 0; discoveries < 2; ++discoveries) {
        QCOMPARE(info->GetAccessStatus(), int(MoxCam::AccessReadWrite));
        QCOMPARE(info->GetIPAddress(nullptr), "192.168.10.55");
        QCOMPARE(discovered(m_network)[2], info);
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
    QCOMPARE(reach("Moxara_MX-2K-M_000003"), Reach::WrongSubnet);
}

void TestSimulatedWorld::foundByAddress()
{
    // That it answers to its address does not put a camera on the list.
    MoxCam::DeviceInfo *info = m_network->ConnectByIp("192.168.10.13");
    QVERIFY(info);
    QCOMPARE(info->GetID(), "Moxara_MX-2K-M_000004");
    QCOMPARE(info->GetAccessStatus(), int(MoxCam::AccessReadWrite));
    QCOMPARE(m_network->openLink(DeviceInfo::living(info)->record())->port().GetAccessMode(), GenApi::RW);
    QCOMPARE(discovered(m_network).size(), std::size_t(3));
    QCOMPARE(m_network->ConnectByIp("192.168.10.11")->GetAccessStatus(), int(MoxCam::AccessNoAccess));
    QCOMPARE(m_network->ConnectByIp("172.16.5.12")->GetAccessStatus(), int(MoxCam::AccessSubnetMismatch));
    setPlugged("Moxara_MX-2K-M_000004", false);
    for (const char *nobody : {"192.168.10.13", "192.168.10.1", "0.0.0.0"})
        QVERIFY2(!m_network->ConnectByIp(nobody), nobody);
    QVERIFY(!m_backend->interfaces()[1]->ConnectByIp("192.168.10.10"));
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
                    for (DeviceInfo *info : discovered(interface)) {
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
