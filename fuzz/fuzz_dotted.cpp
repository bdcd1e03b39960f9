// The address that an application gives the SDK to connect to: the input is its text.
#include "device/dottedaddress.h"
#include "fuzzer.h"

#include <regex>

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size > 64)
        return -1;
    const std::string text(reinterpret_cast<const char *>(data), size);
    static const std::regex form("([0-9]{1,3})\\.([0-9]{1,3})\\.([0-9]{1,3})\\.([0-9]{1,3})");
    std::smatch match;
    bool isAddress = std::regex_match(text, match, form);
    std::uint32_t expected = 0;
    for (std::size_t i = 1; isAddress && i <= 4; ++i) {
        const unsigned long number = std::stoul(match[i]);
        isAddress = number <= 255;
        expected = expected * 256 + static_cast<std::uint32_t>(number);
    }
    const auto address = MoxSdk::parseDotted(text);
    MOX_FUZZ_CHECK(address.has_value() == isAddress);
    if (!address)
        return 0;
    MOX_FUZZ_CHECK(*address == expected);
    MOX_FUZZ_CHECK(MoxSdk::parseDotted(MoxSdk::dotted(*address)) == address);
    return 0;
}
