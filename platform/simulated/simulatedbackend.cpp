#include "simulatedbackend.h"

#include "simulatedinterface.h"
#include "world.h"

#include <mutex>
#include <vector>

namespace MoxSdk {

namespace {

/** Keeps a view for each interface that it ever showed, since pointers to them stay in use. */
class SimulatedBackend final : public Backend
{
public:
    std::vector<Interface *> interfaces() override;

private:
    SimulatedInterface *view(const InterfaceFacts &facts);

    std::mutex m_mutex;
    std::vector<std::unique_ptr<SimulatedInterface>> m_views;
};

std::vector<Interface *> SimulatedBackend::interfaces()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<Interface *> result;
    for (const InterfaceFacts &facts : World::instance().pluggedInterfaces())
        result.push_back(view(facts));
    return result;
}

SimulatedInterface *SimulatedBackend::view(const InterfaceFacts &facts)
{
    for (const std::unique_ptr<SimulatedInterface> &view : m_views) {
        if (facts.id == view->GetID() && facts.description == view->GetDescription())
            return view.get();
    }
    m_views.push_back(std::make_unique<SimulatedInterface>(facts));
    return m_views.back().get();
}

} // namespace

std::unique_ptr<Backend> createSimulatedBackend()
{
    return std::make_unique<SimulatedBackend>();
}

} // namespace MoxSdk
