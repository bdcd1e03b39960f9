#include "gigeinterface.h"

#include "cameralink.h"
#include "gvcpchannel.h"
#include "gvcpdiscovery.h"

#include <algorithm>

namespace MoxSdk {

GigEInterface::GigEInterface(const std::string &id, const Adapter &adapter, std::uint16_t port)
    : Interface(MoxCam::InterfaceGigEVision, id, adapter.name + " (" + dotted(adapter.address) + ')', "2.0"),
      m_adapter(adapter),
      m_port(port)
{ }

std::unique_ptr<Link> GigEInterface::openLink(const DeviceRecord &record)
{
    if (!m_adapter.contains(record.ipAddress))
        throw ACCESS_EXCEPTION("the camera's address %s is not in the subnet of %s", dotted(record.ipAddress).c_str(),
                               GetDescription());
    // The link may outlive this object's use, so it takes copies with it.
    const auto opens = [adapter = m_adapter, port = m_port, address = record.ipAddress] {
        return std::make_unique<GvcpChannel>(adapter, address, port);
    };
    // A camera that was switched off and on again may have another address.
    const auto reopens = [adapter = m_adapter, port = m_port, id = record.id]() -> std::unique_ptr<Channel> {
        const auto records = GvcpDiscovery(adapter, port).run(std::chrono::milliseconds(200));
        const auto found = std::find_if(records.begin(), records.end(),
                                        [&](const DeviceRecord &candidate) { return candidate.id == id; });
        if (found == records.end() || !adapter.contains(found->ipAddress))
            throw TIMEOUT_EXCEPTION("the camera is not found");
        return std::make_unique<GvcpChannel>(adapter, found->ipAddress, port);
    };
    return std::make_unique<CameraLink>(opens, reopens);
}

std::vector<DeviceRecord> GigEInterface::discover(std::chrono::milliseconds limit)
{
    return GvcpDiscovery(m_adapter, m_port).run(limit);
}

} // namespace MoxSdk
