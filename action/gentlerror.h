// Error codes of the GenTL standard as std::error_code.
#ifndef MOX_GENTLERROR_H
#define MOX_GENTLERROR_H

#include <cstdint>
#include <string>
#include <system_error>

namespace GenTL {

/** Error codes of the GenTL standard. Codes from GC_ERR_CUSTOM_ID downwards are a producer's own. */
enum GC_ERROR_LIST : std::int32_t {
    GC_ERR_SUCCESS = 0,
    GC_ERR_ERROR = -1001,
    GC_ERR_NOT_INITIALIZED = -1002,
    GC_ERR_NOT_IMPLEMENTED = -1003,
    GC_ERR_RESOURCE_IN_USE = -1004,
    GC_ERR_ACCESS_DENIED = -1005,
    GC_ERR_INVALID_HANDLE = -1006,
    GC_ERR_INVALID_ID = -1007,
    GC_ERR_NO_DATA = -1008,
    GC_ERR_INVALID_PARAMETER = -1009,
    GC_ERR_IO = -1010,
    GC_ERR_TIMEOUT = -1011,
    GC_ERR_ABORT = -1012,
    GC_ERR_INVALID_BUFFER = -1013,
    GC_ERR_NOT_AVAILABLE = -1014,
    GC_ERR_INVALID_ADDRESS = -1015,
    GC_ERR_BUFFER_TOO_SMALL = -1016,
    GC_ERR_INVALID_INDEX = -1017,
    GC_ERR_PARSING_CHUNK_DATA = -1018,
    GC_ERR_INVALID_VALUE = -1019,
    GC_ERR_RESOURCE_EXHAUSTED = -1020,
    GC_ERR_OUT_OF_MEMORY = -1021,
    GC_ERR_CUSTOM_ID = -10000
};

/** @p e in the category of tli_category(). */
std::error_code make_error_code(GC_ERROR_LIST e);

} // namespace GenTL

/** The category "gentl". Without state; from any thread. */
class tli_category_impl : public std::error_category
{
public:
    const char *name() const noexcept override;
    /** The standard's words for a code; for a custom or unknown one a text with the number. */
    std::string message(int code) const override;
};

/** The one instance. It lives to the end of the process. */
std::error_category &tli_category();

/** Throws a copy of @p err when @p p is null or has all bits set. */
void _tli_check_parameter(const void *p, const std::system_error &err);

#endif
