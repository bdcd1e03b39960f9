// Loss and return of an opened camera, over a channel that fails on command.
#include "../../../platform/network/cameralink.h"

#include <QSemaphore>
#include <QTest>

using namespace MoxSdk;

namespace {

/** What the channels of one test share. */
struct Cable
{
    std::atomic<bool> plugged{true};
    std::atomic<bool> answers{true}; ///< false: the register never answers
    std::atomic<int> accesses{0};
    std::atomic<int> waits{0}; ///< of the link's thread, while connected
    std::atomic<int> opened{0};
    std::atomic<int> open{0};
    std::atomic<int> mostOpen{0};
    std::chrono::milliseconds alivePeriod{20};
};

class FakeChannel final : public Channel
{
public:
    explicit FakeChannel(Cable &cable) : m_cable(cable)
    {
        if (!cable.plugged)
            throw TIMEOUT_EXCEPTION("nobody there");
        ++cable.opened;
        cable.mostOpen = std::max<int>(cable.mostOpen, ++cable.open);
    }
    ~FakeChannel() override { --m_cable.open; }

    std::string description() override { return "<RegisterDescription/>"; }
    void read(void *, std::uint64_t, std::size_t) override
    {
        ++m_cable.accesses;
        if (!m_cable.plugged || !m_cable.answers)
            throw TIMEOUT_EXCEPTION("no answer");
    }
    void write(const void *, std::uint64_t, std::size_t) override { throw ACCESS_EXCEPTION("read only"); }
    bool isAlive() override { return m_cable.plugged; }
    std::chrono::milliseconds alivePeriod() const override
    {
        ++m_cable.waits;
        return m_cable.alivePeriod;
    }

private:
    Cable &m_cable;
};

const std::vector<bool> lost{false};
const std::vector<bool> lostAndBack{false, true};

} // namespace

class TestCameraLink : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void silentRegisterLosesNothing();
    void lossFoundByTheWatch();
    void lossFoundByAnAccess();
    void lossBeforeThereIsAListener();
    void listenerTakenAway();

private:
    std::unique_ptr<CameraLink> open();
    void record(bool connected)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_events.push_back(connected);
    }
    std::vector<bool> events()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_events;
    }

    std::unique_ptr<Cable> m_cable;
    std::mutex m_mutex;
    std::vector<bool> m_events;
    char m_byte = 0;
};

void TestCameraLink::init()
{
    m_cable = std::make_unique<Cable>();
    m_events.clear();
}

std::unique_ptr<CameraLink> TestCameraLink::open()
{
    const auto opener = [cable = m_cable.get()] { return std::make_unique<FakeChannel>(*cable); };
    auto link = std::make_unique<CameraLink>(opener, opener);
    link->setListener([this](bool connected) { record(connected); });
    return link;
}

void TestCameraLink::silentRegisterLosesNothing()
{
    const auto link = open();
    m_cable->answers = false;
    QVERIFY_EXCEPTION_THROWN(link->port().Read(&m_byte, 0, 1), GenICam_3_0::TimeoutException);
    QVERIFY_EXCEPTION_THROWN(link->port().Write(&m_byte, 0, 1), GenICam_3_0::AccessException);
    QVERIFY_EXCEPTION_THROWN(link->port().Read(&m_byte, -1, 1), GenICam_3_0::OutOfRangeException);
    link->port().Read(nullptr, 0, 0);
    QCOMPARE(link->port().GetAccessMode(), GenApi_3_0::RW);
    m_cable->answers = true;
    link->port().Read(&m_byte, 0, 1);
    QCOMPARE(events(), std::vector<bool>());
    QCOMPARE(int(m_cable->opened), 1);
}

void TestCameraLink::lossFoundByTheWatch()
{
    auto link = open();
    GenApi_3_0::IPort &port = link->port();
    m_cable->plugged = false;
    QTRY_COMPARE(events(), lost);
    QCOMPARE(port.GetAccessMode(), GenApi_3_0::NA);
    QVERIFY_EXCEPTION_THROWN(port.Read(&m_byte, 0, 1), GenICam_3_0::TimeoutException);
    QCOMPARE(int(m_cable->accesses), 0);

    m_cable->plugged = true;
    QTRY_COMPARE(events(), lostAndBack);
    QCOMPARE(port.GetAccessMode(), GenApi_3_0::RW);
    port.Read(&m_byte, 0, 1);
    QCOMPARE(int(m_cable->accesses), 1);
    QCOMPARE(int(m_cable->opened), 2);
    // The old channel gave up control before the new one took it.
    QCOMPARE(int(m_cable->mostOpen), 1);

    link.reset();
    QCOMPARE(int(m_cable->open), 0);
}

void TestCameraLink::lossFoundByAnAccess()
{
    m_cable->alivePeriod = std::chrono::hours(1);
    const auto link = open();
    QTRY_COMPARE(int(m_cable->waits), 2); // before and after it heard of the listener
    m_cable->plugged = false;
    QVERIFY_EXCEPTION_THROWN(link->port().Read(&m_byte, 0, 1), GenICam_3_0::TimeoutException);
    QCOMPARE(link->port().GetAccessMode(), GenApi_3_0::NA);
    m_cable->plugged = true;
    // The loss is told although the camera is back at once.
    QTRY_COMPARE(events(), lostAndBack);
}

void TestCameraLink::lossBeforeThereIsAListener()
{
    auto link = open();
    link->setListener({});
    m_cable->plugged = false;
    QTRY_COMPARE(link->port().GetAccessMode(), GenApi_3_0::NA);
    link->setListener([this](bool connected) { record(connected); });
    QTRY_COMPARE(events(), lost);
    // It ends in the middle of the search, and tells nothing more.
    link.reset();
    QCOMPARE(events(), lost);
}

void TestCameraLink::listenerTakenAway()
{
    QSemaphore entered;
    QSemaphore goOn;
    std::atomic<bool> left{false};
    const auto link = open();
    link->setListener([&](bool) {
        entered.release();
        goOn.acquire();
        left = true;
    });
    m_cable->plugged = false;
    entered.acquire();
    goOn.release();
    link->setListener({});
    QVERIFY(left);
}

QTEST_GUILESS_MAIN(TestCameraLink)

#include "tst_cameralink.moc"
