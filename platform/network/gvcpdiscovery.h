// One search for GigE Vision cameras.
#ifndef MOXSDK_GVCPDISCOVERY_H
#define MOXSDK_GVCPDISCOVERY_H

#include "../device/devicerecord.h"
#include "udpsocket.h"

#include <map>
#include <optional>
#include <vector>

namespace MoxSdk {

/**
 * Asks on one adapter who is there and who controls whom. Made for one search, on the stack of its caller; other
 * searches may run at the same time, on this adapter too.
 */
class GvcpDiscovery
{
public:
    /** @p all are the addresses of the machine, by which answers to another adapter's search are known. */
    GvcpDiscovery(const Adapter &adapter, std::uint16_t port, const std::vector<Adapter> &all = readAdapters());

    /**
     * Listens for the whole of @p limit, since cameras may answer late; at once back when the adapter cannot send. One
     * record for each camera, by ascending id, with an access status of
     *  - no access, when an application holds the camera, be it this one,
     *  - subnet mismatch, when its address is not of the adapter's subnet; its privilege is not asked for then,
     *  - unknown, when it did not answer the question who controls it: opening it tells.
     */
    std::vector<DeviceRecord> run(std::chrono::milliseconds limit);
    /**
     * As `run`, for the camera at one address, which may be one that no broadcast reaches; back as soon as all is known
     * of it. A camera that answers from that address is reached, in whatever subnet it is, so its privilege decides.
     */
    std::optional<DeviceRecord> find(std::uint32_t address, std::chrono::milliseconds limit);

    /** Takes in what came over the network, be it an answer or not; `run` and `find` do it with all that they hear. */
    void handle(const UdpSocket::Datagram &datagram);
    /** What is known so far, by ascending id. */
    std::vector<DeviceRecord> records() const;

private:
    struct Camera
    {
        DeviceRecord record;
        std::uint16_t privilegeId = 0; ///< the id of the open question for its privilege, or 0
    };

    /** @p ask is called at each round's begin and ends the search with false, as @p isDone does at any time. */
    template<class Ask, class IsDone> void search(std::chrono::milliseconds limit, Ask ask, IsDone isDone);
    void askPrivilege(const Camera &camera);
    void addCamera(const Gvcp::DiscoveryAnswer &answer, bool isReached);
    void setPrivilege(const Gvcp::Acknowledge &acknowledge, std::uint32_t source);
    bool isAnothers(const UdpSocket::Datagram &datagram, std::uint32_t cameraAddress) const;

    const Adapter m_adapter;
    const std::uint16_t m_port;
    const std::uint16_t m_discoveryId;
    const std::vector<Adapter> m_allAdapters;
    UdpSocket m_socket;
    std::optional<std::uint32_t> m_asked; // the one address that is asked
    std::map<std::string, Camera> m_cameras;
};

} // namespace MoxSdk

#endif
