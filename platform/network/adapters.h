// The machine's network adapters.
#ifndef MOXSDK_ADAPTERS_H
#define MOXSDK_ADAPTERS_H

#include "../device/adapterfacts.h"

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

namespace MoxSdk {

/** One IPv4 address of a network adapter. */
struct Adapter : AdapterFacts
{
    std::string name;
    unsigned int index = 0; ///< the system's number for the adapter
    bool isLoopback = false;

    std::uint32_t broadcast() const { return ipAddress | ~netmask; }
};

/** The addresses of adapters that are up and reach more than one peer, in the system's order. */
std::vector<Adapter> readAdapters();

/** The default gateway that is reached through an adapter, in the system's table of routes; 0 when there is none. */
std::uint32_t defaultGateway(std::istream &routes, const std::string &adapterName);

} // namespace MoxSdk

#endif
