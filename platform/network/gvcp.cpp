#include "gvcp.h"

#include <atomic>

namespace MoxSdk::Gvcp {

namespace {

constexpr std::size_t headerLength = 8;
constexpr std::uint8_t commandKey = 0x42;

enum Flag : std::uint8_t { AcknowledgeRequired = 0x01, BroadcastAnswerAllowed = 0x10, ScheduledAction = 0x80 };

enum Command : std::uint16_t {
    Discovery = 0x0002,
    ForceIp = 0x0004,
    ReadRegister = 0x0080,
    WriteRegister = 0x0082,
    ReadMemory = 0x0084,
    WriteMemory = 0x0086,
    ActionCode = 0x0100
};

// Places in the payload of a discovery answer, which mirrors the first registers of a camera.
enum DiscoveryOffset : std::size_t {
    MacAddressAt = 0x0a,
    IpAddressAt = 0x24,
    NetmaskAt = 0x34,
    GatewayAt = 0x44,
    VendorAt = 0x48,
    ModelAt = 0x68,
    DeviceVersionAt = 0x88,
    VendorInfoAt = 0xa8,
    SerialNumberAt = 0xd8,
    UserDefinedNameAt = 0xe8,
    DiscoveryLength = 0xf8
};

// Places in the payload of a request to take an address; the bytes between them are reserved.
enum ForceIpOffset : std::size_t {
    ForcedMacAddressAt = 0x02,
    ForcedIpAddressAt = 0x14,
    ForcedNetmaskAt = 0x24,
    ForcedGatewayAt = 0x34,
    ForceIpLength = 0x38
};

void append16(Packet &packet, std::size_t value)
{
    packet.push_back(static_cast<std::uint8_t>(value >> 8));
    packet.push_back(static_cast<std::uint8_t>(value));
}

void append32(Packet &packet, std::uint32_t value)
{
    append16(packet, value >> 16);
    append16(packet, value & 0xffff);
}

Packet command(Command code, std::uint16_t id, std::size_t payloadLength, std::uint8_t flags = AcknowledgeRequired)
{
    Packet packet;
    packet.reserve(headerLength + payloadLength);
    packet.push_back(commandKey);
    packet.push_back(flags);
    append16(packet, code);
    append16(packet, payloadLength);
    append16(packet, id);
    return packet;
}

std::uint16_t load16(const std::uint8_t *bytes)
{
    return static_cast<std::uint16_t>(bytes[0] << 8 | bytes[1]);
}

std::string text(const std::uint8_t *payload, std::size_t begin, std::size_t end)
{
    std::string result;
    for (std::size_t i = begin; i < end && payload[i] != 0; ++i) {
        if (payload[i] >= 0x20 && payload[i] != 0x7f)
            result.push_back(static_cast<char>(payload[i]));
    }
    result.erase(result.find_last_not_of(' ') + 1);
    return result;
}

bool isAnswer(const Acknowledge &acknowledge, Answer answer, std::size_t length)
{
    return acknowledge.status == Success && acknowledge.answer == answer && acknowledge.length >= length;
}

} // namespace

std::uint16_t nextRequestId()
{
    static std::atomic<std::uint32_t> last{0};
    return static_cast<std::uint16_t>(last++ % 0xffff + 1);
}

Packet discoveryCommand(std::uint16_t id)
{
    return command(Discovery, id, 0, AcknowledgeRequired | BroadcastAnswerAllowed);
}

Packet forceIpCommand(std::uint16_t id, const AddressAssignment &assignment)
{
    Packet packet = command(ForceIp, id, ForceIpLength, AcknowledgeRequired | BroadcastAnswerAllowed);
    packet.resize(headerLength + ForceIpLength);
    std::uint8_t *const payload = packet.data() + headerLength;
    payload[ForcedMacAddressAt] = static_cast<std::uint8_t>(assignment.macAddress >> 40);
    payload[ForcedMacAddressAt + 1] = static_cast<std::uint8_t>(assignment.macAddress >> 32);
    storeWord(payload + ForcedMacAddressAt + 2, static_cast<std::uint32_t>(assignment.macAddress));
    storeWord(payload + ForcedIpAddressAt, assignment.ipAddress);
    storeWord(payload + ForcedNetmaskAt, assignment.netmask);
    storeWord(payload + ForcedGatewayAt, assignment.gateway);
    return packet;
}

Packet actionCommand(std::uint16_t id, const Action &action)
{
    const unsigned flags = (action.acknowledged ? AcknowledgeRequired : 0) | (action.time ? ScheduledAction : 0);
    Packet packet = command(ActionCode, id, action.time ? 20 : 12, static_cast<std::uint8_t>(flags));
    append32(packet, action.deviceKey);
    append32(packet, action.groupKey);
    append32(packet, action.groupMask);
    if (action.time) {
        append32(packet, static_cast<std::uint32_t>(*action.time >> 32));
        append32(packet, static_cast<std::uint32_t>(*action.time));
    }
    return packet;
}

Packet readRegisterCommand(std::uint16_t id, std::uint32_t address)
{
    Packet packet = command(ReadRegister, id, 4);
    append32(packet, address);
    return packet;
}

Packet writeRegisterCommand(std::uint16_t id, std::uint32_t address, std::uint32_t value)
{
    Packet packet = command(WriteRegister, id, 8);
    append32(packet, address);
    append32(packet, value);
    return packet;
}

Packet readMemoryCommand(std::uint16_t id, std::uint32_t address, std::size_t length)
{
    Packet packet = command(ReadMemory, id, 8);
    append32(packet, address);
    append16(packet, 0);
    append16(packet, length);
    return packet;
}

Packet writeMemoryCommand(std::uint16_t id, std::uint32_t address, const std::uint8_t *data, std::size_t length)
{
    Packet packet = command(WriteMemory, id, 4 + length);
    append32(packet, address);
    packet.insert(packet.end(), data, data + length);
    return packet;
}

std::optional<Acknowledge> parseAcknowledge(const Packet &packet)
{
    if (packet.size() < headerLength)
        return std::nullopt;
    Acknowledge acknowledge;
    acknowledge.status = load16(&packet[0]);
    acknowledge.answer = load16(&packet[2]);
    acknowledge.length = load16(&packet[4]);
    acknowledge.id = load16(&packet[6]);
    acknowledge.payload = packet.data() + headerLength;
    if (acknowledge.length > packet.size() - headerLength)
        return std::nullopt;
    return acknowledge;
}

std::optional<DiscoveryAnswer> parseDiscovery(const Acknowledge &acknowledge)
{
    if (!isAnswer(acknowledge, DiscoveryAck, DiscoveryLength))
        return std::nullopt;
    const std::uint8_t *payload = acknowledge.payload;
    DiscoveryAnswer answer;
    answer.macAddress = std::uint64_t(load16(payload + MacAddressAt)) << 32 | loadWord(payload + MacAddressAt + 2);
    answer.ipAddress = loadWord(payload + IpAddressAt);
    answer.netmask = loadWord(payload + NetmaskAt);
    answer.gateway = loadWord(payload + GatewayAt);
    answer.vendor = text(payload, VendorAt, ModelAt);
    answer.model = text(payload, ModelAt, DeviceVersionAt);
    answer.deviceVersion = text(payload, DeviceVersionAt, VendorInfoAt);
    answer.serialNumber = text(payload, SerialNumberAt, UserDefinedNameAt);
    answer.userDefinedName = text(payload, UserDefinedNameAt, DiscoveryLength);
    return answer;
}

std::optional<std::uint32_t> parseRegister(const Acknowledge &acknowledge)
{
    if (!isAnswer(acknowledge, ReadRegisterAck, 4))
        return std::nullopt;
    return loadWord(acknowledge.payload);
}

std::optional<std::uint16_t> parsePending(const Acknowledge &acknowledge)
{
    if (!isAnswer(acknowledge, PendingAck, 4))
        return std::nullopt;
    return load16(acknowledge.payload + 2);
}

const char *statusText(std::uint16_t status)
{
    switch (status) {
    case NotImplemented:
        return "the camera does not know the request";
    case InvalidParameter:
        return "the camera does not accept the value";
    case InvalidAddress:
        return "the camera has no such register";
    case WriteProtect:
        return "the register is write-protected";
    case BadAlignment:
        return "the register does not lie on a word boundary";
    case AccessDenied:
        return "the camera denies access";
    case Busy:
        return "the camera is busy";
    default:
        return "the camera reports an error";
    }
}

std::uint32_t loadWord(const std::uint8_t *bytes)
{
    return std::uint32_t(load16(bytes)) << 16 | load16(bytes + 2);
}

void storeWord(std::uint8_t *bytes, std::uint32_t value)
{
    for (int i = 0; i < 4; ++i)
        bytes[i] = static_cast<std::uint8_t>(value >> (24 - 8 * i));
}

} // namespace MoxSdk::Gvcp
