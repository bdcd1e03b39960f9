// Callbacks and threads: when a change is told, what a callback may do, and what a failure leaves behind.
#include "memoryport.h"

#include <array>
#include <atomic>
#include <future>
#include <memory>
#include <thread>

using namespace GenApi;
using namespace MoxTest;

class TestGenApiChanges : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void insideBeforeOutside()
    {
        Camera camera("Integer A Value=0; Integer B pValue=A; Integer C Value=0");
        QStringList log;
        const auto note = [&](const char *when) {
            return [&log, &camera, when](INode *) {
                bool isFree = false;
                std::thread([&] {
                    isFree = camera.map->GetLock().TryLock();
                    if (isFree)
                        camera.map->GetLock().Unlock();
                }).join();
                log += QString::fromLatin1(when) + (isFree ? QStringLiteral("-free") : QStringLiteral("-locked"));
            };
        };
        const auto told = [&log] { return std::exchange(log, {}).join(QLatin1Char(' ')); };
        const CallbackHandleType outside = Register(camera.map->GetNode("A"), note("outside"), cbPostOutsideLock);
        const CallbackHandleType inside = Register(camera.map->GetNode("B"), note("inside"), cbPostInsideLock);
        camera.integer("A").SetValue(1);
        QCOMPARE(told(), QStringLiteral("inside-locked outside-free"));
        camera.integer("A").FromString("2");
        QCOMPARE(told(), QStringLiteral("inside-locked outside-free"));
        // A write from within a callback lets its own outer callbacks wait for the outermost release.
        const CallbackHandleType nested =
            Register(camera.map->GetNode("B"), [&](INode *) { camera.integer("C").SetValue(1); });
        const CallbackHandleType later = Register(camera.map->GetNode("C"), note("nested"), cbPostOutsideLock);
        camera.integer("A").SetValue(3);
        QCOMPARE(told(), QStringLiteral("inside-locked nested-free outside-free"));
        for (const CallbackHandleType handle : {nested, later, outside, inside})
            Deregister(handle);
        camera.integer("A").SetValue(2);
        QCOMPARE(told(), QString());
    }

    void callbacksMayWriteAndEnd()
    {
        Camera camera("Integer A Value=0; Integer B Value=0; Integer C pValue=A");
        CallbackHandleType victim = 0;
        CallbackHandleType self = 0;
        self = Register(camera.map->GetNode("A"), [&](INode *) {
            camera.heard += QStringLiteral("first");
            camera.integer("B").SetValue(camera.integer("C").GetValue() * 10);
            Deregister(victim);
            Deregister(self);
        });
        victim = Register(camera.map->GetNode("C"), [&](INode *) { camera.heard += QStringLiteral("victim"); });
        QCOMPARE(camera.run("A=4; heard==A first B C; B==40; A=5; heard==A C"), QString());
        QVERIFY(!camera.map->GetNode("C")->DeregisterCallback(12345));
    }

    void callbackThatThrows()
    {
        Camera camera("Integer A Value=0; Integer B pValue=A");
        Register(camera.map->GetNode("A"), [](INode *) { throw RUNTIME_EXCEPTION("No."); });
        QCOMPARE(camera.run("A=1 ! RuntimeException: No.; heard==A B; A==1"), QString());
    }

    // The n-th access fails, for every n: the failure comes out as it is, and the next try finds everything in order.
    void everyAccessMayFail()
    {
        int failures = 0;
        for (int n = 1; n < 20; ++n) {
            Camera camera(
                "MaskedIntReg R @0 pIndex.8=Sel LSB=4 MSB=7; IntReg Sel @40; IntReg Max @48; IntReg Avail @50; "
                "Integer I pValue=R pMax=Max pIsAvailable=Avail");
            QCOMPARE(camera.run("@40=01; @48=0f; @50=01; @8=21"), QString());
            camera.port.failAt = n;
            const QString error = thrown([&] {
                camera.integer("I").SetValue(9);
                camera.map->InvalidateNodes();
                QCOMPARE(camera.integer("I").GetValue(true), 9);
            });
            failures += error.isEmpty() ? 0 : 1;
            QCOMPARE(error,
                     error.isEmpty() ? QString() : QStringLiteral("TimeoutException: The camera does not answer."));
            QCOMPARE(camera.run("fail=0; I=9; I==9; @8==91"), QString());
        }
        QCOMPARE(failures, 9);
    }

    void twoThreads()
    {
        Camera camera("IntReg R @0; Integer I pValue=R");
        constexpr int rounds = 500;
        std::atomic<bool> torn{false};
        const auto work = [&] {
            for (int i = 0; i < rounds; ++i) {
                AutoLock lock(camera.map->GetLock());
                camera.integer("I").SetValue(i);
                torn = torn || camera.integer("I").GetValue() != i;
            }
        };
        std::thread other(work);
        work();
        other.join();
        QVERIFY(!torn);
        QCOMPARE(camera.heard.count(QStringLiteral("I")), 2 * rounds);
    }

    // Whether the callback is still registered shows to itself: a write of its own then calls it again.
    void endingWaitsForACallback()
    {
        Camera camera("Integer A Value=0");
        std::promise<void> started;
        std::atomic<bool> hasEnded{false};
        bool isNested = false;
        bool isCalledAgain = false;
        const CallbackHandleType handle = Register(
            camera.map->GetNode("A"),
            [&](INode *) {
                isCalledAgain = true;
                if (std::exchange(isNested, true))
                    return;
                started.set_value();
                while (std::exchange(isCalledAgain, false))
                    camera.integer("A").SetValue(2);
                hasEnded = true;
            },
            cbPostOutsideLock);
        std::thread writer([&] { camera.integer("A").SetValue(1); });
        started.get_future().wait();
        Deregister(handle);
        const bool hasWaited = hasEnded;
        writer.join();
        QVERIFY(hasWaited);
    }

    // Neither can wait for the other, so the node map disposes of both.
    void callbacksThatEndEachOther()
    {
        Camera camera("Integer A Value=0; Integer B Value=0");
        const auto token = std::make_shared<int>();
        std::atomic<int> running{0};
        std::array<CallbackHandleType, 2> handles{};
        for (int i = 0; i < 2; ++i) {
            handles[i] = Register(
                camera.map->GetNode(i ? "B" : "A"),
                [&running, &handles, i, token](INode *) {
                    for (++running; running < 2;)
                        std::this_thread::yield();
                    Deregister(handles[1 - i]);
                    // Both are detached before either ends.
                    for (++running; running < 4;)
                        std::this_thread::yield();
                },
                cbPostOutsideLock);
        }
        std::thread other([&] { camera.integer("B").SetValue(1); });
        camera.integer("A").SetValue(1);
        other.join();
        QCOMPARE(token.use_count(), 1L);
        camera.integer("A").SetValue(2);
        QCOMPARE(running.load(), 4);
    }
};

QTEST_APPLESS_MAIN(TestGenApiChanges)
#include "tst_genapi_changes.moc"
