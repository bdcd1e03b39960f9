// Who hears of a parameter's change, when, and on which thread.
#include "params/paramarray.h"

#include <fakenodes.h>
#include <testmain.h>

#include <QThread>

#include <atomic>
#include <thread>

using namespace MoxTest;
using MoxSdk::ParamArray;

namespace {

const char *elsewhere()
{
    return QThread::currentThread() == qApp->thread() ? "" : "on another thread ";
}

/** Logs its calls and runs what the test wants. */
class Sink final : public MoxGenParam::ParamEventSink
{
public:
    Sink(const char *sinkName, QByteArrayList &sinkLog) : name(sinkName), log(sinkLog) { }

    void OnParameterUpdate(MoxGenParam::Param *param) override
    {
        log << QByteArray(elsewhere()) + name + param->GetName();
        if (action)
            action();
    }

    const char *name;
    QByteArrayList &log;
    std::function<void()> action;
};

/** Two parameters and three sinks that are registered nowhere yet. */
struct Setup
{
    /** Who has heard of what since the last call. */
    QByteArray told() { return std::exchange(log, {}).join(' '); }

    QByteArrayList log;
    Sink first{"1", log};
    std::unique_ptr<Sink> second = std::make_unique<Sink>("2", log);
    Sink third{"3", log};
    FakeNodeMap map;
    FakeInteger &nodeA = map.add<FakeInteger>("A");
    FakeInteger &nodeB = map.add<FakeInteger>("B");
    std::unique_ptr<ParamArray> array = std::make_unique<ParamArray>(map);
    MoxGenParam::Int *a = array->GetInt("A", nullptr);
    MoxGenParam::Int *b = array->GetInt("B", nullptr);
};

template<class Function> void onOtherThread(Function function)
{
    std::thread(function).join();
}

} // namespace

