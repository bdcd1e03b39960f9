// The features of an interface.
#ifndef MOXSDK_INTERFACEMODULE_H
#define MOXSDK_INTERFACEMODULE_H

#include "../params/paramarray.h"

#include <string>

namespace MoxSdk {

class Interface;
class InterfaceModulePrivate;

/**
 * A node map over the interface itself: what its adapter is, and at `DeviceSelector` what discovery found last. Owned by
 * its interface. Any thread, also beside a discovery; what was read before it is not kept.
 *
 * The values to force an address with are the selected device's present ones until they are written, and again when
 * `GevDeviceForceIP` has assigned them; an address that came by `DeviceInfo::ForceIP` leaves them. A selector beyond a
 * list that has become shorter stays, and its features are not available. What an action command is made of stays until
 * it is written again; `GevAction` does not wait for acknowledgements.
 */
class InterfaceModule
{
public:
    /** Throws what the description makes of it. */
    InterfaceModule(Interface &interface, const std::string &description);
    ~InterfaceModule();
    InterfaceModule(const InterfaceModule &) = delete;
    InterfaceModule &operator=(const InterfaceModule &) = delete;

    ParamArray &parameters();

private:
    std::unique_ptr<InterfaceModulePrivate> const d;
};

} // namespace MoxSdk

#endif
