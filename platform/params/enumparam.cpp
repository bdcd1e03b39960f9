#include "enumparam.h"

namespace MoxSdk {

std::int64_t EnumEntryParam::GetValue(MoxCamErr *err)
{
    return read(err, [this] { return m_entry.GetValue(); });
}

const char *EnumEntryParam::GetValueStr(MoxCamErr *err)
{
    return readText(err, [this] { return m_entry.GetSymbolic(); });
}

std::uint64_t EnumParam::GetEnumEntriesCount(MoxCamErr *err)
{
    return read(err, [this] { return std::uint64_t(entries().size()); });
}

MoxGenParam::EnumEntry *EnumParam::GetEnumEntryByIndex(std::uint64_t index, MoxCamErr *err)
{
    return read(err, [&]() -> MoxGenParam::EnumEntry * {
        const auto &all = entries();
        if (index >= all.size())
            throw INVALID_ARGUMENT_EXCEPTION("%s has no entry with that index", GetName());
        return all[index].get();
    });
}

std::int64_t EnumParam::GetValue(MoxCamErr *err)
{
    return read(err, [this] { return m_value.GetIntValue(); });
}

const char *EnumParam::GetValueStr(MoxCamErr *err)
{
    return readText(err, [this] {
        const GenApi::IEnumEntry *entry = m_value.GetCurrentEntry();
        if (!entry)
            throw OUT_OF_RANGE_EXCEPTION("%s holds a number that none of its entries has", GetName());
        return entry->GetSymbolic();
    });
}

MoxCamErr EnumParam::SetValue(std::int64_t value)
{
    return write([&] { m_value.SetIntValue(value); });
}

MoxCamErr EnumParam::SetValueStr(const char *value)
{
    return write([&] { m_value.FromString(value); });
}

/** The entries in the description's order; they stay the same for the life of the node map. */
const std::vector<std::unique_ptr<EnumEntryParam>> &EnumParam::entries()
{
    const GenApi::AutoLock lock(m_context.nodeMap.GetLock());
    if (m_entries.empty()) {
        GenApi::NodeList_t nodes;
        m_value.GetEntries(nodes);
        std::vector<std::unique_ptr<EnumEntryParam>> made;
        for (GenApi::INode *node : nodes) {
            if (auto *entry = dynamic_cast<GenApi::IEnumEntry *>(node))
                made.push_back(std::make_unique<EnumEntryParam>(m_context, *node, *entry));
        }
        m_entries = std::move(made);
    }
    return m_entries;
}

} // namespace MoxSdk
