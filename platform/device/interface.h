// An interface of the open SDK: what real and simulated ones share.
#ifndef MOXSDK_INTERFACE_H
#define MOXSDK_INTERFACE_H

#include <MoxCameraApi/MoxCam.h>

#include "action.h"
#include "adapterfacts.h"
#include "devicerecord.h"
#include "link.h"

#include <chrono>
#include <memory>
#include <optional>
#include <vector>

namespace MoxSdk {

class DeviceInfo;
class InterfacePrivate;

/**
 * Keeps one DeviceInfo for each camera ever found here, for as long as the system lives, so that pointers stay good and
 * a camera that comes back is the same object. Discovery may run on one thread while another one walks a list.
 */
class Interface : public MoxCam::Interface
{
public:
    Interface(int type, std::string id, std::string description, std::string version);
    virtual ~Interface();
    Interface(const Interface &) = delete;
    Interface &operator=(const Interface &) = delete;

    MoxCam::DeviceInfoList *GetDeviceInfoList() override;
    MoxCam::DeviceInfo *ConnectByIp(const char *ipAddress) override;
    void ReDiscoverDevices(bool *changed, std::uint32_t timeout) override;
    const char *GetDescription() override;
    int GetType() override;
    const char *GetID() override;
    const char *GetVersion() override;
    void RegisterEventCallback(std::uint32_t eventId, MoxCam::EventCallback callback, void *context) override;
    /** Made at the first call; null, with "not available", for a transport that has none. */
    MoxGenParam::Array *GetParameters(MoxCamErr *err) override;

    // The list that discovery gave last.
    std::size_t deviceCount() const;
    /** Null beyond the last one. */
    DeviceInfo *listedDevice(std::size_t position) const;

    /** The adapter as it is now; all zero for a transport without a network. Any thread. */
    virtual AdapterFacts adapterFacts() const;
    /** Opens a camera that was found here. Throws a GenICam exception that says why it cannot. */
    virtual std::unique_ptr<Link> openLink(const DeviceRecord &record) = 0;
    /** As `DeviceInfo::ForceIP`, and keeps what it makes of the camera; "not implemented" without addresses. */
    virtual MoxCamErr forceIp(const DeviceRecord &record, std::uint32_t ip, std::uint32_t netmask,
                              std::uint32_t gateway);
    /** Sends a command and returns at once; event 1005 tells who obeys. "Not implemented" where no camera hears it. */
    virtual MoxCamErr sendAction(const Action &action);

protected:
    /** Looks for cameras, for at most @p limit, and gives them in a stable order. Must not throw. */
    virtual std::vector<DeviceRecord> discover(std::chrono::milliseconds limit) = 0;

    /** Asks for a camera at an address, for half a second at most; nothing when none answers. Must not throw. */
    virtual std::optional<DeviceRecord> findByAddress(std::uint32_t address);

    /**
     * The kept object of a camera, brought up to date; a discovery that began before does not take it back. It joins
     * the list only when a discovery finds it. Never null.
     */
    DeviceInfo *keep(const DeviceRecord &record);
    /** Hands an event with a copy of its data to the callbacks, on the SDK's event thread. From any thread. */
    void notify(std::uint32_t eventId, const void *data, std::size_t size);
    /** Notifies that a camera obeys the action command with that number. From any thread. */
    void acknowledged(std::uint32_t camera, std::uint16_t request);

private:
    std::unique_ptr<InterfacePrivate> const d;
};

/** A source of interfaces: the machine's adapters, or the simulated world. Owned by the system. */
class Backend
{
public:
    virtual ~Backend() = default;

    /** The interfaces that are there now, in a stable order. They live as long as the backend. Thread-safe. */
    virtual std::vector<Interface *> interfaces() = 0;
};

} // namespace MoxSdk

#endif
