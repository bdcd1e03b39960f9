#include "updatedispatcher.h"

#include <QCoreApplication>
#include <QThread>

#include <algorithm>
#include <iterator>
#include <utility>

namespace MoxSdk {

namespace {

constexpr int pollInterval = 500; // ms

bool onGuiThread()
{
    const QCoreApplication *app = QCoreApplication::instance();
    return !app || app->thread() == QThread::currentThread();
}

/** All dispatchers there are, for sinks that are destroyed. Never ends, as the last sink may go after everything else. */
struct Dispatchers
{
    std::mutex mutex;
    std::vector<UpdateDispatcher *> all;

    static Dispatchers &instance()
    {
        static auto *dispatchers = new Dispatchers;
        return *dispatchers;
    }
};

/** Nothing that a sink throws makes a write fail that succeeded, or gets into the event loop. */
void tell(MoxGenParam::ParamEventSink *sink, MoxGenParam::Param *param)
{
    try {
        sink->OnParameterUpdate(param);
    } catch (...) {
        // The others hear of the update all the same.
    }
}

} // namespace

/** Keeps `close` on another thread waiting; holds the node map for the time of its life, or null when it is closed. */
class UpdateDispatcher::Activity
{
public:
    explicit Activity(UpdateDispatcher &dispatcher) : m_dispatcher(dispatcher)
    {
        const std::lock_guard<std::mutex> lock(dispatcher.m_mutex);
        ++dispatcher.m_activities;
        nodeMap = dispatcher.m_nodeMap;
    }
    ~Activity()
    {
        const std::lock_guard<std::mutex> lock(m_dispatcher.m_mutex);
        if (--m_dispatcher.m_activities > 0)
            return;
        m_dispatcher.m_idle.notify_all();
        // The write that caused the last update still stands on the stack here.
        if (m_dispatcher.m_whenIdle && QCoreApplication::instance())
            QMetaObject::invokeMethod(QCoreApplication::instance(), std::exchange(m_dispatcher.m_whenIdle, nullptr),
                                      Qt::QueuedConnection);
    }
    Activity(const Activity &) = delete;
    Activity &operator=(const Activity &) = delete;

    GenApi::INodeMap *nodeMap;

private:
    UpdateDispatcher &m_dispatcher;
};

UpdateDispatcher::UpdateDispatcher(GenApi::INodeMap &nodeMap) : m_nodeMap(&nodeMap)
{
    Dispatchers &dispatchers = Dispatchers::instance();
    const std::lock_guard<std::mutex> lock(dispatchers.mutex);
    dispatchers.all.push_back(this);
}

UpdateDispatcher::~UpdateDispatcher()
{
    Dispatchers &dispatchers = Dispatchers::instance();
    const std::lock_guard<std::mutex> lock(dispatchers.mutex);
    dispatchers.all.erase(std::find(dispatchers.all.begin(), dispatchers.all.end(), this));
}

void UpdateDispatcher::subscribe(Param *param, Sink *sink)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (!m_nodeMap)
            return;
        std::vector<Sink *> &sinks = m_sinks[param];
        if (std::find(sinks.begin(), sinks.end(), sink) == sinks.end())
            sinks.push_back(sink);
    }
    invokeOnGuiThread(Qt::AutoConnection, [](UpdateDispatcher &dispatcher) { dispatcher.startPolling(); });
}

void UpdateDispatcher::unsubscribe(Param *param, Sink *sink)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = m_sinks.find(param);
    if (found == m_sinks.end())
        return;
    std::vector<Sink *> &sinks = found->second;
    sinks.erase(std::remove(sinks.begin(), sinks.end(), sink), sinks.end());
    if (sinks.empty())
        m_sinks.erase(found);
    m_queue.erase(std::remove_if(m_queue.begin(), m_queue.end(),
                                 [=](const Update &update) { return update.param == param && update.sink == sink; }),
                  m_queue.end());
}

void UpdateDispatcher::forget(Sink *sink)
{
    Dispatchers &dispatchers = Dispatchers::instance();
    const std::lock_guard<std::mutex> lock(dispatchers.mutex);
    for (UpdateDispatcher *dispatcher : dispatchers.all)
        dispatcher->drop(sink);
}

