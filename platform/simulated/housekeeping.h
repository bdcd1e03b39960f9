// What a camera does beside taking images.
#ifndef MOXSDK_HOUSEKEEPING_H
#define MOXSDK_HOUSEKEEPING_H

#include "firmware.h"

namespace MoxSdk {

/** Temperatures, power and time counters, and the functions of the device itself. */
class Housekeeping final : public FirmwareUnit
{
public:
    using FirmwareUnit::FirmwareUnit;

    void powerUp(std::chrono::nanoseconds now) override;
    void written(const std::string &name, int bank, std::chrono::nanoseconds now) override;
    void advance(std::chrono::nanoseconds now) override;

private:
    void latchTimestamp(std::chrono::nanoseconds now);

    std::chrono::nanoseconds m_start{0};
    std::chrono::nanoseconds m_timestampStart{0};
};

} // namespace MoxSdk

#endif
