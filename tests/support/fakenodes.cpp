#include "fakenodes.h"

#include <algorithm>
#include <cstdlib>
#include <string>

namespace MoxTest {

FakeNodeMap::~FakeNodeMap() = default;

void FakeNodeMap::GetNodes(GenApi::NodeList_t &nodes) const
{
    nodes.clear();
    for (const auto &node : m_nodes)
        nodes.push_back(node.get());
}

GenApi::INode *FakeNodeMap::GetNode(const GenApi::gcstring &name) const
{
    const GenApi::AutoLock lock(m_lock);
    if (lookupFault)
        lookupFault();
    for (const auto &node : m_nodes) {
        if (node->GetName(false) == name || node->GetName(true) == name)
            return node.get();
    }
    return nullptr;
}

void FakeNodeMap::InvalidateNodes() const
{
    const GenApi::AutoLock lock(m_lock);
    for (const auto &node : m_nodes)
        node->changed();
}

void FakeNodeMap::Poll(std::int64_t elapsedTime)
{
    const GenApi::AutoLock lock(m_lock);
    if (onPoll)
        onPoll(elapsedTime);
}

FakeNode::FakeNode(FakeNodeMap &map, const char *name, GenApi::EInterfaceType type)
    : displayName(name), principalInterface(type), m_map(map), m_name(name)
{ }

FakeNode::~FakeNode()
{
    for (GenApi::CNodeCallback *callback : m_callbacks)
        callback->Destroy();
}

void FakeNode::changed()
{
    const GenApi::AutoLock lock(m_map.GetLock());
    const std::vector<GenApi::CNodeCallback *> callbacks = m_callbacks;
    for (GenApi::CNodeCallback *callback : callbacks) {
        if (std::find(m_callbacks.begin(), m_callbacks.end(), callback) != m_callbacks.end()) {
            (*callback)(GenApi::cbPostInsideLock);
            (*callback)(GenApi::cbPostOutsideLock);
        }
    }
    for (FakeNode *dependent : dependents)
        dependent->changed();
}

GenApi::EAccessMode FakeNode::GetAccessMode() const
{
    return read(accessMode, Access::Mode);
}

GenApi::gcstring FakeNode::GetName(bool fullQualified) const
{
    return fullQualified ? GenApi::gcstring("Std::") + m_name : m_name;
}

GenApi::CallbackHandleType FakeNode::RegisterCallback(GenApi::CNodeCallback *callback)
{
    const GenApi::AutoLock lock(m_map.GetLock());
    m_callbacks.push_back(callback);
    return reinterpret_cast<GenApi::CallbackHandleType>(callback);
}

bool FakeNode::DeregisterCallback(GenApi::CallbackHandleType handle)
{
    const GenApi::AutoLock lock(m_map.GetLock());
    const auto found =
        std::find(m_callbacks.begin(), m_callbacks.end(), reinterpret_cast<GenApi::CNodeCallback *>(handle));
    if (found == m_callbacks.end())
        return false;
    m_callbacks.erase(found);
    return true;
}

GenApi::gcstring FakeNode::ToString(bool, bool)
{
    const GenApi::AutoLock lock(m_map.GetLock());
    enter(Access::Read);
    return text();
}

void FakeNode::FromString(const GenApi::gcstring &text, bool)
{
    write([&] { setText(text); });
}

void FakeNode::enter(Access access) const
{
    // Counting and failing belong to the test and not to the node's state.
    auto *self = const_cast<FakeNode *>(this);
    ++self->accesses[access];
    if (fault)
        fault(access);
    if ((access == Access::Read && !GenApi::IsReadable(accessMode))
        || (access == Access::Write && !GenApi::IsWritable(accessMode)))
        throw ACCESS_EXCEPTION("%s refuses the access", m_name.c_str());
}

GenApi::gcstring FakeNode::text() const
{
    return {};
}

void FakeNode::setText(const GenApi::gcstring &)
{
    throw LOGICAL_ERROR_EXCEPTION("%s takes no text", m_name.c_str());
}

void FakeInteger::SetValue(std::int64_t newValue, bool verify)
{
    write([&] {
        const auto distance = std::uint64_t(newValue) - std::uint64_t(min);
        if (verify && (newValue < min || newValue > max || distance % std::uint64_t(increment) != 0))
            throw OUT_OF_RANGE_EXCEPTION("%s cannot be %lld", GetName(false).c_str(), static_cast<long long>(newValue));
        value = newValue;
    });
}

GenApi::EIncMode FakeInteger::GetIncMode()
{
    return validValues.empty() ? GenApi::fixedIncrement : GenApi::listIncrement;
}

GenApi::gcstring FakeInteger::text() const
{
    return GenApi::gcstring(std::to_string(value));
}

void FakeInteger::setText(const GenApi::gcstring &text)
{
    char *end = nullptr;
    const long long number = std::strtoll(text.c_str(), &end, 0);
    if (text.empty() || *end)
        throw INVALID_ARGUMENT_EXCEPTION("%s is no number", text.c_str());
    value = number;
}

FakeEnumEntry &FakeEnumeration::addEntry(const char *symbolic, std::int64_t number)
{
    const std::string name = std::string("EnumEntry_") + GetName(false).c_str() + '_' + symbolic;
    auto &entry = m_map.add<FakeEnumEntry>(name.c_str());
    entry.symbolic = symbolic;
    entry.displayName = symbolic;
    entry.value = number;
    entries.push_back(&entry);
    return entry;
}

void FakeEnumeration::GetSymbolics(GenApi::StringList_t &symbolics)
{
    symbolics.clear();
    for (const FakeEnumEntry *entry : read(entries, Access::Limits))
        symbolics.push_back(entry->symbolic);
}

void FakeEnumeration::GetEntries(GenApi::NodeList_t &nodes)
{
    const std::vector<FakeEnumEntry *> list = read(entries, Access::Limits);
    nodes.assign(list.begin(), list.end());
}

void FakeEnumeration::SetIntValue(std::int64_t newValue, bool verify)
{
    write([&] {
        if (verify && !GetEntry(newValue))
            throw INVALID_ARGUMENT_EXCEPTION("%s has no such entry", GetName(false).c_str());
        value = newValue;
    });
}

GenApi::IEnumEntry *FakeEnumeration::GetEntryByName(const GenApi::gcstring &symbolic)
{
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const FakeEnumEntry *entry) { return entry->symbolic == symbolic; });
    return found == entries.end() ? nullptr : *found;
}

GenApi::IEnumEntry *FakeEnumeration::GetEntry(std::int64_t number)
{
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const FakeEnumEntry *entry) { return entry->value == number; });
    return found == entries.end() ? nullptr : *found;
}

GenApi::gcstring FakeEnumeration::text() const
{
    for (const FakeEnumEntry *entry : entries) {
        if (entry->value == value)
            return entry->symbolic;
    }
    return {};
}

void FakeEnumeration::setText(const GenApi::gcstring &text)
{
    GenApi::IEnumEntry *entry = GetEntryByName(text);
    if (!entry)
        throw INVALID_ARGUMENT_EXCEPTION("%s has no entry %s", GetName(false).c_str(), text.c_str());
    value = dynamic_cast<FakeEnumEntry *>(entry)->value;
}

} // namespace MoxTest
