// The node map: owner of all nodes, of the lock, and of what happens after a change.
#ifndef MOXGENAPI_NODEMAP_H
#define MOXGENAPI_NODEMAP_H

#include "description.h"
#include "node.h"

#include <condition_variable>
#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <unordered_map>

namespace MoxGenApi {

class RegisterAccess;

/**
 * All nodes of one description over one port, which must outlive the map.
 *
 * Everything runs on the caller's thread under one recursive lock. A change (a write, an invalidation, a poll) first
 * does its work, then drops what has become stale, then fires the callbacks; changes made by callbacks nest.
 */
class NodeMap : public GenApi::INodeMap
{
public:
    NodeMap(Description description, GenApi::IPort &port, std::string deviceName);
    ~NodeMap() override;

    void GetNodes(GenApi::NodeList_t &nodes) const override;
    GenApi::INode *GetNode(const GenApi::gcstring &name) const override;
    std::uint64_t GetNumNodes() const override { return m_nodes.size(); }
    GenApi::gcstring GetDeviceName() const override;
    void InvalidateNodes() const override;
    void Poll(std::int64_t elapsedTime) override;
    GenApi::CLock &GetLock() const override { return m_lock; }

    Node *find(const std::string &name) const;
    GenApi::IPort &port() const { return m_port; }

    /** Runs @p action, a write of @p node, as one change. */
    void change(Node &node, const std::function<void()> &action);
    /** Makes @p nodes stale, with what holds their values and all that depends on either, and fires. */
    void invalidate(const std::vector<Node *> &nodes);
    /** Enters a node into the change under way, which is about to alter it. Throws when the write never seems to end. */
    void touch(Node &node);
    /** The same of a node that the device's bytes behind another one are shared with. */
    void touchOverlapped(Node &node) { m_touched.push_back(&node); }
    /** Counts what the device or a variable has taken; a change that failed before that fires nothing. */
    void countWrite()
    {
        ++m_writes;
        ++evaluation; // what was read before the write may have changed with it
    }
    /** Says that the device is going to change what is being written by itself: nothing of it may be kept. */
    void discardWritten() { m_discardsWritten = true; }
    /** Drops what is kept of all that depends on @p node, without callbacks: a fresh read found another value. */
    void forgetDependents(Node &node);

    std::uint64_t nextSerial() { return ++m_serial; }
    /** Whether a change is under way on the thread that holds the lock, as it is within a `cbPostInsideLock` callback. */
    bool isChanging() const { return m_depth > 0; }
    /**
     * Waits, without the lock, until the detached callback runs on no other thread. Within a callback it does not wait,
     * since the other one might wait for this one: then the map disposes of it as soon as it ends, and this is false.
     */
    bool awaitEnd(const Node::Registration &registration, bool isWithinChange);

    // Registers whose bytes are kept, by address, to find those that a write of another one overlaps.
    using HeldRegisters = std::multimap<std::int64_t, RegisterAccess *>;
    HeldRegisters heldRegisters;
    std::int64_t longestHeld = 0;

    // State of the evaluation under way.
    int evaluationDepth = 0;
    std::uint64_t evaluation = 1; // another one for each outermost evaluation, and after each write within it
    std::uint64_t modeCircles = 0;

private:
    struct Pending
    {
        Node *node;
        Node::Registration registration;
    };
    struct Running
    {
        std::uint64_t serial;
        std::thread::id thread;
        bool isAbandoned; // whoever detached it left it to the map
    };
    struct Polled
    {
        Node *node;
        std::int64_t elapsed;
    };

    std::vector<Node *> affected(const std::vector<Node *> &seeds);
    static std::vector<Pending> listeners(const std::vector<Node *> &nodes, const Node *first);
    /** Fires the callbacks of @p nodes, then throws @p failure, or else what a callback threw. */
    void announce(const std::vector<Node *> &nodes, const Node *first, std::exception_ptr failure);
    /** Runs @p work under the lock, then the callbacks that wait for its release. */
    void locked(const std::function<void()> &work);
    void beginOutside(const Node::Registration &registration);
    void endOutside(const Node::Registration &registration);

    const Description m_description;
    GenApi::IPort &m_port;
    const std::string m_deviceName;
    mutable GenApi::CLock m_lock;
    std::vector<std::unique_ptr<Node>> m_nodes; // in the description's order
    std::unordered_map<std::string, Node *> m_byName;
    std::vector<Polled> m_polled;
    std::vector<std::uint64_t> m_marks; // by position: the last closure that reached the node
    std::uint64_t m_mark = 0;
    std::uint64_t m_serial = 0;
    std::uint64_t m_writes = 0;
    int m_depth = 0; // changes under way, one within the other
    std::vector<Node *> m_touched;
    int m_steps = 0; // nodes that the change under way has written through
    bool m_discardsWritten = false;
    std::vector<Pending> m_outside;
    std::mutex m_runningMutex; // of m_running alone; nothing else is locked while it is held
    std::condition_variable m_callbackEnded;
    std::vector<Running> m_running; // callbacks outside the lock
};

template<class Action> void Node::change(Action action)
{
    m_map.change(*this, action);
}

} // namespace MoxGenApi

#endif
