#include "interfacemodule.h"

#include "../genapi/nodemapfactory.h"
#include "deviceinfo.h"
#include "interface.h"
#include "interfacedescription.h"

#include <Base/GCException.h>

#include <algorithm>
#include <map>
#include <optional>

namespace MoxSdk {

namespace {

using Register = InterfaceRegister;

void check(MoxCamErr result)
{
    switch (result) {
    case MoxCamError::Success:
        return;
    case MoxCamError::GenTLTimeout:
        throw TIMEOUT_EXCEPTION("the device does not answer");
    case MoxCamError::GenTLAccessDenied:
        throw ACCESS_EXCEPTION("the device is in use");
    case MoxCamError::GenTLInvalidParameter:
        throw INVALID_ARGUMENT_EXCEPTION("the device cannot have this address");
    default:
        throw RUNTIME_EXCEPTION("the device does not take the address (%d)", int(result));
    }
}

} // namespace

/** The port. Its functions run with the node map's lock held, which guards the selector and the values to force. */
class InterfaceModulePrivate final : public GenApi_3_0::IPort
{
public:
    InterfaceModulePrivate(Interface &owner, const std::string &description)
        : interface(owner), nodeMap(MoxGenApi::createNodeMap(description, *this, "Interface")), params(*nodeMap)
    { }

    GenApi_3_0::EAccessMode GetAccessMode() const override { return GenApi_3_0::RW; }
    void Read(void *buffer, std::int64_t address, std::int64_t length) override;
    void Write(const void *buffer, std::int64_t address, std::int64_t length) override;

    std::uint64_t number(Register place) const;
    std::uint64_t deviceNumber(Register place) const;
    std::string text(Register place) const;
    DeviceInfo &selected() const;
    void select(std::uint64_t position);
    void force();
    void act();

    Interface &interface;
    std::uint64_t selector = 0;
    std::map<const DeviceInfo *, std::map<Register, std::uint32_t>> written; // values to force, by device
    std::map<Register, std::uint32_t> action = {{Register::ActionFlags, 0},    {Register::ActionDeviceKey, 0},
                                                {Register::ActionGroupKey, 0}, {Register::ActionGroupMask, 0},
                                                {Register::ActionTimeHigh, 0}, {Register::ActionTimeLow, 0},
                                                {Register::ActionAnswers, 0}};

