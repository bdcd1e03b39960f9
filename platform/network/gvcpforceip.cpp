#include "gvcpforceip.h"

#include "udpsocket.h"

namespace MoxSdk {

std::optional<std::uint16_t> forceIpThrough(const Adapter &adapter, std::uint16_t port,
                                            const Gvcp::AddressAssignment &assignment)
{
    constexpr int tries = 3;
    constexpr std::chrono::milliseconds answerTime{300};

    UdpSocket socket;
    if (!socket.listen())
        return std::nullopt;
    // A repeated command keeps its id, by which the camera knows it again.
    const std::uint16_t id = Gvcp::nextRequestId();
    const Gvcp::Packet command = Gvcp::forceIpCommand(id, assignment);
    for (int i = 0; i < tries; ++i) {
        if (!socket.broadcastThrough(adapter, port, command))
            return std::nullopt;
        const auto deadline = UdpSocket::Clock::now() + answerTime;
        while (const auto datagram = socket.receive(deadline)) {
            const auto acknowledge = Gvcp::parseAcknowledge(datagram->bytes);
            if (acknowledge && acknowledge->id == id && acknowledge->answer == Gvcp::ForceIpAck)
                return acknowledge->status;
        }
    }
    return std::nullopt;
}

} // namespace MoxSdk
