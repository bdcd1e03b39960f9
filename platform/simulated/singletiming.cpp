#include "singletiming.h"

#include "pulsegenerator.h"

#include <algorithm>

namespace MoxSdk {

namespace {

constexpr std::int64_t LongestClocks = 1600000000; ///< ten seconds
constexpr std::int64_t ShortestExposure = 1600; ///< ten microseconds
constexpr std::int64_t BlankLines = 40;
constexpr std::int64_t HighSpeed = 4; ///< the USB 2 link among the values of LinkSpeedReg
constexpr std::int64_t HighSpeedBytesPerSecond = 35000000;

} // namespace

void SingleTiming::derive()
{
    if (!m_registers.has("ExposureClocksReg"))
        return;
    if (!m_registers.integer("TriggerModeReg"))
        m_registers.setInteger("ExposureModeReg", 0);
    m_registers.setInteger("SensorLineTimeReg", m_registers.integer("SensorADCBitDepthReg") ? 1200 : 960);

    const std::int64_t shortest = std::max(readoutClocks(), transferClocks());
    m_registers.setInteger("FramePeriodMinReg", shortest);
    const std::int64_t period = std::clamp(m_registers.integer("FramePeriodReg"), shortest, LongestClocks);
    m_registers.setInteger("FramePeriodReg", period);

    const bool fixed = m_registers.integer("AcquisitionFrameRateEnableReg") != 0;
    const std::int64_t line = m_registers.integer("SensorLineTimeReg");
    const std::int64_t longestExposure = fixed ? period - line : LongestClocks;
    m_registers.setInteger("ExposureClocksMaxReg", longestExposure);
    std::int64_t exposure = std::clamp(m_registers.integer("ExposureClocksReg"), ShortestExposure, longestExposure);
    m_registers.setInteger("ExposureClocksReg", exposure);

    const std::int64_t clocksPerMicrosecond = m_registers.integer("PixelClockReg");
    if (m_registers.integer("ExposureModeReg"))
        exposure = m_registers.integer("PulseGenWidthReg") * PulseGenerator::step(m_registers) * clocksPerMicrosecond;
    const std::int64_t frame = fixed ? period : std::max(shortest, exposure + line);
    m_registers.setInteger("CurrentExposureTimeReg", exposure / clocksPerMicrosecond);
    m_registers.setInteger("CurrentFrameTimeReg", frame / clocksPerMicrosecond);
}

std::int64_t SingleTiming::readoutClocks() const
{
    return (m_registers.integer("HeightReg") + BlankLines) * m_registers.integer("SensorLineTimeReg");
}

std::int64_t SingleTiming::transferClocks() const
{
    std::int64_t bytesPerSecond = m_registers.integer("LinkThroughputLimitReg");
    if (!m_registers.integer("DeviceLinkThroughputLimitModeReg"))
        bytesPerSecond = 380000000;
    if (m_registers.integer("LinkSpeedReg") == HighSpeed)
        bytesPerSecond = std::min(bytesPerSecond, HighSpeedBytesPerSecond);
    const std::int64_t clocksPerSecond = m_registers.integer("PixelClockReg") * 1000000;
    return m_registers.integer("PayloadSizeReg") * clocksPerSecond / bytesPerSecond;
}

} // namespace MoxSdk
