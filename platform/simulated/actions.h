// What a simulated camera makes of action commands.
#ifndef MOXSDK_ACTIONS_H
#define MOXSDK_ACTIONS_H

#include "firmware.h"

#include <map>

namespace MoxSdk {

/**
 * Counts, for each of the camera's actions, the commands that meant it, at their time. It obeys whoever sends them, also
 * while another host controls the camera.
 */
class Actions final : public FirmwareUnit
{
public:
    using FirmwareUnit::FirmwareUnit;

    void powerUp(std::chrono::nanoseconds now) override;
    bool commanded(const Action &action) override;
    void advance(std::chrono::nanoseconds now) override;

private:
    static constexpr int actionCount = 2;

    bool isMeant(int number, const Action &action) const;
    void perform(unsigned actions);
    std::uint64_t timestamp() const;

    std::multimap<std::uint64_t, unsigned> m_scheduled; // by time, a bit for each action
};

} // namespace MoxSdk

#endif
