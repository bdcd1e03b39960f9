// A port for descriptions that nobody trusts.
#ifndef MOXFUZZ_MEMORY_H
#define MOXFUZZ_MEMORY_H

#include <GenApi/GenApi.h>

#include <string>
#include <unordered_map>

namespace MoxFuzz {

/**
 * Bytes keep what was written, and all others repeat a pattern. Nothing changes by itself. While it is failing, accesses go
 * wrong now and then; of the writes among them, every other one has taken the bytes all the same.
 */
class Memory : public GenApi::IPort
{
public:
    explicit Memory(std::string pattern) : m_pattern(std::move(pattern)) { }

    GenApi::EAccessMode GetAccessMode() const override { return GenApi::RW; }
    void Read(void *buffer, std::int64_t address, std::int64_t length) override
    {
        failWhenDue();
        for (std::int64_t i = 0; i < length; ++i)
            static_cast<char *>(buffer)[i] =
                byteAt(static_cast<std::uint64_t>(address) + static_cast<std::uint64_t>(i));
    }
    void Write(const void *buffer, std::int64_t address, std::int64_t length) override
    {
        const bool takesBeforeFailing = accesses % 2 != 0;
        if (!takesBeforeFailing)
            failWhenDue();
        for (std::int64_t i = 0; i < length; ++i)
            m_written[static_cast<std::uint64_t>(address) + static_cast<std::uint64_t>(i)] =
                static_cast<const char *>(buffer)[i];
        if (takesBeforeFailing)
            failWhenDue();
    }

    long accesses = 0;
    long failAt = 0; // each access whose number this divides fails; 0 for none

private:
    void failWhenDue()
    {
        ++accesses;
        if (failAt != 0 && accesses % failAt == 0)
            throw TIMEOUT_EXCEPTION("The camera does not answer.");
    }
    char byteAt(std::uint64_t address) const
    {
        const auto found = m_written.find(address);
        if (found != m_written.end())
            return found->second;
        return m_pattern.empty() ? '\0' : m_pattern[address % m_pattern.size()];
    }

    const std::string m_pattern;
    std::unordered_map<std::uint64_t, char> m_written;
};

} // namespace MoxFuzz

#endif
