#include "frametiming.h"

#include "pulsegenerator.h"

#include <algorithm>

namespace MoxSdk {

namespace {

constexpr std::int64_t MostLines = 65535;
constexpr std::int64_t BlankLines = 64; ///< read between two frames

enum ExposureControl { Off, Trigger, Internal };

} // namespace

void FrameTiming::derive()
{
    if (!m_registers.has("FrameAB_SelectorReg"))
        return;
    for (int frame = 0; frame < 2; ++frame) {
        deriveLimits(frame);
        deriveTimes(frame);
        deriveWideRange(frame);
    }
}

void FrameTiming::clamp(const std::string &name, int frame, std::int64_t low, std::int64_t high)
{
    m_registers.setInteger(name, std::clamp(m_registers.integer(name, frame), low, high), frame);
}

void FrameTiming::deriveLimits(int frame)
{
    // A row takes as long as its conversion or as its way out of the sensor, whichever is longer.
    const std::int64_t conversion = m_registers.integer("SensorADCBitDepthReg") ? 800 : 640;
    const std::int64_t transport = m_registers.integer("Frame_WidthReg", frame) / 8 + 128;
    const std::int64_t globalShutter = m_registers.integer("ShutterModeReg") ? 160 : 0;
    const std::int64_t shortestLine = std::max(conversion, transport) + globalShutter;
    m_registers.setInteger("FrameLineTimeMinReg", shortestLine, frame);
    clamp("Frame_LineTimeReg", frame, shortestLine, MostLines);
    clamp("Frame_ExposureClocksReg", frame, 0, m_registers.integer("Frame_LineTimeReg", frame) - 1);

    const std::int64_t shortestPeriod = m_registers.integer("Frame_HeightActualReg", frame) + BlankLines;
    m_registers.setInteger("FramePeriodMinReg", shortestPeriod, frame);
    clamp("Frame_FixedFramePeriodValueReg", frame, shortestPeriod, MostLines);

    const bool fixed = m_registers.integer("Frame_FixedFramePeriodEnableReg", frame) != 0;
    const std::int64_t mostExposure =
        fixed ? m_registers.integer("Frame_FixedFramePeriodValueReg", frame) - 1 : MostLines;
    m_registers.setInteger("FrameExposureLinesMaxReg", mostExposure, frame);
    clamp("Frame_ExposureLinesReg", frame, 0, mostExposure);
}

void FrameTiming::deriveTimes(int frame)
{
    const std::int64_t clocksPerMicrosecond = m_registers.integer("PixelClockReg");
    const std::int64_t line = m_registers.integer("Frame_LineTimeReg", frame);
    const std::int64_t control = m_registers.integer("Frame_ExposureControlReg", frame);

    std::int64_t exposure = 0; // in clocks
    if (control == Internal)
        exposure = m_registers.integer("Frame_ExposureLinesReg", frame) * line
            + m_registers.integer("Frame_ExposureClocksReg", frame);
    else if (control == Trigger)
        exposure = m_registers.integer("PulseGenWidthReg") * PulseGenerator::step(m_registers) * clocksPerMicrosecond;

    // The sensor cannot expose for less than a microsecond, whatever it is told.
    exposure = std::max(exposure, clocksPerMicrosecond);

    std::int64_t period = m_registers.integer("Frame_FixedFramePeriodValueReg", frame);
    if (!m_registers.integer("Frame_FixedFramePeriodEnableReg", frame)) {
        const std::int64_t readout = m_registers.integer("FramePeriodMinReg", frame);
        const std::int64_t exposureLines = (exposure + line - 1) / line;
        // Only a rolling shutter exposes one frame while it reads the one before.
        period = m_registers.integer("ShutterModeReg") ? readout + exposureLines : std::max(readout, exposureLines + 1);
    }
    if (control == Off)
        exposure = period * line;
    m_registers.setInteger("CurrentExposureTimeReg", exposure / clocksPerMicrosecond, frame);
    m_registers.setInteger("CurrentFrameTimeReg", period * line / clocksPerMicrosecond, frame);
}

void FrameTiming::deriveWideRange(int frame)
{
    std::int64_t most = m_registers.integer("CurrentExposureTimeReg", frame);
    for (const char *point : {"Frame_WdrE1Reg", "Frame_WdrE2Reg", "Frame_WdrE3Reg"}) {
        clamp(point, frame, 1, most);
        most = m_registers.integer(point, frame);
    }
}

} // namespace MoxSdk
