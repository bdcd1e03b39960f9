// The one system of the process, over backends made for the test.
#include "device/deviceinfo.h"
#include "fakelink.h"
#include "network/networkbackend.h"
#include "simulated/simulatedbackend.h"

#include <datarow.h>
#include <livecamera.h>
#include <testmain.h>

using namespace MoxTest;

namespace {

int backendsMade = 0;
int backendsAlive = 0;
bool networkFails = false;
std::function<std::unique_ptr<MoxSdk::Link>()> openFakeLink;

class FakeInterface final : public MoxSdk::Interface
{
public:
    using Interface::Interface;

    std::unique_ptr<MoxSdk::Link> openLink(const MoxSdk::DeviceRecord &) override { return openFakeLink(); }

protected:
    std::vector<MoxSdk::DeviceRecord> discover(std::chrono::milliseconds) override
    {
        MoxSdk::DeviceRecord record;
        record.id = std::string(GetID()) + "-camera";
        return {record};
    }
};

/** An interface of each of three kinds. */
class FakeBackend final : public MoxSdk::Backend
{
public:
    explicit FakeBackend(const char *prefix)
    {
        ++backendsMade;
        ++backendsAlive;
        for (int type : {MoxCam::InterfaceGigEVision, MoxCam::InterfaceUsb3Vision, MoxCam::InterfaceCustom})
            m_interfaces.push_back(std::make_unique<FakeInterface>(type, prefix + std::to_string(type), "", ""));
    }
    ~FakeBackend() override { --backendsAlive; }

    std::vector<MoxSdk::Interface *> interfaces() override
    {
        return {m_interfaces[0].get(), m_interfaces[1].get(), m_interfaces[2].get()};
    }

private:
    std::vector<std::unique_ptr<FakeInterface>> m_interfaces;
};

using SystemPtr = SdkPointer<MoxCam::System>;

QByteArray ids(const SystemPtr &system, std::uint32_t mask = 255)
{
    QByteArray all;
    const SdkPointer<MoxCam::InterfaceList> list(system->GetInterfaceList(mask));
    for (MoxCam::Interface *interface = list->GetFirst(); interface; interface = list->GetNext())
        all += QByteArray(interface->GetID()) + ' ';
    return all.trimmed();
}

MoxCam::DeviceInfo *firstCamera(const SystemPtr &system)
{
    const SdkPointer<MoxCam::InterfaceList> interfaces(system->GetInterfaceList(255));
    auto *interface = static_cast<MoxSdk::Interface *>(interfaces->GetFirst());
    interface->ReDiscoverDevices(nullptr, 200);
    return interface->listedDevice(0);
}

} // namespace

namespace MoxSdk {

std::unique_ptr<Backend> createNetworkBackend()
{
    if (networkFails)
        throw RUNTIME_EXCEPTION("No socket");
    return std::make_unique<FakeBackend>("r");
}

std::unique_ptr<Backend> createSimulatedBackend()
{
    return std::make_unique<FakeBackend>("s");
}

} // namespace MoxSdk

class TestSystem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void interfaceLists_data();
    void interfaceLists();
    void countedUsers();
    void aBackendThatCannotStart();
    void openedCameras();
    void camerasThatCannotBeOpened();
};

void TestSystem::cleanup()
{
    QCOMPARE(backendsAlive, 0);
    backendsMade = 0;
    MoxSim::setWorlds(MoxSim::RealWorld);
}

void TestSystem::interfaceLists_data()
{
    columns<unsigned, unsigned, int, QByteArray>("worlds", "mask", "backends", "expected");
    row("no world", 0U, 255U, 0, "");
    row("simulated", 2U, 255U, 1, "s2 s1 s0");
    row("both", 3U, 255U, 2, "r2 r1 r0 s2 s1 s0");
    row("GigE Vision", 3U, 4U, 2, "r2 s2");
    row("two types", 3U, 3U, 2, "r1 r0 s1 s0");
    row("others", 3U, 0xF8U, 2, "");
}

void TestSystem::interfaceLists()
{
    QFETCH(unsigned, worlds);
    QFETCH(unsigned, mask);
    QCOMPARE(MoxSim::worlds(), unsigned(MoxSim::RealWorld));
    MoxSim::setWorlds(worlds);
    const SystemPtr system(MoxCam_GetSystem());
    QCOMPARE(backendsMade, 0);
    QTEST(ids(system, mask), "expected");
    QTEST(ids(system, mask), "expected");
    QTEST(backendsMade, "backends");
}

void TestSystem::countedUsers()
{
    SystemPtr first(MoxCam_GetSystem());
    SystemPtr second(MoxCam_GetSystem());
    QCOMPARE(first.get(), second.get());
    MoxCam::DeviceInfo *info = firstCamera(first);
    QCOMPARE(firstCamera(second), info);
    // A world that is not shown now keeps its objects.
    MoxSim::setWorlds(0);
    first.reset();
    QCOMPARE(ids(second), "");
    QCOMPARE(info->GetID(), "r2-camera");
    second.reset();
    QCOMPARE(backendsAlive, 0);
    MoxSim::setWorlds(1);
    QCOMPARE(ids(SystemPtr(MoxCam_GetSystem())), "r2 r1 r0");
    QCOMPARE(backendsMade, 2);
}

void TestSystem::aBackendThatCannotStart()
{
    MoxSim::setWorlds(3);
    networkFails = true;
    const SystemPtr system(MoxCam_GetSystem());
    QCOMPARE(ids(system), "s2 s1 s0");
    networkFails = false;
    QCOMPARE(ids(system), "r2 r1 r0 s2 s1 s0");
}

void TestSystem::openedCameras()
{
    SystemPtr system(MoxCam_GetSystem());
    MoxCam::DeviceInfo *info = firstCamera(system);
    FakeCamera camera;
    openFakeLink = [&] { return std::make_unique<FakeLink>(camera); };
    SdkPointer<MoxCam::Device> device(MoxCam_CreateDevice(info, 2, 0));
    QVERIFY(device);
    // An opened camera needs its system no longer.
    system.reset();
    QCOMPARE(device->GetCameraParameters(nullptr)->GetIntegerValue("Width", nullptr), 64);
    device.reset();
    QCOMPARE(camera.links.load(), 0);
}

void TestSystem::camerasThatCannotBeOpened()
{
    SystemPtr system(MoxCam_GetSystem());
    MoxCam::DeviceInfo *info = firstCamera(system);
    FakeCamera broken;
    broken.description = "<";
    int asked = 0;
    openFakeLink = [&]() -> std::unique_ptr<MoxSdk::Link> {
        switch (asked++) {
        case 0:
            throw ACCESS_EXCEPTION("Another host controls the camera");
        case 1:
            return nullptr;
        default:
            return std::make_unique<FakeLink>(broken);
        }
    };
    for (int attempt = 0; attempt < 3; ++attempt)
        QVERIFY(!MoxCam_CreateDevice(info, 2, 0));
    QCOMPARE(broken.links.load(), 0);
    QCOMPARE(asked, 3);

    // Infos that nobody has, or nobody has any more, are not touched.
    QVERIFY(!MoxCam_CreateDevice(nullptr, 2, 0));
    system.reset();
    QVERIFY(!MoxCam_CreateDevice(info, 2, 0));
    QCOMPARE(asked, 3);
}

MOX_TEST_MAIN(TestSystem)
#include "tst_system.moc"
