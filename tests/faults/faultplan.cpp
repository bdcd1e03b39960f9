#include "faultycalls.h"

#include <MoxCameraApi/MoxSimulation.h>

#include <stdexcept>

namespace MoxTest {

FaultPlan &FaultPlan::instance()
{
    static FaultPlan plan;
    return plan;
}

void FaultPlan::arm(Failure kind, unsigned nth, const std::string &camera)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_kind = kind;
    m_nth = nth;
    m_count = 0;
    m_camera = camera;
    m_struck.clear();
    places.clear();
    m_firstAccess = MoxSim::accessCount(camera);
    if (kind & PortFailures)
        MoxSim::failAccess(camera, nth);
}

unsigned FaultPlan::disarm()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_kind & PortFailures) {
        MoxSim::failAccess(m_camera, 0);
        m_count = unsigned(MoxSim::accessCount(m_camera) - m_firstAccess);
    }
    m_kind = {};
    return m_count;
}

unsigned FaultPlan::failure(const char *function, unsigned possible, const Wrapped &object)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    // The port has failed by itself.
    if (m_kind & PortFailures && m_nth > 0 && m_struck.empty()
        && MoxSim::accessCount(m_camera) >= m_firstAccess + m_nth) {
        m_struck = std::string("before ") + function + ' ' + object.subject();
        if (m_kind == PortForever)
            MoxSim::failAccess(m_camera, 1, true);
    }
    if (!(m_kind & possible))
        return 0;
    if (m_nth == 0)
        places.push_back({function, step, object.subject()});
    if (++m_count != m_nth)
        return 0;
    m_struck = std::string(function) + ' ' + object.subject();
    const Failure kind = m_kind;
    lock.unlock();
    switch (kind) {
    case Exception:
        throw std::runtime_error("the call is to fail");
    case NodeError:
        throw RUNTIME_EXCEPTION("the call is to fail");
    case CameraLost:
        MoxSim::setPlugged(m_camera, false);
        return 0;
    default:
        return kind;
    }
}

QString FaultPlan::struckCall() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return QString::fromStdString(m_struck);
}

QString FaultPlan::leftOver() const
{
    const std::pair<const char *, int> counts[] = {
        {"systems", systems}, {"lists", lists}, {"devices", devices}, {"sinks", sinks}, {"callbacks", nodeCallbacks}};
    QString text;
    for (const auto &[name, count] : counts) {
        if (count != 0)
            text += QStringLiteral(" %1 %2").arg(count).arg(QLatin1String(name));
    }
    return text;
}

} // namespace MoxTest
