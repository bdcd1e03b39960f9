// Action commands as they go out on the loopback adapter, and what comes of the answers.
#include "../../../platform/network/gigeinterface.h"
#include "../ackevents.h"
#include "gvcpresponder.h"

#include <MoxCameraApi/MoxGenParam.h>
#include <datarow.h>

#include <QElapsedTimer>
#include <QTest>

#include <arpa/inet.h>
#include <atomic>

using namespace MoxSdk;
using namespace MoxTest;

namespace {

int boundSocket(const char *address, std::uint16_t &port)
{
    const int descriptor = ::socket(AF_INET, SOCK_DGRAM, 0);
    sockaddr_in here{};
    socklen_t length = sizeof here;
    here.sin_family = AF_INET;
    here.sin_addr.s_addr = ::inet_addr(address);
    ::bind(descriptor, reinterpret_cast<sockaddr *>(&here), length);
    ::getsockname(descriptor, reinterpret_cast<sockaddr *>(&here), &length);
    port = ntohs(here.sin_port);
    return descriptor;
}

/** Cameras that hear one and the same port, and answer from addresses of their own when a test wants it. */
class Cameras
{
public:
    ~Cameras() { ::close(m_descriptor); }

    /** The commands since the last call; a loopback adapter delivers them before the sender is back. */
    std::vector<Packet> heard()
    {
        std::vector<Packet> result;
        for (;;) {
            Packet packet(2048);
            socklen_t length = sizeof m_host;
            const ssize_t size = ::recvfrom(m_descriptor, packet.data(), packet.size(), MSG_DONTWAIT,
                                            reinterpret_cast<sockaddr *>(&m_host), &length);
            if (size < 0)
                return result;
            packet.resize(std::size_t(size));
            result.push_back(packet);
        }
    }
    /** The number of the one command since the last call. */
    std::uint16_t heardId() { return std::uint16_t(Gvcp::loadWord(&heard().at(0).at(4))); }

    void answer(const char *from, const Packet &packet)
    {
        std::uint16_t any = 0;
        const int camera = boundSocket(from, any);
        ::sendto(camera, packet.data(), packet.size(), 0, reinterpret_cast<sockaddr *>(&m_host), sizeof m_host);
        ::close(camera);
    }

    std::uint16_t port = 0;

private:
    const int m_descriptor = boundSocket("0.0.0.0", port);
    sockaddr_in m_host{};
};

} // namespace

class TestGvcpAction : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void packets_data();
    void packets();
    void answers();
    void lateAndEnding();
};

void TestGvcpAction::packets_data()
{
    columns<QByteArray, QByteArray>("values", "packet"); // values: flags, mask and time's halves, in base 16
    row("at once", "0 ffffffff 5 6", "4200 0100 000c iiii 8000000a 0000000b ffffffff");
    row("acknowledged", "1 1 0 0", "4201 0100 000c iiii 8000000a 0000000b 00000001");
    row("32 bits of time", "80 1 0 ffffffff", "4280 0100 0014 iiii 8000000a 0000000b 00000001 00000000 ffffffff");
    row("one more", "81 1 1 0", "4281 0100 0014 iiii 8000000a 0000000b 00000001 00000001 00000000");
    row("far future", "80 1 ffffffff 2", "4280 0100 0014 iiii 8000000a 0000000b 00000001 ffffffff 00000002");
    row("reserved flags, nobody's mask", "7e 0 0 0", "4200 0100 000c iiii 8000000a 0000000b 00000000");
}

void TestGvcpAction::packets()
{
    QFETCH(QByteArray, values);
    QFETCH(QByteArray, packet);
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
    const std::vector<Packet> heard = cameras.heard();
    QCOMPARE(heard.size(), std::size_t(1));
    QByteArray hex = QByteArray(reinterpret_cast<const char *>(heard[0].data()), int(heard[0].size())).toHex();
    QVERIFY(hex.mid(12, 4) != "0000");
    QCOMPARE(hex.replace(12, 4, "iiii"), packet.replace(' ', ""));
}

