// A simulated camera.
#ifndef MOXSDK_SIMULATEDCAMERA_H
#define MOXSDK_SIMULATEDCAMERA_H

#include "../device/devicerecord.h"
#include "../device/link.h"
#include "firmware.h"

#include <MoxCameraApi/MoxSimulation.h>

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace MoxSdk {

/** Hands changes of a camera's presence to one link's listener. Shared by the camera, the link and the calls. */
class ListenerSlot
{
public:
    /** Waits for a running call, except inside of that call itself. */
    void set(Link::Listener listener);
    void call(bool connected);

private:
    std::recursive_mutex m_mutex;
    Link::Listener m_listener;
};

/** Where a camera hangs: what makes its addresses. */
struct CameraPosition
{
    int interfaceType = 0;
    unsigned interfaceNumber = 0;
    unsigned cameraNumber = 0;
};

/** What a camera is made of: found out before it is plugged in. */
struct CameraPlan
{
    CameraPosition position;
    MoxSim::Model model = MoxSim::Model::Plain;
    std::shared_ptr<const std::string> description;
    /** Null for a camera with a description of the user's: its registers only store. */
    const RegisterMap *registers = nullptr;
    bool slowLink = false;
    MoxSim::Reach reach = MoxSim::Reach::Open;
    DeviceRecord record; ///< the access status is the camera's to tell
};

/**
 * A camera in the simulated world: its registers, whether it can be reached, and what goes wrong by order.
 *
 * Owned by the world and by the links that are open on it; all functions may be called from any thread.
 */
class Camera
{
public:
    Camera(CameraPlan plan, CameraClock clock);

    const std::string &id() const { return m_plan.record.id; }
    /** What discovery tells now. */
    DeviceRecord record() const;
    std::string description() const;

    void setPlugged(bool plugged);
    bool isPlugged() const;
    /** Whether the interface that the camera hangs on is there. */
    void setInterfacePlugged(bool plugged);
    /** Gives the camera the address, netmask and gateway that it starts with at that reach. */
    void setReach(MoxSim::Reach reach);
    MoxSim::Reach reach() const;
    /**
     * Takes an address, which puts the camera inside or outside the adapter's subnet; for 0 its network gives it one
     * inside. Refuses what no host can have. The result is the SDK's.
     */
    MoxCamErr forceIp(std::uint32_t ip, std::uint32_t netmask, std::uint32_t gateway);
    void setUserName(const std::string &userName);
    /** Hears a command by broadcast: how long the camera needs to say that it obeys; nothing when it does not. */
    std::optional<std::chrono::milliseconds> act(const Action &action);

    void setAccessDelay(std::chrono::milliseconds delay);
    void failAccess(unsigned nth, bool repeat);
    std::uint64_t accessCount() const;

    /** Takes control for a link. Throws AccessException with the reason when that is not possible. */
    void open(const std::shared_ptr<ListenerSlot> &slot);
    /** Gives control up. */
    void close();

    void read(void *bytes, std::int64_t address, std::int64_t length);
    void write(const void *bytes, std::int64_t address, std::int64_t length);
    bool isReachable() const;

private:
    /** Counts an access, waits as long as it shall take and throws when it shall fail or the camera is gone. */
    std::unique_lock<std::mutex> beginAccess(std::int64_t length);
    void checkPresence() const;
    /** Changes what makes the camera reachable and tells the link when that made a difference. */
    template<typename Change> void changePresence(const Change &change);
    void writeIdentity();
    void takeAddress(MoxSim::Reach reach, std::uint32_t ip, std::uint32_t netmask, std::uint32_t gateway);
    void startAt(MoxSim::Reach reach);
    void writeAddresses();

    mutable std::mutex m_mutex;
    CameraPlan m_plan;
    std::unique_ptr<Firmware> m_firmware;
    RegisterSpace m_plainSpace;
    std::shared_ptr<ListenerSlot> m_controller;
    bool m_plugged = true;
    bool m_interfacePlugged = true;
    std::chrono::milliseconds m_accessDelay{0};
    unsigned m_failNth = 0;
    bool m_failRepeatedly = false;
    unsigned m_accessesToFailure = 0;
    std::uint64_t m_accessCount = 0;
};

} // namespace MoxSdk

#endif
