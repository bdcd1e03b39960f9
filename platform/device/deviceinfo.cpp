#include "deviceinfo.h"

#include "../params/textpool.h"
#include "dottedaddress.h"
#include "interface.h"

#include <algorithm>
#include <map>
#include <mutex>

namespace MoxSdk {

namespace {

/** Every DeviceInfo there is, by the pointer that its users hold. */
class Registry
{
public:
    void add(DeviceInfo *info)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_infos[info] = info;
    }
    void remove(DeviceInfo *info)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_infos.erase(info);
    }
    DeviceInfo *find(const MoxCam::DeviceInfo *info)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const auto found = m_infos.find(info);
        return found == m_infos.end() ? nullptr : found->second;
    }

    static Registry &instance()
    {
        // Never destroyed: static objects may give the system up at the very end.
        static Registry &registry = *new Registry;
        return registry;
    }

private:
    std::mutex m_mutex;
    std::map<const MoxCam::DeviceInfo *, DeviceInfo *> m_infos;
};

} // namespace

class DeviceInfoPrivate
{
public:
    DeviceInfoPrivate(Interface &owner, const DeviceRecord &first) : interface(owner), record(first) { }

    const char *text(std::string DeviceRecord::*field);
    const char *address(std::uint32_t DeviceRecord::*field, MoxCamErr *err);

    Interface &interface;
    TextPool texts;
    std::mutex mutex; // guards the record
    DeviceRecord record;
};

const char *DeviceInfoPrivate::text(std::string DeviceRecord::*field)
{
    const std::lock_guard<std::mutex> lock(mutex);
    return texts.intern(record.*field);
}

const char *DeviceInfoPrivate::address(std::uint32_t DeviceRecord::*field, MoxCamErr *err)
{
    const bool hasAddress = interface.GetType() == MoxCam::InterfaceGigEVision;
    if (err)
        *err = hasAddress ? MoxCamError::Success : MoxCamError::GenTLNotAvailable;
    const std::lock_guard<std::mutex> lock(mutex);
    return hasAddress ? texts.intern(dotted(record.*field)) : "";
}

DeviceInfo::DeviceInfo(Interface &interface, const DeviceRecord &record)
    : d(std::make_unique<DeviceInfoPrivate>(interface, record))
{
    Registry::instance().add(this);
}

DeviceInfo::~DeviceInfo()
{
    Registry::instance().remove(this);
}

DeviceInfo *DeviceInfo::living(const MoxCam::DeviceInfo *info)
{
    return Registry::instance().find(info);
}

MoxCam::Interface *DeviceInfo::GetInterface()
{
    return &d->interface;
}

const char *DeviceInfo::GetID()
{
    return d->text(&DeviceRecord::id);
}

const char *DeviceInfo::GetVendor()
{
    return d->text(&DeviceRecord::vendor);
}

const char *DeviceInfo::GetModel()
{
    return d->text(&DeviceRecord::model);
}

const char *DeviceInfo::GetDisplayName()
{
    return d->text(&DeviceRecord::displayName);
}

const char *DeviceInfo::GetUserDefinedName()
{
    return d->text(&DeviceRecord::userDefinedName);
}

const char *DeviceInfo::GetSerialNumber()
{
    return d->text(&DeviceRecord::serialNumber);
}

const char *DeviceInfo::GetVersion()
{
    return d->text(&DeviceRecord::version);
}

int DeviceInfo::GetAccessStatus()
{
    return record().accessStatus;
}

const char *DeviceInfo::GetIPAddress(MoxCamErr *err)
{
    return d->address(&DeviceRecord::ipAddress, err);
}

const char *DeviceInfo::GetNetmask(MoxCamErr *err)
{
    return d->address(&DeviceRecord::netmask, err);
}

const char *DeviceInfo::GetGateway(MoxCamErr *err)
{
    return d->address(&DeviceRecord::gateway, err);
}

MoxCamErr DeviceInfo::ForceIP(std::uint32_t ip, std::uint32_t netmask, std::uint32_t gateway)
{
    // Whether a device can have such an address is for the device to say: its user may know more than the SDK.
    return d->interface.forceIp(record(), ip, netmask, gateway);
}

Interface &DeviceInfo::interface() const
{
    return d->interface;
}

DeviceRecord DeviceInfo::record() const
{
    const std::lock_guard<std::mutex> lock(d->mutex);
    return d->record;
}

void DeviceInfo::setRecord(const DeviceRecord &record)
{
    const std::lock_guard<std::mutex> lock(d->mutex);
    d->record = record;
}

} // namespace MoxSdk
