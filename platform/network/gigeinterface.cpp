#include "gigeinterface.h"

#include "cameralink.h"
#include "gvcpchannel.h"
#include "gvcpdiscovery.h"

#include <algorithm>

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

} // namespace

GigEInterface::GigEInterface(const std::string &id, const Adapter &adapter, std::uint16_t port)
    : Interface(MoxCam::InterfaceGigEVision, id, adapter.name + " (" + dotted(adapter.address) + ')', "2.0"),
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
        const auto records = GvcpDiscovery(present, port).run(std::chrono::milliseconds(200));
        const auto found = std::find_if(records.begin(), records.end(),
                                        [&](const DeviceRecord &candidate) { return candidate.id == id; });
        if (found == records.end() || !present.contains(found->ipAddress))
            throw TIMEOUT_EXCEPTION("the camera is not found");
        return std::make_unique<GvcpChannel>(present, found->ipAddress, port);
    };
    return std::make_unique<CameraLink>(opens, reopens);
}

std::vector<DeviceRecord> GigEInterface::discover(std::chrono::milliseconds limit)
{
    return GvcpDiscovery(current(m_adapter), m_port).run(limit);
}

} // namespace MoxSdk
