// What the firmware knows of its registers: where they lie and what they take.
#ifndef MOXSDK_REGISTERMAP_H
#define MOXSDK_REGISTERMAP_H

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace MoxSdk {

/** One register node of a description, with the facts of its `Firmware` extension. */
struct Register
{
    enum class Kind { Integer, Float, Text, Bytes };

    std::string name;
    Kind kind = Kind::Integer;
    std::int64_t address = 0;
    std::int64_t length = 4;
    bool bigEndian = false;
    bool isSigned = false;
    bool writable = true; ///< for the host; the firmware itself writes all
    // Place of a bit field, counted from the least significant bit; the whole register without one.
    unsigned shift = 0;
    unsigned bits = 64;
    // Registers that a selector multiplies.
    int banks = 1;
    std::int64_t stride = 0;
    // What the firmware puts in at power up: one text for each bank, or one for all.
    std::vector<std::string> powerUp;
    // What the firmware takes from the host. A limit is a number, the name of a register, or one less another; of
    // registers with banks the same one is meant.
    std::string minimum;
    std::string maximum;
    std::int64_t increment = 1;
    std::vector<std::int64_t> values;
    bool inUserSets = false;
    bool isCommand = false; ///< goes back to 0 when the firmware has obeyed
    bool isKept = false; ///< a reset leaves it alone

    std::int64_t bankAddress(int bank) const { return address + bank * stride; }
};

/**
 * The registers of a description that carry the firmware's facts, by name.
 *
 * A register takes part when its node has an `Extension` with a `Firmware` element, or is plainly addressed: its power
 * up value (`PowerUp`), what a host may write (`Min`, `Max`, `Inc`, `Values`), the number of banks (`Banks`), whether
 * user sets hold it (`UserSet`), a reset leaves it alone (`Keep`), and it is a command (`Command`) stand there as
 * attributes, beside the address that they belong to.
 */
class RegisterMap
{
public:
    /** Throws std::runtime_error when the text is not well formed or a number in it is none. */
    explicit RegisterMap(const std::string &description);

    const std::vector<Register> &registers() const { return m_registers; }
    /** Null when the description has no such register. */
    const Register *find(const std::string &name) const;

private:
    std::vector<Register> m_registers;
    std::unordered_map<std::string, std::size_t> m_byName;
};

} // namespace MoxSdk

#endif
