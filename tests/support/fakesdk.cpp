#include "fakesdk.h"

#include "fakefeatures.h"

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <thread>
#include <utility>

namespace MoxTest {

namespace {

template<class List, class Element, class Fake> class FakeList final : public List
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
    Element *GetFirst() override
    {
        next = 0;
        return GetNext();
    }
    Element *GetNext() override { return next < elements.size() ? elements[next++] : nullptr; }

private:
    const std::vector<Fake *> elements;
    std::atomic<int> &openLists;
    std::size_t next = 0;
};

using InterfaceList = FakeList<MoxCam::InterfaceList, MoxCam::Interface, FakeInterface>;
using DeviceInfoList = FakeList<MoxCam::DeviceInfoList, MoxCam::DeviceInfo, FakeDeviceInfo>;

template<class List, class Fake> List *answer(ListAnswer how, const std::vector<Fake *> &found, std::atomic<int> &open)
{
    if (how == ListAnswer::Throw)
        throw std::runtime_error("the enumeration failed");
    return how == ListAnswer::List ? new List(found, open) : nullptr;
}

template<class Fake> void insert(std::vector<Fake *> &all, Fake *one, std::size_t row)
{
    all.insert(all.begin() + static_cast<std::ptrdiff_t>(std::min(row, all.size())), one);
}

template<class Fake> void remove(std::vector<Fake *> &all, Fake *one)
{
    all.erase(std::remove(all.begin(), all.end(), one), all.end());
}

} // namespace

FakeDeviceInfo::FakeDeviceInfo(FakeInterface *owner, FakeText deviceId, FakeText name)
    : iface(owner), id(std::move(deviceId)), displayName(std::move(name))
{ }

const char *FakeDeviceInfo::addressText(const FakeText &text, MoxCamErr *err) const
{
    const bool refused = &text == refusedAddress;
    if (err)
        *err = refused ? MoxCamError::GenICamAccess : MoxCamError::Success;
    return refused ? nullptr : textOf(text);
}

MoxCam::Interface *FakeDeviceInfo::GetInterface()
{
    return iface;
}

MoxCamErr FakeDeviceInfo::ForceIP(std::uint32_t ip, std::uint32_t mask, std::uint32_t gatewayAddress)
{
    forcedAddresses.insert(forcedAddresses.end(), {ip, mask, gatewayAddress});
    if (atForceIp)
        atForceIp();
    return forceIpResult;
}

FakeInterface::FakeInterface(FakeSystem *owner, FakeText interfaceId, FakeText text, int interfaceType)
    : id(std::move(interfaceId)), description(std::move(text)), type(interfaceType), system(owner)
{ }

MoxCam::DeviceInfoList *FakeInterface::GetDeviceInfoList()
{
    return answer<DeviceInfoList>(deviceLists, plugged(), system->openLists);
}

MoxCam::DeviceInfo *FakeInterface::ConnectByIp(const char *ipAddress)
{
    askedIp = ipAddress;
    if (atConnect)
        atConnect();
    return answersByIp;
}

void FakeInterface::ReDiscoverDevices(bool *changed, std::uint32_t timeout)
{
    ++system->discoveries;
    system->lastTimeout = timeout;
    if (const unsigned time = std::min<unsigned>(system->discoveryTime, timeout))
        std::this_thread::sleep_for(std::chrono::milliseconds(time));
    if (changed)
        *changed = true;
}

MoxGenParam::Array *FakeInterface::GetParameters(MoxCamErr *err)
{
    if (err)
        *err = parametersError;
    return parametersError ? nullptr : parameters;
}

FakeDeviceInfo *FakeInterface::add(FakeText deviceId, FakeText name)
{
    const std::lock_guard<std::mutex> lock(system->mutex);
    made.push_back(std::make_unique<FakeDeviceInfo>(this, std::move(deviceId), std::move(name)));
    devices.push_back(made.back().get());
    return devices.back();
}

void FakeInterface::plug(FakeDeviceInfo *device, std::size_t row)
{
    const std::lock_guard<std::mutex> lock(system->mutex);
    insert(devices, device, row);
}

void FakeInterface::unplug(FakeDeviceInfo *device)
{
    const std::lock_guard<std::mutex> lock(system->mutex);
    remove(devices, device);
}

std::vector<FakeDeviceInfo *> FakeInterface::plugged() const
{
    const std::lock_guard<std::mutex> lock(system->mutex);
    return devices;
}

MoxCam::InterfaceList *FakeSystem::GetInterfaceList(std::uint32_t typeMask)
{
    if (const auto call = std::exchange(atNextEnumeration, {}))
        call();
    ++interfaceListCalls;
    lastTypeMask = typeMask;
    return answer<InterfaceList>(interfaceLists, plugged(), openLists);
}

FakeInterface *FakeSystem::add(FakeText interfaceId, FakeText description, int type)
{
    const std::lock_guard<std::mutex> lock(mutex);
    made.push_back(std::make_unique<FakeInterface>(this, std::move(interfaceId), std::move(description), type));
    interfaces.push_back(made.back().get());
    return interfaces.back();
}

void FakeSystem::plug(FakeInterface *iface, std::size_t row)
{
    const std::lock_guard<std::mutex> lock(mutex);
    insert(interfaces, iface, row);
}

void FakeSystem::unplug(FakeInterface *iface)
{
    const std::lock_guard<std::mutex> lock(mutex);
    remove(interfaces, iface);
}

std::vector<FakeInterface *> FakeSystem::plugged() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return interfaces;
}

std::string FakeSystem::outline() const
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

} // namespace MoxTest

MoxCam::System *MoxCam_GetSystem()
{
    return MoxTest::FakeSystem::current;
}

MoxCam::Device *MoxCam_CreateDevice(MoxCam::DeviceInfo *info, int accessMode, int flags)
{
    return accessMode == 2 && flags == 0 ? static_cast<MoxTest::FakeDeviceInfo *>(info)->device : nullptr;
}

MoxGenParam::ParamEventSink::~ParamEventSink()
{
    MoxTest::FakeFeature::forget(this);
}
