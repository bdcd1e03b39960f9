// The simulated world as the SDK sees it, and the knobs that change it.
#include "../ackevents.h"
#include "../featurescript.h"
#include "device/deviceinfo.h"
#include "device/interface.h"
#include "simulated/simulatedbackend.h"

#include <MoxCameraApi/MoxGenParam.h>
#include <MoxCameraApi/MoxSimulation.h>
#include <testmain.h>

#include <QTemporaryDir>
#include <QtEndian>

#include <algorithm>
#include <atomic>
#include <functional>
#include <mutex>
#include <thread>

using namespace MoxSim;
using MoxSdk::DeviceInfo;
using MoxSdk::Link;

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

/** As MoxTest::thrown(), and the standard library's errors. */
QString thrown(const std::function<void()> &action)
{
    try {
        return MoxTest::thrown(action);
    } catch (const std::exception &exception) {
        return QString::fromUtf8(exception.what());
    }
}

constexpr std::int64_t HeartbeatTimeout = 0x938;
const std::string frameAB = "Moxara_MX-4K-AB_000001";

} // namespace

class TestSimulatedWorld : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        resetWorld();
        m_network = m_backend->interfaces().front();
        m_astray = discovered(m_network)[2];
    }

    void standardWorld()
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
        QCOMPARE(first->GetUserDefinedName(), "Conveyor top");
        // The registers say what discovery says.
        const MoxSdk::DeviceRecord record = first->record();
        const std::unique_ptr<Link> link = open(frameAB);
        QCOMPARE(readNumber(*link, 0x24), record.ipAddress);
        QCOMPARE(quint64(readNumber(*link, 0x8)) << 32 | readNumber(*link, 0xC), quint64(record.macAddress));
        QVERIFY(record.macAddress != m_astray->record().macAddress);

        // The second camera on USB hangs on a slow link.
        MoxSdk::Interface *usb = m_backend->interfaces()[1];
        for (const auto &[position, version] : {std::pair(0, 0x300), std::pair(1, 0x210), std::pair(0, 0x300)}) {
            MoxGenParam::Array *array = usb->GetParameters(nullptr);
            QCOMPARE(array->SetIntegerValue("DeviceSelector", position), MoxCamError::Success);
            QCOMPARE(array->GetIntegerValue("DeviceUSBVersionDetected", nullptr), std::int64_t(version));
        }
    }

    void oneControllerAtATime()
    {
        const auto refusal = [this] { return thrown([this] { open(frameAB); }); };
        const QString access = QStringLiteral("AccessException: ");
        setReach(frameAB, Reach::Busy);
        QCOMPARE(refusal(), access + QStringLiteral("Moxara MX-4K-AB (000001) is in use by another host"));
        setReach(frameAB, Reach::WrongSubnet);
        QCOMPARE(
            refusal(),
            access + QStringLiteral("The address of Moxara MX-4K-AB (000001) lies outside the subnet of its adapter"));
        setReach(frameAB, Reach::Open);
        std::unique_ptr<Link> link = open(frameAB);
        QCOMPARE(refusal(), access + QStringLiteral("Moxara MX-4K-AB (000001) is in use by this application"));
        QCOMPARE(firstCamera()->GetAccessStatus(), int(MoxCam::AccessNoAccess));
        link.reset();
        QCOMPARE(firstCamera()->GetAccessStatus(), int(MoxCam::AccessReadWrite));
        setReach(frameAB, Reach::Undiscovered);
        QVERIFY(firstCamera()->GetID() != frameAB);
        QCOMPARE(refusal(), QString());
    }

    void pluggingTellsTheLink()
    {
        const std::unique_ptr<Link> link = open(frameAB);
        std::mutex mutex;
        std::vector<int> heard;
        const auto listened = [&] {
            const std::lock_guard<std::mutex> lock(mutex);
            return heard;
        };
        link->setListener([&, here = std::this_thread::get_id()](bool connected) {
            const std::lock_guard<std::mutex> lock(mutex);
            heard.push_back(std::this_thread::get_id() == here ? -1 : connected);
        });
        link->port().Write("\0\0\x10\xe1", HeartbeatTimeout, 4);
        setPlugged(frameAB, false);
        QTRY_COMPARE(listened(), (std::vector<int>{0}));
        QCOMPARE(link->port().GetAccessMode(), GenApi::NA);
        const QString reason = QStringLiteral("TimeoutException: Moxara MX-4K-AB (000001) is not reachable");
        QCOMPARE(thrown([&] { link->port().Write("\0\0\4\0", HeartbeatTimeout, 4); }), reason);
        QCOMPARE(thrown([&] { link->description(); }), reason);
        QVERIFY(!picture(*m_backend).contains(QLatin1String("MX-4K-AB")));

        setPlugged(frameAB, false);
        setPlugged(frameAB, true);
        setInterfacePlugged("Sim::GEV0", false);
        // With the adapter gone too, the camera's own plug makes no difference.
        setPlugged(frameAB, false);
        setInterfacePlugged("Sim::GEV0", true);
        setPlugged(frameAB, true);
        QTRY_COMPARE(listened(), (std::vector<int>{0, 1, 0, 1}));
        QCOMPARE(readNumber(*link, HeartbeatTimeout), 4321u);
        // It is at its place again.
        QCOMPARE(firstCamera()->GetID(), frameAB.c_str());
        removeCamera(frameAB);
        QTRY_COMPARE(listened(), (std::vector<int>{0, 1, 0, 1, 0}));
        QVERIFY(!picture(*m_backend).contains(QLatin1String("MX-4K-AB")));
        link->setListener(Link::Listener());
    }

    void listenerTakesItselfAway()
    {
        const std::unique_ptr<Link> link = open(frameAB);
        std::atomic<int> calls{0};
        link->setListener([&](bool) {
            ++calls;
            link->setListener(Link::Listener());
        });
        setPlugged(frameAB, false);
        setPlugged(frameAB, true);
        // A later event of another camera has passed the same thread when it arrives.
        const std::unique_ptr<Link> other = open("Moxara_MX-2K-C_U3_000005");
        std::atomic<bool> passed{false};
        other->setListener([&](bool) { passed = true; });
        setPlugged("Moxara_MX-2K-C_U3_000005", false);
        QTRY_VERIFY(passed.load());
        QCOMPARE(calls.load(), 1);
    }

    void interfacesComeAndGo()
    {
        const auto shown = [&] {
            QByteArrayList ids;
            for (MoxSdk::Interface *interface : m_backend->interfaces())
                ids += interface->GetID();
            return ids.join(' ');
        };
        addInterface(MoxCam::InterfaceGigEVision, "Second adapter");
        addInterface(MoxCam::InterfaceCoaXPress, "Card");
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

        // Pointers outlive a reset.
        DeviceInfo *camera = firstCamera();
        const std::unique_ptr<Link> link = open(frameAB);
        clearWorld();
        QCOMPARE(shown(), QByteArray());
        QCOMPARE(link->port().GetAccessMode(), GenApi::NA);
        QCOMPARE(camera->GetID(), frameAB.c_str());
        // Another interface under an old identifier is another one.
        QCOMPARE(addInterface(MoxCam::InterfaceGigEVision, "Other"), std::string("Sim::GEV0"));
        QVERIFY(m_backend->interfaces().front() != m_network);
        addCamera("Sim::GEV0", CameraSetup());
        QCOMPARE(discovered(m_network).size(), std::size_t(0));
        resetWorld();
        QCOMPARE(m_backend->interfaces().front(), m_network);
        QCOMPARE(firstCamera(), camera);
        QVERIFY(open(frameAB));
    }

    void camerasAreAdded()
    {
        CameraSetup setup;
        setup.model = Model::Color;
        setup.serialNumber = "AB 12";
        setup.reach = Reach::Busy;
        QCOMPARE(addCamera("Sim::CL0", setup), std::string("Moxara_MX-2K-C_U3_AB_12"));
        QVERIFY(picture(*m_backend).endsWith(QLatin1String("Sim::CL0 3\n  Moxara_MX-2K-C_U3_AB_12 3 \n")));
        QCOMPARE(thrown([&] { addCamera("Sim::U3V0", setup); }),
                 QStringLiteral("There is a camera Moxara_MX-2K-C_U3_AB_12 already"));
        setup.serialNumber = "\n\x7f\xc3\xa4";
        QCOMPARE(addCamera("Sim::U3V0", setup), std::string("Moxara_MX-2K-C_U3_000007"));
        setup.serialNumber = "0123456\t789ABCDEFGH";
        QCOMPARE(addCamera("Sim::U3V0", setup), std::string("Moxara_MX-2K-C_U3_0123456789ABCDEF"));
        setup.model = Model(3);
        QCOMPARE(thrown([&] { addCamera("Sim::U3V0", setup); }), QStringLiteral("There is no such camera model"));
    }

    void accessesFailByOrder()
    {
        const std::unique_ptr<Link> link = open(frameAB);
        const std::uint64_t before = accessCount(frameAB);
        const auto attempts = [&](int number) {
            QByteArray result;
            for (int i = 0; i < number; ++i)
                result += thrown([&] { readNumber(*link, HeartbeatTimeout); }).isEmpty() ? '+' : '-';
            return result;
        };
        failAccess(frameAB, 3);
        QCOMPARE(attempts(7), QByteArray("++-++++"));
        failAccess(frameAB, 2, true);
        QCOMPARE(attempts(5), QByteArray("+-+-+"));
        QCOMPARE(thrown([&] { link->port().Write("\0\0\x10\xe1", HeartbeatTimeout, 4); }),
                 QStringLiteral("TimeoutException: Moxara MX-4K-AB (000001) did not answer in time"));
        failAccess(frameAB, 0);
        QCOMPARE(attempts(3), QByteArray("+++"));
        QVERIFY(readNumber(*link, HeartbeatTimeout) != 4321);
        QCOMPARE(accessCount(frameAB) - before, std::uint64_t(17));
        QVERIFY(!thrown([&] { link->port().Read(nullptr, 0, -1); }).isEmpty());
    }

    void everythingTakesItsTime()
    {
        const std::unique_ptr<Link> link = open(frameAB);
        // An hour, if the caller's limit did not count.
        setDiscoveryTime("Sim::U3V0", 3600000);
        QCOMPARE(discovered(m_backend->interfaces()[1]).size(), std::size_t(2));

        // The plug is pulled in the middle of an access; neither waits for the other.
        setAccessDelay(frameAB, 1000);
        QString outcome;
        std::thread reader([&] { outcome = thrown([&] { readNumber(*link, HeartbeatTimeout); }); });
        QTRY_COMPARE(accessCount(frameAB), std::uint64_t(1));
        setPlugged(frameAB, false);
        QVERIFY(!isPlugged(frameAB));
        reader.join();
        QCOMPARE(outcome, QStringLiteral("TimeoutException: Moxara MX-4K-AB (000001) is not reachable"));
    }

    void descriptionFiles()
    {
        const QByteArray whole =
            "<RegisterDescription ModelName='Tiny One' VendorName=\"Acme\">"
            "<Category Name='Root'><pFeature>Note</pFeature></Category>"
            "<StringReg Name='Note'><Address>0xFFFFFFFFFFFFF000</Address><Length>32</Length>"
            "<AccessMode>RW</AccessMode><pPort>Device</pPort></StringReg><Port Name='Device'/></RegisterDescription>";
        QTemporaryDir dir;
        QFile file(dir.filePath(QStringLiteral("camera.xml")));
        CameraSetup setup;
        setup.descriptionFile = file.fileName().toStdString();
        setup.serialNumber = "9";
        setup.userName = "Mine";
        const auto added = [&setup] { return thrown([&] { addCamera("Sim::CL0", setup); }); };
        const QString reason = QStringLiteral("The description ") + file.fileName();
        QCOMPARE(added(), reason + QStringLiteral(" cannot be read"));
        for (const QByteArray &content :
             {QByteArray(""), whole.chopped(100), QByteArray(whole).replace("'Root'", "'Top'"), whole}) {
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
            file.close();
            if (content != whole)
                QVERIFY(added().startsWith(reason + QStringLiteral(" cannot be used: The ")));
        }
        QCOMPARE(cameras("Sim::CL0").size(), std::size_t(0));

        // Any other description is a camera.
        const std::string id = addCamera("Sim::CL0", setup);
        QCOMPARE(id, std::string("Acme_Tiny_One_9"));
        QCOMPARE(discovered(m_backend->interfaces()[2]).front()->GetUserDefinedName(), "Mine");
        std::unique_ptr<Link> link = open(id);
        QCOMPARE(QByteArray::fromStdString(link->description()), whole);
        link->port().Write("kept at the end of all addresses", std::int64_t(0xFFFFFFFFFFFFF000), 32);
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

    void foundByAddress()
    {
        // That it answers to its address does not put a camera on the list.
        MoxCam::DeviceInfo *info = m_network->ConnectByIp("192.168.10.13");
        QVERIFY(info);
        QCOMPARE(info->GetID(), "Moxara_MX-2K-M_000004");
        QCOMPARE(info->GetAccessStatus(), int(MoxCam::AccessReadWrite));
        QCOMPARE(discovered(m_network).size(), std::size_t(3));
        QCOMPARE(m_network->ConnectByIp("192.168.10.11")->GetAccessStatus(), int(MoxCam::AccessNoAccess));
        QCOMPARE(m_network->ConnectByIp("172.16.5.12"), m_astray);
        setPlugged("Moxara_MX-2K-M_000004", false);
        for (const char *nobody : {"192.168.10.13", "0.0.0.0"})
            QVERIFY2(!m_network->ConnectByIp(nobody), nobody);
    }

    void addressesAreGivenAndTakenBack()
    {
        const QByteArray before = "172.16.5.12 255.255.255.0 0.0.0.0 1001";
        QCOMPARE(facts(), before);
        QCOMPARE(m_astray->ForceIP(0xC0A80A36, 0xFFFFFFFC, 0x0A000001), MoxCamError::Success);
        // At once, and as a discovery sees it.
        QCOMPARE(facts(), QByteArray("192.168.10.54 255.255.255.252 10.0.0.1 1"));
        QCOMPARE(discovered(m_network)[2], m_astray);
        QCOMPARE(facts(), QByteArray("192.168.10.54 255.255.255.252 10.0.0.1 1"));
        auto link = m_network->openLink(m_astray->record());
        QCOMPARE(readNumber(*link, 0x24), 0xC0A80A36u);
        QCOMPARE(readNumber(*link, 0x34), 0xFFFFFFFCu);
        QCOMPARE(readNumber(*link, 0x44), 0x0A000001u);
        QCOMPARE(m_astray->ForceIP(0xC0A80A38, 0xFFFFFF00, 0), MoxCamError::GenTLAccessDenied);
        link.reset();
        QVERIFY(!m_network->ConnectByIp("172.16.5.12"));
        QCOMPARE(m_network->ConnectByIp("192.168.10.54"), m_astray);
        // And out of the subnet again; then it looks for an address by itself.
        QCOMPARE(m_astray->ForceIP(0xC0A80B09, 0xFFFFFF00, 0), MoxCamError::Success);
        QCOMPARE(facts(), QByteArray("192.168.11.9 255.255.255.0 0.0.0.0 1001"));
        QCOMPARE(reach(m_astray->GetID()), Reach::WrongSubnet);
        QCOMPARE(m_astray->ForceIP(0, 0xFF000000, 7), MoxCamError::Success);
        QCOMPARE(facts(), QByteArray("192.168.10.12 255.255.255.0 0.0.0.0 1"));
        QVERIFY(m_network->openLink(m_astray->record()));
        setReach(m_astray->GetID(), Reach::WrongSubnet);
        discovered(m_network);
        QCOMPARE(facts(), before);

        // The subnet's own, broadcast, multicast, a first byte of zero; no mask, with a gap, upside down, without hosts.
        for (const auto &[ip, netmask] :
             {std::pair(0xC0A80A00, 0xFFFFFF00), std::pair(0xC0A80AFF, 0xFFFFFF00), std::pair(0xFFFFFFFF, 0xFFFFFF00),
              std::pair(0xE0000001, 0xFFFFFF00), std::pair(0x00010203u, 0xFF000000), std::pair(0xC0A80A0D, 0u),
              std::pair(0xC0A80A0D, 0xFF00FF00), std::pair(0xC0A80A0D, 0x000000FFu), std::pair(0xC0A80A0D, 0xFFFFFFFF)})
            QCOMPARE(m_astray->ForceIP(ip, netmask, 0), MoxCamError::GenTLInvalidParameter);
        QCOMPARE(facts(), before);
        // A camera in use says no, and who does not hear says nothing.
        for (const auto &[reach, result] : {std::pair(Reach::Busy, MoxCamError::GenTLAccessDenied),
                                            std::pair(Reach::Undiscovered, MoxCamError::GenTLTimeout)}) {
            setReach(m_astray->GetID(), reach);
            QCOMPARE(m_astray->ForceIP(0xC0A80A37, 0xFFFFFF00, 0), result);
        }
    }

    void actionsAreAcknowledged()
    {
        MoxTest::Events events;
        const auto backend = MoxSdk::createSimulatedBackend(); // gone before the events
        addCamera("Sim::GEV0", CameraSetup());
        MoxSdk::Interface *network = backend->interfaces()[0];
        events.listenTo(*network);
        const auto send = [&](int flags, int awaited) {
            MoxGenParam::Array &array = *network->GetParameters(nullptr);
            for (const auto &[name, value] : {std::pair("ActionDevKey", 5), std::pair("ActionGroupKey", 7),
                                              std::pair("ActionGroupMask", 1), std::pair("ActionFlags", flags),
                                              std::pair("ActionTimeHi", 1000), std::pair("CntWaitActionAcks", awaited)})
                array.SetIntegerValue(name, value);
            QCOMPARE(array.ExecuteCommand("GevAction"), MoxCamError::Success);
        };
        QVERIFY(!backend->interfaces()[1]->GetParameters(nullptr)->GetCommand("GevAction", nullptr));
        // The one in use obeys too; the one in another subnet and the one that no broadcast reaches do not.
        send(0x00, 0);
        send(0x01, 0);
        QTRY_COMPARE(events.data(), QByteArray("c0a80a0a00000002 c0a80a0b00000002 c0a80a0e00000002 "));
        // The first one is the last now, and nobody waits for it; a command for later does not delay the answers.
        setAccessDelay(frameAB, 100);
        send(0x81, 2);
        send(0x01, 3);
        QTRY_COMPARE(events.data().size(), 8 * 17);
        QList<QByteArray> later = events.data().mid(3 * 17).trimmed().split(' ');
        QCOMPARE(later.takeLast(), QByteArray("c0a80a0a00000004"));
        std::sort(later.begin(), later.end()); // of two cameras the answers may overtake each other
        QCOMPARE(later.join(' '), QByteArray("c0a80a0b00000003 c0a80a0b00000004 c0a80a0e00000003 c0a80a0e00000004"));
    }

    void acknowledgesAreLost()
    {
        MoxTest::Events events;
        auto backend = MoxSdk::createSimulatedBackend();
        MoxSdk::Interface *network = backend->interfaces()[0];
        events.listenTo(*network);
        // That of a camera which is pulled out does not count as one that came.
        setAccessDelay(frameAB, 500);
        setAccessDelay("Moxara_MX-2K-M_000002", 600);
        network->sendAction({5, 7, 1, {}, true, 1});
        setPlugged(frameAB, false);
        QTRY_COMPARE(events.data(), QByteArray("c0a80a0b00000001 "));
        // Nobody waits for one that is an hour away when the interface goes.
        setAccessDelay("Moxara_MX-2K-M_000002", 3600000);
        network->sendAction({5, 7, 1, {}, true, 1});
        backend.reset();
        QCOMPARE(events.data(), QByteArray("c0a80a0b00000001 "));
    }

    void manyThreads()
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
            setPlugged(frameAB, false);
            setInterfacePlugged("Sim::U3V0", round % 2);
            setReach(frameAB, Reach(round % 4));
            setPlugged(frameAB, true);
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

private:
    std::unique_ptr<Link> open(const std::string &cameraId)
    {
        MoxSdk::DeviceRecord record;
        record.id = cameraId;
        for (MoxSdk::Interface *interface : m_backend->interfaces()) {
            const std::vector<std::string> here = cameras(interface->GetID());
            if (std::find(here.begin(), here.end(), cameraId) != here.end())
                return interface->openLink(record);
        }
        throw std::invalid_argument("no camera " + cameraId);
    }
    /** The first camera that discovery shows on the network. */
    DeviceInfo *firstCamera() { return discovered(m_network).front(); }
    /** Address, netmask, gateway and access status of the camera on the wrong subnet, as the kept object tells them. */
    QByteArray facts()
    {
        return QByteArray(m_astray->GetIPAddress(nullptr)) + ' ' + m_astray->GetNetmask(nullptr) + ' '
            + m_astray->GetGateway(nullptr) + ' ' + QByteArray::number(m_astray->GetAccessStatus());
    }

    std::unique_ptr<MoxSdk::Backend> m_backend = MoxSdk::createSimulatedBackend();
    MoxSdk::Interface *m_network = nullptr;
    DeviceInfo *m_astray = nullptr;
};

MOX_TEST_MAIN(TestSimulatedWorld)
#include "tst_simulatedworld.moc"
