#include "registernodes.h"

#include "nodemap.h"
#include "numbers.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace MoxGenApi {

using namespace GenApi;

namespace {

constexpr std::size_t longestNumber = 8;

constexpr std::int64_t noBit = 64; // outside of every register that holds a number

// Both directions: the order of the bytes in the register against the least significant first.
std::uint64_t numberFrom(Bytes bytes, bool isBigEndian)
{
    if (bytes.size() > longestNumber)
        throw RUNTIME_EXCEPTION("A register of %zu bytes is too long for a number.", bytes.size());
    if (isBigEndian)
        std::reverse(bytes.begin(), bytes.end());
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        number |= static_cast<std::uint64_t>(bytes[i]) << (8 * i);
    return number;
}

Bytes bytesFrom(std::uint64_t number, std::size_t length, bool isBigEndian)
{
    Bytes bytes(length);
    for (std::size_t i = 0; i < length; ++i)
        bytes[i] = static_cast<std::uint8_t>(number >> (8 * i));
    if (isBigEndian)
        std::reverse(bytes.begin(), bytes.end());
    return bytes;
}

std::uint64_t lowBits(int count)
{
    return count >= 64 ? ~std::uint64_t(0) : (std::uint64_t(1) << count) - 1;
}

std::int64_t withSign(std::uint64_t number, int width, bool isSigned)
{
    if (isSigned && width < 64 && number >> (width - 1) & 1)
        number |= ~lowBits(width);
    return static_cast<std::int64_t>(number);
}

} // namespace

IntRegNode::IntRegNode(NodeMap &map, const NodeDescription &description, std::size_t position)
    : RegisterOf(map, description, position),
      m_isBigEndian(description.text("Endianess") == "BigEndian"),
      m_isSigned(description.text("Sign") == "Signed")
{ }

std::size_t IntRegNode::checkedLength()
{
    const auto bytes = static_cast<std::size_t>(length());
    if (bytes > longestNumber)
        throw RUNTIME_EXCEPTION("Node '%s': a register of %lld bytes is too long for an integer.", name(),
                                static_cast<long long>(bytes));
    return bytes;
}

int IntRegNode::width()
{
    return static_cast<int>(8 * checkedLength());
}

std::int64_t IntRegNode::readValue(bool ignoreCache)
{
    const int bits = width();
    return withSign(numberFrom(bytes(ignoreCache), m_isBigEndian), bits, m_isSigned);
}

void IntRegNode::writeValue(std::int64_t value, bool)
{
    setBytes(bytesFrom(static_cast<std::uint64_t>(value), checkedLength(), m_isBigEndian));
}

std::int64_t IntRegNode::naturalMin()
{
    return m_isSigned ? static_cast<std::int64_t>(~lowBits(width() - 1)) : 0;
}

// An unsigned number of 64 bits ends where the type of the interface ends.
std::int64_t IntRegNode::naturalMax()
{
    const int bits = width();
    return static_cast<std::int64_t>(lowBits(std::min(m_isSigned ? bits - 1 : bits, 63)));
}

MaskedIntRegNode::MaskedIntRegNode(NodeMap &map, const NodeDescription &description, std::size_t position)
    : IntRegNode(map, description, position)
{
    const auto place = [&description](const char *tag, std::int64_t otherwise) {
        const std::int64_t bit = parseInteger(description.text(tag)).value_or(otherwise);
        return bit >= 0 && bit < noBit ? bit : noBit;
    };
    m_lsb = place("LSB", place("Bit", 0));
    m_msb = place("MSB", place("Bit", m_lsb));
}

// In a big endian register bit 0 is the most significant one. Descriptions mix up LSB and MSB now and then, and either
// order means the same bits.
std::optional<MaskedIntRegNode::Field> MaskedIntRegNode::fieldWithin(std::size_t length) const
{
    const auto bits = static_cast<std::int64_t>(8 * length);
    const std::int64_t first = m_isBigEndian ? bits - 1 - m_lsb : m_lsb;
    const std::int64_t second = m_isBigEndian ? bits - 1 - m_msb : m_msb;
    const std::int64_t low = std::min(first, second);
    const std::int64_t high = std::max(first, second);
    if (low < 0 || high >= bits)
        return std::nullopt;
    return Field{static_cast<int>(low), static_cast<int>(high - low + 1)};
}

MaskedIntRegNode::Field MaskedIntRegNode::field(std::size_t length) const
{
    if (const auto bits = fieldWithin(length))
        return *bits;
    throw RUNTIME_EXCEPTION("Node '%s': its bits lie outside of its register.", name());
}

int MaskedIntRegNode::width()
{
    return field(checkedLength()).width;
}

