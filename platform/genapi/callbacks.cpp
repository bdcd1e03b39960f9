// What follows a change of the node map: stale state is dropped, then those who asked are told.
#include "dependencies.h"
#include "nodemap.h"

#include <algorithm>
#include <limits>

namespace MoxGenApi {

using namespace GenApi;

namespace {

// A description may let one write branch out again and again; real ones write a handful of nodes.
constexpr int mostSteps = 10000;

} // namespace

void NodeMap::touch(Node &node)
{
    if (++m_steps > mostSteps)
        throw RUNTIME_EXCEPTION("The write that reached node '%s' goes through too many nodes.", node.name());
    m_touched.push_back(&node);
}

// A node that is invalidated or selected by another one shows something else of the device from then on, so what holds
// its value goes stale as well.
std::vector<Node *> NodeMap::affected(const std::vector<Node *> &seeds)
{
    ++m_mark;
    std::vector<Node *> nodes;
    const auto reach = [this, &nodes](Node *node) {
        if (std::exchange(m_marks[node->position()], m_mark) != m_mark)
            nodes.push_back(node);
    };
    for (Node *seed : seeds)
        reach(seed);
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        for (Node *dependent : nodes[i]->dependents)
            reach(dependent);
        if (!nodes[i]->prompted.empty()) {
            for (Node *source : Dependencies::withSources(nodes[i]->prompted))
                reach(source);
        }
    }
    return nodes;
}

void NodeMap::forgetDependents(Node &node)
{
    for (Node *stale : affected({&node}))
        stale->forget();
}

void NodeMap::change(Node &node, const std::function<void()> &action)
{
    locked([&] {
        const std::uint64_t writesBefore = m_writes;
        std::vector<Node *> outer = std::exchange(m_touched, {});
        const int outerSteps = std::exchange(m_steps, 0);
        m_discardsWritten = false;
        std::exception_ptr failure;
        try {
            action();
        } catch (...) {
            failure = std::current_exception();
        }
        const std::vector<Node *> touched = std::exchange(m_touched, std::move(outer));
        m_steps = outerSteps;
        const std::vector<Node *> nodes = affected(touched);
        for (Node *stale : nodes)
            stale->forget();
        for (Node *written : touched)
            written->settle(!failure && !m_discardsWritten);
        // A write that failed before the device, or a variable of the description, took anything has changed nothing.
        if (failure && m_writes == writesBefore)
            std::rethrow_exception(failure);
        announce(nodes, &node, failure);
    });
}

void NodeMap::invalidate(const std::vector<Node *> &nodes)
{
    locked([&] {
        const std::vector<Node *> stale = affected(Dependencies::withSources(nodes));
        for (Node *node : stale)
            node->forget();
        announce(stale, nodes.size() == 1 ? nodes.front() : nullptr, nullptr);
    });
}

void NodeMap::InvalidateNodes() const
{
    auto *self = const_cast<NodeMap *>(this);
    self->locked([self] {
        std::vector<Node *> all;
        all.reserve(self->m_nodes.size());
        for (const auto &node : self->m_nodes) {
            node->forget();
            all.push_back(node.get());
        }
        self->announce(all, nullptr, nullptr);
    });
}

void NodeMap::Poll(std::int64_t elapsedTime)
{
    locked([&] {
        std::vector<Node *> due;
        for (Polled &polled : m_polled) {
            const std::int64_t room = std::numeric_limits<std::int64_t>::max() - polled.elapsed;
            polled.elapsed += std::clamp<std::int64_t>(elapsedTime, 0, room);
            if (polled.elapsed < polled.node->GetPollingTime())
                continue;
            polled.elapsed = 0;
            due.push_back(polled.node);
        }
        if (due.empty())
            return;
        const std::vector<Node *> stale = affected(Dependencies::withSources(due));
        for (Node *node : stale)
            node->forget();
        announce(stale, nullptr, nullptr);
    });
}

