#include "eventthread.h"

#include <utility>

namespace MoxSdk {

EventThread &EventThread::instance()
{
    // Never destroyed: the thread may be in a callback that waits for what the ending thread holds, and static objects
    // that are destroyed later may still cause events.
    static EventThread &thread = *new EventThread;
    return thread;
}

EventThread::EventThread() : m_thread([this] { run(); })
{ }

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
        m_wakeUp.wait(lock, [this] { return !m_tasks.empty(); });
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
