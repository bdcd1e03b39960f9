#include "cameraregisters.h"

#include <Base/GCException.h>

#include <algorithm>
#include <cinttypes>
#include <cstring>
#include <limits>

namespace MoxSdk {

namespace {

// Status codes that GigE Vision and USB3 Vision cameras share.
constexpr const char *InvalidParameter = "INVALID_PARAMETER (0x8002)";
constexpr const char *InvalidAddress = "INVALID_ADDRESS (0x8003)";
constexpr const char *WriteProtect = "WRITE_PROTECT (0x8004)";

std::uint64_t assemble(const std::uint8_t *bytes, std::int64_t length, bool bigEndian)
{
    std::uint64_t result = 0;
    for (std::int64_t i = 0; i < length; ++i)
        result = result << 8 | bytes[bigEndian ? i : length - 1 - i];
    return result;
}

void dismantle(std::uint64_t value, std::uint8_t *bytes, std::int64_t length, bool bigEndian)
{
    for (std::int64_t i = 0; i < length; ++i) {
        bytes[bigEndian ? length - 1 - i : i] = static_cast<std::uint8_t>(value);
        value >>= 8;
    }
}

std::uint64_t maskOf(const Register &reg)
{
    return reg.bits >= 64 ? ~std::uint64_t(0) : (std::uint64_t(1) << reg.bits) - 1;
}

} // namespace

void CameraRegisters::powerUp(bool reset)
{
    for (const Register &reg : m_map.registers()) {
        if (reg.powerUp.empty() || (reset && reg.isKept))
            continue;
        for (int bank = 0; bank < reg.banks; ++bank) {
            const std::size_t last = reg.powerUp.size() - 1;
            const std::string &value = reg.powerUp[std::min(static_cast<std::size_t>(bank), last)];
            if (reg.kind == Register::Kind::Text)
                setText(reg.name, value);
            else if (reg.kind == Register::Kind::Float)
                setReal(reg.name, std::stod(value), bank);
            else
                setInteger(reg.name, static_cast<std::int64_t>(std::stoull(value, nullptr, 0)), bank);
        }
    }
}

std::int64_t CameraRegisters::decode(const Register &reg, const std::uint8_t *bytes) const
{
    const std::uint64_t mask = maskOf(reg);
    std::uint64_t value = assemble(bytes, reg.length, reg.bigEndian) >> reg.shift & mask;
    if (reg.isSigned && reg.bits < 64 && (value >> (reg.bits - 1) & 1))
        value |= ~mask;
    return static_cast<std::int64_t>(value);
}

std::int64_t CameraRegisters::integer(const std::string &name, int bank) const
{
    const Register *reg = m_map.find(name);
    if (!reg || reg->length > 8)
        return 0;
    std::uint8_t bytes[8];
    m_space.read(bytes, static_cast<std::uint64_t>(reg->bankAddress(bank)), static_cast<std::uint64_t>(reg->length));
    return decode(*reg, bytes);
}

void CameraRegisters::setInteger(const std::string &name, std::int64_t value, int bank)
{
    const Register *reg = m_map.find(name);
    if (!reg || reg->length > 8)
        return;
    const auto address = static_cast<std::uint64_t>(reg->bankAddress(bank));
    const auto length = static_cast<std::uint64_t>(reg->length);
    std::uint8_t bytes[8];
    m_space.read(bytes, address, length);
    const std::uint64_t mask = maskOf(*reg) << reg->shift;
    const std::uint64_t others = assemble(bytes, reg->length, reg->bigEndian) & ~mask;
    dismantle(others | (static_cast<std::uint64_t>(value) << reg->shift & mask), bytes, reg->length, reg->bigEndian);
    m_space.write(bytes, address, length);
}

double CameraRegisters::real(const std::string &name, int bank) const
{
    const Register *reg = m_map.find(name);
    if (!reg || reg->kind != Register::Kind::Float)
        return 0;
    const auto bits = static_cast<std::uint64_t>(integer(name, bank));
    if (reg->length == 4) {
        const auto narrow = static_cast<std::uint32_t>(bits);
        float value = 0;
        std::memcpy(&value, &narrow, sizeof value);
        return static_cast<double>(value);
    }
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

void CameraRegisters::setReal(const std::string &name, double value, int bank)
{
    const Register *reg = m_map.find(name);
    if (!reg || reg->kind != Register::Kind::Float)
        return;
    std::uint64_t bits = 0;
    if (reg->length == 4) {
        const auto narrow = static_cast<float>(value);
        std::uint32_t low = 0;
        std::memcpy(&low, &narrow, sizeof low);
        bits = low;
    } else {
        std::memcpy(&bits, &value, sizeof value);
    }
    setInteger(name, static_cast<std::int64_t>(bits), bank);
}

std::string CameraRegisters::text(const std::string &name) const
{
    const Register *reg = m_map.find(name);
    if (!reg)
        return std::string();
    std::string result(static_cast<std::size_t>(reg->length), '\0');
    m_space.read(reinterpret_cast<std::uint8_t *>(&result[0]), static_cast<std::uint64_t>(reg->address), result.size());
    result.resize(std::min(result.size(), result.find('\0')));
    return result;
}

void CameraRegisters::setText(const std::string &name, const std::string &text)
{
    const Register *reg = m_map.find(name);
    if (!reg)
        return;
    std::string bytes = text;
    bytes.resize(static_cast<std::size_t>(reg->length), '\0');
    m_space.write(reinterpret_cast<const std::uint8_t *>(bytes.data()), static_cast<std::uint64_t>(reg->address),
                  bytes.size());
}

std::vector<CameraRegisters::Touched> CameraRegisters::touched(std::int64_t address, std::int64_t length) const
{
    std::vector<Touched> result;
    for (const Register &reg : m_map.registers()) {
        for (int bank = 0; bank < reg.banks; ++bank) {
            const std::int64_t start = reg.bankAddress(bank);
            if (start < address + length && address < start + reg.length)
                result.push_back({&reg, bank});
        }
    }
    return result;
}

bool CameraRegisters::covers(std::int64_t address, std::int64_t length, bool written) const
{
    std::vector<bool> covered(static_cast<std::size_t>(length));
    for (const Touched &part : touched(address, length)) {
        if (written && !part.reg->writable)
            continue;
        const std::int64_t start = part.reg->bankAddress(part.bank);
        const std::int64_t from = std::max(start, address) - address;
        const std::int64_t to = std::min(start + part.reg->length, address + length) - address;
        std::fill(covered.begin() + from, covered.begin() + to, true);
    }
    return std::find(covered.begin(), covered.end(), false) == covered.end();
}

void CameraRegisters::checkRead(std::int64_t address, std::int64_t length) const
{
    // Transports address 32 bits; this also keeps sums of address and length small.
    constexpr std::int64_t HighestAddress = 0xFFFFFFFF;
    const bool addressable =
        address >= 0 && address <= HighestAddress && length >= 0 && length <= HighestAddress - address;
    if (!addressable || !covers(address, length, false))
        throw RUNTIME_EXCEPTION("The camera answers %s to an access of %" PRId64 " bytes at 0x%" PRIX64, InvalidAddress,
                                length, address);
}

void CameraRegisters::checkWrite(const std::uint8_t *bytes, std::int64_t address, std::int64_t length) const
{
    checkRead(address, length);
    if (!covers(address, length, true))
        throw ACCESS_EXCEPTION("The camera answers %s to a write at 0x%" PRIX64, WriteProtect, address);
    const std::vector<Touched> parts = touched(address, length);
    for (const Touched &part : parts) {
        const Register &reg = *part.reg;
        if (!reg.writable || reg.kind != Register::Kind::Integer || reg.length > 8)
            continue;
        const std::int64_t start = reg.bankAddress(part.bank);
        std::uint8_t after[8];
        m_space.read(after, static_cast<std::uint64_t>(start), static_cast<std::uint64_t>(reg.length));
        for (std::int64_t i = std::max(start, address); i < std::min(start + reg.length, address + length); ++i)
            after[i - start] = bytes[i - address];
        checkValue(reg, part.bank, decode(reg, after));
    }
}

void CameraRegisters::write(const std::uint8_t *bytes, std::int64_t address, std::int64_t length)
{
    // Only bit fields share their bytes with writable ones.
    const std::vector<Touched> parts = touched(address, length);
    std::vector<std::int64_t> protectedValues;
    protectedValues.reserve(parts.size());
    for (const Touched &part : parts)
        protectedValues.push_back(part.reg->writable ? 0 : integer(part.reg->name, part.bank));
    m_space.write(bytes, static_cast<std::uint64_t>(address), static_cast<std::uint64_t>(length));
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (!parts[i].reg->writable)
            setInteger(parts[i].reg->name, protectedValues[i], parts[i].bank);
    }
}

std::int64_t CameraRegisters::term(const std::string &text, int bank) const
{
    const Register *reg = m_map.find(text);
    if (reg)
        return integer(text, reg->banks > 1 ? bank : 0);
    return static_cast<std::int64_t>(std::stoll(text, nullptr, 0));
}

std::int64_t CameraRegisters::limit(const std::string &text, int bank, std::int64_t fallback) const
{
    if (text.empty())
        return fallback;
    // Not at the first place, where a minus is a sign.
    const std::size_t minus = text.find('-', 1);
    if (minus == std::string::npos)
        return term(text, bank);
    return term(text.substr(0, minus), bank) - term(text.substr(minus + 1), bank);
}

void CameraRegisters::checkValue(const Register &reg, int bank, std::int64_t value) const
{
    const std::int64_t minimum = limit(reg.minimum, bank, std::numeric_limits<std::int64_t>::min());
    const std::int64_t maximum = limit(reg.maximum, bank, std::numeric_limits<std::int64_t>::max());
    const bool inRange = value >= minimum && value <= maximum;
    const std::int64_t origin = reg.minimum.empty() ? 0 : minimum;
    const bool onStep = reg.increment <= 1 || (value - origin) % reg.increment == 0;
    const bool listed =
        reg.values.empty() || std::find(reg.values.begin(), reg.values.end(), value) != reg.values.end();
    if (!inRange || !onStep || !listed)
        throw RUNTIME_EXCEPTION("The camera answers %s to %" PRId64 " in %s", InvalidParameter, value,
                                reg.name.c_str());
}

} // namespace MoxSdk
