// Packets of the GigE Vision Control Protocol.
#ifndef MOXSDK_GVCP_H
#define MOXSDK_GVCP_H

#include "../device/action.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/** Builds and reads packets; opens no socket. Numbers are big-endian on the wire and host order here. */
namespace MoxSdk::Gvcp {

using Packet = std::vector<std::uint8_t>;

/** The UDP port that cameras listen on. */
constexpr std::uint16_t standardPort = 3956;
/** The most bytes that one memory command moves here; the protocol's own limit is 536. */
constexpr std::size_t maximumBlock = 512;

/** Acknowledges that commands are answered with; an acknowledge is its command's number plus one. */
enum Answer : std::uint16_t {
    DiscoveryAck = 0x0003,
    ForceIpAck = 0x0005,
    ReadRegisterAck = 0x0081,
    WriteRegisterAck = 0x0083,
    ReadMemoryAck = 0x0085,
    WriteMemoryAck = 0x0087,
    PendingAck = 0x0089,
    ActionAck = 0x0101
};

/** Status words that are told apart; all but success begin with 8. */
enum Status : std::uint16_t {
    Success = 0x0000,
    NotImplemented = 0x8001,
    InvalidParameter = 0x8002,
    InvalidAddress = 0x8003,
    WriteProtect = 0x8004,
    BadAlignment = 0x8005,
    AccessDenied = 0x8006,
    Busy = 0x8007
};

/** Addresses in the register space that every camera has. */
enum BootstrapRegister : std::uint32_t {
    FirstDescriptionUrl = 0x0200,
    SecondDescriptionUrl = 0x0400,
    HeartbeatTimeout = 0x0938,
    ControlChannelPrivilege = 0x0a00
};
constexpr std::size_t descriptionUrlLength = 512;

/** Bits of the control channel privilege register. */
enum Privilege : std::uint32_t { ExclusiveAccess = 0x1, ControlAccess = 0x2 };

/** A request id that differs from the last ones of this process and is never 0. Thread-safe. */
std::uint16_t nextRequestId();

/** Asks every camera that hears it who it is, also those whose answer must be a broadcast. */
Packet discoveryCommand(std::uint16_t id);

/** An address for the camera with a hardware address, until its next start. */
struct AddressAssignment
{
    std::uint64_t macAddress = 0; ///< of the camera that is meant; the others pass over it
    std::uint32_t ipAddress = 0; ///< 0: the camera is to look for an address by itself
    std::uint32_t netmask = 0;
    std::uint32_t gateway = 0;
};
/**
 * Tells a camera, in whatever subnet it is, to take an address. Allows an answer by broadcast too: the camera may not
 * be able to send to this host yet.
 */
Packet forceIpCommand(std::uint16_t id, const AddressAssignment &assignment);

/** Tells every camera that hears it to act. */
Packet actionCommand(std::uint16_t id, const Action &action);

Packet readRegisterCommand(std::uint16_t id, std::uint32_t address);
Packet writeRegisterCommand(std::uint16_t id, std::uint32_t address, std::uint32_t value);
/** @p address and @p length are multiples of 4, @p length at most `maximumBlock`; so for writing. */
Packet readMemoryCommand(std::uint16_t id, std::uint32_t address, std::size_t length);
Packet writeMemoryCommand(std::uint16_t id, std::uint32_t address, const std::uint8_t *data, std::size_t length);

/** An answer's header, and its payload inside the packet that it was read from. */
struct Acknowledge
{
    std::uint16_t status = Success;
    std::uint16_t answer = 0;
    std::uint16_t id = 0;
    const std::uint8_t *payload = nullptr;
    std::size_t length = 0;
};

/** Nothing for a packet that is too short for a header or for the payload that its header announces. */
std::optional<Acknowledge> parseAcknowledge(const Packet &packet);

/** What a camera says of itself; texts without control characters and without blanks at their end. */
struct DiscoveryAnswer
{
    std::uint64_t macAddress = 0;
    std::uint32_t ipAddress = 0;
    std::uint32_t netmask = 0;
    std::uint32_t gateway = 0;
    std::string vendor;
    std::string model;
    std::string deviceVersion;
    std::string serialNumber;
    std::string userDefinedName;
};

/** Nothing for an answer to something else, for a refusal and for a short payload. */
std::optional<DiscoveryAnswer> parseDiscovery(const Acknowledge &acknowledge);

/** The value of a register; nothing for an answer to something else, for a refusal and for a short payload. */
std::optional<std::uint32_t> parseRegister(const Acknowledge &acknowledge);

/** How long a camera asks to be waited for, in milliseconds. */
std::optional<std::uint16_t> parsePending(const Acknowledge &acknowledge);

/** The reason for a status word, for a user. */
const char *statusText(std::uint16_t status);

std::uint32_t loadWord(const std::uint8_t *bytes);
void storeWord(std::uint8_t *bytes, std::uint32_t value);

} // namespace MoxSdk::Gvcp

#endif
