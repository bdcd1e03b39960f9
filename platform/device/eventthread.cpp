#include "eventthread.h"

#include <utility>

namespace MoxSdk {

EventThread &EventThread::instance()
{
    static EventThread thread;
    return thread;
}

EventThread::EventThread() : m_thread([this] { run(); })
{ }

EventThread::~EventThread()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_ending = true;
    }
    m_wakeUp.notify_one();
    // A callback that ends the process stands on the thread itself.
    if (isCurrent())
        m_thread.detach();
    else
        m_thread.join();
}

void EventThread::post(std::function<void()> task)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_tasks.push_back(std::move(task));
    }
    m_wakeUp.notify_one();
}

bool EventThread::isCurrent() const
{
    return std::this_thread::get_id() == m_thread.get_id();
}

void EventThread::run()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    for (;;) {
        m_wakeUp.wait(lock, [this] { return m_ending || !m_tasks.empty(); });
        if (m_ending)
            return;
        // The task dies before the lock is taken again: it may own what takes other locks when it goes.
        {
            const std::function<void()> task = std::move(m_tasks.front());
            m_tasks.pop_front();
            lock.unlock();
            task();
        }
        lock.lock();
    }
}

} // namespace MoxSdk
