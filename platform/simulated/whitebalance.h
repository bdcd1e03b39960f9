// The automatic white balance.
#ifndef MOXSDK_WHITEBALANCE_H
#define MOXSDK_WHITEBALANCE_H

#include "firmware.h"

#include <array>

namespace MoxSdk {

/** Moves the colour coefficients to where the light wants them. */
class WhiteBalance final : public FirmwareUnit
{
public:
    using FirmwareUnit::FirmwareUnit;

    void powerUp(std::chrono::nanoseconds now) override;
    void written(const std::string &name, int bank, std::chrono::nanoseconds now) override;
    void settingsReplaced(std::chrono::nanoseconds now) override;
    void advance(std::chrono::nanoseconds now) override;

private:
    void begin(std::chrono::nanoseconds now);

    std::chrono::nanoseconds m_start{0};
    std::array<std::int64_t, 3> m_from{};
};

} // namespace MoxSdk

#endif
