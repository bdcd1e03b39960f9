#include "enumerationnode.h"

#include "evaluation.h"
#include "nodemap.h"
#include "numbers.h"

namespace MoxGenApi {

using namespace GenApi;

void EnumEntryNode::resolve()
{
    Node::resolve();
    m_number = parseInteger(m_description.text("Value")).value_or(0);
}

std::int64_t EnumEntryNode::GetValue()
{
    return m_number;
}

bool EnumEntryNode::IsSelfClearing()
{
    return m_description.text("IsSelfClearing") == "Yes";
}

std::int64_t EnumEntryNode::integer(bool)
{
    return m_number;
}

void EnumerationNode::resolve()
{
    Node::resolve();
    m_source.resolve(*this, [this](Role role, const std::string &name) { return link(role, name); });
    for (EnumEntryNode *entry : m_entries)
        link(Role::Entry, entry->description().name);
}

void EnumerationNode::forget()
{
    Node::forget();
    m_value.forget();
}

EnumEntryNode *EnumerationNode::entryOf(std::int64_t value) const
{
    for (EnumEntryNode *entry : m_entries) {
        if (entry->GetValue() == value)
            return entry;
    }
    return nullptr;
}

EnumEntryNode *EnumerationNode::entryNamed(const std::string &symbolic) const
{
    for (EnumEntryNode *entry : m_entries) {
        if (entry->symbolic() == symbolic)
            return entry;
    }
    return nullptr;
}

EnumEntryNode &EnumerationNode::checkedEntry(const std::string &symbolic) const
{
    if (EnumEntryNode *entry = entryNamed(symbolic))
        return *entry;
    throw INVALID_ARGUMENT_EXCEPTION("Node '%s' has no entry '%s'.", name(), symbolic.c_str());
}

std::int64_t EnumerationNode::integer(bool ignoreCache)
{
    if (const std::int64_t *known = m_value.find(ignoreCache, m_map.evaluation))
        return *known;
    Evaluation guard(*this, Evaluation::Value);
    const std::int64_t value = m_source.integer(ignoreCache);
    m_value.store(value, keepsValue, ignoreCache, m_map.evaluation);
    return value;
}

void EnumerationNode::setInteger(std::int64_t value, bool verify)
{
    EnumEntryNode *entry = entryOf(value);
    // No check can be left out here: there is no such state.
    if (!entry)
        throw INVALID_ARGUMENT_EXCEPTION("Node '%s' has no entry of the value %lld.", name(),
                                         static_cast<long long>(value));
    if (verify && !IsAvailable(entry->accessMode()))
        throw ACCESS_EXCEPTION("Node '%s': the entry '%s' is not available.", name(), entry->symbolic().c_str());
    Evaluation guard(*this, Evaluation::Write);
    m_map.touch(*this);
    if (entry->IsSelfClearing())
        m_map.discardWritten();
    m_source.setInteger(value, verify);
}

void EnumerationNode::setText(const std::string &text, bool verify)
{
    setInteger(checkedEntry(text).GetValue(), verify);
}

void EnumerationNode::GetSymbolics(StringList_t &symbolics)
{
    symbolics.clear();
    for (const EnumEntryNode *entry : m_entries)
        symbolics.push_back(entry->GetSymbolic());
}

void EnumerationNode::GetEntries(NodeList_t &entries)
{
    entries.assign(m_entries.begin(), m_entries.end());
}

void EnumerationNode::SetIntValue(std::int64_t value, bool verify)
{
    change([&] {
        if (verify)
            requireWritable();
        setInteger(value, verify);
    });
}

std::int64_t EnumerationNode::GetIntValue(bool verify, bool ignoreCache)
{
    AutoLock lock(m_map.GetLock());
    requireReadable();
    const std::int64_t value = integer(ignoreCache);
    if (verify && !entryOf(value))
        throw OUT_OF_RANGE_EXCEPTION("Node '%s': the device holds the value %lld, which is none of the entries.",
                                     name(), static_cast<long long>(value));
    return value;
}

IEnumEntry *EnumerationNode::GetEntryByName(const gcstring &symbolic)
{
    return entryNamed(std::string(symbolic.c_str()));
}

IEnumEntry *EnumerationNode::GetEntry(std::int64_t value)
{
    return entryOf(value);
}

IEnumEntry *EnumerationNode::GetCurrentEntry(bool verify, bool ignoreCache)
{
    return entryOf(GetIntValue(verify, ignoreCache));
}

std::string EnumerationNode::printed(bool ignoreCache)
{
    const std::int64_t value = integer(ignoreCache);
    if (const EnumEntryNode *entry = entryOf(value))
        return entry->symbolic();
    throw OUT_OF_RANGE_EXCEPTION("Node '%s': the device holds the value %lld, which is none of the entries.", name(),
                                 static_cast<long long>(value));
}

void EnumerationNode::setPrinted(const std::string &text, bool verify)
{
    change([&] {
        if (verify)
            requireWritable();
        setText(text, verify);
    });
}

std::int64_t entryValue(Node &node, const std::string &symbolic)
{
    const auto *enumeration = dynamic_cast<EnumerationNode *>(&node);
    const EnumEntryNode *entry = enumeration ? enumeration->entryNamed(symbolic) : nullptr;
    if (!entry)
        throw RUNTIME_EXCEPTION("Node '%s' has no entry '%s' that a formula could use.", node.name(), symbolic.c_str());
    return const_cast<EnumEntryNode *>(entry)->GetValue();
}

} // namespace MoxGenApi
