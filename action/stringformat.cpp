#include "stringformat.h"

#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <new>

namespace {

struct Free
{
    void operator()(char *memory) const { std::free(memory); }
};

} // namespace

// NOLINTNEXTLINE(performance-unnecessary-value-param): va_start() takes no reference
std::string string_format(std::string format, ...)
{
    std::size_t size = 100;
    for (;;) {
        // Zeros that take no memory until they are written to, however large.
        const std::unique_ptr<char, Free> buffer(static_cast<char *>(std::calloc(size, 1)));
        if (!buffer)
            throw std::bad_alloc();
        std::va_list arguments;
        va_start(arguments, format); // each attempt reads them from the start
        const int length = std::vsnprintf(buffer.get(), size, format.c_str(), arguments);
        va_end(arguments);
        if (length < 0) {
            // A larger buffer may help; one beyond what lengths can count never does.
            if (size > INT_MAX)
                throw std::bad_alloc();
            size *= 2;
        } else if (static_cast<std::size_t>(length) < size) {
            return buffer.get();
        } else {
            size = static_cast<std::size_t>(length) + 1;
        }
    }
}
