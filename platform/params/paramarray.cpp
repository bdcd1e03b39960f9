#include "paramarray.h"

#include "enumparam.h"
#include "valueparams.h"

#include <unordered_map>

namespace MoxSdk {

namespace {

/** The parameters of one type that were asked for so far; they keep their addresses. */
template<class P> using ParamTable = std::unordered_map<GenApi::INode *, std::unique_ptr<P>>;

} // namespace

class ParamArrayPrivate
{
public:
    explicit ParamArrayPrivate(GenApi::INodeMap &nodeMap)
        : context{nodeMap, {}, std::make_shared<UpdateDispatcher>(nodeMap)}
    { }
    // Updates end first; what is left of a write on another thread ends when the parameters take their callbacks back.
    ~ParamArrayPrivate() { context.updates->close(); }

    template<class P> P *find(ParamTable<P> &table, const char *name, MoxCamErr *err);

    ParamContext context;
    ParamTable<BooleanParam> booleans;
    ParamTable<CommandParam> commands;
    ParamTable<EnumParam> enums;
    ParamTable<IntParam> ints;
    ParamTable<StringParam> strings;
};

template<class P> P *ParamArrayPrivate::find(ParamTable<P> &table, const char *name, MoxCamErr *err)
{
    try {
        const GenApi::AutoLock lock(context.nodeMap.GetLock());
        GenApi::INode *node = name ? context.nodeMap.GetNode(name) : nullptr;
        if (!node) {
            report(err, MoxCamError::GenICamUnknownParameter);
            return nullptr;
        }
        auto *value = dynamic_cast<typename P::Value *>(node);
        if (!value) {
            report(err, MoxCamError::GenICamType);
            return nullptr;
        }
        std::unique_ptr<P> &param = table[node];
        if (!param)
            param = std::make_unique<P>(context, *node, *value);
        report(err, MoxCamError::Success);
        return param.get();
    } catch (...) {
        report(err, failureCode(context.nodeMap));
        return nullptr;
    }
}

ParamArray::ParamArray(GenApi::INodeMap &nodeMap) : d(std::make_unique<ParamArrayPrivate>(nodeMap))
{ }

ParamArray::~ParamArray() = default;

MoxGenParam::Boolean *ParamArray::GetBoolean(const char *name, MoxCamErr *err)
{
    return d->find(d->booleans, name, err);
}

MoxGenParam::Command *ParamArray::GetCommand(const char *name, MoxCamErr *err)
{
    return d->find(d->commands, name, err);
}

MoxGenParam::Enum *ParamArray::GetEnum(const char *name, MoxCamErr *err)
{
    return d->find(d->enums, name, err);
}

MoxGenParam::Int *ParamArray::GetInt(const char *name, MoxCamErr *err)
{
    return d->find(d->ints, name, err);
}

MoxGenParam::String *ParamArray::GetString(const char *name, MoxCamErr *err)
{
    return d->find(d->strings, name, err);
}

GenApi::INodeMap *ParamArray::GetNodeMap(MoxCamErr *err)
{
    report(err, MoxCamError::Success);
    return &d->context.nodeMap;
}

const char *ParamArray::GetEnumValueStr(const char *name, MoxCamErr *err)
{
    MoxGenParam::Enum *param = GetEnum(name, err);
    return param ? param->GetValueStr(err) : "";
}

MoxCamErr ParamArray::SetIntegerValue(const char *name, std::int64_t value)
{
    MoxCamErr err = MoxCamError::Success;
    MoxGenParam::Int *param = GetInt(name, &err);
    return param ? param->SetValue(value) : err;
}

std::int64_t ParamArray::GetIntegerValue(const char *name, MoxCamErr *err)
{
    MoxGenParam::Int *param = GetInt(name, err);
    return param ? param->GetValue(err) : 0;
}

MoxCamErr ParamArray::ExecuteCommand(const char *name)
{
    MoxCamErr err = MoxCamError::Success;
    MoxGenParam::Command *param = GetCommand(name, &err);
    return param ? param->Execute() : err;
}

void ParamArray::retire(std::function<void()> end)
{
    d->context.updates->close();
    d->context.updates->whenIdle(std::move(end));
}

} // namespace MoxSdk
