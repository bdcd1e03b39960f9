#include "console.h"
#include "testmain.h"

#include <MoxCameraApi/MoxCam.h>
#include <MoxCameraApi/MoxSimulation.h>

#include <QCheckBox>

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <thread>

namespace {

constexpr std::uint16_t gvcpPort = 3956;

int boundSocket(const char *address, std::uint16_t port)
{
    const int descriptor = ::socket(AF_INET, SOCK_DGRAM, 0);
    const sockaddr_in here{AF_INET, htons(port), {::inet_addr(address)}, {}};
    return ::bind(descriptor, reinterpret_cast<const sockaddr *>(&here), sizeof here) == 0 ? descriptor : -1;
}

/** Acknowledges the next command on the loopback adapter as cameras with these addresses. */
void answerAs(int descriptor, const std::array<const char *, 2> &cameras)
{
    std::array<std::uint8_t, 64> command{};
    sockaddr_in host{};
    socklen_t length = sizeof host;
    if (::recvfrom(descriptor, command.data(), command.size(), 0, reinterpret_cast<sockaddr *>(&host), &length) < 8)
        return;
    const std::uint8_t acknowledge[] = {0, 0, 0x01, 0x01, 0, 0, command[6], command[7]};
    for (const char *camera : cameras) {
        const int own = boundSocket(camera, 0);
        ::sendto(own, acknowledge, sizeof acknowledge, 0, reinterpret_cast<const sockaddr *>(&host), length);
        ::close(own);
    }
}

} // namespace

/** The console on the open SDK. Acknowledgements are counted over the whole program. */
class TestActionWorld : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    /** Two of the standard world's cameras are reached by the console's start values. */
    void simulatedCameras()
    {
        MoxSim::setWorlds(MoxSim::SimulatedWorld);
        MoxSim::resetWorld();
        Console console(MoxCam_GetSystem(), 1);
        console.findChild<QCheckBox *>(QStringLiteral("cbRequestAck"))->setChecked(true);
        for (const int total : {2, 4}) // the second send is a real one, too
            QCOMPARE(console.send(total), QStringLiteral("[OK] 192.168.10.10\n[OK] 192.168.10.11\n"));
    }
    void onTheWire()
    {
        MoxSim::setWorlds(MoxSim::RealWorld);
        Console console(MoxCam_GetSystem(), 0);
        const QList<QListWidgetItem *> adapters =
            console.rows->findItems(QStringLiteral("lo (127.0.0.1)"), Qt::MatchExactly);
        QCOMPARE(adapters.size(), 1);
        adapters.first()->setCheckState(Qt::Checked);
        console.findChild<QCheckBox *>(QStringLiteral("cbRequestAck"))->setChecked(true);

        const int descriptor = boundSocket("127.255.255.255", gvcpPort);
        QVERIFY(descriptor >= 0);
        const timeval limit{3, 0};
        ::setsockopt(descriptor, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
        std::thread cameras(answerAs, descriptor, std::array<const char *, 2>{"127.0.0.2", "127.0.0.3"});
        const QString log = console.send(6);
        cameras.join();
        ::close(descriptor);
        QCOMPARE(log, QStringLiteral("[OK] 127.0.0.2\n[OK] 127.0.0.3\n"));
    }
};

MOX_TEST_MAIN(TestActionWorld)
#include "tst_actionworld.moc"
