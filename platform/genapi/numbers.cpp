#include "numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

namespace MoxGenApi {

namespace {

constexpr char blanks[] = " \t\r\n\f\v";

// Groups of digits with a separator between them, most significant first.
std::optional<std::int64_t> parseGroups(const std::string &text, char separator, int count, int base)
{
    std::uint64_t value = 0;
    const char *at = text.data();
    const char *const end = at + text.size();
    for (int group = 0; group < count; ++group) {
        unsigned digits = 0;
        const auto result = std::from_chars(at, end, digits, base);
        if (result.ec != std::errc() || digits > 0xff)
            return std::nullopt;
        value = value << 8 | digits;
        at = result.ptr;
        if (group + 1 < count && (at == end || *at++ != separator))
            return std::nullopt;
    }
    if (at != end)
        return std::nullopt;
    return static_cast<std::int64_t>(value);
}

} // namespace

std::string trimmed(const std::string &text)
{
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::optional<std::int64_t> parseInteger(const std::string &text)
{
    const std::string digits = trimmed(text);
    const char *at = digits.data();
    const char *const end = at + digits.size();
    const bool negative = at != end && *at == '-';
    if (at != end && (*at == '-' || *at == '+'))
        ++at;
    int base = 10;
    if (end - at > 2 && at[0] == '0' && (at[1] == 'x' || at[1] == 'X')) {
        base = 16;
        at += 2;
    }
    std::uint64_t magnitude = 0;
    const auto result = std::from_chars(at, end, magnitude, base);
    if (result.ec != std::errc() || result.ptr != end)
        return std::nullopt;
    constexpr std::uint64_t limit = std::uint64_t(1) << 63;
    if (negative ? magnitude > limit : (base == 10 && magnitude >= limit))
        return std::nullopt;
    return static_cast<std::int64_t>(negative ? std::uint64_t(0) - magnitude : magnitude);
}

std::optional<double> parseReal(const std::string &text)
{
    const std::string digits = trimmed(text);
    const char *at = digits.data();
    const char *const end = at + digits.size();
    if (at != end && *at == '+')
        ++at;
    double value = 0;
    const auto result = std::from_chars(at, end, value);
    if (result.ec == std::errc() && result.ptr == end)
        return value;
    if (const auto integer = parseInteger(digits))
        return static_cast<double>(*integer);
    return std::nullopt;
}

std::string formatReal(double value)
{
    std::array<char, 40> text;
    const auto result = std::to_chars(text.data(), text.data() + text.size(), value);
    return std::string(text.data(), result.ptr);
}

std::string formatInteger(std::int64_t value, GenApi::ERepresentation representation)
{
    const auto bits = static_cast<std::uint64_t>(value);
    const auto byte = [bits](int index) { return static_cast<unsigned>(bits >> (8 * index) & 0xff); };
    std::array<char, 40> text;
    switch (representation) {
    case GenApi::HexNumber:
        std::snprintf(text.data(), text.size(), "0x%llX", static_cast<unsigned long long>(bits));
        return text.data();
    case GenApi::IPV4Address:
        std::snprintf(text.data(), text.size(), "%u.%u.%u.%u", byte(3), byte(2), byte(1), byte(0));
        return text.data();
    case GenApi::MACAddress:
        std::snprintf(text.data(), text.size(), "%02X:%02X:%02X:%02X:%02X:%02X", byte(5), byte(4), byte(3), byte(2),
                      byte(1), byte(0));
        return text.data();
    default:
        return std::to_string(value);
    }
}

std::optional<std::int64_t> parseInteger(const std::string &text, GenApi::ERepresentation representation)
{
    std::optional<std::int64_t> value;
    if (representation == GenApi::IPV4Address)
        value = parseGroups(trimmed(text), '.', 4, 10);
    else if (representation == GenApi::MACAddress)
        value = parseGroups(trimmed(text), ':', 6, 16);
    return value ? value : parseInteger(text);
}

GenApi::ERepresentation representationFromText(const std::string &text)
{
    static const char *const names[] = {"Linear",    "Logarithmic", "Boolean",   "PureNumber",
                                        "HexNumber", "IPV4Address", "MACAddress"};
    for (int i = 0; i < GenApi::_UndefinedRepresentation; ++i) {
        if (text == names[i])
            return static_cast<GenApi::ERepresentation>(i);
    }
    return GenApi::_UndefinedRepresentation;
}

std::int64_t toInteger(double value)
{
    if (std::isnan(value))
        return 0;
    const double rounded = std::round(value);
    if (rounded >= 0x1p63)
        return std::numeric_limits<std::int64_t>::max();
    if (rounded < -0x1p63)
        return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(rounded);
}

} // namespace MoxGenApi
