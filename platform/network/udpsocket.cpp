#include "udpsocket.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <netinet/in.h>
#include <poll.h>
#include <set>
#include <sys/socket.h>
#include <unistd.h>

namespace MoxSdk {

namespace {

sockaddr_in socketAddress(std::uint32_t address, std::uint16_t port)
{
    sockaddr_in result{};
    result.sin_family = AF_INET;
    result.sin_port = htons(port);
    result.sin_addr.s_addr = htonl(address);
    return result;
}

// Room for one packet information in the ancillary data of a message.
union Control {
    cmsghdr header;
    char bytes[CMSG_SPACE(sizeof(in_pktinfo))];
};

/** One datagram for the system, which points into itself: its bytes, its peer, and the adapter that it passes. */
struct Message
{
    Message(std::uint8_t *bytes, std::size_t length) : data{bytes, length}
    {
        header.msg_name = &peer;
        header.msg_namelen = sizeof peer;
        header.msg_iov = &data;
        header.msg_iovlen = 1;
        header.msg_control = &control;
        header.msg_controllen = sizeof control;
    }
    Message(const Message &) = delete;
    Message &operator=(const Message &) = delete;

    sockaddr_in peer{};
    iovec data;
    msghdr header{};
    Control control{}; // last, since it ends with an array of open length
};

int remainingMilliseconds(UdpSocket::Clock::time_point deadline)
{
    using namespace std::chrono;
    // Rounded up, so that the wait does not end in a flurry of empty polls.
    const auto left = ceil<milliseconds>(deadline - UdpSocket::Clock::now()).count();
    return static_cast<int>(std::max<decltype(left)>(left, 0));
}

} // namespace

UdpSocket::UdpSocket(const StopSignal *stop)
    : m_stop(stop ? stop->descriptor() : -1), m_descriptor(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0))
{
    const int on = 1;
    ::setsockopt(m_descriptor, SOL_SOCKET, SO_BROADCAST, &on, sizeof on);
    ::setsockopt(m_descriptor, IPPROTO_IP, IP_PKTINFO, &on, sizeof on);
}

UdpSocket::~UdpSocket()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

bool UdpSocket::connectTo(std::uint32_t local, std::uint32_t peer, std::uint16_t port)
{
    const sockaddr_in here = socketAddress(local, 0);
    const sockaddr_in there = socketAddress(peer, port);
    return ::bind(m_descriptor, reinterpret_cast<const sockaddr *>(&here), sizeof here) == 0
        && ::connect(m_descriptor, reinterpret_cast<const sockaddr *>(&there), sizeof there) == 0;
}

bool UdpSocket::listen()
{
    const sockaddr_in here = socketAddress(INADDR_ANY, 0);
    return ::bind(m_descriptor, reinterpret_cast<const sockaddr *>(&here), sizeof here) == 0;
}

bool UdpSocket::send(const Gvcp::Packet &packet)
{
    return ::send(m_descriptor, packet.data(), packet.size(), 0) == static_cast<ssize_t>(packet.size());
}

bool UdpSocket::sendThrough(const Adapter &adapter, std::uint32_t destination, std::uint16_t port,
                            const Gvcp::Packet &packet)
{
    Message message(const_cast<std::uint8_t *>(packet.data()), packet.size());
    message.peer = socketAddress(destination, port);

    in_pktinfo information{};
    information.ipi_ifindex = static_cast<int>(adapter.index);
    information.ipi_spec_dst.s_addr = htonl(adapter.ipAddress);
    cmsghdr *header = CMSG_FIRSTHDR(&message.header);
    header->cmsg_level = IPPROTO_IP;
    header->cmsg_type = IP_PKTINFO;
    header->cmsg_len = CMSG_LEN(sizeof information);
    std::memcpy(CMSG_DATA(header), &information, sizeof information);
    return ::sendmsg(m_descriptor, &message.header, 0) == static_cast<ssize_t>(packet.size());
}

bool UdpSocket::broadcastThrough(const Adapter &adapter, std::uint16_t port, const Gvcp::Packet &packet)
{
    // The general broadcast reaches cameras of other subnets, the directed one passes where the general one is
    // filtered, and a program on the loopback adapter may listen on its address alone.
    std::set<std::uint32_t> destinations{INADDR_BROADCAST, adapter.broadcast()};
    if (adapter.isLoopback)
        destinations.insert(adapter.ipAddress);
    bool sent = false;
    for (std::uint32_t destination : destinations)
        sent |= sendThrough(adapter, destination, port, packet);
    return sent;
}

std::optional<UdpSocket::Datagram> UdpSocket::receive(Clock::time_point deadline)
{
    // Looked at first: datagrams that never stop coming would keep a caller beyond it.
    if (Clock::now() >= deadline)
        return std::nullopt;
    pollfd waiting[] = {{m_descriptor, POLLIN, 0}, {m_stop, POLLIN, 0}};
    int ready = 0;
    do {
        ready = ::poll(waiting, 2, remainingMilliseconds(deadline));
    } while (ready < 0 && errno == EINTR);
    if (ready <= 0 || waiting[1].revents)
        return std::nullopt;

    Datagram datagram;
    datagram.bytes.resize(2048);
    Message message(datagram.bytes.data(), datagram.bytes.size());
    const ssize_t length = ::recvmsg(m_descriptor, &message.header, MSG_DONTWAIT);
    if (length < 0)
        return std::nullopt;
    datagram.bytes.resize(static_cast<std::size_t>(length));
    datagram.source = ntohl(message.peer.sin_addr.s_addr);

    for (cmsghdr *header = CMSG_FIRSTHDR(&message.header); header; header = CMSG_NXTHDR(&message.header, header)) {
        if (header->cmsg_level != IPPROTO_IP || header->cmsg_type != IP_PKTINFO)
            continue;
        in_pktinfo information{};
        std::memcpy(&information, CMSG_DATA(header), sizeof information);
        datagram.adapterIndex = static_cast<unsigned int>(information.ipi_ifindex);
        datagram.destination = ntohl(information.ipi_addr.s_addr);
    }
    return datagram;
}

} // namespace MoxSdk
