// What discovery found, the objects that are kept of it, and the features over them.
#include "device/deviceinfo.h"
#include "device/interface.h"

#include <MoxCameraApi/MoxGenParam.h>
#include <datarow.h>
#include <testmain.h>

#include <QScopeGuard>
#include <QSemaphore>

#include <atomic>
#include <thread>

using MoxSdk::DeviceInfo;
using MoxSdk::DeviceRecord;
using namespace MoxTest;
using Numbers = std::vector<std::uint32_t>;

namespace {

/** The camera of a letter; the first one has the number 1. */
DeviceRecord camera(char letter)
{
    const auto number = std::uint32_t(letter - 'a' + 1);
    DeviceRecord record;
    record.id = std::string(1, letter);
    record.displayName = "Camera " + record.id;
    record.macAddress = 0xFEDCBA987600 + number;
    record.ipAddress = 0xC0A8FF00 + number;
    record.netmask = 0xFFFFFF00;
    record.gateway = 0xFF0A0000 + number;
    return record;
}

class FakeInterface final : public MoxSdk::Interface
{
public:
    explicit FakeInterface(int type = MoxCam::InterfaceGigEVision) : Interface(type, "if0", "Adapter", "2.0") { }

    std::unique_ptr<MoxSdk::Link> openLink(const DeviceRecord &) override { return nullptr; }
    using Interface::keep;

    MoxCamErr forceIp(const DeviceRecord &record, std::uint32_t ip, std::uint32_t netmask,
                      std::uint32_t gateway) override
    {
        forced.insert(forced.end(), {std::uint32_t(record.macAddress & 0xFF), ip, netmask, gateway});
        return forceResult;
    }

    /** Runs a discovery that finds the cameras of these letters; tells whether it reports a change. */
    bool find(const QByteArray &letters)
    {
        records.clear();
        for (const char letter : letters)
            records.push_back(camera(letter));
        bool changed = letters.size() % 2;
        ReDiscoverDevices(&changed, 200);
        return changed;
    }
    std::vector<MoxCam::DeviceInfo *> shown()
    {
        std::vector<MoxCam::DeviceInfo *> infos;
        MoxCam::DeviceInfoList *list = GetDeviceInfoList();
        for (MoxCam::DeviceInfo *info = list->GetFirst(); info; info = list->GetNext())
            infos.push_back(info);
        list->Release();
        return infos;
    }
    QByteArray ids()
    {
        QByteArray all;
        for (MoxCam::DeviceInfo *info : shown())
            all += info->GetID();
        return all;
    }
    MoxGenParam::Array &features() { return *GetParameters(nullptr); }
    MoxCamErr select(std::int64_t position) { return features().SetIntegerValue("DeviceSelector", position); }
    /** The low byte of a device's number, or the error in reading it. */
    std::int64_t low(const char *name = "GevDeviceMACAddress")
    {
        MoxCamErr err = 1;
        const std::int64_t value = features().GetIntegerValue(name, &err);
        return err ? err : value & 0xFF;
    }

    std::vector<DeviceRecord> records;
    std::function<void()> onDiscover;
    Numbers forced; ///< the last byte of the hardware address and three numbers for each call
    MoxCamErr forceResult = MoxCamError::GenTLResourceInUse;
    Numbers asked; ///< for a camera at an address

protected:
    std::vector<DeviceRecord> discover(std::chrono::milliseconds limit) override
    {
        if (onDiscover)
            onDiscover();
        return limit.count() == 200 ? records : std::vector<DeviceRecord>();
    }
    std::optional<DeviceRecord> findByAddress(std::uint32_t address) override
    {
        asked.push_back(address);
        return records.empty() ? std::nullopt : std::optional(records.front());
    }
};

} // namespace

