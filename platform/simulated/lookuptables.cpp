#include "lookuptables.h"

#include <cmath>

namespace MoxSdk {

namespace {

constexpr int Entries = 256;
constexpr double Highest = 4095;

double straight(double in)
{
    return in;
}

} // namespace

void LookupTables::powerUp(std::chrono::nanoseconds)
{
    fill(0, straight);
    fill(1, [](double in) { return std::pow(in, 0.45); });
    fill(2, [](double in) { return 1 - in; });
    fill(3, [](double in) { return in < 0.5 ? 0.0 : 1.0; });
}

void LookupTables::written(const std::string &name, int, std::chrono::nanoseconds)
{
    if (name == "LUTResetReg")
        fill(static_cast<int>(m_registers.integer("LUTSelectorReg")), straight);
}

void LookupTables::fill(int table, double (*curve)(double))
{
    const Register *all = m_registers.map().find("LUTValueAll");
    const Register *neighbour = m_registers.map().find("LUTSelectorReg");
    if (!all || !neighbour)
        return;
    for (int i = 0; i < Entries; ++i) {
        const auto value = static_cast<std::uint32_t>(std::lround(Highest * curve(i / double(Entries - 1))));
        std::uint8_t bytes[4];
        for (unsigned byte = 0; byte < 4; ++byte)
            bytes[neighbour->bigEndian ? 3 - byte : byte] = static_cast<std::uint8_t>(value >> 8 * byte);
        m_registers.space().write(bytes, static_cast<std::uint64_t>(all->bankAddress(table) + 4 * i), 4);
    }
}

} // namespace MoxSdk
