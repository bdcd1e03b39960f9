// The simulated world.
#ifndef MOXSDK_SIMULATEDWORLD_H
#define MOXSDK_SIMULATEDWORLD_H

#include "camera.h"

#include <chrono>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace MoxSdk {

/** An interface as discovery needs it. */
struct InterfaceFacts
{
    std::string id;
    std::string description;
    int type = 0;
    unsigned number = 0; ///< counts the interfaces of a type and makes their addresses
};

/**
 * All simulated interfaces with their cameras: one world for the process, which backends show and MoxSimulation.h
 * changes. It lives until the process ends. Its lock is taken before that of a camera, never after.
 */
class World
{
public:
    /** At the first call the standard world is plugged in. */
    static World &instance();

    void clear();
    void reset();

    std::string addInterface(int type, const std::string &description);
    void removeInterface(const std::string &id);
    std::string addCamera(const std::string &interfaceId, const MoxSim::CameraSetup &setup);
    void removeCamera(const std::string &id);

    std::vector<std::string> interfaceIds() const;
    std::vector<std::string> cameraIds(const std::string &interfaceId) const;
    void setInterfacePlugged(const std::string &id, bool plugged);
    void setDiscoveryTime(const std::string &id, std::chrono::milliseconds time);
    /** Throws std::invalid_argument when there is none. */
    std::shared_ptr<Camera> camera(const std::string &id) const;

    // What a backend sees. An interface that is not there, or not plugged, has neither time nor cameras.
    std::vector<InterfaceFacts> pluggedInterfaces() const;
    std::chrono::milliseconds discoveryTime(const InterfaceFacts &facts) const;
    std::vector<std::shared_ptr<Camera>> pluggedCameras(const InterfaceFacts &facts) const;

private:
    struct Interface
    {
        InterfaceFacts facts;
        bool plugged = true;
        std::chrono::milliseconds discoveryTime{0};
        unsigned nextCamera = 0; ///< counts the cameras that were ever added and makes their addresses
        std::vector<std::shared_ptr<Camera>> cameras;
    };

    World() = default;

    std::vector<Interface>::iterator findInterface(const std::string &id);
    std::vector<Interface>::const_iterator findInterface(const std::string &id) const;
    const Interface *shown(const InterfaceFacts &facts) const;
    /** Null when there is none. */
    std::shared_ptr<Camera> findCamera(const std::string &id) const;
    void clearLocked();
    std::string addInterfaceLocked(int type, const std::string &description);
    std::string addCameraLocked(const std::string &interfaceId, const MoxSim::CameraSetup &setup);
    void fillStandard();

    mutable std::mutex m_mutex;
    std::vector<Interface> m_interfaces;
    unsigned m_nextSerialNumber = 1;
};

} // namespace MoxSdk

#endif
