// Answers of simulated cameras that take their time.
#ifndef MOXSDK_ANSWERQUEUE_H
#define MOXSDK_ANSWERQUEUE_H

#include <chrono>
#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <thread>

namespace MoxSdk {

/** Gives answers when they are due, on a thread of its own that starts with the first one. Any thread. */
class AnswerQueue
{
public:
    AnswerQueue() = default;
    /** Drops what is not due yet. */
    ~AnswerQueue();
    AnswerQueue(const AnswerQueue &) = delete;
    AnswerQueue &operator=(const AnswerQueue &) = delete;

    /** Runs @p answer after @p delay; one after the other, and no two at a time. */
    void post(std::chrono::milliseconds delay, std::function<void()> answer);

private:
    using Clock = std::chrono::steady_clock;

    void run();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_ending = false;
    std::multimap<Clock::time_point, std::function<void()>> m_answers;
    std::thread m_thread;
};

} // namespace MoxSdk

#endif
