// What discovery found, and the objects that are kept of it.
#include "device/deviceinfo.h"
#include "device/interface.h"

#include <testmain.h>

#include <QSemaphore>
#include <QThread>

#include <atomic>
#include <mutex>
#include <thread>

using MoxSdk::DeviceInfo;
using MoxSdk::DeviceRecord;

namespace {

class FakeInterface final : public MoxSdk::Interface
{
public:
    explicit FakeInterface(int type = MoxCam::InterfaceGigEVision) : Interface(type, "if0", "Adapter", "2.0") { }

    std::unique_ptr<MoxSdk::Link> openLink(const DeviceRecord &) override { return nullptr; }
    using Interface::keep;
    using Interface::notify;

    MoxCamErr forceIp(const DeviceRecord &, std::uint32_t, std::uint32_t, std::uint32_t) override
    {
        ++forced;
        return MoxCamError::GenTLResourceInUse;
    }

    std::vector<DeviceRecord> records;
    std::function<void()> onDiscover;
    int forced = 0;
    std::vector<std::uint32_t> asked; ///< for a camera at an address

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

DeviceRecord camera(const std::string &id)
{
    DeviceRecord record;
    record.id = id;
    record.displayName = "Camera " + id;
    record.ipAddress = 0xC0A8FF01;
    return record;
}

/** Runs a discovery that finds one camera for each letter; tells whether it reports a change. */
bool discover(FakeInterface &interface, const std::string &letters)
{
    interface.records.clear();
    for (const char letter : letters)
        interface.records.push_back(camera(std::string(1, letter)));
    bool changed = letters.size() % 2;
    interface.ReDiscoverDevices(&changed, 200);
    return changed;
}

std::vector<MoxCam::DeviceInfo *> shown(MoxSdk::Interface &interface)
{
    std::vector<MoxCam::DeviceInfo *> infos;
    MoxCam::DeviceInfoList *list = interface.GetDeviceInfoList();
    for (MoxCam::DeviceInfo *info = list->GetFirst(); info; info = list->GetNext())
        infos.push_back(info);
    if (list->GetCount() != infos.size() || list->GetNext())
        qFatal("The list counts %d and gives %d", int(list->GetCount()), int(infos.size()));
    list->Release();
    return infos;
}

QByteArray ids(MoxSdk::Interface &interface)
{
    QByteArray all;
    for (MoxCam::DeviceInfo *info : shown(interface))
        all += info->GetID();
    return all;
}

} // namespace

class TestInterface : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void discoveries_data();
    void discoveries();
    void objectsStay();
    void addresses();
    void connectByIp();
    void forceIp();
    void discoveriesOnSeveralThreads();
    void notifications();
};

void TestInterface::discoveries_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("found");
    QTest::addColumn<QByteArray>("list");
    QTest::addColumn<bool>("changed");
    QTest::newRow("none") << QByteArray() << QByteArray() << QByteArray() << false;
    QTest::newRow("first") << QByteArray() << QByteArray("a") << QByteArray("a") << true;
    QTest::newRow("same") << QByteArray("ab") << QByteArray("ab") << QByteArray("ab") << false;
    QTest::newRow("other order") << QByteArray("ab") << QByteArray("ba") << QByteArray("ba") << true;
    QTest::newRow("one gone") << QByteArray("ab") << QByteArray("b") << QByteArray("b") << true;
    QTest::newRow("one new") << QByteArray("ab") << QByteArray("cab") << QByteArray("cab") << true;
    QTest::newRow("another one") << QByteArray("ab") << QByteArray("ac") << QByteArray("ac") << true;
    QTest::newRow("one answers twice") << QByteArray("ab") << QByteArray("aba") << QByteArray("ab") << false;
}

void TestInterface::discoveries()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, found);
    FakeInterface interface;
    discover(interface, before.toStdString());
    QTEST(discover(interface, found.toStdString()), "changed");
    QTEST(ids(interface), "list");
}

