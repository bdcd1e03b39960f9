#include "simulatedlink.h"

namespace MoxSdk {

GenApi_3_0::EAccessMode SimulatedPort::GetAccessMode() const
{
    return m_camera.isReachable() ? GenApi_3_0::RW : GenApi_3_0::NA;
}

void SimulatedPort::Read(void *buffer, std::int64_t address, std::int64_t length)
{
    m_camera.read(buffer, address, length);
}

void SimulatedPort::Write(const void *buffer, std::int64_t address, std::int64_t length)
{
    m_camera.write(buffer, address, length);
}

SimulatedLink::SimulatedLink(std::shared_ptr<Camera> camera)
    : m_camera(std::move(camera)), m_slot(std::make_shared<ListenerSlot>()), m_port(*m_camera)
{
    m_camera->open(m_slot);
}

SimulatedLink::~SimulatedLink()
{
    m_camera->close();
    // A call that is posted already finds nobody.
    m_slot->set(Listener());
}

std::string SimulatedLink::description()
{
    return m_camera->description();
}

GenApi_3_0::IPort &SimulatedLink::port()
{
    return m_port;
}

void SimulatedLink::setListener(Listener listener)
{
    m_slot->set(std::move(listener));
}

} // namespace MoxSdk
