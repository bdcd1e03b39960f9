// Giving a GigE Vision camera an address.
#ifndef MOXSDK_GVCPFORCEIP_H
#define MOXSDK_GVCPFORCEIP_H

#include "adapters.h"
#include "gvcp.h"

namespace MoxSdk {

/**
 * Asks by broadcast on one adapter, since the camera may be in any subnet, and again while nothing comes back. The status
 * word of the answer; nothing when there was none in 0.9 s, or when the adapter cannot send. Any thread.
 */
std::optional<std::uint16_t> forceIpThrough(const Adapter &adapter, std::uint16_t port,
                                            const Gvcp::AddressAssignment &assignment);

} // namespace MoxSdk

#endif
