#include "lines.h"

namespace MoxSdk {

void Lines::derive()
{
    std::int64_t userOutputs = 0;
    for (int output = 0; output < 2; ++output)
        userOutputs |= m_registers.integer("UserOutputValueReg", output) << output;
    m_registers.setInteger("UserOutputValueAllReg", userOutputs);

    constexpr std::int64_t UserOutput1 = 6;
    constexpr std::int64_t UserOutput2 = 7;
    std::int64_t signals = 0;
    for (int line = 0; line < 4; ++line) {
        // Nothing is connected to the inputs; of the outputs only the user's hold a level that lasts.
        std::int64_t level = 0;
        const std::int64_t source = m_registers.integer("LineSourceReg", line);
        if (line >= 2 && (source == UserOutput1 || source == UserOutput2))
            level = userOutputs >> (source - UserOutput1) & 1;
        signals |= (level ^ m_registers.integer("LineInverterReg", line)) << line;
    }
    m_registers.setInteger("LineStatusAllReg", signals);
}

} // namespace MoxSdk
