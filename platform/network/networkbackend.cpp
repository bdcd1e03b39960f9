#include "networkbackend.h"

#include "../device/dottedaddress.h"
#include "gigeinterface.h"
#include "usbinterface.h"

#include <algorithm>
#include <map>
#include <mutex>

namespace MoxSdk {

namespace {

/** Adapters come and go; an adapter that comes back with the same address is the same object. */
class NetworkBackend final : public Backend
{
public:
    std::vector<Interface *> interfaces() override;

private:
    std::mutex m_mutex;
    std::map<std::pair<std::string, std::uint32_t>, std::unique_ptr<GigEInterface>> m_known; // by id and address
    UsbInterface m_usb;
};

std::vector<Interface *> NetworkBackend::interfaces()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<Interface *> result;
    std::vector<std::string> ids;
    for (const Adapter &adapter : readAdapters()) {
        // The first address leaves the adapter's own id as it is, also when others are added to it.
        std::string id = "GEV::" + adapter.name;
        if (std::find(ids.begin(), ids.end(), id) != ids.end())
            id += '/' + dotted(adapter.ipAddress);
        ids.push_back(id);
        std::unique_ptr<GigEInterface> &known = m_known[{id, adapter.ipAddress}];
        if (!known)
            known = std::make_unique<GigEInterface>(id, adapter);
        result.push_back(known.get());
    }
    result.push_back(&m_usb);
    return result;
}

} // namespace

std::unique_ptr<Backend> createNetworkBackend()
{
    return std::make_unique<NetworkBackend>();
}

} // namespace MoxSdk
