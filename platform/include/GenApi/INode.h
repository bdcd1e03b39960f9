// What every node offers: its access mode, its description, its place in the map.
#ifndef GENAPI_INODE_H
#define GENAPI_INODE_H

#include <GenApi/Types.h>

#include <cstdint>

namespace GenApi_3_0 {

struct INodeMap;
class CNodeCallback;

/** Names a registered callback; ends with `Deregister`. */
using CallbackHandleType = std::intptr_t;

/** The root of all node interfaces. Nodes belong to their map and live as long as it does. */
struct MOXSDK_INTERFACE IBase
{
    virtual ~IBase() = default;

    /** What may be done with the node now. Reading it may access the port. Throws `GenericException`. */
    virtual EAccessMode GetAccessMode() const = 0;
};

/** The description side of a node. None of the texts is ever null. */
struct MOXSDK_INTERFACE INode : virtual public IBase
{
    /** The node's name; with the namespace in front ("Std::" or "Cust::") when @p fullQualified is true. */
    virtual gcstring GetName(bool fullQualified = false) const = 0;
    virtual EVisibility GetVisibility() const = 0;

    /** Forgets what is cached of this node and of all that depend on it, and fires their callbacks. */
    virtual void InvalidateNode() = 0;
    virtual bool IsCachable() const = 0;
    virtual ECachingMode GetCachingMode() const = 0;

    /** Milliseconds after which the value counts as stale, or -1 when the description names none. */
    virtual std::int64_t GetPollingTime() const = 0;

    virtual gcstring GetToolTip() const = 0;
    virtual gcstring GetDescription() const = 0;
    virtual gcstring GetDisplayName() const = 0;
    virtual gcstring GetDeviceName() const = 0;

    /** The nodes that this one refers to. */
    virtual void GetChildren(NodeList_t &children) const = 0;
    /** The nodes that refer to this one. */
    virtual void GetParents(NodeList_t &parents) const = 0;
    virtual INodeMap *GetNodeMap() const = 0;

    virtual bool IsStreamable() const = 0;
    virtual bool IsDeprecated() const = 0;
    virtual bool IsFeature() const = 0;
    virtual EInterfaceType GetPrincipalInterfaceType() const = 0;

    /**
     * Takes ownership of a heap object; it is disposed of by `Deregister`, or with the node map. The callback must not
     * end the node map's owner, such as the device: the map still works while its callbacks run.
     */
    virtual CallbackHandleType RegisterCallback(CNodeCallback *callback) = 0;
    /**
     * Detaches the callback without disposing of it; false when the handle is unknown. A `cbPostOutsideLock` callback
     * that runs on another thread is waited for, so the caller must not hold the node map's lock. From within a callback
     * of the same map there is no waiting: the node map disposes of the other one as soon as it ends, and this is false.
     */
    virtual bool DeregisterCallback(CallbackHandleType handle) = 0;
};

/** A node that has a value and may stand in a category. */
struct MOXSDK_INTERFACE IValue : virtual public IBase
{
    virtual INode *GetNode() = 0;

    /** The value as text, in the form that `FromString` takes. Throws when the node cannot be read. */
    virtual gcstring ToString(bool verify = false, bool ignoreCache = false) = 0;
    /** Writes a value from text. Throws when the text does not convert or the write is refused. */
    virtual void FromString(const gcstring &text, bool verify = true) = 0;
    virtual bool IsValueCacheValid() const = 0;
};

/** A node whose value decides which instance others show. Every feature node offers it. */
struct MOXSDK_INTERFACE ISelector : virtual public IBase
{
    virtual bool IsSelector() const = 0;
    virtual void GetSelectedFeatures(FeatureList_t &features) const = 0;
    virtual void GetSelectingFeatures(FeatureList_t &features) const = 0;
};

} // namespace GenApi_3_0

#endif
