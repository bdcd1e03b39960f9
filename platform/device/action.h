// A command to many cameras at once.
#ifndef MOXSDK_ACTION_H
#define MOXSDK_ACTION_H

#include <cstdint>
#include <optional>

namespace MoxSdk {

/** What the cameras that hold the same keys, and share a bit of the mask, do at the same time. */
struct Action
{
    std::uint32_t deviceKey = 0;
    std::uint32_t groupKey = 0;
    std::uint32_t groupMask = 0; ///< 0 is nobody's
    std::optional<std::uint64_t> time; ///< of the cameras' own clocks; at once without one
    bool acknowledged = false; ///< whether those that obey shall say so
    std::uint32_t awaited = 0; ///< how many of them are waited for; 0 for as many as there are
};

} // namespace MoxSdk

#endif
