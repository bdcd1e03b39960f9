// The pulse generator.
#ifndef MOXSDK_PULSEGENERATOR_H
#define MOXSDK_PULSEGENERATOR_H

#include "firmware.h"

namespace MoxSdk {

/** Counts the pulses while the generator runs, and stops it when it has sent as many as it should. */
class PulseGenerator final : public FirmwareUnit
{
public:
    using FirmwareUnit::FirmwareUnit;

    void powerUp(std::chrono::nanoseconds now) override;
    void written(const std::string &name, int bank, std::chrono::nanoseconds now) override;
    void derive() override;
    void advance(std::chrono::nanoseconds now) override;

    /** Microseconds of a step of the generator's times. */
    static std::int64_t step(const CameraRegisters &registers);

private:
    bool m_running = false;
    // Pulses count from here on: a change of the period must not change those that were sent already.
    std::chrono::nanoseconds m_since{0};
    std::int64_t m_sentBefore = 0;
};

} // namespace MoxSdk

#endif
