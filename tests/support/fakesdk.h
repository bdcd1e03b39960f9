// A camera SDK to play with: a world of interfaces and cameras that come and go, and that can refuse to answer.
//
// Objects live as long as their FakeSystem, unplugged ones too. Plugging and enumerating may happen on different
// threads at once; everything else is set before the world is shown to anyone.
#ifndef MOX_FAKESDK_H
#define MOX_FAKESDK_H

#include <MoxCameraApi/MoxCam.h>

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace MoxTest {

class FakeInterface;
class FakeSystem;

/** A text of the SDK; none is a null text. */
using FakeText = std::optional<std::string>;

inline const char *textOf(const FakeText &text)
{
    return text ? text->c_str() : nullptr;
}

/** How a lookup of a list goes. */
enum class ListAnswer { List, Null, Throw };

class FakeDeviceInfo final : public MoxCam::DeviceInfo
{
public:
    FakeDeviceInfo(FakeInterface *owner, FakeText deviceId, FakeText name);

    MoxCam::Interface *GetInterface() override;
    const char *GetID() override { return textOf(id); }
    const char *GetVendor() override { return textOf(vendor); }
    const char *GetModel() override { return textOf(modelName); }
    const char *GetDisplayName() override
    {
        if (atDisplayName)
            atDisplayName();
        return textOf(displayName);
    }
    const char *GetUserDefinedName() override { return textOf(userName); }
    const char *GetSerialNumber() override { return textOf(serialNumber); }
    const char *GetVersion() override { return textOf(version); }
    int GetAccessStatus() override { return accessStatus; }
    const char *GetIPAddress(MoxCamErr *err) override { return addressText(ipAddress, err); }
    const char *GetNetmask(MoxCamErr *err) override { return addressText(netmask, err); }
    const char *GetGateway(MoxCamErr *err) override { return addressText(gateway, err); }
    MoxCamErr ForceIP(std::uint32_t ip, std::uint32_t netmask, std::uint32_t gateway) override;

    FakeInterface *iface;
    FakeText id;
    FakeText displayName;
    FakeText vendor = "Maker";
    FakeText modelName = "Model";
    FakeText userName = "";
    FakeText serialNumber = "0001";
    FakeText version = "1.0";
    FakeText ipAddress = "192.168.1.10";
    FakeText netmask = "255.255.255.0";
    FakeText gateway = "0.0.0.0";
    int accessStatus = MoxCam::AccessReadWrite;
    const FakeText *refusedAddress = nullptr; // which of the three address texts cannot be read
    MoxCamErr forceIpResult = 0;
    std::function<void()> atForceIp; // called in the middle of ForceIP
    std::function<void()> atDisplayName;
    std::vector<std::uint32_t> forcedAddresses; // three numbers for each call
    MoxCam::Device *device = nullptr; // what opening it gives

private:
    const char *addressText(const FakeText &text, MoxCamErr *err) const;
};

class FakeInterface final : public MoxCam::Interface
{
public:
    FakeInterface(FakeSystem *owner, FakeText interfaceId, FakeText text, int interfaceType);

    MoxCam::DeviceInfoList *GetDeviceInfoList() override;
    MoxCam::DeviceInfo *ConnectByIp(const char *ipAddress) override;
    void ReDiscoverDevices(bool *changed, std::uint32_t timeout) override;
    const char *GetDescription() override { return textOf(description); }
    int GetType() override { return type; }
    const char *GetID() override { return textOf(id); }
    const char *GetVersion() override { return textOf(version); }
    void RegisterEventCallback(std::uint32_t eventId, MoxCam::EventCallback callback, void *context) override
    {
        subscriptions.emplace(eventId, [=](const void *data, unsigned long size) { callback(data, size, context); });
    }
    MoxGenParam::Array *GetParameters(MoxCamErr *err) override;

    /** Makes a camera and plugs it in behind those that are there. */
    FakeDeviceInfo *add(FakeText deviceId, FakeText name = "Camera");
    void plug(FakeDeviceInfo *device, std::size_t row);
    void unplug(FakeDeviceInfo *device);
    std::vector<FakeDeviceInfo *> plugged() const;

    FakeText id;
    FakeText description;
    FakeText version = "2.0";
    int type;
    ListAnswer deviceLists = ListAnswer::List;
    FakeDeviceInfo *answersByIp = nullptr;
    std::string askedIp;
    std::function<void()> atConnect; // called in the middle of ConnectByIp
    MoxGenParam::Array *parameters = nullptr;
    MoxCamErr parametersError = 0;
    std::multimap<std::uint32_t, std::function<void(const void *data, unsigned long size)>> subscriptions;

private:
    FakeSystem *const system;
    std::vector<std::unique_ptr<FakeDeviceInfo>> made;
    std::vector<FakeDeviceInfo *> devices;
};

class FakeSystem final : public MoxCam::System
{
public:
    /** What MoxCam_GetSystem gives; null at first. */
    static inline FakeSystem *current = nullptr;

    void Release() override { ++releases; }
    MoxCam::InterfaceList *GetInterfaceList(std::uint32_t typeMask) override;

    /** Makes an interface and plugs it in behind those that are there. */
    FakeInterface *add(FakeText interfaceId, FakeText description = "Interface",
                       int type = MoxCam::InterfaceGigEVision);
    void plug(FakeInterface *iface, std::size_t row);
    void unplug(FakeInterface *iface);
    std::vector<FakeInterface *> plugged() const;
    /** The world as one text: identifiers of interfaces, each with those of its devices in brackets. */
    std::string outline() const;

    std::atomic<ListAnswer> interfaceLists{ListAnswer::List};
    std::function<void()> atNextEnumeration; // called once, at the start
    std::atomic<unsigned> discoveryTime{0}; // milliseconds, as far as the caller's limit allows
    std::atomic<int> openLists{0};
    std::atomic<int> interfaceListCalls{0};
    std::atomic<int> discoveries{0};
    std::atomic<int> releases{0};
    std::atomic<std::uint32_t> lastTypeMask{0};
    std::atomic<std::uint32_t> lastTimeout{0};

private:
    friend class FakeInterface;

    mutable std::mutex mutex; // of all that is plugged in
    std::vector<std::unique_ptr<FakeInterface>> made;
    std::vector<FakeInterface *> interfaces;
};

} // namespace MoxTest

#endif
