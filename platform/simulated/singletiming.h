// The times of a camera with one frame.
#ifndef MOXSDK_SINGLETIMING_H
#define MOXSDK_SINGLETIMING_H

#include "firmware.h"

namespace MoxSdk {

/** Keeps exposure and frame rate in step with the image and with what the link carries. */
class SingleTiming final : public FirmwareUnit
{
public:
    using FirmwareUnit::FirmwareUnit;

    void derive() override;

private:
    std::int64_t readoutClocks() const;
    std::int64_t transferClocks() const;
};

} // namespace MoxSdk

#endif
