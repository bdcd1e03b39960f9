#include "world.h"

#include "cameraplan.h"

#include <MoxCameraApi/MoxCam.h>

#include <algorithm>
#include <cstdio>
#include <stdexcept>

namespace MoxSdk {

namespace {

constexpr std::size_t longestSerialNumber = 16; // that is what a network camera's register holds

const char *typeName(int type)
{
    switch (type) {
    case MoxCam::InterfaceUsb3Vision:
        return "U3V";
    case MoxCam::InterfaceGigEVision:
        return "GEV";
    case MoxCam::InterfaceCameraLink:
        return "CL";
    case MoxCam::InterfaceCoaXPress:
        return "CXP";
    case MoxCam::InterfaceHdSdi:
        return "SDI";
    case MoxCam::InterfaceCustom:
        return "Custom";
    default:
        throw std::invalid_argument("There is no interface type " + std::to_string(type));
    }
}

std::chrono::nanoseconds sinceStart()
{
    static const auto start = std::chrono::steady_clock::now();
    return std::chrono::steady_clock::now() - start;
}

} // namespace

World &World::instance()
{
    // Never destroyed: links of devices that nobody released may outlast all static objects.
    static World &world = *[] {
        auto *result = new World;
        result->fillStandard();
        return result;
    }();
    return world;
}

void World::clear()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    clearLocked();
}

void World::reset()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    clearLocked();
    fillStandard();
}

void World::clearLocked()
{
    for (const Interface &interface : m_interfaces) {
        for (const std::shared_ptr<Camera> &camera : interface.cameras)
            camera->setPlugged(false);
    }
    m_interfaces.clear();
    m_nextSerialNumber = 1;
}

void World::fillStandard()
{
    const std::string network = addInterfaceLocked(MoxCam::InterfaceGigEVision, "Simulated network adapter");
    const std::string usb = addInterfaceLocked(MoxCam::InterfaceUsb3Vision, "Simulated USB host");
    addInterfaceLocked(MoxCam::InterfaceCameraLink, "Simulated frame grabber");

    const auto plug = [this](const std::string &where, MoxSim::Model model, const char *name, MoxSim::Reach reach,
                             bool slowLink = false) {
        MoxSim::CameraSetup setup;
        setup.model = model;
        setup.userName = name;
        setup.reach = reach;
        setup.slowLink = slowLink;
        addCameraLocked(where, setup);
    };
    plug(network, MoxSim::Model::FrameAB, "Conveyor top", MoxSim::Reach::Open);
    plug(network, MoxSim::Model::Plain, "Conveyor side", MoxSim::Reach::Busy);
    plug(network, MoxSim::Model::Plain, "Loading bay", MoxSim::Reach::WrongSubnet);
    plug(network, MoxSim::Model::Plain, "Far corner", MoxSim::Reach::Undiscovered);
    plug(usb, MoxSim::Model::Color, "Label check", MoxSim::Reach::Open);
    plug(usb, MoxSim::Model::Color, "Bench", MoxSim::Reach::Open, true);
}

std::string World::addInterface(int type, const std::string &description)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return addInterfaceLocked(type, description);
}

std::string World::addInterfaceLocked(int type, const std::string &description)
{
    // Behind the last one, also when one before it was removed: numbers follow the order.
    unsigned number = 0;
    for (const Interface &other : m_interfaces) {
        if (other.facts.type == type)
            number = std::max(number, other.facts.number + 1);
    }
    Interface interface;
    interface.facts = {"Sim::" + std::string(typeName(type)) + std::to_string(number), description, type, number};
    m_interfaces.push_back(interface);
    return interface.facts.id;
}

void World::removeInterface(const std::string &id)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto interface = findInterface(id);
    for (const std::shared_ptr<Camera> &camera : interface->cameras)
        camera->setPlugged(false);
    m_interfaces.erase(interface);
}

std::string World::addCamera(const std::string &interfaceId, const MoxSim::CameraSetup &setup)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return addCameraLocked(interfaceId, setup);
}

