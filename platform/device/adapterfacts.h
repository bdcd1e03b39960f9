// What an interface knows of its network adapter.
#ifndef MOXSDK_ADAPTERFACTS_H
#define MOXSDK_ADAPTERFACTS_H

#include <cstdint>

namespace MoxSdk {

/** All zero for an interface without a network. Addresses have their first dotted number in the top byte. */
struct AdapterFacts
{
    std::uint64_t macAddress = 0; ///< 6 bytes, the first one on top; 0 without one
    std::uint32_t ipAddress = 0;
    std::uint32_t netmask = 0;
    std::uint32_t gateway = 0; ///< the default one; 0 without one

    bool contains(std::uint32_t ip) const { return (ip & netmask) == (ipAddress & netmask); }
};

} // namespace MoxSdk

#endif
