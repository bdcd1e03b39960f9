// Loss and return of an opened camera, over a channel that fails on command.
#include "../../../platform/network/cameralink.h"
#include "../../../platform/network/gvcpchannel.h"
#include "gvcpresponder.h"

#include <QElapsedTimer>
#include <QSemaphore>
#include <QTest>

using namespace MoxSdk;
using Events = std::vector<bool>;

namespace {

/** What the channels of one test share. */
struct Cable
{
    std::atomic<bool> plugged{true};
    std::atomic<bool> answers{true}; ///< false: the register never answers
    std::atomic<int> accesses{0};
    std::atomic<int> waits{0}; ///< of the link's thread, while connected
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
        cable.mostOpen = std::max<int>(cable.mostOpen, ++cable.open);
    }
    ~FakeChannel() override { --m_cable.open; }

    std::string description() override { return {}; }
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

/** A link over such channels, and what it told. */
struct Setup
{
    explicit Setup(std::chrono::milliseconds alivePeriod = std::chrono::milliseconds(20))
    {
        cable.alivePeriod = alivePeriod;
        const auto opener = [this](const StopSignal &) { return std::make_unique<FakeChannel>(cable); };
        link = std::make_unique<CameraLink>(opener, opener);
        listen();
    }
    void listen()
    {
        link->setListener([this](bool connected) {
            const std::lock_guard<std::mutex> lock(mutex);
            heard.push_back(connected);
        });
    }
    Events events()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return heard;
    }
    void read(std::int64_t address = 0) { link->port().Read(&byte, address, 1); }
    GenApi::EAccessMode mode() { return link->port().GetAccessMode(); }

    Cable cable;
    std::mutex mutex;
    Events heard;
    char byte = 0;
    std::unique_ptr<CameraLink> link;
};

} // namespace

class TestCameraLink : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void silentRegisterLosesNothing()
    {
        Setup s;
        s.cable.answers = false;
        QVERIFY_EXCEPTION_THROWN(s.read(), GenICam::TimeoutException);
        QVERIFY_EXCEPTION_THROWN(s.link->port().Write(&s.byte, 0, 1), GenICam::AccessException);
        QVERIFY_EXCEPTION_THROWN(s.read(-1), GenICam::OutOfRangeException);
        s.link->port().Read(nullptr, 0, 0);
        QCOMPARE(s.mode(), GenApi::RW);
        s.cable.answers = true;
        s.read();
        QCOMPARE(s.events(), Events());
    }

    void lossFoundByTheWatch()
    {
        Setup s;
        // Lost before there is a listener.
        s.link->setListener({});
        s.cable.plugged = false;
        QTRY_COMPARE(s.mode(), GenApi::NA);
        s.listen();
        QTRY_COMPARE(s.events(), Events({false}));
        QVERIFY_EXCEPTION_THROWN(s.read(), GenICam::TimeoutException);
        QCOMPARE(int(s.cable.accesses), 0);

        s.cable.plugged = true;
        QTRY_COMPARE(s.events(), Events({false, true}));
        QCOMPARE(s.mode(), GenApi::RW);
        s.read();
        QCOMPARE(int(s.cable.accesses), 1);
        // The old channel gave up control before the new one took it.
        QCOMPARE(int(s.cable.mostOpen), 1);
        // It ends in the middle of the search.
        s.cable.plugged = false;
        QTRY_COMPARE(s.events(), Events({false, true, false}));
        s.link.reset();
        QCOMPARE(int(s.cable.open), 0);
    }

    void lossFoundByAnAccess()
    {
        Setup s(std::chrono::hours(1));
        QTRY_COMPARE(int(s.cable.waits), 2); // before and after it heard of the listener
        s.cable.plugged = false;
        QVERIFY_EXCEPTION_THROWN(s.read(), GenICam::TimeoutException);
        QCOMPARE(s.mode(), GenApi::NA);
        s.cable.plugged = true;
        // The loss is told although the camera is back at once.
        QTRY_COMPARE(s.events(), Events({false, true}));
    }

    void listenerTakenAway()
    {
        QSemaphore entered;
        QSemaphore goOn;
        std::atomic<bool> left{false};
        Setup s;
        s.link->setListener([&](bool) {
            entered.release();
            goOn.acquire();
            for (int turn = 0; turn < 1000; ++turn)
                std::this_thread::yield();
            left = true;
        });
        s.cable.plugged = false;
        entered.acquire();
        goOn.release();
        s.link->setListener({});
        QVERIFY(left);
    }

    void endsInTheMiddleOfAReturn()
    {
        // A camera that asks for more time and never has its answer.
        std::atomic<bool> pending{false};
        QSemaphore asked;
        MoxTest::GvcpResponder camera([&](const MoxTest::Command &command) -> std::optional<MoxTest::Packets> {
            if (!pending || command.code != MoxTest::ReadRegister)
                return std::nullopt;
            asked.release();
            return {{MoxTest::acknowledge(0x89, command.id, {0, 0, 0xff, 0xff})}};
        });
        const auto opener = [&](const StopSignal &stop) {
            return std::make_unique<GvcpChannel>(MoxTest::loopback(), 0x7f000001, camera.port, &stop);
        };
        // Twelve requests, which take a minute unless their waits are ended.
        const auto reopener = [&](const StopSignal &stop) {
            for (int i = 1; i < 12; ++i) {
                try {
                    return opener(stop);
                } catch (const GenICam::GenericException &) { }
            }
            return opener(stop);
        };
        auto link = std::make_unique<CameraLink>(opener, reopener);
        camera.setPrivilege(0); // it forgot its controller
        QTRY_COMPARE(link->port().GetAccessMode(), GenApi::NA);
        pending = true;
        QVERIFY(asked.tryAcquire(1, 5000));
        QElapsedTimer timer;
        timer.start();
        link.reset();
        QVERIFY(!timer.hasExpired(30000));
    }
};

QTEST_GUILESS_MAIN(TestCameraLink)
#include "tst_cameralink.moc"
