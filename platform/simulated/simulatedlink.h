// The way to a simulated camera.
#ifndef MOXSDK_SIMULATEDLINK_H
#define MOXSDK_SIMULATEDLINK_H

#include "../device/link.h"
#include "camera.h"

namespace MoxSdk {

/** The registers of a camera as a node map reaches them. Lives inside its link. */
class SimulatedPort final : public GenApi_3_0::IPort
{
public:
    explicit SimulatedPort(Camera &camera) : m_camera(camera) { }

    GenApi_3_0::EAccessMode GetAccessMode() const override;
    void Read(void *buffer, std::int64_t address, std::int64_t length) override;
    void Write(const void *buffer, std::int64_t address, std::int64_t length) override;

private:
    Camera &m_camera;
};

/** Controls a simulated camera from construction to destruction, also while it is unplugged. */
class SimulatedLink final : public Link
{
public:
    /** Throws AccessException with the reason when the camera cannot be opened. */
    explicit SimulatedLink(std::shared_ptr<Camera> camera);
    ~SimulatedLink() override;
    SimulatedLink(const SimulatedLink &) = delete;
    SimulatedLink &operator=(const SimulatedLink &) = delete;

    std::string description() override;
    GenApi_3_0::IPort &port() override;
    void setListener(Listener listener) override;

private:
    const std::shared_ptr<Camera> m_camera;
    const std::shared_ptr<ListenerSlot> m_slot;
    SimulatedPort m_port;
};

} // namespace MoxSdk

#endif
