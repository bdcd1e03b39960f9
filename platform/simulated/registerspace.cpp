#include "registerspace.h"

#include <algorithm>
#include <cstring>

namespace MoxSdk {

void RegisterSpace::read(std::uint8_t *bytes, std::uint64_t address, std::uint64_t length) const
{
    // An access that runs over the end of the address space goes on at its start, as an adder would.
    while (length) {
        const std::uint64_t offset = address % PageSize;
        const std::uint64_t piece = std::min(length, PageSize - offset);
        const auto page = m_pages.find(address / PageSize);
        if (page == m_pages.end())
            std::memset(bytes, 0, piece);
        else
            std::memcpy(bytes, page->second.data() + offset, piece);
        bytes += piece;
        address += piece;
        length -= piece;
    }
}

void RegisterSpace::write(const std::uint8_t *bytes, std::uint64_t address, std::uint64_t length)
{
    while (length) {
        const std::uint64_t offset = address % PageSize;
        const std::uint64_t piece = std::min(length, PageSize - offset);
        // A new page is value-initialised, that is, zero.
        std::memcpy(m_pages[address / PageSize].data() + offset, bytes, piece);
        bytes += piece;
        address += piece;
        length -= piece;
    }
}

} // namespace MoxSdk
