// An enumeration and its entries.
#ifndef MOXSDK_ENUMPARAM_H
#define MOXSDK_ENUMPARAM_H

#include "param.h"

#include <vector>

namespace MoxSdk {

/** Over the node of one entry. Owned by the enumeration. */
class EnumEntryParam final : public ParamBase, public MoxGenParam::EnumEntry
{
public:
    EnumEntryParam(ParamContext &context, GenApi::INode &node, GenApi::IEnumEntry &entry)
        : ParamBase(context, node), m_entry(entry)
    { }

    int GetType() override { return MoxGenParam::TypeEnumEntry; }
    std::int64_t GetValue(MoxCamErr *err) override;
    const char *GetValueStr(MoxCamErr *err) override;

private:
    GenApi::IEnumEntry &m_entry;
};

/** Over an enumeration node. */
class EnumParam final : public ParamBase, public MoxGenParam::Enum
{
public:
    using Value = GenApi::IEnumeration;

    EnumParam(ParamContext &context, GenApi::INode &node, Value &value) : ParamBase(context, node), m_value(value) { }

    int GetType() override { return MoxGenParam::TypeEnum; }
    std::uint64_t GetEnumEntriesCount(MoxCamErr *err) override;
    MoxGenParam::EnumEntry *GetEnumEntryByIndex(std::uint64_t index, MoxCamErr *err) override;
    std::int64_t GetValue(MoxCamErr *err) override;
    const char *GetValueStr(MoxCamErr *err) override;
    MoxCamErr SetValue(std::int64_t value) override;
    MoxCamErr SetValueStr(const char *value) override;

private:
    const std::vector<std::unique_ptr<EnumEntryParam>> &entries();

    Value &m_value;
    std::vector<std::unique_ptr<EnumEntryParam>> m_entries; // made when first asked for
};

} // namespace MoxSdk

#endif
