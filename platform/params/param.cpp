#include "param.h"

namespace MoxSdk {

ParamBase::ParamBase(ParamContext &context, GenApi::INode &node)
    : m_context(context), m_node(node), m_name(node.GetName().c_str())
{ }

ParamBase::~ParamBase()
{
    GenApi::Deregister(m_callback);
}

const char *ParamBase::GetName()
{
    return m_name.c_str();
}

bool ParamBase::IsAvailable()
{
    return read(nullptr, [this] { return GenApi::IsAvailable(&m_node); });
}

bool ParamBase::IsWritable()
{
    return read(nullptr, [this] { return GenApi::IsWritable(&m_node); });
}

bool ParamBase::IsReadable()
{
    return read(nullptr, [this] { return GenApi::IsReadable(&m_node); });
}

void ParamBase::RegisterEventSink(MoxGenParam::ParamEventSink *sink)
{
    if (!sink)
        return;
    // The callback stays with the node for good: a sink that unsubscribes during an update would otherwise take away
    // the callback that is running.
    write([this] {
        const GenApi::AutoLock lock(m_context.nodeMap.GetLock());
        if (!m_callback)
            m_callback = GenApi::Register(&m_node, [this](GenApi::INode *) { m_context.updates->notify(this); });
    });
    m_context.updates->subscribe(this, sink);
}

void ParamBase::UnregisterEventSink(MoxGenParam::ParamEventSink *sink)
{
    m_context.updates->unsubscribe(this, sink);
}

} // namespace MoxSdk
