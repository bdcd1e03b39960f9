// IPv4 addresses as users write them.
#ifndef MOXSDK_DOTTEDADDRESS_H
#define MOXSDK_DOTTEDADDRESS_H

#include <cstdint>
#include <optional>
#include <string_view>

namespace MoxSdk {

/**
 * Four decimal numbers of at most three digits, 0 to 255, with dots between them, the first one into the top byte;
 * nothing for any other text.
 */
std::optional<std::uint32_t> parseDotted(std::string_view text);

/** Whether a camera could have that address in that subnet; its subnet's own and its broadcast address are nobody's. */
bool isHostAddress(std::uint32_t address, std::uint32_t netmask);

} // namespace MoxSdk

#endif
