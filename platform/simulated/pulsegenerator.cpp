#include "pulsegenerator.h"

#include <algorithm>

namespace MoxSdk {

void PulseGenerator::powerUp(std::chrono::nanoseconds)
{
    m_running = false;
    m_registers.setInteger("PulseGenCountReg", 0);
}

std::int64_t PulseGenerator::step(const CameraRegisters &registers)
{
    static constexpr std::int64_t steps[] = {1, 10, 100, 1000};
    return steps[registers.integer("PulseGenGranularityReg") & 3];
}

void PulseGenerator::written(const std::string &name, int, std::chrono::nanoseconds now)
{
    if (name == "PulseGenEnableReg") {
        const bool enabled = m_registers.integer(name) != 0;
        if (enabled && !m_running) {
            m_since = now;
            m_sentBefore = 0;
            m_registers.setInteger("PulseGenCountReg", 0);
        }
        m_running = enabled;
    } else if (name == "PulseGenPeriodReg" || name == "PulseGenGranularityReg") {
        m_since = now;
        m_sentBefore = m_registers.integer("PulseGenCountReg");
    }
}

void PulseGenerator::derive()
{
    const std::int64_t period = m_registers.integer("PulseGenPeriodReg");
    m_registers.setInteger("PulseGenWidthReg", std::min(m_registers.integer("PulseGenWidthReg"), period));
}

void PulseGenerator::advance(std::chrono::nanoseconds now)
{
    if (!m_running)
        return;
    const std::chrono::microseconds period(m_registers.integer("PulseGenPeriodReg") * step(m_registers));
    std::int64_t sent = m_sentBefore + (now - m_since) / period;
    const bool limited = m_registers.integer("PulseGenModeReg") != 0;
    const std::int64_t wanted = m_registers.integer("PulseGenNumPulsesReg");
    if (limited && sent >= wanted) {
        sent = wanted;
        m_running = false;
        m_registers.setInteger("PulseGenEnableReg", 0);
    }
    m_registers.setInteger("PulseGenCountReg", sent);
}

} // namespace MoxSdk
