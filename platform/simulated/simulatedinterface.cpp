#include "simulatedinterface.h"

#include "cameraplan.h"
#include "simulatedlink.h"

#include <Base/GCException.h>

#include <algorithm>
#include <thread>

namespace MoxSdk {

namespace {

/** The version of the transport's standard. */
const char *transportVersion(int type)
{
    switch (type) {
    case MoxCam::InterfaceUsb3Vision:
        return "1.1";
    case MoxCam::InterfaceGigEVision:
        return "2.0";
    case MoxCam::InterfaceCameraLink:
        return "2.1";
    case MoxCam::InterfaceCoaXPress:
        return "2.0";
    default:
        return "1.0";
    }
}

} // namespace

SimulatedInterface::SimulatedInterface(const InterfaceFacts &facts)
    : Interface(facts.type, facts.id, facts.description, transportVersion(facts.type)), m_facts(facts)
{ }

AdapterFacts SimulatedInterface::adapterFacts() const
{
    return MoxSdk::adapterFacts(m_facts.type, m_facts.number);
}

std::unique_ptr<Link> SimulatedInterface::openLink(const DeviceRecord &record)
{
    if (const std::shared_ptr<Camera> camera = find(record.id))
        return std::make_unique<SimulatedLink>(camera);
    throw ACCESS_EXCEPTION("%s is not there any more", record.displayName.c_str());
}

MoxCamErr SimulatedInterface::forceIp(const DeviceRecord &record, std::uint32_t ip, std::uint32_t netmask,
                                      std::uint32_t gateway)
{
    if (GetType() != MoxCam::InterfaceGigEVision)
        return Interface::forceIp(record, ip, netmask, gateway);
    const std::shared_ptr<Camera> camera = find(record.id);
    if (!camera)
        return MoxCamError::GenTLTimeout;
    const MoxCamErr result = camera->forceIp(ip, netmask, gateway);
    if (result == MoxCamError::Success)
        keep(camera->record());
    return result;
}

MoxCamErr SimulatedInterface::sendAction(const Action &action)
{
    if (GetType() != MoxCam::InterfaceGigEVision)
        return Interface::sendAction(action);
    const std::uint16_t number = ++m_lastAction;
    const auto awaited = std::make_shared<std::uint32_t>(action.awaited ? action.awaited : UINT32_MAX);
    for (const std::shared_ptr<Camera> &camera : World::instance().pluggedCameras(m_facts)) {
        const auto delay = camera->act(action);
        if (!delay || !action.acknowledged)
            continue;
        m_answers.post(*delay, [this, camera, number, awaited] {
            // Pulled out before it answered, or nobody waits for it any more.
            if (!camera->isReachable() || *awaited == 0)
                return;
            --*awaited;
            acknowledged(camera->record().ipAddress, number);
        });
    }
    return MoxCamError::Success;
}

std::vector<DeviceRecord> SimulatedInterface::discover(std::chrono::milliseconds limit)
{
    World &world = World::instance();
    std::this_thread::sleep_for(std::min(world.discoveryTime(m_facts), limit));
    std::vector<DeviceRecord> result;
    for (const std::shared_ptr<Camera> &camera : world.pluggedCameras(m_facts)) {
        if (camera->reach() != MoxSim::Reach::Undiscovered)
            result.push_back(camera->record());
    }
    return result;
}

std::optional<DeviceRecord> SimulatedInterface::findByAddress(std::uint32_t address)
{
    for (const std::shared_ptr<Camera> &camera : World::instance().pluggedCameras(m_facts)) {
        const DeviceRecord record = camera->record();
        if (record.ipAddress == address)
            return record;
    }
    return std::nullopt;
}

std::shared_ptr<Camera> SimulatedInterface::find(const std::string &id) const
{
    for (const std::shared_ptr<Camera> &camera : World::instance().pluggedCameras(m_facts)) {
        if (camera->id() == id)
            return camera;
    }
    return nullptr;
}

} // namespace MoxSdk
