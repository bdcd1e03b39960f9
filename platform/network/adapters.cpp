#include "adapters.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <memory>
#include <net/if.h>
#include <netinet/in.h>

namespace MoxSdk {

namespace {

std::uint32_t hostOrder(const sockaddr *address)
{
    return ntohl(reinterpret_cast<const sockaddr_in *>(address)->sin_addr.s_addr);
}

} // namespace

std::vector<Adapter> readAdapters()
{
    ifaddrs *first = nullptr;
    if (::getifaddrs(&first) != 0)
        return {};
    const std::unique_ptr<ifaddrs, decltype(&::freeifaddrs)> guard(first, &::freeifaddrs);

    std::vector<Adapter> adapters;
    for (const ifaddrs *entry = first; entry; entry = entry->ifa_next) {
        if (!entry->ifa_addr || entry->ifa_addr->sa_family != AF_INET || !entry->ifa_netmask)
            continue;
        if (!(entry->ifa_flags & IFF_UP) || !(entry->ifa_flags & (IFF_BROADCAST | IFF_LOOPBACK)))
            continue;
        Adapter adapter;
        adapter.name = entry->ifa_name;
        // A labelled address ("eth0:1") belongs to the adapter before the colon.
        adapter.index = ::if_nametoindex(adapter.name.substr(0, adapter.name.find(':')).c_str());
        adapter.isLoopback = entry->ifa_flags & IFF_LOOPBACK;
        adapter.address = hostOrder(entry->ifa_addr);
        adapter.netmask = hostOrder(entry->ifa_netmask);
        adapters.push_back(adapter);
    }
    return adapters;
}

} // namespace MoxSdk