std::uint8_t MaskedIntRegNode::shownBits(std::size_t index) const
{
    const auto size = static_cast<std::size_t>(heldLength());
    if (size == 0 || size > longestNumber || index >= size)
        return 0xff;
    // Whose bits lie nowhere goes stale with any byte: this is asked after the device has taken a write.
    const auto bits = fieldWithin(size);
    return bits ? bytesFrom(lowBits(bits->width) << bits->low, size, m_isBigEndian)[index] : 0xff;
}

std::int64_t MaskedIntRegNode::readValue(bool ignoreCache)
{
    const Field bits = field(checkedLength());
    const std::uint64_t number = numberFrom(bytes(ignoreCache), m_isBigEndian) >> bits.low & lowBits(bits.width);
    return withSign(number, bits.width, m_isSigned);
}

void MaskedIntRegNode::writeValue(std::int64_t value, bool)
{
    const std::size_t size = checkedLength();
    const Field bits = field(size);
    const std::uint64_t mask = lowBits(bits.width) << bits.low;
    // The other bits of the register stay; where the register cannot be read they are zero.
    std::uint64_t number = IsReadable(registerMode()) ? numberFrom(bytes(false), m_isBigEndian) : 0;
    number = (number & ~mask) | (static_cast<std::uint64_t>(value) << bits.low & mask);
    setBytes(bytesFrom(number, size, m_isBigEndian));
}

FloatRegNode::FloatRegNode(NodeMap &map, const NodeDescription &description, std::size_t position)
    : RegisterOf(map, description, position), m_isBigEndian(description.text("Endianess") == "BigEndian")
{ }

std::size_t FloatRegNode::checkedLength()
{
    const std::int64_t bytes = length();
    if (bytes != sizeof(float) && bytes != sizeof(double))
        throw RUNTIME_EXCEPTION("Node '%s': a register of %lld bytes holds no floating point number.", name(),
                                static_cast<long long>(bytes));
    return static_cast<std::size_t>(bytes);
}

double FloatRegNode::readValue(bool ignoreCache)
{
    const std::size_t size = checkedLength();
    const std::uint64_t bits = numberFrom(bytes(ignoreCache), m_isBigEndian);
    if (size == sizeof(double)) {
        double value = 0;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }
    const auto half = static_cast<std::uint32_t>(bits);
    float value = 0;
    std::memcpy(&value, &half, sizeof value);
    return static_cast<double>(value);
}

void FloatRegNode::writeValue(double value, bool)
{
    const std::size_t size = checkedLength();
    std::uint64_t bits = 0;
    if (size == sizeof(double)) {
        std::memcpy(&bits, &value, sizeof value);
    } else {
        // Beyond what the shorter number holds, its limit is written.
        constexpr auto limit = static_cast<double>(std::numeric_limits<float>::max());
        const auto half = static_cast<float>(std::clamp(value, -limit, limit));
        std::memcpy(&bits, &half, sizeof half);
    }
    setBytes(bytesFrom(bits, size, m_isBigEndian));
}

double FloatRegNode::naturalMin()
{
    return -naturalMax();
}

double FloatRegNode::naturalMax()
{
    return length() == sizeof(float) ? static_cast<double>(std::numeric_limits<float>::max())
                                     : std::numeric_limits<double>::max();
}

std::string StringRegNode::readText(bool ignoreCache)
{
    const Bytes content = bytes(ignoreCache);
    return std::string(content.begin(), std::find(content.begin(), content.end(), 0));
}

void StringRegNode::writeText(const std::string &text, bool)
{
    Bytes content(text.begin(), text.end());
    content.resize(static_cast<std::size_t>(length()));
    setBytes(content);
}

std::string RegisterNode::printed(bool ignoreCache)
{
    static const char digits[] = "0123456789abcdef";
    std::string text = "0x";
    for (std::uint8_t byte : bytes(ignoreCache)) {
        text += digits[byte >> 4];
        text += digits[byte & 0xf];
    }
    return text;
}

void RegisterNode::setPrinted(const std::string &text, bool verify)
{
    const bool hasPrefix = text.rfind("0x", 0) == 0 || text.rfind("0X", 0) == 0;
    const std::string digits = text.substr(hasPrefix ? 2 : 0);
    Bytes content;
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2) {
        if (const auto byte = parseInteger("0x" + digits.substr(i, 2)))
            content.push_back(static_cast<std::uint8_t>(*byte));
    }
    if (digits.size() % 2 || content.size() * 2 != digits.size())
        throw INVALID_ARGUMENT_EXCEPTION("Node '%s': '%s' is no row of hexadecimal bytes.", name(), text.c_str());
    Set(content.data(), static_cast<std::int64_t>(content.size()), verify);
}

} // namespace MoxGenApi
