// The memory behind a simulated camera's registers.
#ifndef MOXSDK_REGISTERSPACE_H
#define MOXSDK_REGISTERSPACE_H

#include <array>
#include <cstdint>
#include <unordered_map>

namespace MoxSdk {

/** Bytes at any 64-bit address, zero until written. Pages come into being where something is written. */
class RegisterSpace
{
public:
    void read(std::uint8_t *bytes, std::uint64_t address, std::uint64_t length) const;
    void write(const std::uint8_t *bytes, std::uint64_t address, std::uint64_t length);

private:
    static constexpr std::uint64_t PageSize = 4096;

    std::unordered_map<std::uint64_t, std::array<std::uint8_t, PageSize>> m_pages;
};

} // namespace MoxSdk

#endif