class TestInterface : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void discoveries()
    {
        FakeInterface interface;
        // Each time: what is found, what the list shows then, whether that is a change.
        for (const auto &[found, list, changed] :
             {std::tuple("", "", false), std::tuple("ab", "ab", true), std::tuple("ba", "ba", true),
              std::tuple("bab", "ba", false), std::tuple("a", "a", true)}) {
            QCOMPARE(interface.find(found), changed);
            QCOMPARE(interface.ids(), QByteArray(list));
        }
    }

    void objectsStay()
    {
        FakeInterface interface;
        DeviceInfo *kept = interface.keep(camera('b'));
        QCOMPARE(interface.ids(), "");
        interface.find("ab");
        MoxCam::DeviceInfo *info = interface.shown()[0];
        QCOMPARE(interface.shown()[1], kept);
        QCOMPARE(info->GetInterface(), &interface);
        QCOMPARE(info->GetIPAddress(nullptr), "192.168.255.1");
        QCOMPARE(info->GetGateway(nullptr), "255.10.0.1");
        // Gone and back, with another name: the same object, and the old text may still be held.
        const char *name = info->GetDisplayName();
        interface.ReDiscoverDevices(nullptr, 0);
        QCOMPARE(info->GetDisplayName(), "Camera a");
        interface.records[0].displayName = "a name that is long enough to live on the heap";
        interface.records[0].accessStatus = MoxCam::AccessNoAccess;
        interface.ReDiscoverDevices(nullptr, 200);
        QCOMPARE(interface.shown()[0], info);
        QCOMPARE(name, "Camera a");
        QCOMPARE(info->GetDisplayName(), "a name that is long enough to live on the heap");
        QCOMPARE(info->GetAccessStatus(), int(MoxCam::AccessNoAccess));
    }

    void connectByIp()
    {
        FakeInterface interface;
        QVERIFY(!interface.ConnectByIp("1.2.3.4"));
        interface.records = {camera('a')};
        for (const char *text : {"", "1.2.3", "1..2.3", "1.2.3.4.", "1.2.3.256", "1.2.3.0004", " 1.2.3.4", "1.2.3.+4"})
            QVERIFY2(!interface.ConnectByIp(text), text);
        QVERIFY(!interface.ConnectByIp(nullptr));
        MoxCam::DeviceInfo *info = interface.ConnectByIp("192.168.10.255");
        QVERIFY(info);
        // It is the kept one, and joins the list when discovery finds it too.
        QCOMPARE(interface.ids(), "");
        QCOMPARE(interface.ConnectByIp("010.0.0.09"), info);
        interface.find("a");
        QCOMPARE(interface.shown(), std::vector<MoxCam::DeviceInfo *>{info});
        QCOMPARE(interface.asked, (Numbers{0x01020304, 0xC0A80AFF, 0x0A000009}));

        FakeInterface usb(MoxCam::InterfaceUsb3Vision);
        usb.find("a");
        QVERIFY(!usb.ConnectByIp("1.2.3.4"));
        MoxCamErr err = 1;
        QCOMPARE(usb.shown()[0]->GetNetmask(&err), "");
        QCOMPARE(err, MoxCamError::GenTLNotAvailable);
    }

    // What is kept while a discovery looks around is newer than what that discovery tells, but not than the next one.
    void keptBesideADiscovery()
    {
        FakeInterface interface;
        DeviceRecord moved = camera('a');
        moved.ipAddress = 0x0A000001;
        const auto address = [&] { return QByteArray(interface.shown()[0]->GetIPAddress(nullptr)); };
        interface.keep(moved);
        interface.find("ab");
        QCOMPARE(address(), QByteArray("192.168.255.1"));
        interface.onDiscover = [&] { interface.keep(moved); };
        interface.find("ab");
        QCOMPARE(address(), QByteArray("10.0.0.1"));
        interface.onDiscover = {};
        interface.find("ab");
        QCOMPARE(address(), QByteArray("192.168.255.1"));
    }

    void discoveriesOnSeveralThreads()
    {
        FakeInterface interface;
        interface.find("ab");
        // The list is free while a discovery looks around.
        QSemaphore inside;
        QSemaphore goOn;
        interface.onDiscover = [&] {
            inside.release();
            goOn.acquire();
        };
        std::thread discovery([&] { interface.ReDiscoverDevices(nullptr, 200); });
        const auto ends = qScopeGuard([&] {
            goOn.release();
            discovery.join();
        });
        inside.acquire();
        QCOMPARE(interface.ids(), "ab");
        // Who cannot wait for it leaves without one.
        bool changed = true;
        interface.ReDiscoverDevices(&changed, 1);
        QVERIFY(!changed);
    }

    void selector()
    {
        FakeInterface interface;
        // Nothing to select, until a discovery found something.
        QCOMPARE(interface.select(0), MoxCamError::GenICamAccess);
        QCOMPARE(interface.low(), MoxCamError::GenICamAccess);
        interface.find("abc");
        QCOMPARE(interface.low(), 1);
        QCOMPARE(interface.select(2), MoxCamError::Success);
        for (std::int64_t wrong : {std::int64_t(3), std::int64_t(-1), INT64_MAX, INT64_MIN, std::int64_t(1) << 32})
            QCOMPARE(interface.select(wrong), MoxCamError::GenICamOutOfRange);
        QCOMPARE(interface.low(), 3);
        // What a discovery finds is read at once; the list becomes shorter than the selector, and longer again.
        interface.records[2].macAddress = 0x42;
        interface.ReDiscoverDevices(nullptr, 200);
        QCOMPARE(interface.low(), 0x42);
        interface.find("ab");
        QCOMPARE(interface.low(), MoxCamError::GenICamAccess);
        QCOMPARE(interface.features().SetIntegerValue("GevDeviceForceIPAddress", 1), MoxCamError::GenICamAccess);
        QCOMPARE(interface.features().ExecuteCommand("GevDeviceForceIP"), MoxCamError::GenICamAccess);
        interface.find("abc");
        QCOMPARE(interface.low(), 3);
        QCOMPARE(interface.forced, Numbers());
    }

    void forcedAddresses()
    {
        FakeInterface interface;
        interface.find("ab");
        MoxGenParam::Array &array = interface.features();
        QCOMPARE(array.SetIntegerValue("GevDeviceForceIPAddress", 0xC0A8FF42), MoxCamError::Success);
        QCOMPARE(array.SetIntegerValue("GevDeviceForceGateway", 0), MoxCamError::Success);
        // They are of their device, wherever it stands in the list, and not those of another one.
        interface.select(1);
        QCOMPARE(interface.low("GevDeviceForceIPAddress"), 2);
        interface.find("ba");
        QCOMPARE(interface.low("GevDeviceForceIPAddress"), 0x42);
        QCOMPARE(interface.low("GevDeviceIPAddress"), 1);
        Numbers calls;
        for (const auto &[result, code] :
             {std::pair(MoxCamError::GenTLTimeout, MoxCamError::GenTLTimeout),
              std::pair(MoxCamError::GenTLAccessDenied, MoxCamError::GenICamAccess),
              std::pair(MoxCamError::GenTLInvalidParameter, MoxCamError::GenICamInvalidArgument),
              std::pair(MoxCamError::GenTLNotImplemented, MoxCamError::GenICamRuntime),
              std::pair(MoxCamError::Success, MoxCamError::Success)}) {
            interface.forceResult = result;
            QCOMPARE(array.ExecuteCommand("GevDeviceForceIP"), code);
            calls.insert(calls.end(), {1, 0xC0A8FF42, 0xFFFFFF00, 0});
        }
        QCOMPARE(interface.forced, calls);
        // The next time they begin with what the device has.
        QCOMPARE(interface.low("GevDeviceForceIPAddress"), 1);
        QCOMPARE(interface.low("GevDeviceForceGateway"), 1);
        // Every address reaches a camera, also one that no host can have.
        QCOMPARE(DeviceInfo(interface, camera('c')).ForceIP(0xFFFFFFFF, 0xFF00FF00, 7), MoxCamError::Success);
        QCOMPARE(Numbers(interface.forced.end() - 4, interface.forced.end()), (Numbers{3, 0xFFFFFFFF, 0xFF00FF00, 7}));
    }

    void featuresBesideDiscovery()
    {
        FakeInterface interface;
        interface.find("abc");
        std::atomic<bool> ended{false};
        std::thread discovery([&] {
            for (int round = 0; round < 300; ++round)
                interface.find(QByteArray("abc").left(round % 4));
            ended = true;
        });
        QSet<std::int64_t> odd;
        do {
            interface.select(2);
            odd += interface.low();
            interface.features().GetString("DeviceID", nullptr)->GetValue(nullptr);
        } while (!ended);
        discovery.join();
        // Until it was there to be selected, the first one was.
        odd -= {1, 3, MoxCamError::GenICamAccess};
        QCOMPARE(odd, QSet<std::int64_t>());
        QCOMPARE(interface.select(2), MoxCamError::Success);
        QCOMPARE(interface.low(), 3);
    }
};

MOX_TEST_MAIN(TestInterface)
#include "tst_interface.moc"
