// A way to the registers of one camera, for as long as the camera keeps it open.
#ifndef MOXSDK_CHANNEL_H
#define MOXSDK_CHANNEL_H

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

namespace MoxSdk {

/**
 * What GigE Vision and USB3 Vision differ in, for an opened camera. Opening takes control of the camera and destroying
 * gives it up. Owned by a CameraLink, which lets one thread in at a time.
 */
class Channel
{
public:
    virtual ~Channel() = default;

    /** The GenICam description, unpacked. Throws GenICam exceptions. */
    virtual std::string description() = 0;
    /** Moves exactly @p length bytes, or throws TimeoutException, AccessException or RuntimeException. */
    virtual void read(void *buffer, std::uint64_t address, std::size_t length) = 0;
    virtual void write(const void *buffer, std::uint64_t address, std::size_t length) = 0;
    /** Asks the camera whether it still answers to this channel; that also keeps the channel open. Does not throw. */
    virtual bool isAlive() = 0;
    /** How often `isAlive` must be asked. */
    virtual std::chrono::milliseconds alivePeriod() const = 0;
};

} // namespace MoxSdk

#endif
