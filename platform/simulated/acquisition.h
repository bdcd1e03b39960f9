// Images, triggers and what counts them.
#ifndef MOXSDK_ACQUISITION_H
#define MOXSDK_ACQUISITION_H

#include "firmware.h"

#include <array>

namespace MoxSdk {

/** Counts images and triggers, and runs counters and timers. */
class Acquisition final : public FirmwareUnit
{
public:
    using FirmwareUnit::FirmwareUnit;

    void powerUp(std::chrono::nanoseconds now) override;
    void written(const std::string &name, int bank, std::chrono::nanoseconds now) override;
    void advance(std::chrono::nanoseconds now) override;

private:
    // Values of CounterEventSource.
    enum CountedEvent { SoftwareTriggers = 1, FrameTriggers = 2, Pulses = 3 };

    void start(std::chrono::nanoseconds now);
    void trigger(std::int64_t count, std::chrono::nanoseconds now);
    void count(CountedEvent event, std::int64_t number);
    void advanceFrames(std::chrono::nanoseconds now);
    void advancePulses(std::chrono::nanoseconds now);
    void advanceTimers(std::chrono::nanoseconds now);
    std::int64_t wantedFrames() const;

    bool m_active = false;
    std::chrono::nanoseconds m_start{0};
    std::int64_t m_triggeredFrames = 0;
    std::chrono::nanoseconds m_nextTrigger{0}; ///< triggers before it come too early
    std::int64_t m_seenPulses = 0;
    struct Timer
    {
        bool started = false;
        std::chrono::nanoseconds start{0};
    };
    std::array<Timer, 2> m_timers;
};

} // namespace MoxSdk

#endif