void TestGvcpAction::answers()
{
    Cameras cameras;
    MoxTest::Events events;
    MoxTest::Events ofSecond;
    GigEInterface interface("GEV::lo", loopback(), cameras.port);
    GigEInterface second("GEV::lo", loopback(), cameras.port);
    for (int twice = 0; twice < 2; ++twice)
        events.listenTo(interface); // which makes one subscription
    ofSecond.listenTo(second);
    const auto send = [&cameras](Interface &sender, std::uint32_t awaited, bool acknowledged = true) {
        sender.sendAction({5, 7, 1, {}, acknowledged, awaited});
        return cameras.heardId();
    };
    const std::uint16_t silent = send(interface, 0, false);
    cameras.answer("127.0.0.2", acknowledge(Gvcp::ActionAck, silent, {}));
    const std::uint16_t first = send(interface, 2);
    const std::uint16_t beside = send(interface, 0);
    for (const Packet &none :
         {acknowledge(Gvcp::ActionAck, first, {}, 0x8016), acknowledge(Gvcp::ForceIpAck, first, {}),
          acknowledge(Gvcp::ActionAck, std::uint16_t(beside + 1), {}), Packet{0, 0, 1, 1}, Packet()})
        cameras.answer("127.0.0.3", none);
    // One answers twice; when the second one answers nobody is waited for any more.
    for (const char *camera : {"127.0.0.4", "127.0.0.4", "127.0.0.5", "127.0.0.6"})
        cameras.answer(camera, acknowledge(Gvcp::ActionAck, first, {}));
    for (const char *camera : {"127.0.0.4", "127.0.0.255", "127.0.0.4"})
        cameras.answer(camera, acknowledge(Gvcp::ActionAck, beside, {}));
    const auto line = [](const char *camera, std::uint16_t id) {
        return QByteArray(camera) + "0000" + QByteArray::number(id, 16).rightJustified(4, '0') + ' ';
    };
    QTRY_COMPARE(events.data(),
                 line("7f000004", first) + line("7f000005", first) + line("7f000004", beside)
                     + line("7f0000ff", beside));
    // An interface hears of its own commands alone.
    const std::uint16_t other = send(second, 1);
    cameras.answer("127.0.0.9", acknowledge(Gvcp::ActionAck, beside, {}));
    cameras.answer("127.0.0.8", acknowledge(Gvcp::ActionAck, other, {}));
    QTRY_COMPARE(ofSecond.data(), line("7f000008", other));
    QCOMPARE(events.data().size(), 4 * 17);

    Adapter gone = loopback();
    gone.name = "gone";
    gone.index = 0x7ffffff;
    GigEInterface unplugged("GEV::gone", gone, cameras.port);
    QCOMPARE(unplugged.GetParameters(nullptr)->ExecuteCommand("GevAction"), MoxCamError::GenICamRuntime);
}

void TestGvcpAction::lateAndEnding()
{
    Cameras cameras;
    std::atomic<int> heard{0};
    QElapsedTimer timer;
    timer.start();
    {
        GvcpAction action([&](std::uint32_t camera, std::uint16_t) { heard += int(camera & 0xff); },
                          std::chrono::milliseconds(200));
        QVERIFY(action.send(loopback(), cameras.port, {5, 7, 1, {}, true, 0}));
        const std::uint16_t id = cameras.heardId();
        QTRY_VERIFY(timer.hasExpired(250));
        cameras.answer("127.0.0.2", acknowledge(Gvcp::ActionAck, id, {}));
        QVERIFY(action.send(loopback(), cameras.port, {5, 7, 1, {}, true, 0}));
        cameras.answer("127.0.0.16", acknowledge(Gvcp::ActionAck, cameras.heardId(), {}));
        QTRY_COMPARE(heard.load(), 16);
        // Idle between two commands, and then in the middle of one.
        QTRY_VERIFY(timer.hasExpired(600));
    }
    timer.start();
    {
        // It waits for more when the first answer is through.
        GvcpAction action([&](std::uint32_t, std::uint16_t) { ++heard; }, std::chrono::hours(1));
        QVERIFY(action.send(loopback(), cameras.port, {5, 7, 1, {}, true, 0}));
        cameras.answer("127.0.0.2", acknowledge(Gvcp::ActionAck, cameras.heardId(), {}));
        QTRY_COMPARE(heard.load(), 17);
    }
    QVERIFY(!timer.hasExpired(10000));
}

QTEST_GUILESS_MAIN(TestGvcpAction)
#include "tst_gvcpaction.moc"
