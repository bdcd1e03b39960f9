#include "dottedaddress.h"

#include <algorithm>
#include <charconv>
#include <cstddef>

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
        const auto [stop, failure] = std::from_chars(at, at + std::min<std::ptrdiff_t>(end - at, 3), number);
        if (failure != std::errc() || number > 255)
            return std::nullopt;
        address = address << 8 | number;
        at = stop;
    }
    return at == end ? std::optional(address) : std::nullopt;
}

std::string dotted(std::uint32_t address)
{
    return std::to_string(address >> 24) + '.' + std::to_string(address >> 16 & 0xFF) + '.'
        + std::to_string(address >> 8 & 0xFF) + '.' + std::to_string(address & 0xFF);
}

} // namespace MoxSdk
