#include "adapters.h"

#include <fstream>
#include <ifaddrs.h>
#include <memory>
#include <net/if.h>
#include <netinet/in.h>
#include <netpacket/packet.h>
#include <sstream>

namespace MoxSdk {

namespace {

std::uint32_t hostOrder(const sockaddr *address)
{
    return ntohl(reinterpret_cast<const sockaddr_in *>(address)->sin_addr.s_addr);
}

std::uint64_t hardwareAddress(const ifaddrs *entries, unsigned int index)
{
    for (const ifaddrs *entry = entries; entry; entry = entry->ifa_next) {
        if (!entry->ifa_addr || entry->ifa_addr->sa_family != AF_PACKET)
            continue;
        const auto *link = reinterpret_cast<const sockaddr_ll *>(entry->ifa_addr);
        if (static_cast<unsigned int>(link->sll_ifindex) != index || link->sll_halen != 6)
            continue;
        std::uint64_t address = 0;
        for (int i = 0; i < 6; ++i)
            address = address << 8 | link->sll_addr[i];
        return address;
    }
    return 0;
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
        const std::string device = adapter.name.substr(0, adapter.name.find(':'));
        adapter.index = ::if_nametoindex(device.c_str());
        adapter.isLoopback = entry->ifa_flags & IFF_LOOPBACK;
        adapter.ipAddress = hostOrder(entry->ifa_addr);
        adapter.netmask = hostOrder(entry->ifa_netmask);
        adapter.macAddress = hardwareAddress(first, adapter.index);
        std::ifstream routes("/proc/net/route");
        adapter.gateway = defaultGateway(routes, device);
        adapters.push_back(adapter);
    }
    return adapters;
}

std::uint32_t defaultGateway(std::istream &routes, const std::string &adapterName)
{
    for (std::string line; std::getline(routes, line);) {
        std::istringstream columns(line);
        std::string name;
        // Between the gateway and the mask: flags, references, uses, metric. Addresses are bytes as they lie in memory.
        std::string other;
        std::uint32_t destination = 0;
        std::uint32_t gateway = 0;
        std::uint32_t mask = 0;
        columns >> name >> std::hex >> destination >> gateway >> other >> other >> other >> other >> mask;
        // A virtual private network has a route to each half of all addresses; the default route is for the whole.
        if (columns && name == adapterName && destination == 0 && mask == 0)
            return ntohl(gateway);
    }
    return 0;
}

} // namespace MoxSdk
