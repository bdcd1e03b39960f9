// What comes over the network while cameras are looked for. The input is a row of datagrams, each with three bytes in
// front: whose request it answers, how many bytes it has, and where it comes from.
#include "device/dottedaddress.h"
#include "fuzzer.h"
#include "network/gvcpdiscovery.h"

#include <algorithm>

using namespace MoxSdk;

namespace {

constexpr std::uint32_t here = 0x7f000001;

/** The loopback adapter: nothing that is asked leaves the machine. */
Adapter loopback()
{
    Adapter adapter;
    adapter.index = 1;
    adapter.name = "lo";
    adapter.ipAddress = here;
    adapter.netmask = 0xff000000;
    adapter.isLoopback = true;
    return adapter;
}

bool isClean(const std::string &text)
{
    const auto isControl = [](unsigned char c) { return c < 0x20 || c == 0x7f; };
    return std::none_of(text.begin(), text.end(), isControl) && (text.empty() || text.back() != ' ');
}

void checkAnswer(const Gvcp::DiscoveryAnswer &answer)
{
    MOX_FUZZ_CHECK(answer.macAddress >> 48 == 0);
    const std::size_t most[] = {32, 32, 32, 16, 16};
    std::size_t i = 0;
    for (const std::string *text :
         {&answer.vendor, &answer.model, &answer.deviceVersion, &answer.serialNumber, &answer.userDefinedName})
        MOX_FUZZ_CHECK(isClean(*text) && text->size() <= most[i++]);
}

/** Reads one packet in every way; an acknowledge is read in the one way that its kind and its length allow. */
void checkPacket(const Gvcp::Packet &packet)
{
    const auto acknowledge = Gvcp::parseAcknowledge(packet);
    const std::size_t announced = packet.size() < 8 ? 0 : std::size_t(packet[4]) << 8 | packet[5];
    MOX_FUZZ_CHECK(acknowledge.has_value() == (packet.size() >= 8 && packet.size() - 8 >= announced));
    if (!acknowledge)
        return;
    MOX_FUZZ_CHECK(acknowledge->length == announced && acknowledge->payload == packet.data() + 8);
    MOX_FUZZ_CHECK(*Gvcp::statusText(acknowledge->status) != '\0');
    const bool isGood = acknowledge->status == Gvcp::Success;
    const auto is = [&](Gvcp::Answer answer, std::size_t least) {
        return isGood && acknowledge->answer == answer && announced >= least;
    };
    const auto discovery = Gvcp::parseDiscovery(*acknowledge);
    const auto value = Gvcp::parseRegister(*acknowledge);
    const auto pending = Gvcp::parsePending(*acknowledge);
    MOX_FUZZ_CHECK(discovery.has_value() == is(Gvcp::DiscoveryAck, 0xf8));
    MOX_FUZZ_CHECK(value.has_value() == is(Gvcp::ReadRegisterAck, 4));
    MOX_FUZZ_CHECK(pending.has_value() == is(Gvcp::PendingAck, 4));
    if (discovery)
        checkAnswer(*discovery);
    if (value) {
        std::uint8_t bytes[4];
        Gvcp::storeWord(bytes, *value);
        MOX_FUZZ_CHECK(std::equal(bytes, bytes + 4, acknowledge->payload));
    }
}

void checkRecords(const std::vector<DeviceRecord> &records)
{
    for (std::size_t i = 0; i < records.size(); ++i) {
        const DeviceRecord &record = records[i];
        MOX_FUZZ_CHECK(i == 0 || records[i - 1].id < record.id);
        MOX_FUZZ_CHECK(isClean(record.displayName) && isClean(record.id));
        const bool isInSubnet = loopback().contains(record.ipAddress);
        MOX_FUZZ_CHECK((record.accessStatus == MoxCam::AccessSubnetMismatch) == !isInSubnet);
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size > 2048)
        return -1;
    MoxFuzz::Input input(data, size);
    // Requests are numbered through: the search's own comes next, and behind it those for the cameras' privileges.
    const std::uint16_t last = Gvcp::nextRequestId();
    GvcpDiscovery discovery(loopback(), 9, {loopback()}); // the port that discards
    std::size_t known = 0;
    while (!input.isAtEnd()) {
        const unsigned answered = input.byte();
        const std::size_t length = input.byte() + std::size_t(8); // at least a header
        const unsigned source = input.byte();
        const std::string bytes = input.bytes(length);
        UdpSocket::Datagram datagram{
            {bytes.begin(), bytes.end()}, here + (source & 0x7f), here, source < 0x80 ? 1u : 2u};
        checkPacket(datagram.bytes);
        if (datagram.bytes.size() >= 8 && answered < 0x80) {
            const unsigned id = (last + answered % 8u) % 0xffff + 1;
            datagram.bytes[6] = static_cast<std::uint8_t>(id >> 8);
            datagram.bytes[7] = static_cast<std::uint8_t>(id);
        }
        discovery.handle(datagram);
        const std::vector<DeviceRecord> records = discovery.records();
        MOX_FUZZ_CHECK(records.size() == known || records.size() == known + 1);
        known = records.size();
        checkRecords(records);
    }
    return 0;
}