// The written node comes first, the others in the description's order.
std::vector<NodeMap::Pending> NodeMap::listeners(const std::vector<Node *> &nodes, const Node *first)
{
    std::vector<Node *> listening;
    std::copy_if(nodes.begin(), nodes.end(), std::back_inserter(listening),
                 [](const Node *node) { return !node->callbacks().empty(); });
    std::sort(listening.begin(), listening.end(), [first](const Node *a, const Node *b) {
        if ((a == first) != (b == first))
            return a == first;
        return a->position() < b->position();
    });
    std::vector<Pending> pending;
    for (Node *node : listening) {
        for (const Node::Registration &registration : node->callbacks())
            pending.push_back({node, registration});
    }
    return pending;
}

// A callback that throws keeps no other one from being told; the first exception goes on to whoever made the change,
// unless the change itself has failed.
void NodeMap::announce(const std::vector<Node *> &nodes, const Node *first, std::exception_ptr failure)
{
    const std::vector<Pending> pending = listeners(nodes, first);
    for (const Pending &entry : pending) {
        // Any callback may have ended any other.
        if (entry.registration.type != cbPostInsideLock || !entry.node->isRegistered(entry.registration))
            continue;
        try {
            (*entry.registration.callback)(cbPostInsideLock);
        } catch (...) {
            if (!failure)
                failure = std::current_exception();
        }
    }
    std::copy_if(pending.begin(), pending.end(), std::back_inserter(m_outside),
                 [](const Pending &entry) { return entry.registration.type == cbPostOutsideLock; });
    if (failure)
        std::rethrow_exception(failure);
}

// Changes nest, when a callback writes; what waits for the lock's release waits for the outermost one. Where the
// caller itself holds the lock around its write, these callbacks run before the caller lets go of it.
void NodeMap::locked(const std::function<void()> &work)
{
    std::exception_ptr failure;
    std::vector<Pending> outside;
    {
        AutoLock lock(m_lock);
        ++m_depth;
        try {
            work();
        } catch (...) {
            failure = std::current_exception();
        }
        if (--m_depth == 0)
            outside.swap(m_outside);
    }
    for (const Pending &entry : outside) {
        {
            AutoLock lock(m_lock);
            if (!entry.node->isRegistered(entry.registration))
                continue;
            beginOutside(entry.registration);
        }
        try {
            (*entry.registration.callback)(cbPostOutsideLock);
        } catch (...) {
            if (!failure)
                failure = std::current_exception();
        }
        endOutside(entry.registration);
    }
    if (failure)
        std::rethrow_exception(failure);
}

// Entered while the map's lock is held: whoever detaches the callback either comes first or finds it running.
void NodeMap::beginOutside(const Node::Registration &registration)
{
    const std::lock_guard<std::mutex> guard(m_runningMutex);
    m_running.push_back({registration.serial, std::this_thread::get_id(), false});
}

void NodeMap::endOutside(const Node::Registration &registration)
{
    bool isOurs = false;
    {
        const std::lock_guard<std::mutex> guard(m_runningMutex);
        const auto runs = [&registration](const Running &running) { return running.serial == registration.serial; };
        const auto own = std::find_if(m_running.begin(), m_running.end(), [&runs](const Running &running) {
            return runs(running) && running.thread == std::this_thread::get_id();
        });
        const bool isAbandoned = own->isAbandoned;
        m_running.erase(own);
        isOurs = isAbandoned && std::none_of(m_running.begin(), m_running.end(), runs);
        // Under the mutex: the waiting thread may end the map as soon as it may go on.
        m_callbackEnded.notify_all();
    }
    if (isOurs)
        registration.callback->Destroy();
}

bool NodeMap::awaitEnd(const Node::Registration &registration, bool isWithinChange)
{
    const std::thread::id self = std::this_thread::get_id();
    std::unique_lock<std::mutex> guard(m_runningMutex);
    const auto runsElsewhere = [&] {
        return std::any_of(m_running.begin(), m_running.end(), [&](const Running &running) {
            return running.serial == registration.serial && running.thread != self;
        });
    };
    const bool isWithinCallback = isWithinChange
        || std::any_of(m_running.begin(), m_running.end(),
                       [self](const Running &running) { return running.thread == self; });
    if (!isWithinCallback)
        m_callbackEnded.wait(guard, [&] { return !runsElsewhere(); });
    if (!runsElsewhere())
        return true;
    for (Running &running : m_running)
        running.isAbandoned = running.isAbandoned || running.serial == registration.serial;
    return false;
}

} // namespace MoxGenApi
