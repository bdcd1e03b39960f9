#include "interface.h"

#include "deviceinfo.h"
#include "dottedaddress.h"
#include "elementlist.h"
#include "eventsource.h"
#include "interfacedescription.h"
#include "interfacemodule.h"

#include <condition_variable>
#include <mutex>
#include <unordered_map>
#include <unordered_set>

namespace MoxSdk {

class InterfacePrivate
{
public:
    InterfacePrivate(int transport, std::string identifier, std::string text, std::string number)
        : type(transport), id(std::move(identifier)), description(std::move(text)), version(std::move(number))
    { }

    DeviceInfo *object(Interface &owner, const DeviceRecord &record);

    const int type;
    const std::string id;
    const std::string description;
    const std::string version;

    const std::shared_ptr<EventSource> events = std::make_shared<EventSource>();
    std::mutex mutex; // guards what follows, and is free while a discovery looks around
    bool discovering = false; // one at a time
    std::condition_variable discovered;
    std::unordered_map<std::string, std::unique_ptr<DeviceInfo>> known;
    std::vector<DeviceInfo *> shown;
    std::unordered_set<DeviceInfo *> keptMeanwhile; // newer than what the discovery under way tells of them

    std::mutex makingModule;
    std::unique_ptr<InterfaceModule> module; // last: it asks the interface
};

/** The kept object of a camera, with the lock held. */
DeviceInfo *InterfacePrivate::object(Interface &owner, const DeviceRecord &record)
{
    std::unique_ptr<DeviceInfo> &info = known[record.id];
    if (!info)
        info = std::make_unique<DeviceInfo>(owner, record);
    return info.get();
}

Interface::Interface(int type, std::string id, std::string description, std::string version)
    : d(std::make_unique<InterfacePrivate>(type, std::move(id), std::move(description), std::move(version)))
{ }

Interface::~Interface()
{
    d->events->close();
}

MoxCam::DeviceInfoList *Interface::GetDeviceInfoList()
{
    const std::lock_guard<std::mutex> lock(d->mutex);
    return new ElementList<MoxCam::DeviceInfoList, MoxCam::DeviceInfo>({d->shown.begin(), d->shown.end()});
}

MoxCam::DeviceInfo *Interface::ConnectByIp(const char *ipAddress)
{
    const std::optional<std::uint32_t> address = parseDotted(ipAddress ? ipAddress : "");
    if (!address || d->type != MoxCam::InterfaceGigEVision)
        return nullptr;
    const std::optional<DeviceRecord> record = findByAddress(*address);
    return record ? keep(*record) : nullptr;
}

void Interface::ReDiscoverDevices(bool *changed, std::uint32_t timeout)
{
    const std::chrono::milliseconds limit(timeout);
    if (changed)
        *changed = false;
    {
        // Who cannot wait for the end of another discovery leaves the list to it.
        std::unique_lock<std::mutex> lock(d->mutex);
        if (!d->discovered.wait_for(lock, limit, [this] { return !d->discovering; }))
            return;
        d->discovering = true;
    }
    const std::vector<DeviceRecord> records = discover(limit);

    const std::lock_guard<std::mutex> lock(d->mutex);
    std::vector<DeviceInfo *> found;
    std::unordered_set<DeviceInfo *> seen;
    for (const DeviceRecord &record : records) {
        DeviceInfo *info = d->object(*this, record);
        if (d->keptMeanwhile.count(info) == 0)
            info->setRecord(record);
        if (seen.insert(info).second)
            found.push_back(info);
    }
    d->keptMeanwhile.clear();
    // One object stands for one identifier, so the pointers tell whether the identifiers changed.
    if (changed)
        *changed = found != d->shown;
    d->shown = std::move(found);
    d->discovering = false;
    d->discovered.notify_one();
}

const char *Interface::GetDescription()
{
    return d->description.c_str();
}

int Interface::GetType()
{
    return d->type;
}

const char *Interface::GetID()
{
    return d->id.c_str();
}

const char *Interface::GetVersion()
{
    return d->version.c_str();
}

void Interface::RegisterEventCallback(std::uint32_t eventId, MoxCam::EventCallback callback, void *context)
{
    if (callback)
        d->events->add(int(eventId), callback, context);
}

MoxGenParam::Array *Interface::GetParameters(MoxCamErr *err)
{
    const std::lock_guard<std::mutex> lock(d->makingModule);
    const std::string text = d->module ? std::string() : interfaceDescription(d->type);
    if (!text.empty())
        d->module = std::make_unique<InterfaceModule>(*this, text);
    if (err)
        *err = d->module ? MoxCamError::Success : MoxCamError::GenTLNotAvailable;
    return d->module ? &d->module->parameters() : nullptr;
}

std::size_t Interface::deviceCount() const
{
    const std::lock_guard<std::mutex> lock(d->mutex);
    return d->shown.size();
}

DeviceInfo *Interface::listedDevice(std::size_t position) const
{
    const std::lock_guard<std::mutex> lock(d->mutex);
    return position < d->shown.size() ? d->shown[position] : nullptr;
}

AdapterFacts Interface::adapterFacts() const
{
    return {};
}

MoxCamErr Interface::forceIp(const DeviceRecord &, std::uint32_t, std::uint32_t, std::uint32_t)
{
    return MoxCamError::GenTLNotImplemented;
}

MoxCamErr Interface::sendAction(const Action &)
{
    return MoxCamError::GenTLNotImplemented;
}

std::optional<DeviceRecord> Interface::findByAddress(std::uint32_t)
{
    return std::nullopt;
}

DeviceInfo *Interface::keep(const DeviceRecord &record)
{
    const std::lock_guard<std::mutex> lock(d->mutex);
    DeviceInfo *info = d->object(*this, record);
    info->setRecord(record);
    if (d->discovering)
        d->keptMeanwhile.insert(info);
    return info;
}

void Interface::notify(std::uint32_t eventId, const void *data, std::size_t size)
{
    d->events->post(int(eventId), std::string(static_cast<const char *>(data), size));
}

void Interface::acknowledged(std::uint32_t camera, std::uint16_t request)
{
    // The status word between them is that of success: a camera that refuses does not act, and is no event.
    const std::uint64_t content = std::uint64_t(camera) << 32 | request;
    std::uint8_t data[8];
    for (int i = 0; i < 8; ++i)
        data[i] = static_cast<std::uint8_t>(content >> 8 * (7 - i));
    notify(MoxCam::EventActionAcknowledge, data, sizeof data);
}

} // namespace MoxSdk
