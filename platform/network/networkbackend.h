// The machine's network adapters and USB hosts as a source of interfaces.
#ifndef MOXSDK_NETWORKBACKEND_H
#define MOXSDK_NETWORKBACKEND_H

#include "../device/interface.h"

namespace MoxSdk {

/** One GigE Vision interface for each IPv4 adapter that is up, then one for USB3 Vision. */
std::unique_ptr<Backend> createNetworkBackend();

} // namespace MoxSdk

#endif
