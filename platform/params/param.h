// What all parameters share.
#ifndef MOXSDK_PARAM_H
#define MOXSDK_PARAM_H

#include "resultcode.h"
#include "textpool.h"
#include "updatedispatcher.h"

#include <GenApi/GenApi.h>
#include <MoxCameraApi/MoxGenParam.h>

#include <memory>
#include <string>

namespace MoxSdk {

/** What an array gives to its parameters; lives in the array. */
struct ParamContext
{
    GenApi::INodeMap &nodeMap;
    TextPool texts;
    std::shared_ptr<UpdateDispatcher> updates;
};

/** A parameter over one node, and the node's callback for its sinks. Owned by the array; used from any thread. */
class ParamBase : public virtual MoxGenParam::Param
{
public:
    ParamBase(ParamContext &context, GenApi::INode &node);
    virtual ~ParamBase();
    ParamBase(const ParamBase &) = delete;
    ParamBase &operator=(const ParamBase &) = delete;

    const char *GetName() override;
    bool IsAvailable() override;
    bool IsWritable() override;
    bool IsReadable() override;
    void RegisterEventSink(MoxGenParam::ParamEventSink *sink) override;
    void UnregisterEventSink(MoxGenParam::ParamEventSink *sink) override;

protected:
    template<class Access> auto read(MoxCamErr *err, Access access) const
    {
        return guardedRead(m_context.nodeMap, err, access);
    }
    template<class Access> MoxCamErr write(Access access) const { return guardedWrite(m_context.nodeMap, access); }
    /** The text that @p access gives; empty when it throws. */
    template<class Access> const char *readText(MoxCamErr *err, Access access) const
    {
        return m_context.texts.intern(read(err, [&access] { return std::string(access().c_str()); }));
    }

    ParamContext &m_context;

private:
    GenApi::INode &m_node;
    const std::string m_name;
    GenApi::CallbackHandleType m_callback = 0;
};

} // namespace MoxSdk

#endif
