// An opened camera on a cable.
#ifndef MOXSDK_CAMERALINK_H
#define MOXSDK_CAMERALINK_H

#include "../device/link.h"
#include "channel.h"
#include "stopsignal.h"

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

namespace MoxSdk {

/**
 * Holds a channel to a camera and a thread of its own that keeps the channel open, notices when the camera is lost, and
 * then looks for it again once a second. Accesses come from any thread, one after the other; while the camera is gone
 * they throw at once.
 */
class CameraLink final : public Link, private GenApi_3_0::IPort
{
public:
    /**
     * Opens the camera; throws when it cannot. Called again, on the link's thread, to get a lost camera back. @p stop
     * lives as long as the link, and is raised to end the waits of an opening when the link goes.
     */
    using Opener = std::function<std::unique_ptr<Channel>(const StopSignal &stop)>;

    /** @p opens is how the camera is opened now, @p reopens how it is found again. Throws what @p opens throws. */
    CameraLink(const Opener &opens, Opener reopens);
    ~CameraLink() override;
    CameraLink(const CameraLink &) = delete;
    CameraLink &operator=(const CameraLink &) = delete;

    std::string description() override;
    GenApi_3_0::IPort &port() override { return *this; }
    void setListener(Listener listener) override;

private:
    GenApi_3_0::EAccessMode GetAccessMode() const override;
    void Read(void *buffer, std::int64_t address, std::int64_t length) override;
    void Write(const void *buffer, std::int64_t address, std::int64_t length) override;

    template<class Access> auto access(Access function);
    void watch();
    void checkPresence();
    void reopen();
    void announce();
    void wake();

    const Opener m_reopens;
    StopSignal m_stop; // before the channel, which may use it
    std::atomic<bool> m_connected{true};

    std::mutex m_channelMutex; // held during an access
    std::unique_ptr<Channel> m_channel; // exchanged by the link's thread alone, while not connected; null in between

    std::mutex m_listenerMutex; // held during a call of the listener
    Listener m_listener;
    bool m_announced = true; // what the listener was told, and takes for granted before

    std::mutex m_wakeMutex;
    std::condition_variable m_wakeUp;
    bool m_woken = false;
    bool m_ending = false;
    std::thread m_thread; // last: it uses all of the above
};

} // namespace MoxSdk

#endif
