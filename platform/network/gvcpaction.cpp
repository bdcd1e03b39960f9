#include "gvcpaction.h"

#include <algorithm>

namespace MoxSdk {

GvcpAction::GvcpAction(Listener listener, std::chrono::milliseconds answerTime)
    : m_listener(std::move(listener)), m_answerTime(answerTime), m_socket(&m_stop)
{ }

GvcpAction::~GvcpAction()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_ending = true;
    }
    m_stop.raise();
    m_changed.notify_one();
    if (m_thread.joinable())
        m_thread.join();
}

bool GvcpAction::send(const Adapter &adapter, std::uint16_t port, const Action &action)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_bound = m_bound || m_socket.listen();
    if (!m_bound)
        return false;
    const std::uint16_t id = Gvcp::nextRequestId();
    // One datagram to one broadcast address, never repeated: a camera that hears a command twice might act twice, and
    // the general broadcast would reach the subnets of the adapter's other addresses, which are interfaces themselves.
    if (!m_socket.sendThrough(adapter, adapter.broadcast(), port, Gvcp::actionCommand(id, action)))
        return false;
    if (!action.acknowledged)
        return true;
    // No answer is handled before: the lock is held.
    m_open.push_back({id, action.awaited, Clock::now() + m_answerTime, {}});
    if (!m_thread.joinable())
        m_thread = std::thread([this] { listen(); });
    m_changed.notify_one();
    return true;
}

void GvcpAction::listen()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [this] { return m_ending || !m_open.empty(); });
        if (m_ending)
            return;
        const Clock::time_point deadline = m_open.front().deadline;
        lock.unlock();
        const auto datagram = m_socket.receive(deadline);
        lock.lock();
        while (!m_open.empty() && m_open.front().deadline <= Clock::now())
            m_open.pop_front();
        if (datagram && !m_ending)
            handle(*datagram);
    }
}

void GvcpAction::handle(const UdpSocket::Datagram &datagram)
{
    const auto acknowledge = Gvcp::parseAcknowledge(datagram.bytes);
    // With another status the camera does not act, or too late for its time.
    if (!acknowledge || acknowledge->answer != Gvcp::ActionAck || acknowledge->status != Gvcp::Success)
        return;
    const auto open =
        std::find_if(m_open.begin(), m_open.end(), [&](const Open &one) { return one.id == acknowledge->id; });
    if (open == m_open.end() || !open->obeyed.insert(datagram.source).second)
        return;
    m_listener(datagram.source, open->id);
    if (open->obeyed.size() == open->awaited)
        m_open.erase(open);
}

} // namespace MoxSdk
