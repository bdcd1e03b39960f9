// The one system of the process: its worlds, its users, and the cameras that it opens.
#include "device/deviceinfo.h"
#include "fakelink.h"
#include "network/networkbackend.h"
#include "simulated/simulatedbackend.h"

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
        record.id = "camera";
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
    void interfaceLists()
    {
        QCOMPARE(MoxSim::worlds(), unsigned(MoxSim::RealWorld));
        SystemPtr system(MoxCam_GetSystem());
        // A backend is made when it is first wanted, and one that cannot start is tried again.
        QCOMPARE(backendsMade, 0);
        MoxSim::setWorlds(0);
        QCOMPARE(ids(system), "");
        QCOMPARE(backendsMade, 0);
        MoxSim::setWorlds(3);
        networkFails = true;
        QCOMPARE(ids(system), "s2 s1 s0");
        networkFails = false;
        for (const auto &[mask, expected] : {std::pair(255U, "r2 r1 r0 s2 s1 s0"), std::pair(4U, "r2 s2"),
                                             std::pair(3U, "r1 r0 s1 s0"), std::pair(0xF8U, "")})
            QCOMPARE(ids(system, mask), QByteArray(expected));
        QCOMPARE(backendsMade, 2);
        MoxSim::setWorlds(MoxSim::RealWorld);
        QCOMPARE(ids(system), "r2 r1 r0");
    }

    void countedUsers()
    {
        SystemPtr first(MoxCam_GetSystem());
        SystemPtr second(MoxCam_GetSystem());
        QCOMPARE(first.get(), second.get());
        MoxCam::DeviceInfo *info = firstCamera(first);
        // A world that is not shown now keeps its objects.
        MoxSim::setWorlds(0);
        first.reset();
        QCOMPARE(ids(second), "");
        QCOMPARE(info->GetID(), "camera");
        MoxSim::setWorlds(MoxSim::RealWorld);
        QCOMPARE(firstCamera(second), info);
        second.reset();
        QCOMPARE(backendsAlive, 0);
        QCOMPARE(ids(SystemPtr(MoxCam_GetSystem())), "r2 r1 r0");
    }

    void openedCameras()
    {
        SystemPtr system(MoxCam_GetSystem());
        MoxCam::DeviceInfo *info = firstCamera(system);
        FakeCamera camera;
        openFakeLink = [&] { return std::make_unique<FakeLink>(camera); };
        SdkPointer<MoxCam::Device> device(MoxCam_CreateDevice(info, 2, 0));
        QVERIFY(device);
        camera.description = "<";
        const std::function<std::unique_ptr<MoxSdk::Link>()> failing[] = {
            openFakeLink, [] { return nullptr; },
            []() -> std::unique_ptr<MoxSdk::Link> { throw ACCESS_EXCEPTION("Another host controls the camera"); }};
        for (const auto &open : failing) {
            openFakeLink = open;
            QVERIFY(!MoxCam_CreateDevice(info, 2, 0));
        }
        QCOMPARE(camera.links.load(), 1);
        QVERIFY(!MoxCam_CreateDevice(nullptr, 2, 0));
        // An opened camera needs its system no longer; an info that nobody has any more is not touched.
        system.reset();
        QVERIFY(!MoxCam_CreateDevice(info, 2, 0));
        QCOMPARE(device->GetCameraParameters(nullptr)->GetIntegerValue("Width", nullptr), 64);
        device.reset();
        QCOMPARE(camera.links.load(), 0);
    }
};

MOX_TEST_MAIN(TestSystem)
#include "tst_system.moc"