void TestInterface::objectsStay()
{
    FakeInterface interface;
    DeviceInfo *kept = interface.keep(camera("b"));
    QCOMPARE(ids(interface), "");
    discover(interface, "ab");
    MoxCam::DeviceInfo *info = shown(interface)[0];
    QCOMPARE(shown(interface)[1], kept);
    QCOMPARE(info->GetInterface(), &interface);

    // Gone and back, with another name: the same object, and the old text may still be held.
    const char *name = info->GetDisplayName();
    interface.ReDiscoverDevices(nullptr, 0);
    QCOMPARE(info->GetDisplayName(), "Camera a");
    interface.records[0].displayName = "a name that is long enough to live on the heap";
    interface.records[0].accessStatus = MoxCam::AccessNoAccess;
    interface.ReDiscoverDevices(nullptr, 200);
    QCOMPARE(shown(interface)[0], info);
    QCOMPARE(name, "Camera a");
    QCOMPARE(info->GetDisplayName(), "a name that is long enough to live on the heap");
    QCOMPARE(info->GetAccessStatus(), int(MoxCam::AccessNoAccess));
}

void TestInterface::addresses()
{
    FakeInterface network;
    FakeInterface usb(MoxCam::InterfaceUsb3Vision);
    DeviceInfo camera1(network, camera("a"));
    DeviceInfo camera2(usb, camera("a"));
    MoxCamErr err = 1;
    QCOMPARE(camera1.GetIPAddress(&err), "192.168.255.1");
    QCOMPARE(err, MoxCamError::Success);
    QCOMPARE(camera1.GetGateway(nullptr), "0.0.0.0");
    QCOMPARE(camera2.GetNetmask(&err), "");
    QCOMPARE(err, MoxCamError::GenTLNotAvailable);
}

void TestInterface::connectByIp()
{
    FakeInterface interface;
    QVERIFY(!interface.ConnectByIp("1.2.3.4"));
    interface.records = {camera("a")};
    for (const char *text : {"",           ".",
                             "...",        "1.2.3",
                             "1.2.3.",     ".1.2.3",
                             "1..2.3",     "1.2.3.4.",
                             "1.2.3.4.5",  "1.2.3.256",
                             "1.2.3.0004", "1.2.3.99999999999999999999",
                             "1.2.3.-4",   "1.2.3.+4",
                             " 1.2.3.4",   "1.2.3.4 ",
                             "1.2. 3.4",   "1.2.3.4\n",
                             "0x1.2.3.4",  "1.2.3.a",
                             "3232238093", "1,2,3,4",
                             "1.2.3.4/24", "1.2.3.4:3956",
                             "camera",     "\xd9\xa1.2.3.4"})
        QVERIFY2(!interface.ConnectByIp(text), text);
    QVERIFY(!interface.ConnectByIp(nullptr));
    MoxCam::DeviceInfo *info = interface.ConnectByIp("192.168.10.255");
    QVERIFY(info);
    // It is the kept one, and joins the list when discovery finds it too.
    QCOMPARE(ids(interface), "");
    QCOMPARE(interface.ConnectByIp("010.0.0.09"), info);
    discover(interface, "a");
    QCOMPARE(shown(interface), std::vector<MoxCam::DeviceInfo *>{info});
    QCOMPARE(interface.asked, (std::vector<std::uint32_t>{0x01020304, 0xC0A80AFF, 0x0A000009}));
    FakeInterface usb(MoxCam::InterfaceUsb3Vision);
    usb.records = {camera("a")};
    QVERIFY(!usb.ConnectByIp("1.2.3.4"));
}

