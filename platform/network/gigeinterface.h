// A network adapter as an interface for GigE Vision cameras.
#ifndef MOXSDK_GIGEINTERFACE_H
#define MOXSDK_GIGEINTERFACE_H

#include "../device/interface.h"
#include "adapters.h"
#include "gvcp.h"
#include "gvcpaction.h"

namespace MoxSdk {

/** One IPv4 address of an adapter, which may go and come back changed. Owned by the backend; any thread. */
class GigEInterface final : public Interface
{
public:
    GigEInterface(const std::string &id, const Adapter &adapter, std::uint16_t port = Gvcp::standardPort);

    AdapterFacts adapterFacts() const override;
    std::unique_ptr<Link> openLink(const DeviceRecord &record) override;
    /** Takes 0.2 s, and up to 1.2 s when the camera does not answer. */
    MoxCamErr forceIp(const DeviceRecord &record, std::uint32_t ip, std::uint32_t netmask,
                      std::uint32_t gateway) override;
    MoxCamErr sendAction(const Action &action) override;

protected:
    std::vector<DeviceRecord> discover(std::chrono::milliseconds limit) override;
    std::optional<DeviceRecord> findByAddress(std::uint32_t address) override;

private:
    const Adapter m_adapter; // as it was when it appeared; its name and address stay
    const std::uint16_t m_port;
    GvcpAction m_action;
};

} // namespace MoxSdk

#endif
