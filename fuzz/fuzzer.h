// What the fuzzers share.
#ifndef MOXFUZZ_FUZZER_H
#define MOXFUZZ_FUZZER_H

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

/** Judges one input; libFuzzer's entry, called again and again in one process. Ends the process when it finds a fault. */
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

/** Ends the process unless @p condition holds for the present input. */
#define MOX_FUZZ_CHECK(condition) ((condition) ? void(0) : MoxFuzz::fail(#condition, __FILE__, __LINE__))

namespace MoxFuzz {

[[noreturn]] inline void fail(const char *condition, const char *file, int line)
{
    std::fprintf(stderr, "%s:%d: does not hold: %s\n", file, line, condition);
    std::abort();
}

/** Takes an input apart from its front; when nothing is left, zeros and empty texts come. */
class Input
{
public:
    Input(const std::uint8_t *data, std::size_t size) : m_rest(reinterpret_cast<const char *>(data), size) { }

    bool isAtEnd() const { return m_rest.empty(); }
    /** What stands in front of the next @p divider, which is dropped; all of the rest when there is none. */
    std::string until(char divider)
    {
        const std::size_t end = m_rest.find(divider);
        std::string part = m_rest.substr(0, end);
        m_rest.erase(0, end == std::string::npos ? end : end + 1);
        return part;
    }
    std::string bytes(std::size_t count)
    {
        std::string part = m_rest.substr(0, count);
        m_rest.erase(0, count);
        return part;
    }
    std::uint8_t byte()
    {
        const std::string one = bytes(1);
        return one.empty() ? 0 : static_cast<std::uint8_t>(one.front());
    }
    std::string rest() { return bytes(m_rest.size()); }

private:
    std::string m_rest;
};

} // namespace MoxFuzz

#endif
