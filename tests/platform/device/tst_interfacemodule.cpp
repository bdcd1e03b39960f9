// The features of an interface, over what discovery found on it.
#include "device/deviceinfo.h"
#include "device/interface.h"

#include <MoxCameraApi/MoxGenParam.h>
#include <testmain.h>

#include <atomic>
#include <thread>

using MoxSdk::DeviceRecord;
using Addresses = QVector<std::uint32_t>;

namespace {

DeviceRecord camera(const std::string &id, std::uint32_t number)
{
    DeviceRecord record;
    record.id = id;
    record.macAddress = 0xFEDCBA987600 + number;
    record.ipAddress = 0xC0A8FF00 + number;
    record.netmask = 0xFFFFFF00;
    record.gateway = 0xFF0A0000 + number;
    return record;
}

class FakeInterface final : public MoxSdk::Interface
{
public:
    FakeInterface() : Interface(MoxCam::InterfaceGigEVision, "if0", "Adapter", "2.0") { }

    std::unique_ptr<MoxSdk::Link> openLink(const DeviceRecord &) override { return nullptr; }
    MoxCamErr forceIp(const DeviceRecord &record, std::uint32_t ip, std::uint32_t netmask,
                      std::uint32_t gateway) override
    {
        forced += {std::uint32_t(record.macAddress & 0xFF), ip, netmask, gateway};
        return forceResult;
    }
    std::vector<DeviceRecord> discover(std::chrono::milliseconds) override { return records; }

    /** Runs a discovery that finds the first cameras of a, b, c. */
    void find(std::size_t count)
    {
        records = {camera("a", 1), camera("b", 2), camera("c", 3)};
        records.resize(count);
        ReDiscoverDevices(nullptr, 200);
    }
    MoxGenParam::Array &parameters() { return *GetParameters(nullptr); }
    MoxCamErr select(std::int64_t position) { return parameters().SetIntegerValue("DeviceSelector", position); }
    /** The low byte of a device's number, or the error in reading it. */
    std::int64_t low(const char *name = "GevDeviceMACAddress")
    {
        MoxCamErr err = 1;
        const std::int64_t value = parameters().GetIntegerValue(name, &err);
        return err ? err : value & 0xFF;
    }

    std::vector<DeviceRecord> records;
    Addresses forced;
    MoxCamErr forceResult = MoxCamError::Success;
};

} // namespace

class TestInterfaceModule : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void selector();
    void forcedAddresses();
    void besideDiscovery();
};

void TestInterfaceModule::selector()
{
    FakeInterface interface;
    // Nothing to select, until a discovery found something.
    QCOMPARE(interface.select(0), MoxCamError::GenICamAccess);
    QCOMPARE(interface.low(), MoxCamError::GenICamAccess);
    interface.find(3);
    QCOMPARE(interface.low(), 1);
    QCOMPARE(interface.select(2), MoxCamError::Success);
    for (std::int64_t wrong : {std::int64_t(3), std::int64_t(-1), INT64_MAX, INT64_MIN, std::int64_t(1) << 32})
        QCOMPARE(interface.select(wrong), MoxCamError::GenICamOutOfRange);
    QCOMPARE(interface.low(), 3);
    // What a discovery finds is read at once; the list becomes shorter than the selector, and longer again.
    interface.records[2].macAddress = 0x42;
    interface.ReDiscoverDevices(nullptr, 200);
    QCOMPARE(interface.low(), 0x42);
    interface.find(2);
    QCOMPARE(interface.low(), MoxCamError::GenICamAccess);
    QCOMPARE(interface.parameters().SetIntegerValue("GevDeviceForceIPAddress", 1), MoxCamError::GenICamAccess);
    QCOMPARE(interface.parameters().ExecuteCommand("GevDeviceForceIP"), MoxCamError::GenICamAccess);
    QCOMPARE(interface.select(2), MoxCamError::GenICamOutOfRange);
    interface.find(3);
    QCOMPARE(interface.low(), 3);
    QCOMPARE(interface.forced, Addresses());
}

void TestInterfaceModule::forcedAddresses()
{
    FakeInterface interface;
    interface.find(2);
    MoxGenParam::Array &array = interface.parameters();
    QCOMPARE(array.SetIntegerValue("GevDeviceForceIPAddress", 0xC0A8FF42), MoxCamError::Success);
    QCOMPARE(array.SetIntegerValue("GevDeviceForceGateway", 0), MoxCamError::Success);
    // They are of their device, wherever it stands in the list, and not those of another one.
    interface.select(1);
    QCOMPARE(interface.low("GevDeviceForceIPAddress"), 2);
    std::swap(interface.records[0], interface.records[1]);
    interface.ReDiscoverDevices(nullptr, 200);
    QCOMPARE(interface.low("GevDeviceForceIPAddress"), 0x42);
    QCOMPARE(interface.low("GevDeviceIPAddress"), 1);
    const std::vector<std::pair<MoxCamErr, MoxCamErr>> results = {
        {MoxCamError::GenTLTimeout, MoxCamError::GenTLTimeout},
        {MoxCamError::GenTLAccessDenied, MoxCamError::GenICamAccess},
        {MoxCamError::GenTLInvalidParameter, MoxCamError::GenICamInvalidArgument},
        {MoxCamError::GenTLNotImplemented, MoxCamError::GenICamRuntime},
        {MoxCamError::Success, MoxCamError::Success}};
    Addresses calls;
    for (const auto &[result, code] : results) {
        interface.forceResult = result;
        QCOMPARE(array.ExecuteCommand("GevDeviceForceIP"), code);
        calls += {1, 0xC0A8FF42, 0xFFFFFF00, 0};
    }
    QCOMPARE(interface.forced, calls);
    // The next time they begin with what the device has.
    QCOMPARE(interface.low("GevDeviceForceIPAddress"), 1);
    QCOMPARE(interface.low("GevDeviceForceGateway"), 1);
}

void TestInterfaceModule::besideDiscovery()
{
    FakeInterface interface;
    interface.find(3);
    std::atomic<bool> ended{false};
    std::thread discovery([&] {
        for (int round = 0; round < 300; ++round)
            interface.find(std::size_t(round % 4));
        ended = true;
    });
    QSet<std::int64_t> odd;
    while (!ended) {
        interface.select(2);
        odd += interface.low();
        interface.parameters().GetString("DeviceID", nullptr)->GetValue(nullptr);
    }
    discovery.join();
    // Until it was there to be selected, the first one was.
    odd -= {1, 3, MoxCamError::GenICamAccess};
    QCOMPARE(odd, QSet<std::int64_t>());
    QCOMPARE(interface.select(2), MoxCamError::Success);
    QCOMPARE(interface.low(), 3);
}

MOX_TEST_MAIN(TestInterfaceModule)
#include "tst_interfacemodule.moc"
