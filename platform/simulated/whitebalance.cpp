#include "whitebalance.h"

#include <algorithm>
#include <cmath>

namespace MoxSdk {

namespace {

constexpr const char *Coefficients[] = {"RedCoefficientReg", "GreenCoefficientReg", "BlueCoefficientReg"};
constexpr double Wanted[] = {412, 256, 538}; ///< for the lamp of the simulated world

enum Mode { Off, Once, Continuous };

} // namespace

void WhiteBalance::powerUp(std::chrono::nanoseconds now)
{
    begin(now);
}

void WhiteBalance::written(const std::string &name, int, std::chrono::nanoseconds now)
{
    if (name == "BalanceWhiteAutoReg")
        begin(now);
}

void WhiteBalance::settingsReplaced(std::chrono::nanoseconds now)
{
    begin(now);
}

void WhiteBalance::begin(std::chrono::nanoseconds now)
{
    m_start = now;
    for (std::size_t i = 0; i < m_from.size(); ++i)
        m_from[i] = m_registers.integer(Coefficients[i]);
}

void WhiteBalance::advance(std::chrono::nanoseconds now)
{
    const std::int64_t mode = m_registers.integer("BalanceWhiteAutoReg");
    if (mode == Off)
        return;
    static constexpr double seconds[] = {4, 2, 1};
    const double duration = seconds[std::min<std::int64_t>(m_registers.integer("AutoTrackingSpeedReg"), 2)];
    const double elapsed = std::chrono::duration<double>(now - m_start).count();
    const double way = std::min(elapsed / duration, 1.0);
    const double eased = way * way * (3 - 2 * way);
    for (std::size_t i = 0; i < m_from.size(); ++i) {
        const auto from = static_cast<double>(m_from[i]);
        // The light is never quite steady; once settled, a continuous balance follows it a little.
        const double flicker = mode == Continuous && way >= 1 ? 3 * std::sin(elapsed - duration) : 0;
        m_registers.setInteger(Coefficients[i], std::lround(from + (Wanted[i] - from) * eased + flicker));
    }
    if (mode == Once && way >= 1)
        m_registers.setInteger("BalanceWhiteAutoReg", Off);
}

} // namespace MoxSdk