    // Each stands on those before it.
    const std::unique_ptr<GenApi_3_0::INodeMap> nodeMap;
    ParamArray params;
};

void InterfaceModulePrivate::Read(void *buffer, std::int64_t address, std::int64_t length)
{
    auto *const bytes = static_cast<std::uint8_t *>(buffer);
    const auto place = static_cast<Register>(address);
    if (length <= 8) {
        const std::uint64_t value = number(place);
        for (std::int64_t i = 0; i < length; ++i)
            bytes[i] = static_cast<std::uint8_t>(value >> 8 * (length - 1 - i));
        return;
    }
    std::string content = text(place);
    content.resize(static_cast<std::size_t>(length));
    content.back() = '\0';
    std::copy(content.begin(), content.end(), bytes);
}

void InterfaceModulePrivate::Write(const void *buffer, std::int64_t address, std::int64_t length)
{
    const auto *const bytes = static_cast<const std::uint8_t *>(buffer);
    std::uint32_t value = 0;
    for (std::int64_t i = 0; i < length; ++i)
        value = value << 8 | bytes[i];
    switch (const auto place = static_cast<Register>(address)) {
    case Register::DeviceSelector:
        return select(value);
    case Register::ForceIp:
        return force();
    case Register::SendAction:
        return act();
    default:
        if (const auto part = action.find(place); part != action.end())
            part->second = value;
        else
            written[&selected()][place] = value;
    }
}

std::uint64_t InterfaceModulePrivate::number(Register place) const
{
    switch (place) {
    case Register::DeviceCount:
        return interface.deviceCount();
    case Register::LastDevice:
        return std::max<std::uint64_t>(interface.deviceCount(), 1) - 1;
    case Register::DeviceSelector:
        return selector;
    case Register::DeviceListed:
        return selector < interface.deviceCount();
    case Register::AdapterMac:
        return interface.adapterFacts().macAddress;
    case Register::AdapterIp:
        return interface.adapterFacts().ipAddress;
    case Register::AdapterNetmask:
        return interface.adapterFacts().netmask;
    case Register::AdapterGateway:
        return interface.adapterFacts().gateway;
    default:
        if (const auto part = action.find(place); part != action.end())
            return part->second;
        return deviceNumber(place);
    }
}

std::uint64_t InterfaceModulePrivate::deviceNumber(Register place) const
{
    const DeviceInfo &info = selected();
    const auto values = written.find(&info);
    if (values != written.end()) {
        const auto value = values->second.find(place);
        if (value != values->second.end())
            return value->second;
    }
    const DeviceRecord record = info.record();
    switch (place) {
    case Register::DeviceMac:
        return record.macAddress;
    case Register::DeviceIp:
    case Register::ForcedIp:
        return record.ipAddress;
    case Register::DeviceNetmask:
    case Register::ForcedNetmask:
        return record.netmask;
    case Register::DeviceGateway:
    case Register::ForcedGateway:
        return record.gateway;
    default:
        return record.usbVersion;
    }
}

std::string InterfaceModulePrivate::text(Register place) const
{
    switch (place) {
    case Register::InterfaceId:
        return interface.GetID();
    case Register::InterfaceName:
        return interface.GetDescription();
    case Register::DeviceId:
        return selected().record().id;
    case Register::DeviceVendor:
        return selected().record().vendor;
    case Register::DeviceModel:
        return selected().record().model;
    default:
        return selected().record().serialNumber;
    }
}

DeviceInfo &InterfaceModulePrivate::selected() const
{
    // The list may have become shorter since the node map asked whether the device is there.
    DeviceInfo *info = interface.listedDevice(selector);
    if (!info)
        throw ACCESS_EXCEPTION("there is no device %d any more", int(selector));
    return *info;
}

void InterfaceModulePrivate::select(std::uint64_t position)
{
    if (position >= interface.deviceCount())
        throw OUT_OF_RANGE_EXCEPTION("there is no device %d", int(position));
    selector = position;
}

void InterfaceModulePrivate::force()
{
    DeviceInfo &info = selected();
    const auto value = [this](Register place) { return static_cast<std::uint32_t>(deviceNumber(place)); };
    check(info.ForceIP(value(Register::ForcedIp), value(Register::ForcedNetmask), value(Register::ForcedGateway)));
    written.erase(&info);
}

void InterfaceModulePrivate::act()
{
    // Bits as the command itself has them; the others are reserved, and are not sent.
    constexpr std::uint32_t AcknowledgeRequested = 0x01;
    constexpr std::uint32_t Scheduled = 0x80;
    const std::uint32_t flags = action[Register::ActionFlags];
    Action command;
    command.deviceKey = action[Register::ActionDeviceKey];
    command.groupKey = action[Register::ActionGroupKey];
    command.groupMask = action[Register::ActionGroupMask];
    if (flags & Scheduled)
        command.time = std::uint64_t(action[Register::ActionTimeHigh]) << 32 | action[Register::ActionTimeLow];
    command.acknowledged = flags & AcknowledgeRequested;
    command.awaited = action[Register::ActionAnswers];
    if (interface.sendAction(command) != MoxCamError::Success)
        throw RUNTIME_EXCEPTION("the command cannot be sent");
}

InterfaceModule::InterfaceModule(Interface &interface, const std::string &description)
    : d(std::make_unique<InterfaceModulePrivate>(interface, description))
{ }

InterfaceModule::~InterfaceModule() = default;

ParamArray &InterfaceModule::parameters()
{
    return d->params;
}

} // namespace MoxSdk