void TestInterface::forceIp()
{
    FakeInterface interface;
    DeviceInfo info(interface, camera("a"));
    using Pair = std::pair<std::uint32_t, std::uint32_t>;
    for (const auto &[ip, netmask] : {Pair(0xC0A80A0D, 0xFFFFFF00), Pair(0xC0A80A0D, 0xFFFFFFFC), Pair(0, 0)})
        QCOMPARE(info.ForceIP(ip, netmask, 0), MoxCamError::GenTLResourceInUse);
    // The subnet's own, broadcast, multicast, a first byte of zero; no mask, with a gap, upside down, without hosts.
    for (const auto &[ip, netmask] :
         {Pair(0xC0A80A00, 0xFFFFFF00), Pair(0xC0A80AFF, 0xFFFFFF00), Pair(0xFFFFFFFF, 0xFFFFFF00),
          Pair(0xE0000001, 0xFFFFFF00), Pair(0x00010203, 0xFF000000), Pair(0xC0A80A0D, 0), Pair(0xC0A80A0D, 0xFF00FF00),
          Pair(0xC0A80A0D, 0x000000FF), Pair(0xC0A80A0D, 0xFFFFFFFF)})
        QCOMPARE(info.ForceIP(ip, netmask, 0), MoxCamError::GenTLInvalidParameter);
    QCOMPARE(interface.forced, 3);
}

void TestInterface::discoveriesOnSeveralThreads()
{
    FakeInterface interface;
    discover(interface, "ab");
    // The list is free while a discovery looks around.
    QSemaphore inside;
    QSemaphore goOn;
    interface.onDiscover = [&] {
        inside.release();
        goOn.acquire();
    };
    std::thread discovery([&] { interface.ReDiscoverDevices(nullptr, 200); });
    inside.acquire();
    QCOMPARE(ids(interface), "ab");
    // Who cannot wait for it leaves without one.
    bool changed = true;
    interface.ReDiscoverDevices(&changed, 1);
    QVERIFY(!changed);
    goOn.release();
    discovery.join();
    QCOMPARE(ids(interface), "ab");

    // Two discoveries take turns.
    std::atomic<int> running{0};
    std::atomic<bool> overlapped{false};
    interface.onDiscover = [&] {
        if (++running > 1)
            overlapped = true;
        std::this_thread::yield();
        --running;
    };
    const auto discoverOften = [&] {
        for (int round = 0; round < 200; ++round)
            interface.ReDiscoverDevices(nullptr, 200);
    };
    std::thread first(discoverOften);
    std::thread second(discoverOften);
    for (int round = 0; round < 100; ++round)
        QCOMPARE(ids(interface), "ab");
    first.join();
    second.join();
    QVERIFY(!overlapped);
}

void TestInterface::notifications()
{
    struct Received
    {
        std::mutex mutex;
        QByteArray data;
        QSet<QThread *> threads;
    } received;
    const auto receive = [](const void *data, unsigned long size, void *context) {
        auto *to = static_cast<Received *>(context);
        const std::lock_guard<std::mutex> lock(to->mutex);
        to->data += QByteArray(static_cast<const char *>(data), int(size)) + ';';
        to->threads += QThread::currentThread();
    };
    FakeInterface interface;
    interface.RegisterEventCallback(MoxCam::EventActionAcknowledge, receive, &received);
    interface.RegisterEventCallback(MoxCam::EventActionAcknowledge, receive, &received);
    interface.RegisterEventCallback(7, receive, &received);
    char buffer[] = "ab";
    interface.notify(MoxCam::EventActionAcknowledge, buffer, 2);
    buffer[0] = 'x';
    interface.notify(MoxCam::EventActionAcknowledge, nullptr, 0);
    interface.notify(8, buffer, 2);
    interface.notify(7, buffer, 1);
    const auto data = [&] {
        const std::lock_guard<std::mutex> lock(received.mutex);
        return received.data;
    };
    QTRY_COMPARE(data(), QByteArray("ab;;x;"));
    QCOMPARE(received.threads.size(), 1);
    QVERIFY(!received.threads.contains(QThread::currentThread()));
}

MOX_TEST_MAIN(TestInterface)
#include "tst_interface.moc"
