// A way to one camera: its description and its port, and whether it is there.
#ifndef MOXSDK_LINK_H
#define MOXSDK_LINK_H

#include <GenApi/IPort.h>

#include <functional>
#include <string>

namespace MoxSdk {

/**
 * What an opened camera is reached through. Real and simulated cameras differ in this class alone.
 *
 * Destroying a link gives up control of the camera and ends its calls to the listener before the destructor returns.
 */
class Link
{
public:
    /** Called with false when the camera is lost and with true when it is back, on any thread but the GUI's. */
    using Listener = std::function<void(bool connected)>;

    virtual ~Link() = default;

    /** The GenICam description. Throws GenICam exceptions when the camera does not give it. */
    virtual std::string description() = 0;
    /** Lives as long as the link, also while the camera is gone; its accesses throw then. */
    virtual GenApi_3_0::IPort &port() = 0;
    /** Set once, right after opening; an empty function takes the listener away and waits for a running call. */
    virtual void setListener(Listener listener) = 0;
};

} // namespace MoxSdk

#endif
