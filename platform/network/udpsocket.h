// A UDP socket over IPv4.
#ifndef MOXSDK_UDPSOCKET_H
#define MOXSDK_UDPSOCKET_H

#include "adapters.h"
#include "gvcp.h"
#include "stopsignal.h"

#include <chrono>
#include <optional>

namespace MoxSdk {

/** Owned by who speaks through it, and used by one thread at a time; but one may send while another one waits. */
class UdpSocket
{
public:
    using Clock = std::chrono::steady_clock;

    struct Datagram
    {
        Gvcp::Packet bytes;
        std::uint32_t source = 0;
        std::uint32_t destination = 0;
        unsigned int adapterIndex = 0; ///< the adapter that it came in on
    };

    /** @p stop, which may be null, ends every wait while it is raised; it must outlive the socket. */
    explicit UdpSocket(const StopSignal *stop = nullptr);
    ~UdpSocket();
    UdpSocket(const UdpSocket &) = delete;
    UdpSocket &operator=(const UdpSocket &) = delete;

    /** Speaks from @p local to one peer alone; false when the system refuses. */
    bool connectTo(std::uint32_t local, std::uint32_t peer, std::uint16_t port);
    /** Hears all that comes to a port of the system's choice, broadcasts too; false when the system refuses. */
    bool listen();

    /** To the peer; false when the system refuses. */
    bool send(const Gvcp::Packet &packet);
    /** Out of one adapter, whatever the routes say; false when the system refuses. */
    bool sendThrough(const Adapter &adapter, std::uint32_t destination, std::uint16_t port, const Gvcp::Packet &packet);
    /** As `sendThrough`, to all that an adapter reaches, also in other subnets; false when none of it went out. */
    bool broadcastThrough(const Adapter &adapter, std::uint16_t port, const Gvcp::Packet &packet);

    /**
     * The next datagram; nothing at the deadline, and before it when the stop signal is raised or the peer's machine
     * says that nobody listens.
     */
    std::optional<Datagram> receive(Clock::time_point deadline);

private:
    const int m_stop; // -1 without a signal, which the system passes over
    const int m_descriptor;
};

} // namespace MoxSdk

#endif