void UpdateDispatcher::drop(Sink *sink)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    for (auto entry = m_sinks.begin(); entry != m_sinks.end();) {
        std::vector<Sink *> &sinks = entry->second;
        sinks.erase(std::remove(sinks.begin(), sinks.end(), sink), sinks.end());
        entry = sinks.empty() ? m_sinks.erase(entry) : std::next(entry);
    }
    m_queue.erase(
        std::remove_if(m_queue.begin(), m_queue.end(), [=](const Update &update) { return update.sink == sink; }),
        m_queue.end());
}

void UpdateDispatcher::notify(Param *param)
{
    if (!onGuiThread()) {
        enqueue(param);
        return;
    }
    // A sink may take itself or another one off the list, so each is looked up again before its turn.
    const auto self = shared_from_this();
    const Activity activity(*this);
    for (Sink *sink : sinksOf(param)) {
        if (isSubscribed(param, sink))
            tell(sink, param);
    }
}

void UpdateDispatcher::close()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_nodeMap = nullptr;
    m_sinks.clear();
    m_queue.clear();
    // On the GUI thread itself an activity can only be one further up the stack.
    if (!onGuiThread())
        m_idle.wait(lock, [this] { return m_activities == 0; });
    // The timer may be the one whose signal is being served, or may belong to another thread than this one.
    if (m_timer && QCoreApplication::instance())
        m_timer.release()->deleteLater();
    m_timer.reset();
}

void UpdateDispatcher::whenIdle(std::function<void()> function)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_activities > 0) {
            m_whenIdle = std::move(function);
            return;
        }
    }
    function();
}

std::vector<UpdateDispatcher::Sink *> UpdateDispatcher::sinksOf(Param *param)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = m_sinks.find(param);
    return found == m_sinks.end() ? std::vector<Sink *>() : found->second;
}

bool UpdateDispatcher::isSubscribed(Param *param, Sink *sink)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = m_sinks.find(param);
    return found != m_sinks.end() && std::find(found->second.begin(), found->second.end(), sink) != found->second.end();
}

void UpdateDispatcher::enqueue(Param *param)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const auto found = m_sinks.find(param);
        if (found == m_sinks.end())
            return;
        for (Sink *sink : found->second) {
            const auto same = [=](const Update &update) { return update.param == param && update.sink == sink; };
            if (std::none_of(m_queue.begin(), m_queue.end(), same))
                m_queue.push_back({param, sink});
        }
        if (m_posted || m_queue.empty())
            return;
        m_posted = true;
    }
    invokeOnGuiThread(Qt::QueuedConnection, [](UpdateDispatcher &dispatcher) { dispatcher.deliverQueued(); });
}

void UpdateDispatcher::deliverQueued()
{
    const Activity activity(*this);
    std::unique_lock<std::mutex> lock(m_mutex);
    m_posted = false;
    // As many as stand there now; those that come meanwhile have their own event, and the loop gets its turn between.
    for (std::size_t left = m_queue.size(); left > 0 && !m_queue.empty(); --left) {
        const Update update = m_queue.front();
        m_queue.pop_front();
        lock.unlock();
        tell(update.sink, update.param);
        lock.lock();
    }
}

void UpdateDispatcher::startPolling()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_nodeMap)
        return;
    if (!m_timer) {
        m_timer = std::make_unique<QTimer>();
        QObject::connect(m_timer.get(), &QTimer::timeout, m_timer.get(), [weak = weak_from_this()] {
            if (const auto self = weak.lock())
                self->poll();
        });
    }
    if (!m_timer->isActive()) {
        m_sincePoll.start();
        m_timer->start(pollInterval);
    }
}

void UpdateDispatcher::poll()
{
    const Activity activity(*this);
    {
        // Controls unsubscribe and subscribe in one go, so the end of polling waits for a tick that finds no sink.
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_sinks.empty()) {
            if (m_timer)
                m_timer->stop();
            return;
        }
    }
    try {
        activity.nodeMap->Poll(m_sincePoll.restart());
    } catch (...) {
        // A camera that cannot be polled now is asked again at the next tick.
    }
}

/** Calls the function with this object when its turn comes, if the array is still there then. */
template<class Function> void UpdateDispatcher::invokeOnGuiThread(Qt::ConnectionType type, Function function)
{
    QCoreApplication *app = QCoreApplication::instance();
    if (!app)
        return;
    QMetaObject::invokeMethod(
        app,
        [weak = weak_from_this(), function] {
            if (const auto self = weak.lock())
                function(*self);
        },
        type);
}

} // namespace MoxSdk

MoxGenParam::ParamEventSink::~ParamEventSink()
{
    MoxSdk::UpdateDispatcher::forget(this);
}
