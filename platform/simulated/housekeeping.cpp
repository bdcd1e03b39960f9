#include "housekeeping.h"

#include <cmath>

namespace MoxSdk {

namespace {

constexpr std::int64_t MaintenanceKey = 0x4D586361;

/** Warms up towards an end and goes on breathing a little, as a thermometer in a room does. */
double temperature(double seconds, double cold, double rise)
{
    constexpr double Pi = 3.14159265358979323846;
    return cold + rise * (1 - std::exp(-seconds / 240)) + 0.8 * std::sin(2 * Pi * seconds / 75);
}

} // namespace

void Housekeeping::powerUp(std::chrono::nanoseconds now)
{
    m_start = now;
    m_timestampStart = now;
    if (const Register *calibration = m_registers.map().find("FactoryCalibration")) {
        for (std::int64_t i = 0; i < calibration->length; ++i) {
            const auto byte = static_cast<std::uint8_t>(37 * i + 11);
            m_registers.space().write(&byte, static_cast<std::uint64_t>(calibration->address + i), 1);
        }
    }
}

void Housekeeping::written(const std::string &name, int, std::chrono::nanoseconds now)
{
    if (name == "TimestampLatchReg") {
        latchTimestamp(now);
    } else if (name == "TimestampResetReg") {
        m_timestampStart = now;
    } else if (name == "TimestampControlReg") {
        // GigE Vision has both in one register, and latches first when both are asked for.
        const std::int64_t bits = m_registers.integer(name);
        if (bits & 2)
            latchTimestamp(now);
        if (bits & 1)
            m_timestampStart = now;
    } else if (name == "MaintenanceKeyReg") {
        m_registers.setInteger("MaintenanceOpenReg", m_registers.integer(name) == MaintenanceKey);
        m_registers.setInteger(name, 0);
    } else if (name == "DeviceRegistersStreamingStartReg") {
        m_registers.setInteger("DeviceRegistersStreamingActiveReg", 1);
        m_registers.setInteger("DeviceRegistersValidReg", 0);
    } else if (name == "DeviceRegistersStreamingEndReg") {
        m_registers.setInteger("DeviceRegistersStreamingActiveReg", 0);
        m_registers.setInteger("DeviceRegistersValidReg", 1);
    } else if (name == "DeviceRegistersCheckReg") {
        m_registers.setInteger("DeviceRegistersValidReg", 1);
    } else if (name == "EventTestSendReg") {
        m_registers.setInteger("EventTestCountReg", m_registers.integer("EventTestCountReg") + 1);
    }
}

void Housekeeping::latchTimestamp(std::chrono::nanoseconds now)
{
    const std::int64_t timestamp = (now - m_timestampStart).count();
    m_registers.setInteger("TimestampLatchValueReg", timestamp);
    m_registers.setInteger("GevTimestampValueReg", timestamp);
}

void Housekeeping::advance(std::chrono::nanoseconds now)
{
    const std::chrono::duration<double> running = now - m_start;
    const double sensor = temperature(running.count(), 31, 11);
    m_registers.setReal("DeviceTemperature", sensor, 0);
    m_registers.setReal("DeviceTemperature", temperature(running.count(), 38, 9), 1);
    m_registers.setReal("DeviceTemperature", temperature(running.count(), 44, 14), 2);
    m_registers.setInteger("CurrentTemperatureReg", std::lround(sensor));
    m_registers.setInteger("StatusOverTemperatureBit", sensor > 70);
    m_registers.setInteger("DevicePowerConsumptionReg", 3500 + std::lround(5 * sensor));
    m_registers.setInteger("DeviceUptimeReg", std::chrono::duration_cast<std::chrono::seconds>(now - m_start).count());
    m_registers.setInteger("TimestampReg", (now - m_timestampStart).count());
}

} // namespace MoxSdk
