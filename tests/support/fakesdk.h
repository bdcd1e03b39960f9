// A camera SDK to play with: a world of interfaces and cameras that come and go, and that can refuse to answer.
//
// Objects live as long as their FakeSystem, unplugged ones too. Plugging and enumerating may happen on different
// threads at once; everything else is set before the world is shown to anyone.
#ifndef MOX_FAKESDK_H
#define MOX_FAKESDK_H

#include <MoxCameraApi/MoxCam.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace MoxTest {

/** A text of the SDK; none is a null text. */
using FakeText = std::optional<std::string>;

inline const char *textOf(const FakeText &text)
{
    return text ? text->c_str() : nullptr;
}

/** How a lookup of a list goes. */
enum class ListAnswer { List, Null, Throw };

/** What was asked of a world, and how it answers. */
struct FakeCounts
{
    std::atomic<unsigned> discoveryTime{0}; // milliseconds, as far as the caller's limit allows
    std::atomic<int> openLists{0};
    std::atomic<int> interfaceListCalls{0};
    std::atomic<int> discoveries{0};
    std::atomic<int> releases{0};
    std::atomic<std::uint32_t> lastTypeMask{0};
    std::atomic<std::uint32_t> lastTimeout{0};
};

/** What is plugged in somewhere, in its order. */
template<class List, class Fake> class FakeSockets
{
public:
    void plug(Fake *one, std::size_t row)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        present.insert(present.begin() + static_cast<std::ptrdiff_t>(std::min(row, present.size())), one);
    }
    void unplug(Fake *one)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        present.erase(std::remove(present.begin(), present.end(), one), present.end());
    }
    std::vector<Fake *> plugged() const
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return present;
    }

protected:
    Fake *keep(std::unique_ptr<Fake> one)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        made.push_back(std::move(one));
        present.push_back(made.back().get());
        return present.back();
    }
    List *answer(ListAnswer how, std::atomic<int> &openLists) const
    {
        if (how == ListAnswer::Throw)
            throw std::runtime_error("the enumeration failed");
        return how == ListAnswer::List ? new FakeList(plugged(), openLists) : nullptr;
    }

private:
    class FakeList final : public List
    {
    public:
        FakeList(std::vector<Fake *> found, std::atomic<int> &open) : elements(std::move(found)), openLists(open)
        {
            ++openLists;
        }
        void Release() override
        {
            --openLists;
            delete this;
        }
        std::size_t GetCount() override { return elements.size(); }
        typename Fake::Sdk *GetFirst() override
        {
            next = 0;
            return GetNext();
        }
        typename Fake::Sdk *GetNext() override { return next < elements.size() ? elements[next++] : nullptr; }

    private:
        const std::vector<Fake *> elements;
        std::atomic<int> &openLists;
        std::size_t next = 0;
    };

    mutable std::mutex mutex;
    std::vector<std::unique_ptr<Fake>> made;
    std::vector<Fake *> present;
};

class FakeDeviceInfo final : public MoxCam::DeviceInfo
{
public:
    using Sdk = MoxCam::DeviceInfo;

    FakeDeviceInfo(MoxCam::Interface *owner, FakeText deviceId, FakeText name)
        : iface(owner), id(std::move(deviceId)), displayName(std::move(name))
    { }

    MoxCam::Interface *GetInterface() override { return iface; }
    const char *GetID() override { return textOf(id); }
    const char *GetVendor() override { return "Maker"; }
    const char *GetModel() override { return textOf(modelName); }
    const char *GetDisplayName() override
    {
        if (atDisplayName)
            atDisplayName();
        return textOf(displayName);
    }
    const char *GetUserDefinedName() override { return textOf(userName); }
    const char *GetSerialNumber() override { return "0001"; }
    const char *GetVersion() override { return "1.0"; }
    int GetAccessStatus() override { return accessStatus; }
    const char *GetIPAddress(MoxCamErr *err) override { return addressText(ipAddress, err); }
    const char *GetNetmask(MoxCamErr *err) override { return addressText(netmask, err); }
    const char *GetGateway(MoxCamErr *err) override { return addressText(gateway, err); }
    MoxCamErr ForceIP(std::uint32_t ip, std::uint32_t mask, std::uint32_t gatewayAddress) override
    {
        forcedAddresses.insert(forcedAddresses.end(), {ip, mask, gatewayAddress});
        if (atForceIp)
            atForceIp();
        return forceIpResult;
    }

