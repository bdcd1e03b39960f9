#include "gvcpchannel.h"

#include "../device/dottedaddress.h"
#include "packeddescription.h"

#include <Base/GCException.h>

#include <algorithm>
#include <cstring>

namespace MoxSdk {

namespace {

using std::chrono::milliseconds;

// What the standard recommends is 200 ms and three tries; slow cameras need a little longer to write.
constexpr milliseconds answerTime{300};
constexpr int tries = 3;
// A camera may ask for more time, again and again, than anybody wants to wait.
constexpr milliseconds longestRequest{5000};

constexpr std::uint64_t addressEnd = std::uint64_t(1) << 32;

// The words that the bytes of an access lie in.
struct WordRange
{
    WordRange(std::uint64_t address, std::size_t length)
    {
        if (address >= addressEnd || length > addressEnd - address)
            throw OUT_OF_RANGE_EXCEPTION("GigE Vision addresses end at 32 bits");
        begin = static_cast<std::uint32_t>(address & ~std::uint64_t(3));
        head = address - begin;
        words.resize((head + length + 3) / 4 * 4);
    }

    std::uint32_t begin = 0;
    std::size_t head = 0; ///< bytes in front of the access
    Gvcp::Packet words;
};

template<class Function> void forEachBlock(std::size_t length, Function function)
{
    for (std::size_t offset = 0; offset < length; offset += Gvcp::maximumBlock)
        function(offset, std::min(Gvcp::maximumBlock, length - offset));
}

} // namespace

GvcpChannel::GvcpChannel(const Adapter &adapter, std::uint32_t cameraAddress, std::uint16_t port,
                         const StopSignal *stop)
    : m_socket(stop)
{
    if (!m_socket.connectTo(adapter.ipAddress, cameraAddress, port))
        throw RUNTIME_EXCEPTION("%s cannot be reached through %s", dotted(cameraAddress).c_str(), adapter.name.c_str());
    // Asked first, since some cameras leave a request for control unanswered while another application has it.
    if (readRegister(Gvcp::ControlChannelPrivilege) & (Gvcp::ExclusiveAccess | Gvcp::ControlAccess))
        throw ACCESS_EXCEPTION("the camera is in use by another application");
    writeRegister(Gvcp::ControlChannelPrivilege, Gvcp::ControlAccess);

    // A camera drops its controller after that time of silence; a third of it leaves room for lost datagrams.
    const milliseconds heartbeat(readRegister(Gvcp::HeartbeatTimeout));
    m_alivePeriod = std::clamp<milliseconds>(heartbeat / 3, milliseconds(100), milliseconds(1000));
}

GvcpChannel::~GvcpChannel()
{
    // One try: a camera that does not hear it drops its controller by itself.
    const std::uint16_t id = Gvcp::nextRequestId();
    if (m_socket.send(Gvcp::writeRegisterCommand(id, Gvcp::ControlChannelPrivilege, 0)))
        awaitReply(id, Gvcp::WriteRegisterAck, UdpSocket::Clock::now() + answerTime);
}

std::string GvcpChannel::description()
{
    for (const std::uint32_t address : {Gvcp::FirstDescriptionUrl, Gvcp::SecondDescriptionUrl}) {
        std::string url(Gvcp::descriptionUrlLength, '\0');
        read(url.data(), address, url.size());
        const auto place = parseDescriptionUrl(url);
        if (!place)
            continue;
        std::string bytes(place->length, '\0');
        read(bytes.data(), place->address, bytes.size());
        return unpackDescription(std::move(bytes));
    }
    throw RUNTIME_EXCEPTION("the camera holds no description of its features");
}

void GvcpChannel::read(void *buffer, std::uint64_t address, std::size_t length)
{
    WordRange range(address, length);
    forEachBlock(range.words.size(), [&](std::size_t offset, std::size_t size) {
        readBlock(range.words.data() + offset, range.begin + static_cast<std::uint32_t>(offset), size);
    });
    std::memcpy(buffer, range.words.data() + range.head, length);
}

void GvcpChannel::write(const void *buffer, std::uint64_t address, std::size_t length)
{
    WordRange range(address, length);
    const std::size_t size = range.words.size();
    const auto end = range.begin + static_cast<std::uint32_t>(size);
    if (range.head != 0)
        readBlock(range.words.data(), range.begin, 4);
    if ((range.head + length) % 4 != 0 && (size > 4 || range.head == 0))
        readBlock(range.words.data() + size - 4, end - 4, 4);
    std::memcpy(range.words.data() + range.head, buffer, length);
    forEachBlock(size, [&](std::size_t offset, std::size_t blockSize) {
        writeBlock(range.words.data() + offset, range.begin + static_cast<std::uint32_t>(offset), blockSize);
    });
}

bool GvcpChannel::isAlive()
{
    try {
        return readRegister(Gvcp::ControlChannelPrivilege) & (Gvcp::ExclusiveAccess | Gvcp::ControlAccess);
    } catch (const GenICam_3_0::GenericException &) {
        return false;
    }
}

std::uint32_t GvcpChannel::readRegister(std::uint32_t address)
{
    const std::uint16_t id = Gvcp::nextRequestId();
    const Reply reply = request(id, Gvcp::readRegisterCommand(id, address), Gvcp::ReadRegisterAck);
    check(reply, 4);
    return Gvcp::loadWord(reply.payload.data());
}

void GvcpChannel::writeRegister(std::uint32_t address, std::uint32_t value)
{
    const std::uint16_t id = Gvcp::nextRequestId();
    check(request(id, Gvcp::writeRegisterCommand(id, address, value), Gvcp::WriteRegisterAck), 0);
}

// The memory commands are optional, reading memory in practice for some registers only; single registers always work.
void GvcpChannel::readBlock(std::uint8_t *data, std::uint32_t address, std::size_t length)
{
    const std::uint16_t id = Gvcp::nextRequestId();
    const Reply reply = request(id, Gvcp::readMemoryCommand(id, address, length), Gvcp::ReadMemoryAck);
    if (reply.status == Gvcp::NotImplemented) {
        for (std::uint32_t offset = 0; offset < length; offset += 4)
            Gvcp::storeWord(data + offset, readRegister(address + offset));
        return;
    }
    // The address comes first.
    check(reply, 4 + length);
    std::memcpy(data, reply.payload.data() + 4, length);
}

void GvcpChannel::writeBlock(const std::uint8_t *data, std::uint32_t address, std::size_t length)
{
    const std::uint16_t id = Gvcp::nextRequestId();
    const Reply reply = request(id, Gvcp::writeMemoryCommand(id, address, data, length), Gvcp::WriteMemoryAck);
    if (reply.status == Gvcp::NotImplemented) {
        for (std::uint32_t offset = 0; offset < length; offset += 4)
            writeRegister(address + offset, Gvcp::loadWord(data + offset));
        return;
    }
    check(reply, 0);
}

GvcpChannel::Reply GvcpChannel::request(std::uint16_t id, const Gvcp::Packet &command, Gvcp::Answer answer)
{
    // A repeated command keeps its id, by which the camera knows it again and does not carry it out twice.
    const auto latest = UdpSocket::Clock::now() + longestRequest;
    for (int i = 0; i < tries && UdpSocket::Clock::now() < latest; ++i) {
        // A system that refuses to send, for want of room or of a route, is given the same time until the next try.
        m_socket.send(command);
        if (auto reply = awaitReply(id, answer, latest))
            return *std::move(reply);
    }
    throw TIMEOUT_EXCEPTION("the camera does not answer");
}

std::optional<GvcpChannel::Reply> GvcpChannel::awaitReply(std::uint16_t id, Gvcp::Answer answer,
                                                          UdpSocket::Clock::time_point latest)
{
    auto deadline = UdpSocket::Clock::now() + answerTime;
    while (const auto datagram = m_socket.receive(deadline)) {
        const auto acknowledge = Gvcp::parseAcknowledge(datagram->bytes);
        if (!acknowledge || acknowledge->id != id)
            continue;
        if (const auto pending = Gvcp::parsePending(*acknowledge)) {
            deadline = std::min(UdpSocket::Clock::now() + milliseconds(*pending), latest);
            continue;
        }
        if (acknowledge->answer == answer)
            return Reply{acknowledge->status, {acknowledge->payload, acknowledge->payload + acknowledge->length}};
    }
    return std::nullopt;
}

void GvcpChannel::check(const Reply &reply, std::size_t length)
{
    if (reply.status == Gvcp::WriteProtect || reply.status == Gvcp::AccessDenied)
        throw ACCESS_EXCEPTION("%s", Gvcp::statusText(reply.status));
    if (reply.status != Gvcp::Success)
        throw RUNTIME_EXCEPTION("%s (status 0x%04x)", Gvcp::statusText(reply.status), unsigned(reply.status));
    if (reply.payload.size() < length)
        throw RUNTIME_EXCEPTION("the camera's answer is cut short");
}

} // namespace MoxSdk
