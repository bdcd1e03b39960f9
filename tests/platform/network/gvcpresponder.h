// A camera of packets, on a port of its own on the loopback adapter.
#ifndef MOXTEST_GVCPRESPONDER_H
#define MOXTEST_GVCPRESPONDER_H

#include "../../../platform/network/adapters.h"
#include "../../../platform/network/gvcp.h"

#include <algorithm>
#include <atomic>
#include <functional>
#include <mutex>
#include <netinet/in.h>
#include <optional>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace MoxTest {

using MoxSdk::Gvcp::Packet;

enum Code : std::uint16_t {
    Discovery = 0x02,
    ForceIp = 0x04,
    ReadRegister = 0x80,
    ReadMemory = 0x84,
    WriteMemory = 0x86
};

inline MoxSdk::Adapter loopback()
{
    const std::vector<MoxSdk::Adapter> adapters = MoxSdk::readAdapters();
    const auto found = std::find_if(adapters.begin(), adapters.end(), [](const auto &a) { return a.isLoopback; });
    return found == adapters.end() ? MoxSdk::Adapter() : *found;
}

inline Packet acknowledge(std::uint16_t answer, std::uint16_t id, const Packet &payload, std::uint16_t status = 0)
{
    Packet packet(8);
    MoxSdk::Gvcp::storeWord(&packet[0], std::uint32_t(status) << 16 | answer);
    MoxSdk::Gvcp::storeWord(&packet[4], std::uint32_t(payload.size()) << 16 | id);
    packet.insert(packet.end(), payload.begin(), payload.end());
    return packet;
}

/** The payload of a discovery answer. */
inline Packet facts(std::uint64_t mac, std::uint32_t ip, const std::string &serial)
{
    Packet payload(0xf8);
    MoxSdk::Gvcp::storeWord(&payload[0x08], std::uint32_t(mac >> 32) | 0xffff0000); // the upper half is reserved
    MoxSdk::Gvcp::storeWord(&payload[0x0c], std::uint32_t(mac));
    MoxSdk::Gvcp::storeWord(&payload[0x24], ip);
    MoxSdk::Gvcp::storeWord(&payload[0x34], 0xff000000);
    MoxSdk::Gvcp::storeWord(&payload[0x44], 0x7f0000fe);
    const auto put = [&](std::ptrdiff_t offset, const std::string &text) {
        std::copy(text.begin(), text.end(), payload.begin() + offset);
    };
    put(0x48, "Maker");
    put(0x68, "A model name that fills 32 bytes");
    put(0x88, "1.2\n ");
    put(0xd8, serial);
    put(0xe8, "Left \xc3\xa4");
    return payload;
}

/** A socket at that address and at a port of the system's choice, which it gives. */
inline int boundSocket(std::uint32_t ip, std::uint16_t &port)
{
    const int descriptor = ::socket(AF_INET, SOCK_DGRAM, 0);
    sockaddr_in address{AF_INET, 0, {htonl(ip)}, {}};
    socklen_t length = sizeof address;
    ::bind(descriptor, reinterpret_cast<sockaddr *>(&address), length);
    ::getsockname(descriptor, reinterpret_cast<sockaddr *>(&address), &length);
    port = ntohs(address.sin_port);
    return descriptor;
}

struct Command
{
    std::uint16_t code = 0;
    std::uint16_t id = 0;
    std::uint32_t address = 0;
    std::size_t length = 0; ///< of a memory access
    Packet packet;
};
using Packets = std::vector<Packet>;

/** Answers from 64 KiB of memory on a thread of its own, unless a test puts itself in between. */
class GvcpResponder
{
public:
    /** Runs on the responder's thread; no value leaves the answer to the responder. */
    using Intercept = std::function<std::optional<Packets>(const Command &)>;

    explicit GvcpResponder(Intercept intercept = {}, std::uint32_t listensAt = INADDR_ANY)
        : m_intercept(std::move(intercept)), m_descriptor(boundSocket(listensAt, port))
    {
        setBytes(MoxSdk::Gvcp::HeartbeatTimeout + 2, "\x05\xdc"); // 1500 ms
        m_thread = std::thread([this] { run(); });
    }
    ~GvcpResponder()
    {
        ::shutdown(m_descriptor, SHUT_RDWR); // ends the wait for a command
        m_thread.join();
        ::close(m_descriptor);
    }

    std::uint16_t port = 0;
    std::atomic<std::uint32_t> ip{0x7f000001}; ///< that it tells

    std::string bytes(std::uint32_t address, std::size_t length)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_memory.substr(address, length);
    }
    void setBytes(std::uint32_t address, const std::string &bytes)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_memory.replace(address, bytes.size(), bytes);
    }
    void setPrivilege(char privilege) { setBytes(MoxSdk::Gvcp::ControlChannelPrivilege + 3, {privilege}); }
    /** What came in since the last call. */
    std::vector<Command> takeCommands()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return std::exchange(m_commands, {});
    }

private:
    void run()
    {
        for (;;) {
            Packet packet(2048);
            sockaddr_in peer{};
            socklen_t peerLength = sizeof peer;
            auto *const peerAddress = reinterpret_cast<sockaddr *>(&peer);
            const ssize_t length = ::recvfrom(m_descriptor, packet.data(), 2048, 0, peerAddress, &peerLength);
            if (length < 8)
                return;
            packet.resize(std::size_t(length));
            const Command command = parsed(packet);
            const auto special = m_intercept ? m_intercept(command) : std::nullopt;
            for (const Packet &sent : special ? *special : answer(command))
                ::sendto(m_descriptor, sent.data(), sent.size(), 0, peerAddress, peerLength);
        }
    }

    Command parsed(const Packet &packet)
    {
        const auto word = [&](std::size_t at) { return at < packet.size() ? MoxSdk::Gvcp::loadWord(&packet[at]) : 0; };
        Command command{std::uint16_t(word(0)), std::uint16_t(word(4)), word(8) & 0xffff, 0, packet};
        if (command.code == ReadMemory)
            command.length = word(12);
        else if (command.code == WriteMemory)
            command.length = packet.size() - 12;
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_commands.push_back(command);
        return command;
    }

    Packets answer(const Command &command)
    {
        const Packet &packet = command.packet;
        const std::lock_guard<std::mutex> lock(m_mutex);
        const auto place = m_memory.begin() + command.address;
        Packet payload(4);
        if (command.code == ForceIp) {
            if (Packet(packet.begin() + 10, packet.begin() + 16) != Packet{0x00, 0x1a, 0x2b, 0x3c, 0x4d, 0x5e})
                return {};
            ip = MoxSdk::Gvcp::loadWord(&packet[28]);
            payload.clear();
        } else if (command.code == Discovery) {
            payload = facts(0x001a2b3c4d5e, ip, "S1");
        } else if (command.code == ReadRegister) {
            payload.assign(place, place + 4);
        } else if (command.code == ReadMemory) {
            payload.insert(payload.end(), place, place + std::ptrdiff_t(command.length));
        } else { // both ways of writing
            std::copy(packet.begin() + 12, packet.end(), place);
        }
        return {acknowledge(std::uint16_t(command.code + 1), command.id, payload)};
    }

    const Intercept m_intercept;
    const int m_descriptor;
    std::mutex m_mutex;
    std::string m_memory = std::string(0x10000, '\0');
    std::vector<Command> m_commands;
    std::thread m_thread;
};

} // namespace MoxTest

#endif
