#include "gvcpdiscovery.h"

#include "../device/dottedaddress.h"

#include <algorithm>
#include <cstdio>

namespace MoxSdk {

namespace {

// Serial numbers are unique with one maker only, and often left empty; the hardware address settles it. A camera
// program on the loopback adapter has none: there the address stands for it.
std::string stableId(const Gvcp::DiscoveryAnswer &answer)
{
    char hardware[24] = "";
    std::snprintf(hardware, sizeof hardware, "%012llX", static_cast<unsigned long long>(answer.macAddress));
    std::string id = answer.vendor + '-' + answer.model;
    if (!answer.serialNumber.empty())
        id += '-' + answer.serialNumber;
    return id + '-' + (answer.macAddress ? std::string(hardware) : dotted(answer.ipAddress));
}

} // namespace

GvcpDiscovery::GvcpDiscovery(const Adapter &adapter, std::uint16_t port, const std::vector<Adapter> &all)
    : m_adapter(adapter), m_port(port), m_discoveryId(Gvcp::nextRequestId()), m_allAdapters(all)
{ }

std::vector<DeviceRecord> GvcpDiscovery::run(std::chrono::milliseconds limit)
{
    const Gvcp::Packet command = Gvcp::discoveryCommand(m_discoveryId);
    // Once more half-way, and not in each round: every camera of the network answers.
    const auto ask = [&](int round) {
        return round % 2 != 0 || m_socket.broadcastThrough(m_adapter, m_port, command) || round > 0;
    };
    search(limit, ask, [] { return false; });
    return records();
}

std::vector<DeviceRecord> GvcpDiscovery::records() const
{
    std::vector<DeviceRecord> result;
    for (const auto &[id, camera] : m_cameras)
        result.push_back(camera.record);
    return result;
}

std::optional<DeviceRecord> GvcpDiscovery::find(std::uint32_t address, std::chrono::milliseconds limit)
{
    const Gvcp::Packet command = Gvcp::discoveryCommand(m_discoveryId);
    const auto found = [&] {
        return std::find_if(m_cameras.begin(), m_cameras.end(),
                            [&](const auto &entry) { return entry.second.record.ipAddress == address; });
    };
    const auto ask = [&](int round) {
        return found() != m_cameras.end() || m_socket.sendThrough(m_adapter, address, m_port, command) || round > 0;
    };
    m_asked = address;
    search(limit, ask, [&] { return found() != m_cameras.end() && found()->second.privilegeId == 0; });
    return found() == m_cameras.end() ? std::nullopt : std::optional(found()->second.record);
}

template<class Ask, class IsDone> void GvcpDiscovery::search(std::chrono::milliseconds limit, Ask ask, IsDone isDone)
{
    const auto start = UdpSocket::Clock::now();
    if (!m_socket.listen())
        return;

    // Datagrams get lost: what nobody answered is asked again in each round.
    constexpr int rounds = 4;
    for (int round = 0; round < rounds; ++round) {
        if (!ask(round))
            return;
        for (const auto &[id, camera] : m_cameras)
            askPrivilege(camera);
        const auto deadline = start + limit * (round + 1) / rounds;
        while (UdpSocket::Clock::now() < deadline) {
            if (isDone())
                return;
            if (const auto datagram = m_socket.receive(deadline))
                handle(*datagram);
        }
    }
}

void GvcpDiscovery::askPrivilege(const Camera &camera)
{
    if (camera.privilegeId == 0)
        return;
    m_socket.sendThrough(m_adapter, camera.record.ipAddress, m_port,
                         Gvcp::readRegisterCommand(camera.privilegeId, Gvcp::ControlChannelPrivilege));
}

void GvcpDiscovery::handle(const UdpSocket::Datagram &datagram)
{
    // The answer to a broadcast on another adapter is not for this search, an answer from this very machine is.
    if (datagram.adapterIndex != m_adapter.index && datagram.destination != m_adapter.ipAddress)
        return;
    const auto acknowledge = Gvcp::parseAcknowledge(datagram.bytes);
    if (!acknowledge)
        return;
    if (acknowledge->id != m_discoveryId) {
        setPrivilege(*acknowledge, datagram.source);
        return;
    }
    const auto answer = Gvcp::parseDiscovery(*acknowledge);
    if (!answer)
        return;
    const bool isAsked = datagram.source == m_asked && answer->ipAddress == m_asked;
    if (isAsked || !isAnothers(datagram, answer->ipAddress))
        addCamera(*answer, isAsked || m_adapter.contains(answer->ipAddress));
}

void GvcpDiscovery::addCamera(const Gvcp::DiscoveryAnswer &answer, bool isReached)
{
    const auto [position, isNew] = m_cameras.try_emplace(stableId(answer));
    // One camera hears several broadcasts.
    if (!isNew)
        return;
    Camera &camera = position->second;
    camera.record.id = position->first;
    camera.record.vendor = answer.vendor;
    camera.record.model = answer.model;
    camera.record.userDefinedName = answer.userDefinedName;
    camera.record.serialNumber = answer.serialNumber;
    camera.record.displayName = displayName(camera.record);
    camera.record.version = answer.deviceVersion;
    camera.record.macAddress = answer.macAddress;
    camera.record.ipAddress = answer.ipAddress;
    camera.record.netmask = answer.netmask;
    camera.record.gateway = answer.gateway;
    if (!isReached) {
        camera.record.accessStatus = MoxCam::AccessSubnetMismatch;
        return;
    }
    camera.privilegeId = Gvcp::nextRequestId();
    askPrivilege(camera);
}

void GvcpDiscovery::setPrivilege(const Gvcp::Acknowledge &acknowledge, std::uint32_t source)
{
    const auto position = std::find_if(m_cameras.begin(), m_cameras.end(), [&](const auto &entry) {
        const Camera &camera = entry.second;
        return camera.privilegeId != 0 && camera.privilegeId == acknowledge.id && camera.record.ipAddress == source;
    });
    if (position == m_cameras.end())
        return;
    Camera &camera = position->second;
    if (const auto privilege = Gvcp::parseRegister(acknowledge)) {
        const bool held = *privilege & (Gvcp::ExclusiveAccess | Gvcp::ControlAccess);
        camera.record.accessStatus = held ? MoxCam::AccessNoAccess : MoxCam::AccessReadWrite;
    } else if (acknowledge.status == Gvcp::AccessDenied) {
        // An application with exclusive access keeps others from reading too.
        camera.record.accessStatus = MoxCam::AccessNoAccess;
    }
    camera.privilegeId = 0;
}

// A broadcast also comes round to camera programs on this machine that belong to another adapter, and to all addresses
// of one adapter; the interface of the subnet that the camera is in shows it then, and no other one.
bool GvcpDiscovery::isAnothers(const UdpSocket::Datagram &datagram, std::uint32_t cameraAddress) const
{
    if (m_adapter.contains(cameraAddress))
        return false;
    const bool fromThisMachine = std::any_of(m_allAdapters.begin(), m_allAdapters.end(), [&](const Adapter &adapter) {
        return adapter.ipAddress == datagram.source;
    });
    return std::any_of(m_allAdapters.begin(), m_allAdapters.end(), [&](const Adapter &adapter) {
        return (fromThisMachine || adapter.index == m_adapter.index) && adapter.contains(cameraAddress);
    });
}

} // namespace MoxSdk
