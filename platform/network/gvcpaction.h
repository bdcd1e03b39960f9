// Telling GigE Vision cameras to act, and hearing who does.
#ifndef MOXSDK_GVCPACTION_H
#define MOXSDK_GVCPACTION_H

#include "../device/action.h"
#include "udpsocket.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <set>
#include <thread>

namespace MoxSdk {

/**
 * The action commands of one interface. Owned by it; any thread. A thread of its own listens for acknowledgements while
 * any can be expected; it starts with the first command that asks for them.
 */
class GvcpAction
{
public:
    using Clock = UdpSocket::Clock;
    /** Called on the listening thread, once for each camera that obeys a command. Must not come back to this object. */
    using Listener = std::function<void(std::uint32_t camera, std::uint16_t id)>;

    /** Acknowledgements that take longer than @p answerTime are late and count no more. */
    explicit GvcpAction(Listener listener, std::chrono::milliseconds answerTime = std::chrono::seconds(5));
    /** Ends the listener's calls at once, whoever may still answer. */
    ~GvcpAction();
    GvcpAction(const GvcpAction &) = delete;
    GvcpAction &operator=(const GvcpAction &) = delete;

    /** Tells all cameras of the adapter's subnet, and returns at once; false when the adapter cannot send. */
    bool send(const Adapter &adapter, std::uint16_t port, const Action &action);

private:
    /** A command with acknowledgements to come. */
    struct Open
    {
        std::uint16_t id;
        std::uint32_t awaited;
        Clock::time_point deadline;
        std::set<std::uint32_t> obeyed;
    };

    void listen();
    void handle(const UdpSocket::Datagram &datagram);

    const Listener m_listener;
    const std::chrono::milliseconds m_answerTime;
    StopSignal m_stop;
    UdpSocket m_socket; // sends on the callers' threads, and hears on its own
    std::mutex m_mutex; // guards what follows
    std::condition_variable m_changed;
    bool m_bound = false;
    bool m_ending = false;
    std::deque<Open> m_open; // in the order of their ends
    std::thread m_thread;
};

} // namespace MoxSdk

#endif
