#include "gigeinterface.h"

#include "../device/dottedaddress.h"
#include "cameralink.h"
#include "gvcpchannel.h"
#include "gvcpdiscovery.h"
#include "gvcpforceip.h"

#include <algorithm>

namespace MoxSdk {

namespace {

/** An adapter that went and came back may have another number and another netmask. */
Adapter current(const Adapter &adapter, const std::vector<Adapter> &adapters = readAdapters())
{
    const auto found = std::find_if(adapters.begin(), adapters.end(), [&](const Adapter &candidate) {
        return candidate.name == adapter.name && candidate.ipAddress == adapter.ipAddress;
    });
    return found == adapters.end() ? adapter : *found;
}

GvcpDiscovery searchOn(const Adapter &kept, std::uint16_t port)
{
    const std::vector<Adapter> adapters = readAdapters();
    return GvcpDiscovery(current(kept, adapters), port, adapters);
}

/** A quick search for one camera, at whatever address it is now. */
std::optional<DeviceRecord> findById(const Adapter &kept, std::uint16_t port, const std::string &id)
{
    const auto records = searchOn(kept, port).run(std::chrono::milliseconds(200));
    const auto found =
        std::find_if(records.begin(), records.end(), [&](const DeviceRecord &candidate) { return candidate.id == id; });
    return found == records.end() ? std::nullopt : std::optional(*found);
}

MoxCamErr resultOf(std::uint16_t status)
{
    switch (status) {
    case Gvcp::Success:
        return MoxCamError::Success;
    case Gvcp::NotImplemented:
        return MoxCamError::GenTLNotImplemented;
    case Gvcp::InvalidParameter:
        return MoxCamError::GenTLInvalidParameter;
    case Gvcp::AccessDenied:
        return MoxCamError::GenTLAccessDenied;
    case Gvcp::Busy:
        return MoxCamError::GenTLResourceInUse;
    default:
        return MoxCamError::GenTLError;
    }
}

} // namespace

GigEInterface::GigEInterface(const std::string &id, const Adapter &adapter, std::uint16_t port)
    : Interface(MoxCam::InterfaceGigEVision, id, adapter.name + " (" + dotted(adapter.ipAddress) + ')', "2.0"),
      m_adapter(adapter),
      m_port(port),
      m_action([this](std::uint32_t camera, std::uint16_t request) { acknowledged(camera, request); })
{ }

AdapterFacts GigEInterface::adapterFacts() const
{
    return static_cast<const AdapterFacts &>(current(m_adapter)); // what a network adapter knows beyond that stays here
}

std::unique_ptr<Link> GigEInterface::openLink(const DeviceRecord &record)
{
    // The link may outlive this object's use, so it takes copies with it. In whatever subnet the camera is, there may
    // be a way to it: the channel finds out.
    const auto opens = [kept = m_adapter, port = m_port, address = record.ipAddress](const StopSignal &stop) {
        return std::make_unique<GvcpChannel>(current(kept), address, port, &stop);
    };
    const auto reopens = [kept = m_adapter, port = m_port, id = record.id,
                          address = record.ipAddress](const StopSignal &stop) {
        // A camera that was switched off and on again may have another address; one that no broadcast reaches has not.
        std::optional<DeviceRecord> found = findById(kept, port, id);
        if (!found || found->accessStatus == MoxCam::AccessSubnetMismatch)
            found = searchOn(kept, port).find(address, std::chrono::milliseconds(200));
        if (!found || found->id != id)
            throw TIMEOUT_EXCEPTION("the camera is not found");
        return std::make_unique<GvcpChannel>(current(kept), found->ipAddress, port, &stop);
    };
    return std::make_unique<CameraLink>(opens, reopens);
}

MoxCamErr GigEInterface::forceIp(const DeviceRecord &record, std::uint32_t ip, std::uint32_t netmask,
                                 std::uint32_t gateway)
{
    // A camera program without a hardware address would not be the only one that hears it.
    if (record.macAddress == 0)
        return MoxCamError::GenTLInvalidParameter;
    const Adapter adapter = current(m_adapter);
    const auto status = forceIpThrough(adapter, m_port, {record.macAddress, ip, netmask, gateway});
    if (status && *status != Gvcp::Success)
        return resultOf(*status);
    // Some cameras change their address without a word, others say yes and need a while for it.
    const std::optional<DeviceRecord> found = findById(m_adapter, m_port, record.id);
    const bool arrived = found && ip != 0 && found->ipAddress == ip;
    if (!status && !arrived)
        return MoxCamError::GenTLTimeout;
    if (found && (arrived || ip == 0)) {
        keep(*found);
    } else if (ip != 0) {
        DeviceRecord expected = record;
        expected.ipAddress = ip;
        expected.netmask = netmask;
        expected.gateway = gateway;
        expected.accessStatus = adapter.contains(ip) ? MoxCam::AccessUnknown : MoxCam::AccessSubnetMismatch;
        keep(expected);
    }
    return MoxCamError::Success;
}

MoxCamErr GigEInterface::sendAction(const Action &action)
{
    return m_action.send(current(m_adapter), m_port, action) ? MoxCamError::Success : MoxCamError::GenTLIo;
}

std::vector<DeviceRecord> GigEInterface::discover(std::chrono::milliseconds limit)
{
    return searchOn(m_adapter, m_port).run(limit);
}

std::optional<DeviceRecord> GigEInterface::findByAddress(std::uint32_t address)
{
    return searchOn(m_adapter, m_port).find(address, std::chrono::milliseconds(500));
}

} // namespace MoxSdk
