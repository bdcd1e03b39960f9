// Opened cameras: their parameters, their events, and their end.
#include "device/device.h"
#include "device/eventthread.h"

#include "fakelink.h"

#include <MoxCameraApi/MoxGenParam.h>
#include <datarow.h>
#include <testmain.h>

#include <QSemaphore>
#include <QThread>

#include <mutex>
#include <thread>

using namespace MoxTest;
using MoxSdk::Device;
using Events = QList<int>;

namespace {

constexpr int connected = MoxCam::EventDeviceConnected;
constexpr int disconnected = MoxCam::EventDeviceDisconnected;

/** Notes each event, and 0 for one on the test's own thread; the test may act in it. */
struct Recorder
{
    Events taken()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return events;
    }

    std::mutex mutex;
    Events events;
    std::function<void()> action;
};

template<int eventId> void record(const void *, unsigned long, void *context)
{
    auto *recorder = static_cast<Recorder *>(context);
    {
        const std::lock_guard<std::mutex> lock(recorder->mutex);
        recorder->events << (QThread::currentThread() == qApp->thread() ? 0 : eventId);
    }
    if (recorder->action)
        recorder->action();
}

struct Sink final : MoxGenParam::ParamEventSink
{
    void OnParameterUpdate(MoxGenParam::Param *param) override
    {
        readable << param->IsReadable();
        if (action)
            action();
    }

    QList<bool> readable;
    std::function<void()> action;
};

struct Releaser
{
    void operator()(Device *device) const { device->Release(); }
};

/** An opened camera, with two recorders of both events. */
struct Setup
{
    Setup()
    {
        for (Recorder *recorder : {&first, &second, &first})
            subscribe(*recorder);
    }
    void subscribe(Recorder &recorder)
    {
        device->RegisterEvent(disconnected, record<disconnected>, &recorder);
        device->RegisterEvent(connected, record<connected>, &recorder);
    }
    void change(bool isThere)
    {
        camera.gone = !isThere;
        std::thread([&] { camera.listener(isThere); }).join();
    }

    Recorder first;
    Recorder second;
    FakeCamera camera;
    std::unique_ptr<Device, Releaser> device{new Device(std::make_unique<FakeLink>(camera), "Camera")};
    MoxGenParam::Array *params = device->GetCameraParameters(nullptr);
    MoxGenParam::Int *width = params->GetInt("Width", nullptr);
};

} // namespace

