// Callbacks of a device or an interface, and their calls.
#ifndef MOXSDK_EVENTSOURCE_H
#define MOXSDK_EVENTSOURCE_H

#include <MoxCameraApi/MoxCam.h>

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace MoxSdk {

/**
 * Calls registered callbacks on the event thread. Shared by its device or interface and by the events under way, so
 * that its owner may die in a callback. Safe from any thread.
 */
class EventSource : public std::enable_shared_from_this<EventSource>
{
public:
    /** The same registration again changes nothing. */
    void add(int eventId, MoxCam::EventCallback callback, void *context);
    /** Returns when no call of it is running, except on the event thread, where the caller is that call. */
    void remove(int eventId, MoxCam::EventCallback callback, void *context);

    /** Runs @p preparation, then the event's callbacks with @p data, on the event thread. Returns at once. */
    void post(int eventId, std::string data, std::function<void()> preparation = {});

    /** As `remove`, for every registration. */
    void removeAll();
    /** Ends all events for good; waits for preparations too. */
    void close();

private:
    struct Registration
    {
        int eventId;
        MoxCam::EventCallback callback;
        void *context;
        bool operator==(const Registration &other) const;
    };

    void handle(int eventId, const std::string &data, const std::function<void()> &preparation);
    bool mayWait() const;

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<Registration> m_registrations;
    std::optional<Registration> m_running;
    bool m_handling = false;
    bool m_closed = false;
};

} // namespace MoxSdk

#endif
