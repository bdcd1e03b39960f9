// Parameters with one value: integer, boolean, command, text.
#ifndef MOXSDK_VALUEPARAMS_H
#define MOXSDK_VALUEPARAMS_H

#include "param.h"

namespace MoxSdk {

/** Over an integer node. */
class IntParam final : public ParamBase, public MoxGenParam::Int
{
public:
    using Value = GenApi::IInteger;

    IntParam(ParamContext &context, GenApi::INode &node, Value &value) : ParamBase(context, node), m_value(value) { }

    int GetType() override { return MoxGenParam::TypeInteger; }
    MoxCamErr SetValue(std::int64_t value) override;
    std::int64_t GetValue(MoxCamErr *err) override;
    std::int64_t GetMin(MoxCamErr *err) override;
    std::int64_t GetMax(MoxCamErr *err) override;
    std::int64_t GetIncrement(MoxCamErr *err) override;

private:
    Value &m_value;
};

/** Over a boolean node. */
class BooleanParam final : public ParamBase, public MoxGenParam::Boolean
{
public:
    using Value = GenApi::IBoolean;

    BooleanParam(ParamContext &context, GenApi::INode &node, Value &value)
        : ParamBase(context, node), m_value(value) { }

    int GetType() override { return MoxGenParam::TypeBoolean; }
    MoxCamErr SetValue(bool value) override;
    bool GetValue(MoxCamErr *err) override;

private:
    Value &m_value;
};

/** Over a command node. */
class CommandParam final : public ParamBase, public MoxGenParam::Command
{
public:
    using Value = GenApi::ICommand;

    CommandParam(ParamContext &context, GenApi::INode &node, Value &value)
        : ParamBase(context, node), m_value(value) { }

    int GetType() override { return MoxGenParam::TypeCommand; }
    MoxCamErr Execute() override;

private:
    Value &m_value;
};

/** Over a text node. */
class StringParam final : public ParamBase, public MoxGenParam::String
{
public:
    using Value = GenApi::IString;

    StringParam(ParamContext &context, GenApi::INode &node, Value &value) : ParamBase(context, node), m_value(value) { }

    int GetType() override { return MoxGenParam::TypeString; }
    const char *GetValue(MoxCamErr *err) override;

private:
    Value &m_value;
};

} // namespace MoxSdk

#endif
