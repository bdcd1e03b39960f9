// IPv4 addresses as users write them.
#ifndef MOXSDK_DOTTEDADDRESS_H
#define MOXSDK_DOTTEDADDRESS_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace MoxSdk {

/**
 * Four decimal numbers of at most three digits, 0 to 255, with dots between them, the first one into the top byte;
 * nothing for any other text.
 */
std::optional<std::uint32_t> parseDotted(std::string_view text);

/** As `parseDotted` reads it, without leading zeros. */
std::string dotted(std::uint32_t address);

} // namespace MoxSdk

#endif
