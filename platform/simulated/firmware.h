// What makes a simulated camera behave like one.
#ifndef MOXSDK_FIRMWARE_H
#define MOXSDK_FIRMWARE_H

#include "../device/action.h"
#include "cameraregisters.h"

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace MoxSdk {

/** The camera's clock. Tests turn it by hand. */
using CameraClock = std::function<std::chrono::nanoseconds()>;

/** One function of the camera, over the registers that it knows by name; those that are not there are passed over. */
class FirmwareUnit
{
public:
    explicit FirmwareUnit(CameraRegisters &registers) : m_registers(registers) { }
    virtual ~FirmwareUnit() = default;
    FirmwareUnit(const FirmwareUnit &) = delete;
    FirmwareUnit &operator=(const FirmwareUnit &) = delete;

    /** Runs when all registers have their power up values. */
    virtual void powerUp(std::chrono::nanoseconds) { }
    /** Runs for each bank of a register that a host wrote, before anything is derived from it. */
    virtual void written(const std::string &, int, std::chrono::nanoseconds) { }
    /** Takes part in an action; true when the camera does as it is told, now or at its time. */
    virtual bool commanded(const Action &) { return false; }
    /** Runs when a user set has replaced the settings. */
    virtual void settingsReplaced(std::chrono::nanoseconds) { }
    /** Brings limits and figures into step with what they depend on. Running it twice changes nothing more. */
    virtual void derive() { }
    /** Brings what lives by itself up to the present. */
    virtual void advance(std::chrono::nanoseconds) { }

protected:
    CameraRegisters &m_registers;
};

/**
 * The firmware of one camera: its registers and the units that keep them alive.
 *
 * It runs only when a host accesses the camera, and then catches up with the time that went by; there is no thread of
 * its own. The camera that owns it locks.
 */
class Firmware
{
public:
    Firmware(const RegisterMap &map, CameraClock clock);

    void read(std::uint8_t *bytes, std::int64_t address, std::int64_t length);
    /** Throws what the camera answers to a write that it does not take; nothing is written then. */
    void write(const std::uint8_t *bytes, std::int64_t address, std::int64_t length);

    /** Whether the camera does its part in an action, and in time. */
    bool act(const Action &action);

    /** For identity, addresses and link, which come from outside and which a reset keeps. */
    CameraRegisters &registers() { return m_registers; }
    /** Brings everything into step with the registers, after they were changed from outside. */
    void derive();

private:
    void powerUp(bool reset, std::chrono::nanoseconds now);
    void obey(const Register &reg, int bank, std::chrono::nanoseconds now);
    void advance(std::chrono::nanoseconds now);

    CameraRegisters m_registers;
    CameraClock m_clock;
    std::vector<std::unique_ptr<FirmwareUnit>> m_units;
};

} // namespace MoxSdk

#endif
