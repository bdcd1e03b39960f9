// A device's nodes.
#ifndef GENAPI_INODEMAP_H
#define GENAPI_INODEMAP_H

#include <GenApi/INode.h>
#include <GenApi/IPort.h>
#include <GenApi/Synch.h>

namespace GenApi_3_0 {

/** All nodes of one description, bound to one port. Safe from any thread; each call takes the lock. */
struct MOXSDK_INTERFACE INodeMap
{
    virtual ~INodeMap() = default;

    virtual void GetNodes(NodeList_t &nodes) const = 0;
    /** The node of that name, with or without namespace; null when there is none. */
    virtual INode *GetNode(const gcstring &name) const = 0;
    virtual std::uint64_t GetNumNodes() const = 0;
    virtual gcstring GetDeviceName() const = 0;

    /** Forgets everything cached and fires every callback. */
    virtual void InvalidateNodes() const = 0;

    /**
     * Tells the map that @p elapsedTime milliseconds went by. Nodes whose polling time has run out are invalidated
     * with their dependents, and their callbacks fire on the calling thread. The port is not accessed.
     */
    virtual void Poll(std::int64_t elapsedTime) = 0;

    virtual CLock &GetLock() const = 0;
};

} // namespace GenApi_3_0

#endif
