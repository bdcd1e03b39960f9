// The registers of a simulated camera as its firmware sees them.
#ifndef MOXSDK_CAMERAREGISTERS_H
#define MOXSDK_CAMERAREGISTERS_H

#include "registermap.h"
#include "registerspace.h"

#include <string>
#include <vector>

namespace MoxSdk {

/**
 * Values by register name over the bytes that the host sees, and the camera's own judgement of what a host asks for.
 *
 * A name that the description lacks reads as 0 and swallows writes, so that one firmware serves cameras that differ in
 * what they have. Owned by the firmware; the camera's lock guards it.
 */
class CameraRegisters
{
public:
    explicit CameraRegisters(const RegisterMap &map) : m_map(map) { }

    /** Puts every register to its power up value; with @p reset those that a reset leaves alone stay. */
    void powerUp(bool reset);

    bool has(const std::string &name) const { return m_map.find(name) != nullptr; }
    std::int64_t integer(const std::string &name, int bank = 0) const;
    void setInteger(const std::string &name, std::int64_t value, int bank = 0);
    double real(const std::string &name, int bank = 0) const;
    void setReal(const std::string &name, double value, int bank = 0);
    std::string text(const std::string &name) const;
    /** Cuts the text to the register's length. */
    void setText(const std::string &name, const std::string &text);

    const RegisterMap &map() const { return m_map; }
    RegisterSpace &space() { return m_space; }
    const RegisterSpace &space() const { return m_space; }

    /** A bank of a register that an access touches. */
    struct Touched
    {
        const Register *reg;
        int bank;
    };
    /** In the description's order. */
    std::vector<Touched> touched(std::int64_t address, std::int64_t length) const;

    /** Throws what a camera answers to an access to nowhere. */
    void checkRead(std::int64_t address, std::int64_t length) const;
    /** Throws what a camera answers to a write that it does not take. Nothing is written. */
    void checkWrite(const std::uint8_t *bytes, std::int64_t address, std::int64_t length) const;
    /** Writes what passed the check. What stands in the same bytes and is not the host's to write stays. */
    void write(const std::uint8_t *bytes, std::int64_t address, std::int64_t length);

private:
    /** Whether registers lie at each byte of an access, @p written counting only those that a host may write. */
    bool covers(std::int64_t address, std::int64_t length, bool written) const;
    std::int64_t decode(const Register &reg, const std::uint8_t *bytes) const;
    std::int64_t term(const std::string &text, int bank) const;
    std::int64_t limit(const std::string &text, int bank, std::int64_t fallback) const;
    void checkValue(const Register &reg, int bank, std::int64_t value) const;

    const RegisterMap &m_map;
    RegisterSpace m_space;
};

} // namespace MoxSdk

#endif
