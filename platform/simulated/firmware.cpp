#include "firmware.h"

#include "acquisition.h"
#include "actions.h"
#include "frametiming.h"
#include "housekeeping.h"
#include "imagegeometry.h"
#include "lines.h"
#include "lookuptables.h"
#include "pulsegenerator.h"
#include "singletiming.h"
#include "usersets.h"
#include "whitebalance.h"

namespace MoxSdk {

Firmware::Firmware(const RegisterMap &map, CameraClock clock) : m_registers(map), m_clock(std::move(clock))
{
    // In the order in which they depend on each other: user sets keep the tables, actions have their times from the
    // clock, times follow from sizes, triggers come from pulses.
    m_units.push_back(std::make_unique<LookupTables>(m_registers));
    m_units.push_back(std::make_unique<UserSets>(m_registers));
    m_units.push_back(std::make_unique<Housekeeping>(m_registers));
    m_units.push_back(std::make_unique<Actions>(m_registers));
    m_units.push_back(std::make_unique<ImageGeometry>(m_registers));
    m_units.push_back(std::make_unique<FrameTiming>(m_registers));
    m_units.push_back(std::make_unique<SingleTiming>(m_registers));
    m_units.push_back(std::make_unique<PulseGenerator>(m_registers));
    m_units.push_back(std::make_unique<Acquisition>(m_registers));
    m_units.push_back(std::make_unique<Lines>(m_registers));
    m_units.push_back(std::make_unique<WhiteBalance>(m_registers));
    powerUp(false, m_clock());
}

void Firmware::powerUp(bool reset, std::chrono::nanoseconds now)
{
    m_registers.powerUp(reset);
    for (const auto &unit : m_units)
        unit->powerUp(now);
    derive();
}

void Firmware::advance(std::chrono::nanoseconds now)
{
    for (const auto &unit : m_units)
        unit->advance(now);
}

void Firmware::derive()
{
    for (const auto &unit : m_units)
        unit->derive();
}

void Firmware::read(std::uint8_t *bytes, std::int64_t address, std::int64_t length)
{
    m_registers.checkRead(address, length);
    advance(m_clock());
    m_registers.space().read(bytes, static_cast<std::uint64_t>(address), static_cast<std::uint64_t>(length));
}

void Firmware::write(const std::uint8_t *bytes, std::int64_t address, std::int64_t length)
{
    m_registers.checkWrite(bytes, address, length);
    const std::chrono::nanoseconds now = m_clock();
    advance(now);
    m_registers.write(bytes, address, length);
    for (const CameraRegisters::Touched &part : m_registers.touched(address, length))
        obey(*part.reg, part.bank, now);
    derive();
}

bool Firmware::act(const Action &action)
{
    advance(m_clock());
    bool obeyed = false;
    for (const auto &unit : m_units)
        obeyed |= unit->commanded(action);
    return obeyed;
}

void Firmware::obey(const Register &reg, int bank, std::chrono::nanoseconds now)
{
    if (reg.isCommand && m_registers.integer(reg.name, bank) == 0)
        return;
    if (reg.name == "DeviceResetReg") {
        powerUp(true, now);
        return;
    }
    for (const auto &unit : m_units)
        unit->written(reg.name, bank, now);
    if (reg.name == "UserSetLoadReg") {
        for (const auto &unit : m_units)
            unit->settingsReplaced(now);
    }
    if (reg.isCommand)
        m_registers.setInteger(reg.name, 0, bank);
}

} // namespace MoxSdk
