#include "acquisition.h"

#include <algorithm>
#include <limits>

namespace MoxSdk {

namespace {

// Values of TriggerSource and TimerStatus, and banks of AcquisitionStatus.
enum TriggerSource { FromPulseGenerator = 2, FromSoftware = 3 };
enum TimerStatus { Idle, Delay, Active };
enum AcquisitionStatus { AcquisitionActive, FrameTriggerWait, ExposureActive };

} // namespace

void Acquisition::powerUp(std::chrono::nanoseconds now)
{
    m_active = false;
    m_nextTrigger = now;
    m_seenPulses = 0;
    m_timers = {};
}

void Acquisition::written(const std::string &name, int, std::chrono::nanoseconds now)
{
    if (name == "AcquisitionStartReg") {
        start(now);
    } else if (name == "AcquisitionStopReg" || name == "AcquisitionAbortReg") {
        m_active = false;
    } else if (name == "TriggerSoftwareReg") {
        if (m_registers.integer("TriggerModeReg") && m_registers.integer("TriggerSourceReg") == FromSoftware) {
            count(SoftwareTriggers, 1);
            trigger(1, now);
            for (int timer = 0; timer < 2; ++timer) {
                if (m_registers.integer("TimerTriggerSourceReg", timer))
                    m_timers[static_cast<std::size_t>(timer)] = {true, now};
            }
        }
    } else if (name == "TriggerCountResetReg") {
        m_registers.setInteger("TriggerCountReg", 0);
        m_registers.setInteger("TriggerMissedCountReg", 0);
    } else if (name == "CounterResetReg") {
        const auto counter = static_cast<int>(m_registers.integer("CounterSelectorReg"));
        m_registers.setInteger("CounterValueAtResetReg", m_registers.integer("CounterValueReg", counter), counter);
        m_registers.setInteger("CounterValueReg", 0, counter);
    } else if (name == "TimerResetReg") {
        m_timers[static_cast<std::size_t>(m_registers.integer("TimerSelectorReg"))] = {true, now};
    } else if (name == "PulseGenEnableReg") {
        // The generator has heard of it already: when it was started, it counts from 0 again.
        m_seenPulses = m_registers.integer("PulseGenCountReg");
    }
}

void Acquisition::start(std::chrono::nanoseconds now)
{
    m_active = true;
    m_start = now;
    m_triggeredFrames = 0;
    m_nextTrigger = now;
    m_registers.setInteger("AcquisitionFrameCounterReg", 0);
    for (int counter = 0; counter < 2; ++counter) {
        if (m_registers.integer("CounterResetSourceReg", counter))
            m_registers.setInteger("CounterValueReg", 0, counter);
    }
}

void Acquisition::trigger(std::int64_t number, std::chrono::nanoseconds now)
{
    m_registers.setInteger("TriggerCountReg", m_registers.integer("TriggerCountReg") + number);
    if (now < m_nextTrigger) {
        m_registers.setInteger("TriggerMissedCountReg", m_registers.integer("TriggerMissedCountReg") + number);
        return;
    }
    m_nextTrigger = now + std::chrono::microseconds(m_registers.integer("CurrentFrameTimeReg"));
    count(FrameTriggers, number);
    if (m_active)
        m_triggeredFrames += number;
}

void Acquisition::count(CountedEvent event, std::int64_t number)
{
    for (int counter = 0; counter < 2; ++counter) {
        if (m_registers.integer("CounterEventSourceReg", counter) == event)
            m_registers.setInteger("CounterValueReg", m_registers.integer("CounterValueReg", counter) + number,
                                   counter);
    }
}

void Acquisition::advance(std::chrono::nanoseconds now)
{
    advancePulses(now);
    advanceFrames(now);
    advanceTimers(now);
}

void Acquisition::advancePulses(std::chrono::nanoseconds now)
{
    const std::int64_t pulses = m_registers.integer("PulseGenCountReg");
    if (pulses <= m_seenPulses)
        return;
    const std::int64_t number = pulses - m_seenPulses;
    m_seenPulses = pulses;
    count(Pulses, number);
    if (m_registers.integer("TriggerModeReg") && m_registers.integer("TriggerSourceReg") == FromPulseGenerator)
        trigger(number, now);
}

void Acquisition::advanceFrames(std::chrono::nanoseconds now)
{
    const bool triggered = m_registers.integer("TriggerModeReg") != 0;
    if (m_active) {
        const std::chrono::microseconds frame(std::max<std::int64_t>(m_registers.integer("CurrentFrameTimeReg"), 1));
        const std::int64_t taken = triggered ? m_triggeredFrames : (now - m_start) / frame;
        m_registers.setInteger("AcquisitionFrameCounterReg", std::min(taken, wantedFrames()));
        m_active = taken < wantedFrames();
    }
    m_registers.setInteger("AcquisitionStatusReg", m_active, AcquisitionActive);
    m_registers.setInteger("AcquisitionStatusReg", m_active && triggered, FrameTriggerWait);
    m_registers.setInteger("AcquisitionStatusReg", m_active && !triggered, ExposureActive);
}

std::int64_t Acquisition::wantedFrames() const
{
    switch (m_registers.integer("AcquisitionModeReg")) {
    case 0:
        return 1;
    case 1:
        return m_registers.integer("AcquisitionFrameCountReg");
    default:
        return std::numeric_limits<std::int64_t>::max();
    }
}

void Acquisition::advanceTimers(std::chrono::nanoseconds now)
{
    for (int bank = 0; bank < 2; ++bank) {
        const Timer &timer = m_timers[static_cast<std::size_t>(bank)];
        const std::int64_t delay = m_registers.integer("TimerDelayReg", bank);
        const std::int64_t end = delay + m_registers.integer("TimerDurationReg", bank);
        const std::int64_t elapsed =
            timer.started ? std::chrono::duration_cast<std::chrono::microseconds>(now - timer.start).count() : 0;
        TimerStatus status = Idle;
        if (timer.started && elapsed < end)
            status = elapsed < delay ? Delay : Active;
        m_registers.setInteger("TimerValueReg", std::min(elapsed, end), bank);
        m_registers.setInteger("TimerStatusReg", status, bank);
    }
}

} // namespace MoxSdk
