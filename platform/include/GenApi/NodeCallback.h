// Being told when a node changed.
#ifndef GENAPI_NODECALLBACK_H
#define GENAPI_NODECALLBACK_H

#include <GenApi/INode.h>

namespace GenApi_3_0 {

/**
 * A callback on one node. It fires after the node, or one that it depends on, was written, invalidated or polled, on
 * the thread that did it; with the node map's lock held for `cbPostInsideLock`, after its release otherwise. A callback
 * must not end the owner of the node map, such as the device: the map still works while its callbacks run.
 */
class MOXSDK_INTERFACE CNodeCallback
{
public:
    CNodeCallback(INode *node, ECallbackType type) : m_pNode(node), m_CallbackType(type) { }
    virtual ~CNodeCallback() = default;

    /** Runs the callback when @p type is the one it was made for; the node map asks for no other. */
    virtual void operator()(ECallbackType type) const = 0;
    /** Disposes of the object. */
    virtual void Destroy() = 0;

    INode *GetNode() const { return m_pNode; }
    ECallbackType GetCallbackType() const { return m_CallbackType; }

protected:
    INode *m_pNode;
    ECallbackType m_CallbackType;
};

/** Calls a member function `void (INode *)` of a client that outlives the registration. */
template<class Client, typename Member> class Member_NodeCallback : public CNodeCallback
{
public:
    Member_NodeCallback(INode *node, Client &client, Member member, ECallbackType type)
        : CNodeCallback(node, type), m_client(client), m_member(member)
    { }

    void operator()(ECallbackType type) const override
    {
        if (type == m_CallbackType)
            (m_client.*m_member)(m_pNode);
    }
    void Destroy() override { delete this; }

private:
    Client &m_client;
    Member m_member;
};

/** Calls a function object `void (INode *)`. */
template<class Function> class Function_NodeCallback : public CNodeCallback
{
public:
    Function_NodeCallback(INode *node, const Function &function, ECallbackType type)
        : CNodeCallback(node, type), m_function(function)
    { }

    void operator()(ECallbackType type) const override
    {
        if (type == m_CallbackType)
            m_function(m_pNode);
    }
    void Destroy() override { delete this; }

private:
    Function m_function;
};

template<class Client, typename Member>
CNodeCallback *make_NodeCallback(INode *node, Client *client, Member member, ECallbackType type = cbPostInsideLock)
{
    return new Member_NodeCallback<Client, Member>(node, *client, member, type);
}

/** Registers a function object on a node; the returned handle ends with `Deregister`. */
template<class Function>
CallbackHandleType Register(INode *node, const Function &function, ECallbackType type = cbPostInsideLock)
{
    return node->RegisterCallback(new Function_NodeCallback<Function>(node, function, type));
}

/**
 * Detaches a callback and disposes of it. The node map must still be alive. While the callback runs outside of the lock
 * on another thread, this waits for its end, so the caller must not hold the lock; see `INode::DeregisterCallback`.
 */
inline void Deregister(CallbackHandleType handle)
{
    auto *callback = reinterpret_cast<CNodeCallback *>(handle);
    if (callback && callback->GetNode()->DeregisterCallback(handle))
        callback->Destroy();
}

} // namespace GenApi_3_0

#endif
