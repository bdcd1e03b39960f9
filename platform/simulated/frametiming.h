// The times of the two alternating frames.
#ifndef MOXSDK_FRAMETIMING_H
#define MOXSDK_FRAMETIMING_H

#include "firmware.h"

namespace MoxSdk {

/** Keeps line time, exposure and period of each of the frames A and B in step. */
class FrameTiming final : public FirmwareUnit
{
public:
    using FirmwareUnit::FirmwareUnit;

    void derive() override;

private:
    void deriveLimits(int frame);
    void deriveTimes(int frame);
    void deriveWideRange(int frame);
    void clamp(const std::string &name, int frame, std::int64_t low, std::int64_t high);
};

} // namespace MoxSdk

#endif
