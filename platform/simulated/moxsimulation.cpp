// The functions of MoxSimulation.h that concern the simulated world.
#include <MoxCameraApi/MoxSimulation.h>

#include "../device/dottedaddress.h"
#include "descriptions.h"
#include "world.h"

namespace MoxSim {

namespace {

MoxSdk::World &world()
{
    return MoxSdk::World::instance();
}

} // namespace

void resetWorld()
{
    world().reset();
}

void clearWorld()
{
    world().clear();
}

std::string addInterface(int type, const std::string &description)
{
    return world().addInterface(type, description);
}

void removeInterface(const std::string &interfaceId)
{
    world().removeInterface(interfaceId);
}

std::string addCamera(const std::string &interfaceId, const CameraSetup &setup)
{
    return world().addCamera(interfaceId, setup);
}

void removeCamera(const std::string &cameraId)
{
    world().removeCamera(cameraId);
}

std::vector<std::string> interfaces()
{
    return world().interfaceIds();
}

std::vector<std::string> cameras(const std::string &interfaceId)
{
    return world().cameraIds(interfaceId);
}

void setPlugged(const std::string &cameraId, bool plugged)
{
    world().camera(cameraId)->setPlugged(plugged);
}

bool isPlugged(const std::string &cameraId)
{
    return world().camera(cameraId)->isPlugged();
}

void setInterfacePlugged(const std::string &interfaceId, bool plugged)
{
    world().setInterfacePlugged(interfaceId, plugged);
}

void setReach(const std::string &cameraId, Reach reach)
{
    world().camera(cameraId)->setReach(reach);
}

Reach reach(const std::string &cameraId)
{
    return world().camera(cameraId)->reach();
}

std::string ipAddress(const std::string &cameraId)
{
    const std::uint32_t address = world().camera(cameraId)->record().ipAddress;
    return address ? MoxSdk::dotted(address) : std::string();
}

void setUserName(const std::string &cameraId, const std::string &userName)
{
    world().camera(cameraId)->setUserName(userName);
}

void setAccessDelay(const std::string &cameraId, unsigned milliseconds)
{
    world().camera(cameraId)->setAccessDelay(std::chrono::milliseconds(milliseconds));
}

void failAccess(const std::string &cameraId, unsigned nth, bool repeat)
{
    world().camera(cameraId)->failAccess(nth, repeat);
}

std::uint64_t accessCount(const std::string &cameraId)
{
    return world().camera(cameraId)->accessCount();
}

void setDiscoveryTime(const std::string &interfaceId, unsigned milliseconds)
{
    world().setDiscoveryTime(interfaceId, std::chrono::milliseconds(milliseconds));
}

std::string description(Model model)
{
    return *MoxSdk::modelDescription(model).text;
}

} // namespace MoxSim
