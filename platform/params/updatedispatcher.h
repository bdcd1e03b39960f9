// The way of a parameter's update to its sinks.
#ifndef MOXSDK_UPDATEDISPATCHER_H
#define MOXSDK_UPDATEDISPATCHER_H

#include <GenApi/INodeMap.h>
#include <MoxCameraApi/MoxGenParam.h>

#include <QElapsedTimer>
#include <QTimer>

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <vector>

namespace MoxSdk {

/**
 * Knows which sinks listen to which parameter of one array, and brings updates to them on the GUI thread. Without an
 * application object every thread counts as that one, and nothing is polled.
 *
 * Shared by the array and by what it has under way in the event loop, so that the array may die on any thread. The
 * mutex is held for the bookkeeping alone: node callbacks arrive with the node map's lock held, so whoever held the
 * mutex while taking that lock would deadlock.
 */
class UpdateDispatcher : public std::enable_shared_from_this<UpdateDispatcher>
{
public:
    using Param = MoxGenParam::Param;
    using Sink = MoxGenParam::ParamEventSink;

    explicit UpdateDispatcher(GenApi::INodeMap &nodeMap);
    ~UpdateDispatcher();

    /** Starts polling too. A sink that listens already goes on as it did. */
    void subscribe(Param *param, Sink *sink);
    /** Also drops the sink's updates that are on their way. */
    void unsubscribe(Param *param, Sink *sink);
    /** The same for a sink that is destroyed, with all parameters of all arrays. */
    static void forget(Sink *sink);

    /** Tells the sinks of a parameter: at once on the GUI thread, through its event loop from another one. */
    void notify(Param *param);

    /** Drops all sinks, for good, and waits for what runs on the GUI thread if that is another one. */
    void close();
    /**
     * Runs a function when no update is being delivered any more, in a later turn of the event loop then; at once
     * when none is. Rather never than too early where there is no event loop.
     */
    void whenIdle(std::function<void()> function);

private:
    struct Update
    {
        Param *param;
        Sink *sink;
    };
    class Activity;

    void drop(Sink *sink);
    std::vector<Sink *> sinksOf(Param *param);
    bool isSubscribed(Param *param, Sink *sink);
    void enqueue(Param *param);
    void deliverQueued();
    void startPolling();
    void poll();
    template<class Function> void invokeOnGuiThread(Qt::ConnectionType type, Function function);

    std::mutex m_mutex;
    std::condition_variable m_idle;
    int m_activities = 0;
    std::function<void()> m_whenIdle;
    GenApi::INodeMap *m_nodeMap; // null once closed
    std::unordered_map<Param *, std::vector<Sink *>> m_sinks; // no entry is empty
    std::deque<Update> m_queue;
    bool m_posted = false;
    std::unique_ptr<QTimer> m_timer;
    QElapsedTimer m_sincePoll;
};

} // namespace MoxSdk

#endif
