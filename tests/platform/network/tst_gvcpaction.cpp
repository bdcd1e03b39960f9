// Action commands as they go out on the loopback adapter, and what comes of the answers.
#include "../../../platform/network/gigeinterface.h"
#include "../ackevents.h"
#include "gvcpresponder.h"

#include <MoxCameraApi/MoxGenParam.h>
#include <datarow.h>

#include <QElapsedTimer>

using namespace MoxSdk;
using namespace MoxTest;

namespace {

/** Cameras that hear one and the same port, and answer from addresses of their own when a test wants it. */
class Cameras
{
public:
    ~Cameras() { ::close(m_descriptor); }

    /** The next command; a loopback adapter delivers it before the sender is back. Empty when there is none. */
    Packet heard()
    {
        Packet packet(2048);
        socklen_t length = sizeof m_host;
        const ssize_t size = ::recvfrom(m_descriptor, packet.data(), packet.size(), MSG_DONTWAIT,
                                        reinterpret_cast<sockaddr *>(&m_host), &length);
        packet.resize(std::size_t(std::max<ssize_t>(size, 0)));
        return packet;
    }
    std::uint16_t heardId() { return std::uint16_t(Gvcp::loadWord(&heard().at(4))); }

    void answer(std::uint32_t from, const Packet &packet)
    {
        std::uint16_t any = 0;
        const int camera = boundSocket(from, any);
        ::sendto(camera, packet.data(), packet.size(), 0, reinterpret_cast<sockaddr *>(&m_host), sizeof m_host);
        ::close(camera);
    }

    std::uint16_t port = 0;

private:
    const int m_descriptor = boundSocket(0x7fffffff, port);
    sockaddr_in m_host{};
};

} // namespace

class TestGvcpAction : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void packets_data()
    {
        columns<QByteArray, QByteArray>("values", "packet"); // values: flags, mask and time's halves, in base 16
        row("at once", "0 ffffffff 5 6", "42000100000ciiii8000000a0000000bffffffff");
        row("scheduled", "80 0 0 fffffffe", "428001000014iiii8000000a0000000b0000000000000000fffffffe");
        row("acknowledged too, and reserved flags", "ff 1 80000001 2",
            "428101000014iiii8000000a0000000b000000018000000100000002");
    }
    void packets()
    {
        QFETCH(QByteArray, values);
        Cameras cameras;
        GigEInterface interface("GEV::lo", loopback(), cameras.port);
        MoxGenParam::Array &array = *interface.GetParameters(nullptr);
        QByteArrayList numbers = values.split(' ');
        for (const char *name : {"ActionFlags", "ActionGroupMask", "ActionTimeHi", "ActionTimeLo"}) {
            const std::int64_t value = numbers.takeFirst().toLongLong(nullptr, 16);
            QCOMPARE(array.SetIntegerValue(name, value), MoxCamError::Success);
            QCOMPARE(array.SetIntegerValue(name, 0x100000000), MoxCamError::GenICamOutOfRange);
            QCOMPARE(array.GetIntegerValue(name, nullptr), value);
        }
        array.SetIntegerValue("ActionDevKey", 0x8000000a);
        array.SetIntegerValue("ActionGroupKey", 0xb);
        QCOMPARE(array.ExecuteCommand("GevAction"), MoxCamError::Success);
        const Packet heard = cameras.heard();
        QByteArray hex = QByteArray(reinterpret_cast<const char *>(heard.data()), int(heard.size())).toHex();
        QVERIFY(hex.mid(12, 4) != "0000" && cameras.heard().empty());
        QTEST(hex.replace(12, 4, "iiii"), "packet");
    }

    void answers()
    {
        Cameras cameras;
        Events events;
        GigEInterface interface("GEV::lo", loopback(), cameras.port);
        for (int twice = 0; twice < 2; ++twice)
            events.listenTo(interface); // which makes one subscription
        const auto send = [&](std::uint32_t awaited, bool acknowledged = true) {
            interface.sendAction({5, 7, 1, {}, acknowledged, awaited});
            return cameras.heardId();
        };
        cameras.answer(0x7f000002, acknowledge(Gvcp::ActionAck, send(0, false), {}));
        const std::uint16_t first = send(2);
        const std::uint16_t beside = send(0);
        for (const Packet &none :
             {acknowledge(Gvcp::ActionAck, first, {}, 0x8016), acknowledge(Gvcp::ForceIpAck, first, {}),
              acknowledge(Gvcp::ActionAck, std::uint16_t(beside + 1), {}), Packet{0, 0, 1, 1}, Packet()})
            cameras.answer(0x7f000003, none);
        // One answers twice; when the second one answers nobody is waited for any more.
        for (const std::uint32_t camera : {0x7f000004, 0x7f000004, 0x7f000005, 0x7f000006})
            cameras.answer(camera, acknowledge(Gvcp::ActionAck, first, {}));
        cameras.answer(0x7f0000ff, acknowledge(Gvcp::ActionAck, beside, {}));
        const auto line = [](const char *camera, std::uint16_t id) {
            return QByteArray(camera) + "0000" + QByteArray::number(id, 16).rightJustified(4, '0') + ' ';
        };
        QTRY_COMPARE(events.data(), line("7f000004", first) + line("7f000005", first) + line("7f0000ff", beside));

        Adapter gone = loopback();
        gone.index = 0x7ffffff;
        gone.name = "gone";
        GigEInterface unplugged("GEV::gone", gone, cameras.port);
        QCOMPARE(unplugged.GetParameters(nullptr)->ExecuteCommand("GevAction"), MoxCamError::GenICamRuntime);
    }

    void lateAndEnding()
    {
        Cameras cameras;
        std::atomic<int> heard{0};
        const auto listener = [&heard](std::uint32_t camera, std::uint16_t) { heard += int(camera & 0xff); };
        const auto acknowledgeOfNext = [&cameras](GvcpAction &action) {
            const bool sent = action.send(loopback(), cameras.port, {5, 7, 1, {}, true, 0});
            return sent ? acknowledge(Gvcp::ActionAck, cameras.heardId(), {}) : Packet();
        };
        QElapsedTimer timer;
        {
            GvcpAction action(listener, std::chrono::milliseconds(1000));
            const Packet late = acknowledgeOfNext(action);
            timer.start();
            QTRY_VERIFY(timer.hasExpired(1050));
            cameras.answer(0x7f000002, late);
            cameras.answer(0x7f000010, acknowledgeOfNext(action));
            timer.start();
            QTRY_COMPARE(heard.load(), 16);
            QTRY_VERIFY(timer.hasExpired(1050)); // it ends idle
        }
        timer.start();
        {
            // It waits for more when the first answer is through.
            GvcpAction action(listener, std::chrono::hours(1));
            cameras.answer(0x7f000001, acknowledgeOfNext(action));
            QTRY_COMPARE(heard.load(), 17);
        }
        QVERIFY(!timer.hasExpired(10000));
    }
};

QTEST_GUILESS_MAIN(TestGvcpAction)
#include "tst_gvcpaction.moc"
