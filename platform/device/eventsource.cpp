#include "eventsource.h"

#include "eventthread.h"

#include <algorithm>
#include <utility>

namespace MoxSdk {

bool EventSource::Registration::operator==(const Registration &other) const
{
    return eventId == other.eventId && callback == other.callback && context == other.context;
}

void EventSource::add(int eventId, MoxCam::EventCallback callback, void *context)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const Registration registration = {eventId, callback, context};
    if (std::find(m_registrations.begin(), m_registrations.end(), registration) == m_registrations.end())
        m_registrations.push_back(registration);
}

void EventSource::remove(int eventId, MoxCam::EventCallback callback, void *context)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    const Registration registration = {eventId, callback, context};
    m_registrations.erase(std::remove(m_registrations.begin(), m_registrations.end(), registration),
                          m_registrations.end());
    m_changed.wait(lock, [&] { return !m_running || !(*m_running == registration) || !mayWait(); });
}

void EventSource::post(int eventId, std::string data, std::function<void()> preparation)
{
    EventThread::instance().post([self = shared_from_this(), eventId, data = std::move(data),
                                  preparation = std::move(preparation)] { self->handle(eventId, data, preparation); });
}

void EventSource::removeAll()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_registrations.clear();
    m_changed.wait(lock, [this] { return !m_running || !mayWait(); });
}

void EventSource::close()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_closed = true;
    m_registrations.clear();
    m_changed.wait(lock, [this] { return !m_handling || !mayWait(); });
}

void EventSource::handle(int eventId, const std::string &data, const std::function<void()> &preparation)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    if (m_closed)
        return;
    m_handling = true;
    lock.unlock();
    if (preparation)
        preparation();
    lock.lock();

    // A callback may take itself or another one away, so each is looked up again before its turn.
    const std::vector<Registration> registrations = m_registrations;
    for (const Registration &registration : registrations) {
        if (registration.eventId != eventId
            || std::find(m_registrations.begin(), m_registrations.end(), registration) == m_registrations.end())
            continue;
        m_running = registration;
        lock.unlock();
        registration.callback(data.data(), data.size(), registration.context);
        lock.lock();
        m_running.reset();
        m_changed.notify_all();
    }
    m_handling = false;
    m_changed.notify_all();
}

bool EventSource::mayWait() const
{
    return !EventThread::instance().isCurrent();
}

} // namespace MoxSdk
