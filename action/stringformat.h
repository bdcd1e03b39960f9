// Texts made as printf makes them.
#ifndef MOX_STRINGFORMAT_H
#define MOX_STRINGFORMAT_H

#include <string>

/**
 * What printf would write for @p format and the arguments, of any length, up to its first zero. The compiler does not hold
 * the arguments against the format. Throws std::bad_alloc for a text that has no room in memory, and for one that cannot
 * be made, such as a wide text that the locale cannot express.
 */
std::string string_format(std::string format, ...);

#endif