class TestParamSinks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void insideTheWrite()
    {
        Setup s;
        s.nodeA.dependents = {&s.nodeB};
        s.a->RegisterEventSink(nullptr);
        s.a->UnregisterEventSink(&s.first);
        s.a->RegisterEventSink(&s.first);
        s.b->RegisterEventSink(&s.third);
        s.a->RegisterEventSink(&s.third);
        s.a->RegisterEventSink(&s.first);
        QCOMPARE(s.a->SetValue(5), MoxCamError::Success);
        QCOMPARE(s.told(), QByteArray("1A 3A 3B"));
        QCOMPARE(s.a->SetValue(1000), MoxCamError::GenICamOutOfRange);
        s.first.action = [] { throw std::bad_alloc(); };
        s.a->UnregisterEventSink(&s.third);
        QCOMPARE(s.a->SetValue(6), MoxCamError::Success);
        QCOMPARE(s.told(), QByteArray("1A 3B"));
        onOtherThread([&] { s.nodeA.changed(); });
        QTRY_COMPARE(s.log.size(), 2);
        QCOMPARE(s.told(), QByteArray("1A 3B"));
    }

    void changesDuringAnUpdate()
    {
        Setup s;
        for (Sink *sink : {&s.first, s.second.get(), &s.third})
            s.a->RegisterEventSink(sink);
        Sink late("late ", s.log);
        s.first.action = [&] {
            if (s.a->GetValue(nullptr) < 7) {
                s.a->SetValue(s.a->GetValue(nullptr) + 1);
                return;
            }
            s.a->UnregisterEventSink(&s.first);
            s.second.reset(); // still subscribed
            s.a->RegisterEventSink(&late);
            s.b->RegisterEventSink(&late);
            s.b->SetValue(1);
        };
        QCOMPARE(s.a->SetValue(5), MoxCamError::Success);
        QCOMPARE(s.told(), QByteArray("1A 1A 1A late B 3A 3A 3A"));
        s.a->SetValue(8);
        QCOMPARE(s.told(), QByteArray("3A late A"));
    }

    void fromAnotherThread()
    {
        Setup s;
        s.a->RegisterEventSink(&s.first);
        s.b->RegisterEventSink(&s.first);
        s.a->RegisterEventSink(&s.third);
        onOtherThread([&] {
            s.b->SetValue(1);
            for (int value = 1; value < 50; ++value)
                s.a->SetValue(value);
            s.b->SetValue(2);
        });
        QCOMPARE(s.told(), QByteArray());
        QTRY_COMPARE(s.log.size(), 3);
        QCOMPARE(s.told(), QByteArray("1B 1A 3A"));

        // What comes during the delivery is one more round; the event loop has its turn before.
        s.first.action = [&] {
            s.first.action = nullptr;
            QMetaObject::invokeMethod(
                qApp, [&] { s.log << "loop"; }, Qt::QueuedConnection);
            onOtherThread([&] { s.a->SetValue(7); });
            s.log << "end";
        };
        onOtherThread([&] { s.b->SetValue(3); });
        QTRY_COMPARE(s.log.size(), 5);
        QCOMPARE(s.told(), QByteArray("1B end loop 1A 3A"));
    }

    void queuedUpdatesAreDropped()
    {
        Setup s;
        for (Sink *sink : {&s.first, s.second.get()})
            s.a->RegisterEventSink(sink);
        s.b->RegisterEventSink(&s.third);
        onOtherThread([&] { s.map.InvalidateNodes(); });
        // One that subscribes again starts afresh.
        s.a->UnregisterEventSink(&s.first);
        s.a->RegisterEventSink(&s.first);
        s.a->UnregisterEventSink(s.second.get());
        QTRY_COMPARE(s.log, QByteArrayList{"3B"});

        s.a->RegisterEventSink(s.second.get());
        s.first.action = [&] { s.second.reset(); };
        onOtherThread([&] { s.map.InvalidateNodes(); });
        QTRY_COMPARE(s.log, (QByteArrayList{"3B", "1A", "3B"}));
    }

    void theArrayDropsItsSinks()
    {
        Setup s;
        s.a->RegisterEventSink(s.second.get());
        onOtherThread([&] { s.a->SetValue(1); });
        s.array.reset();
        s.second.reset();
        QCOMPARE(s.nodeA.callbackCount(), std::size_t(0));
        QCoreApplication::processEvents();
        QCOMPARE(s.told(), QByteArray());
    }

    // The destructor waits for the update that is being delivered.
    void theArrayDiesOnAnotherThread()
    {
        Setup s;
        s.b->RegisterEventSink(&s.first);
        std::thread killer;
        std::atomic<bool> dead{false};
        bool deadInside = true;
        s.first.action = [&] {
            killer = std::thread([&] {
                s.array.reset();
                dead = true;
            });
            for (int turn = 0; turn < 10000 && !dead; ++turn)
                std::this_thread::yield();
            deadInside = dead;
        };
        onOtherThread([&] { s.map.InvalidateNodes(); });
        QTRY_COMPARE(s.log, QByteArrayList{"1B"});
        killer.join();
        QVERIFY(!deadInside);
    }

    void retiring()
    {
        Setup s;
        bool inside = false;
        const auto end = [&] {
            s.log << (inside ? "too early" : "end");
            s.array.reset();
        };
        s.a->RegisterEventSink(&s.first);
        s.b->RegisterEventSink(&s.first);
        s.first.action = [&] {
            inside = true;
            s.array->retire(end);
            s.a->RegisterEventSink(&s.third);
            s.nodeA.changed();
            QCoreApplication::processEvents();
            inside = false;
        };
        onOtherThread([&] { s.map.InvalidateNodes(); });
        QTRY_COMPARE(s.log, (QByteArrayList{"1A", "end"}));

        s.array = std::make_unique<ParamArray>(s.map);
        s.array->retire(end);
        QCOMPARE(s.told(), QByteArray("1A end end"));
    }

    void polling()
    {
        Setup s;
        std::vector<std::int64_t> polls;
        s.map.onPoll = [&](std::int64_t elapsed) {
            polls.push_back(*elsewhere() ? -1000 : elapsed);
            if (polls.size() == 1)
                throw TIMEOUT_EXCEPTION("the camera does not answer");
            s.nodeA.changed();
        };
        QElapsedTimer clock;
        clock.start();
        onOtherThread([&] { s.a->RegisterEventSink(&s.first); });
        QTRY_COMPARE(s.log, QByteArrayList{"1A"});
        QCOMPARE(polls.size(), std::size_t(2));
        const std::int64_t both = polls[0] + polls[1];
        QVERIFY(both >= 900 && both <= clock.elapsed());

        // The last subscription that goes ends it; a new one starts over.
        s.a->UnregisterEventSink(&s.first);
        Setup other;
        int otherPolls = 0;
        other.map.onPoll = [&](std::int64_t) { ++otherPolls; };
        other.a->RegisterEventSink(&other.first);
        QTRY_COMPARE(otherPolls, 2);
        QCOMPARE(polls.size(), std::size_t(2));
        clock.restart();
        s.a->RegisterEventSink(&s.first);
        QTRY_COMPARE(polls.size(), std::size_t(3));
        QVERIFY(polls[2] >= 0 && polls[2] <= clock.elapsed());
    }

    /** A race or a deadlock shows by itself, under the thread sanitizer at the latest. */
    void manyThreads()
    {
        Setup s;
        s.a->RegisterEventSink(&s.first);
        std::vector<std::thread> threads;
        std::atomic<int> finished{0};
        for (const char *name : {"A", "B", "B"}) {
            threads.emplace_back([&s, &finished, name] {
                for (int round = 0; round < 300; ++round)
                    s.array->SetIntegerValue(name, (s.array->GetIntegerValue("A", nullptr) + round) % 100);
                ++finished;
            });
        }
        while (finished < 3) {
            s.b->RegisterEventSink(&s.third);
            s.b->SetValue(50);
            QCoreApplication::processEvents();
            s.b->UnregisterEventSink(&s.third);
        }
        for (std::thread &one : threads)
            one.join();
        QCoreApplication::processEvents();
        QVERIFY(!s.told().contains("thread"));
        s.a->SetValue(1);
        QCOMPARE(s.told(), QByteArray("1A"));
    }
};

MOX_TEST_MAIN(TestParamSinks)
#include "tst_paramsinks.moc"