class TestDevice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lostAndBack()
    {
        Setup s;
        Sink sink;
        s.width->RegisterEventSink(&sink);
        QCOMPARE(s.width->GetValue(nullptr), 64);

        // Who hears of the event sees the camera as it is then, though everything was known before.
        QList<bool> writable;
        s.first.action = [&] { writable << s.width->IsWritable(); };
        s.change(false);
        QTRY_COMPARE(sink.readable, QList<bool>({false}));
        QTRY_COMPARE(s.second.taken(), Events({disconnected}));
        s.camera.width = 16;
        s.change(true);
        QTRY_COMPARE(sink.readable, QList<bool>({false, true}));
        QTRY_COMPARE(s.second.taken(), Events({disconnected, connected}));
        QCOMPARE(s.width->GetValue(nullptr), 16);

        for (bool isThere : {false, true, false})
            s.change(isThere);
        QTRY_COMPARE(s.second.taken(), Events({disconnected, connected, disconnected, connected, disconnected}));
        QCOMPARE(s.first.taken(), s.second.taken());
        s.device.reset();
        QCOMPARE(writable.mid(0, 2), QList<bool>({false, true}));
        QCOMPARE(s.camera.links.load(), 0);
        QVERIFY(!s.camera.listener);
    }

    void registrations()
    {
        Setup s;
        Recorder last;
        s.device->RegisterEvent(connected, record<connected>, &last);
        for (int i = 0; i < 2; ++i)
            QCOMPARE(s.device->UnregisterEvent(connected, record<connected>, &s.second), MoxCamError::Success);
        QCOMPARE(s.device->UnregisterEvent(connected, record<disconnected>, &s.first), MoxCamError::Success);
        QCOMPARE(s.device->RegisterEvent(1005, record<connected>, &s.first), MoxCamError::InvalidArgument);
        QCOMPARE(s.device->RegisterEvent(connected, nullptr, &s.first), MoxCamError::InvalidArgument);
        QCOMPARE(s.device->UnregisterEvent(0, record<connected>, &s.first), MoxCamError::InvalidArgument);
        s.change(false);
        s.change(true);
        QTRY_COMPARE(last.taken(), Events({connected}));
        QCOMPARE(s.first.taken(), Events({disconnected, connected}));
        QCOMPARE(s.second.taken(), Events({disconnected}));
    }

    void unregisterInsideTheCallback()
    {
        Recorder last;
        Setup s;
        s.subscribe(last);
        s.first.action = [&] {
            s.device->UnregisterEvent(disconnected, record<disconnected>, &s.first);
            s.device->UnregisterEvent(disconnected, record<disconnected>, &s.second);
        };
        s.change(false);
        s.change(false);
        QTRY_COMPARE(last.taken(), Events({disconnected, disconnected}));
        QCOMPARE(s.first.taken(), Events({disconnected}));
        QCOMPARE(s.second.taken(), Events());
    }

    void endingWaits_data()
    {
        columns<bool, bool>("inCallback", "release");
        row("unregistering waits for the callback", true, false);
        row("release waits for the callback", true, true);
        row("release waits for the invalidation", false, true);
    }
    void endingWaits()
    {
        QFETCH(bool, inCallback);
        QFETCH(bool, release);
        Setup s;
        QSemaphore inside;
        QSemaphore goOn;
        std::atomic<bool> left{false};
        const auto block = [&] {
            inside.release();
            goOn.acquire();
            for (int turn = 0; turn < 1000; ++turn)
                std::this_thread::yield();
            left = true;
        };
        if (inCallback)
            s.first.action = block;
        else
            GenApi::Register(s.params->GetNodeMap(nullptr)->GetNode("Width"), [&](GenApi::INode *) { block(); });
        s.change(false);
        inside.acquire();
        // Another registration is free to go meanwhile.
        s.device->UnregisterEvent(disconnected, record<disconnected>, &s.second);
        QVERIFY(!left);
        goOn.release();
        if (release)
            s.device.reset();
        else
            s.device->UnregisterEvent(disconnected, record<disconnected>, &s.first);
        QVERIFY(left);
        const Events told = s.first.taken();

        // The event thread goes on for others, and only for them.
        Setup next;
        next.change(false);
        QTRY_COMPARE(next.second.taken(), Events({disconnected}));
        QCOMPARE(s.first.taken(), told);
        QCOMPARE(s.second.taken(), Events());
    }

    void releaseInsideTheCallback()
    {
        Setup s;
        s.first.action = [&] { s.device.reset(); };
        s.change(false);
        QTRY_COMPARE(s.camera.links.load(), 0);
        QCOMPARE(s.first.taken(), Events({disconnected}));
        QCOMPARE(s.second.taken(), Events());
    }

    void releaseInsideAnUpdate()
    {
        Setup s;
        Sink sink;
        auto other = std::make_unique<Sink>();
        s.width->RegisterEventSink(&sink);
        s.width->RegisterEventSink(other.get());
        sink.action = [&] {
            // The event thread wants the node map that this write has locked; nobody may wait for it here.
            s.change(false);
            s.device.reset();
            other.reset();
            QCoreApplication::processEvents();
            QCOMPARE(s.camera.links.load(), 1);
        };
        QCOMPARE(s.width->SetValue(8), MoxCamError::Success);
        QCOMPARE(sink.readable.size(), 1);
        // Once the event of another camera is through, the one of this camera is.
        Setup next;
        QSemaphore through;
        next.first.action = [&] { through.release(); };
        next.change(false);
        through.acquire();
        QCOMPARE(s.first.taken(), Events());
        QCOMPARE(s.camera.links.load(), 1);
        QTRY_COMPARE(s.camera.links.load(), 0);
    }

    /** The last test: after it the program must end although the event thread never comes back. */
    void endBesideARunningEvent()
    {
        QSemaphore running;
        MoxSdk::EventThread::instance().post([&] {
            running.release();
            QSemaphore().acquire();
        });
        running.acquire();
    }
};

MOX_TEST_MAIN(TestDevice)
#include "tst_device.moc"
