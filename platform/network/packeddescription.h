// How a camera holds its GenICam description.
#ifndef MOXSDK_PACKEDDESCRIPTION_H
#define MOXSDK_PACKEDDESCRIPTION_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace MoxSdk {

/** Where in a camera's memory a description lies. */
struct DescriptionPlace
{
    std::uint64_t address = 0;
    std::size_t length = 0;
};

/**
 * Reads "Local:name.xml;address;length", numbers in base 16, zero-terminated or not. Nothing for descriptions that are
 * on a disk or on a web site, and for lengths that no description has.
 */
std::optional<DescriptionPlace> parseDescriptionUrl(const std::string &url);

/** Unzips where there is an archive, and gives the text without what pads it. Throws RuntimeException. */
std::string unpackDescription(std::string bytes);

} // namespace MoxSdk

#endif
