#include "dottedaddress.h"

#include <algorithm>
#include <charconv>

namespace MoxSdk {

std::optional<std::uint32_t> parseDotted(std::string_view text)
{
    std::uint32_t address = 0;
    const char *at = text.data();
    const char *const end = at + text.size();
    for (int part = 0; part < 4; ++part) {
        if (part > 0 && (at == end || *at++ != '.'))
            return std::nullopt;
        // Leading zeros are decimal too.
        unsigned number = 0;
        const auto [stop, failure] = std::from_chars(at, std::min(end, at + 3), number);
        if (failure != std::errc() || number > 255)
            return std::nullopt;
        address = address << 8 | number;
        at = stop;
    }
    return at == end ? std::optional(address) : std::nullopt;
}

bool isHostAddress(std::uint32_t address, std::uint32_t netmask)
{
    const std::uint32_t host = ~netmask;
    const bool wholeMask = netmask != 0 && (host & (host + 1)) == 0;
    const bool unicast = address >> 24 != 0 && address >> 24 < 224;
    return wholeMask && unicast && (address & host) != 0 && (address & host) != host;
}

} // namespace MoxSdk
