// The thread that events arrive on.
#ifndef MOXSDK_EVENTTHREAD_H
#define MOXSDK_EVENTTHREAD_H

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace MoxSdk {

/** The one worker of the process: runs tasks in their order, from the first one until the process ends. */
class EventThread
{
public:
    static EventThread &instance();

    /** Returns at once. What is still waiting when the process ends is dropped. */
    void post(std::function<void()> task);
    /** Whether the caller runs on this thread. */
    bool isCurrent() const;

private:
    EventThread();
    void run();

    std::mutex m_mutex;
    std::condition_variable m_wakeUp;
    std::deque<std::function<void()>> m_tasks;
    std::thread m_thread; // last: it runs as soon as it is made
};

} // namespace MoxSdk

#endif