std::string World::addCameraLocked(const std::string &interfaceId, const MoxSim::CameraSetup &setup)
{
    Interface &interface = *findInterface(interfaceId);
    MoxSim::CameraSetup complete = setup;
    std::string &serial = complete.serialNumber;
    serial.erase(std::remove_if(serial.begin(), serial.end(), [](char c) { return c < 0x20 || c > 0x7e; }),
                 serial.end());
    if (serial.size() > longestSerialNumber)
        serial.resize(longestSerialNumber);
    const bool isMadeUp = serial.empty();
    CameraPlan plan;
    for (bool isNew = false; !isNew;) {
        if (isMadeUp) {
            char digits[16];
            std::snprintf(digits, sizeof digits, "%06u", m_nextSerialNumber++);
            serial = digits;
        }
        plan = planCamera(complete, {interface.facts.type, interface.facts.number, interface.nextCamera});
        isNew = !findCamera(plan.record.id);
        if (!isNew && !isMadeUp)
            throw std::runtime_error("There is a camera " + plan.record.id + " already");
    }
    auto camera = std::make_shared<Camera>(std::move(plan), sinceStart);
    camera->setInterfacePlugged(interface.plugged);
    interface.cameras.push_back(camera);
    ++interface.nextCamera;
    return camera->id();
}

void World::removeCamera(const std::string &id)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    for (Interface &interface : m_interfaces) {
        const auto camera = std::find_if(interface.cameras.begin(), interface.cameras.end(),
                                         [&](const auto &candidate) { return candidate->id() == id; });
        if (camera == interface.cameras.end())
            continue;
        (*camera)->setPlugged(false);
        interface.cameras.erase(camera);
        return;
    }
    throw std::invalid_argument("There is no simulated camera " + id);
}

std::vector<std::string> World::interfaceIds() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<std::string> result;
    for (const Interface &interface : m_interfaces)
        result.push_back(interface.facts.id);
    return result;
}

std::vector<std::string> World::cameraIds(const std::string &interfaceId) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<std::string> result;
    for (const std::shared_ptr<Camera> &camera : findInterface(interfaceId)->cameras)
        result.push_back(camera->id());
    return result;
}

void World::setInterfacePlugged(const std::string &id, bool plugged)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto interface = findInterface(id);
    interface->plugged = plugged;
    for (const std::shared_ptr<Camera> &camera : interface->cameras)
        camera->setInterfacePlugged(plugged);
}

void World::setDiscoveryTime(const std::string &id, std::chrono::milliseconds time)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    findInterface(id)->discoveryTime = time;
}

std::shared_ptr<Camera> World::camera(const std::string &id) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (std::shared_ptr<Camera> found = findCamera(id))
        return found;
    throw std::invalid_argument("There is no simulated camera " + id);
}

std::vector<InterfaceFacts> World::pluggedInterfaces() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<InterfaceFacts> result;
    for (const Interface &interface : m_interfaces) {
        if (interface.plugged)
            result.push_back(interface.facts);
    }
    return result;
}

std::chrono::milliseconds World::discoveryTime(const InterfaceFacts &facts) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const Interface *interface = shown(facts);
    return interface ? interface->discoveryTime : std::chrono::milliseconds(0);
}

std::vector<std::shared_ptr<Camera>> World::pluggedCameras(const InterfaceFacts &facts) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<std::shared_ptr<Camera>> result;
    const Interface *interface = shown(facts);
    if (!interface)
        return result;
    for (const std::shared_ptr<Camera> &camera : interface->cameras) {
        if (camera->isPlugged())
            result.push_back(camera);
    }
    return result;
}

const World::Interface *World::shown(const InterfaceFacts &facts) const
{
    for (const Interface &interface : m_interfaces) {
        // After a reset an identifier may have come back with another description; that is another interface.
        if (interface.facts.id == facts.id && interface.facts.description == facts.description && interface.plugged)
            return &interface;
    }
    return nullptr;
}

std::vector<World::Interface>::iterator World::findInterface(const std::string &id)
{
    const auto found = std::find_if(m_interfaces.begin(), m_interfaces.end(),
                                    [&](const Interface &interface) { return interface.facts.id == id; });
    if (found == m_interfaces.end())
        throw std::invalid_argument("There is no simulated interface " + id);
    return found;
}

std::vector<World::Interface>::const_iterator World::findInterface(const std::string &id) const
{
    return const_cast<World *>(this)->findInterface(id);
}

std::shared_ptr<Camera> World::findCamera(const std::string &id) const
{
    for (const Interface &interface : m_interfaces) {
        for (const std::shared_ptr<Camera> &camera : interface.cameras) {
            if (camera->id() == id)
                return camera;
        }
    }
    return nullptr;
}

} // namespace MoxSdk
