#include "gentlerror.h"

#include "stringformat.h"

#include <iterator>

using namespace GenTL;

namespace {

// By distance from GC_ERR_ERROR downwards.
constexpr const char *messages[] = {
    "Unspecified runtime error",
    "Module or resource not initialized",
    "Requested operation not implemented",
    "Requested resource is already in use",
    "Requested operation is not allowed",
    "Given handle does not support the operation",
    "ID could not be connected to a resource",
    "The function has no data to work on",
    "One of the parameter given was not valid or out of range",
    "Communication error has occurred",
    "An operation's timeout time expired before it could be completed",
    "An operation has been aborted before it could be completed",
    ("The GenTL Consumer has not announced enough buffers to start the acquisition in the currently active acquisition "
     "mode"),
    "Resource or information is not available at a given time in a current state",
    "A given address is out of range or invalid for internal reasons",
    "A provided buffer is too small to receive the expected amount of data",
    "A provided index referencing a Producer internal object is out of bounds",
    "An error occurred parsing a buffer containing chunk data",
    "A register write function was trying to write an invalid value",
    "A requested resource is exhausted.", // the one with a full stop
    "The system and/or other hardware in the system (Framegrabber) ran out of memory",
};
static_assert(GC_ERR_ERROR - GC_ERR_OUT_OF_MEMORY + 1 == std::size(messages), "one text for each code");

} // namespace

std::error_code GenTL::make_error_code(GC_ERROR_LIST e)
{
    return {e, tli_category()};
}

const char *tli_category_impl::name() const noexcept
{
    return "gentl";
}

std::string tli_category_impl::message(int code) const
{
    if (code == GC_ERR_SUCCESS)
        return "No error";
    if (code <= GC_ERR_ERROR && code >= GC_ERR_OUT_OF_MEMORY)
        return messages[GC_ERR_ERROR - code];
    return string_format(code <= GC_ERR_CUSTOM_ID ? "Custom error code: %d" : "Unknown error code: %d", code);
}

std::error_category &tli_category()
{
    static tli_category_impl category;
    return category;
}

void _tli_check_parameter(const void *p, const std::system_error &err)
{
    if (!p || reinterpret_cast<std::uintptr_t>(p) == UINTPTR_MAX)
        throw err;
}
