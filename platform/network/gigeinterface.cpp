#include "gigeinterface.h"

#include "cameralink.h"
#include "gvcpchannel.h"
#include "gvcpdiscovery.h"
#include "gvcpforceip.h"

#include <algorithm>
#include <fstream>

namespace MoxSdk {

namespace {

/** An adapter that went and came back may have another number and another netmask. */
Adapter current(const Adapter &adapter)
{
    const std::vector<Adapter> adapters = readAdapters();
    const auto found = std::find_if(adapters.begin(), adapters.end(), [&](const Adapter &candidate) {
        return candidate.name == adapter.name && candidate.address == adapter.address;
    });
    return found == adapters.end() ? adapter : *found;
}

AdapterFacts facts(const Adapter &adapter)
{
    std::ifstream routes("/proc/net/route");
    return {adapter.macAddress, adapter.address, adapter.netmask, defaultGateway(routes, adapter.name)};
}

/** A quick search for one camera, at whatever address it is now. */
std::optional<DeviceRecord> findById(const Adapter &adapter, std::uint16_t port, const std::string &id)
{
    const auto records = GvcpDiscovery(adapter, port).run(std::chrono::milliseconds(200));
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
    : Interface(MoxCam::InterfaceGigEVision, id, adapter.name + " (" + dotted(adapter.address) + ')', "2.0",
                facts(adapter)),
      m_adapter(adapter),
      m_port(port)
{ }

std::unique_ptr<Link> GigEInterface::openLink(const DeviceRecord &record)
{
    const Adapter adapter = current(m_adapter);
    if (!adapter.contains(record.ipAddress))
        throw ACCESS_EXCEPTION("the camera's address %s is not in the subnet of %s", dotted(record.ipAddress).c_str(),
                               GetDescription());
    // The link may outlive this object's use, so it takes copies with it.
    const auto opens = [adapter, port = m_port, address = record.ipAddress] {
        return std::make_unique<GvcpChannel>(adapter, address, port);
    };
    // A camera that was switched off and on again may have another address.
    const auto reopens = [kept = m_adapter, port = m_port, id = record.id]() -> std::unique_ptr<Channel> {
        const Adapter present = current(kept);
        const std::optional<DeviceRecord> found = findById(present, port, id);
        if (!found || !present.contains(found->ipAddress))
            throw TIMEOUT_EXCEPTION("the camera is not found");
        return std::make_unique<GvcpChannel>(present, found->ipAddress, port);
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
    const std::optional<DeviceRecord> found = findById(adapter, m_port, record.id);
    const bool arrived = found && ip != 0 && found->ipAddress == ip;
    if (!status && !arrived)
        return MoxCamError::GenTLTimeout;
    if (arrived) {
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

std::vector<DeviceRecord> GigEInterface::discover(std::chrono::milliseconds limit)
{
    return GvcpDiscovery(current(m_adapter), m_port).run(limit);
}

std::optional<DeviceRecord> GigEInterface::findByAddress(std::uint32_t address)
{
    return GvcpDiscovery(current(m_adapter), m_port).find(address, std::chrono::milliseconds(500));
}

} // namespace MoxSdk
