#include "answerqueue.h"

namespace MoxSdk {

AnswerQueue::~AnswerQueue()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_ending = true;
    }
    m_changed.notify_one();
    if (m_thread.joinable())
        m_thread.join();
}

void AnswerQueue::post(std::chrono::milliseconds delay, std::function<void()> answer)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_answers.emplace(Clock::now() + delay, std::move(answer));
    if (!m_thread.joinable())
        m_thread = std::thread([this] { run(); });
    m_changed.notify_one();
}

void AnswerQueue::run()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_ending) {
        if (m_answers.empty()) {
            m_changed.wait(lock);
        } else if (const auto due = m_answers.begin()->first; Clock::now() < due) {
            m_changed.wait_until(lock, due);
        } else {
            const auto answer = m_answers.extract(m_answers.begin());
            lock.unlock();
            answer.mapped()();
            lock.lock();
        }
    }
}

} // namespace MoxSdk
