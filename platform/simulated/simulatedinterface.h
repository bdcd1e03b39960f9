// A simulated interface.
#ifndef MOXSDK_SIMULATEDINTERFACE_H
#define MOXSDK_SIMULATEDINTERFACE_H

#include "../device/interface.h"
#include "answerqueue.h"
#include "world.h"

#include <atomic>

namespace MoxSdk {

/**
 * A view of one interface of the simulated world, which it asks by identifier: it outlives what it shows, and shows an
 * interface of the same kind that comes to be in its place. Owned by its backend.
 */
class SimulatedInterface final : public Interface
{
public:
    explicit SimulatedInterface(const InterfaceFacts &facts);

    AdapterFacts adapterFacts() const override;
    std::unique_ptr<Link> openLink(const DeviceRecord &record) override;
    MoxCamErr forceIp(const DeviceRecord &record, std::uint32_t ip, std::uint32_t netmask,
                      std::uint32_t gateway) override;
    MoxCamErr sendAction(const Action &action) override;

protected:
    std::vector<DeviceRecord> discover(std::chrono::milliseconds limit) override;
    std::optional<DeviceRecord> findByAddress(std::uint32_t address) override;

private:
    /** Null when it is not plugged. */
    std::shared_ptr<Camera> find(const std::string &id) const;

    const InterfaceFacts m_facts;
    std::atomic<std::uint16_t> m_lastAction{0};
    AnswerQueue m_answers;
};

} // namespace MoxSdk

#endif