    MoxCam::Interface *iface;
    FakeText id;
    FakeText displayName;
    FakeText modelName = "Model";
    FakeText userName = "";
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
    const char *addressText(const FakeText &text, MoxCamErr *err) const
    {
        const bool refused = &text == refusedAddress;
        if (err)
            *err = refused ? MoxCamError::GenICamAccess : MoxCamError::Success;
        return refused ? nullptr : textOf(text);
    }
};

class FakeInterface final : public MoxCam::Interface, public FakeSockets<MoxCam::DeviceInfoList, FakeDeviceInfo>
{
public:
    using Sdk = MoxCam::Interface;

    FakeInterface(FakeCounts &world, FakeText interfaceId, FakeText text, int interfaceType)
        : id(std::move(interfaceId)), description(std::move(text)), type(interfaceType), counts(world)
    { }

    MoxCam::DeviceInfoList *GetDeviceInfoList() override { return answer(deviceLists, counts.openLists); }
    MoxCam::DeviceInfo *ConnectByIp(const char *ipAddress) override
    {
        askedIp = ipAddress;
        if (atConnect)
            atConnect();
        return answersByIp;
    }
    void ReDiscoverDevices(bool *changed, std::uint32_t timeout) override
    {
        ++counts.discoveries;
        counts.lastTimeout = timeout;
        if (const unsigned time = std::min<unsigned>(counts.discoveryTime, timeout))
            std::this_thread::sleep_for(std::chrono::milliseconds(time));
        if (changed)
            *changed = true;
    }
    const char *GetDescription() override { return textOf(description); }
    int GetType() override { return type; }
    const char *GetID() override { return textOf(id); }
    const char *GetVersion() override { return "2.0"; }
    void RegisterEventCallback(std::uint32_t eventId, MoxCam::EventCallback callback, void *context) override
    {
        subscriptions.emplace(eventId, [=](const void *data, unsigned long size) { callback(data, size, context); });
    }
    MoxGenParam::Array *GetParameters(MoxCamErr *err) override
    {
        if (err)
            *err = parametersError;
        return parametersError ? nullptr : parameters;
    }

    /** Makes a camera and plugs it in behind those that are there. */
    FakeDeviceInfo *add(FakeText deviceId, FakeText name = "Camera")
    {
        return keep(std::make_unique<FakeDeviceInfo>(this, std::move(deviceId), std::move(name)));
    }

    FakeText id;
    FakeText description;
    int type;
    ListAnswer deviceLists = ListAnswer::List;
    FakeDeviceInfo *answersByIp = nullptr;
    std::string askedIp;
    std::function<void()> atConnect; // called in the middle of ConnectByIp
    MoxGenParam::Array *parameters = nullptr;
    MoxCamErr parametersError = 0;
    std::multimap<std::uint32_t, std::function<void(const void *data, unsigned long size)>> subscriptions;

private:
    FakeCounts &counts;
};

class FakeSystem final : public MoxCam::System,
                         public FakeCounts,
                         public FakeSockets<MoxCam::InterfaceList, FakeInterface>
{
public:
    /** What MoxCam_GetSystem gives; null at first. */
    static inline FakeSystem *current = nullptr;

    void Release() override { ++releases; }
    MoxCam::InterfaceList *GetInterfaceList(std::uint32_t typeMask) override
    {
        if (const auto call = std::exchange(atNextEnumeration, {}))
            call();
        ++interfaceListCalls;
        lastTypeMask = typeMask;
        return answer(interfaceLists, openLists);
    }

    /** Makes an interface and plugs it in behind those that are there. */
    FakeInterface *add(FakeText interfaceId, FakeText description = "Interface", int type = MoxCam::InterfaceGigEVision)
    {
        return keep(std::make_unique<FakeInterface>(*this, std::move(interfaceId), std::move(description), type));
    }
    /** The world as one text: identifiers of interfaces, each with those of its devices in brackets. */
    std::string outline() const
    {
        std::string text;
        for (const FakeInterface *iface : plugged()) {
            text += iface->id.value_or("") + '[';
            for (const FakeDeviceInfo *device : iface->plugged())
                text += device->id.value_or("") + ' ';
            text += ']';
        }
        return text;
    }

    std::atomic<ListAnswer> interfaceLists{ListAnswer::List};
    std::function<void()> atNextEnumeration; // called once, at the start
};

} // namespace MoxTest

#endif
