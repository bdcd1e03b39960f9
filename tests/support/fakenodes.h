// Nodes made by hand, with their state in the open.
#ifndef MOX_FAKENODES_H
#define MOX_FAKENODES_H

#include <GenApi/GenApi.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <string>

namespace MoxTest {

/** What an access of a fake node is about. */
enum class Access { Mode, Read, Limits, Write };

/** What all fakes have. Change the members as the test needs; `changed` tells the callbacks. */
class FakeNode : public virtual GenApi::INode, public virtual GenApi::IValue, public virtual GenApi::ISelector
{
public:
    FakeNode(GenApi::INodeMap &map, const char *name, GenApi::EInterfaceType type = GenApi::intfIValue)
        : displayName(name), principalInterface(type), m_map(map), m_name(name)
    { }
    ~FakeNode() override
    {
        for (GenApi::CNodeCallback *callback : m_callbacks)
            callback->Destroy();
    }

    GenApi::EAccessMode accessMode = GenApi::RW;
    GenApi::EVisibility visibility = GenApi::Beginner;
    GenApi::gcstring displayName;
    GenApi::gcstring toolTip;
    GenApi::gcstring description;
    bool feature = true;
    GenApi::EInterfaceType principalInterface;
    GenApi::NodeList_t children;
    /** Nodes whose callbacks fire with this one's. */
    std::vector<FakeNode *> dependents;
    /** Runs in each access with the lock held; what it throws comes out there. */
    std::function<void(Access)> fault;
    std::map<Access, int> accesses;

    /** Fires the callbacks of this node, then those of its dependents. */
    void changed()
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
    std::size_t callbackCount() const { return m_callbacks.size(); }

    GenApi::EAccessMode GetAccessMode() const override { return read(accessMode, Access::Mode); }
    GenApi::gcstring GetName(bool full) const override { return full ? GenApi::gcstring("Std::") + m_name : m_name; }
    GenApi::EVisibility GetVisibility() const override { return visibility; }
    void InvalidateNode() override { changed(); }
    bool IsCachable() const override { return true; }
    GenApi::ECachingMode GetCachingMode() const override { return GenApi::WriteThrough; }
    std::int64_t GetPollingTime() const override { return -1; }
    GenApi::gcstring GetToolTip() const override { return toolTip; }
    GenApi::gcstring GetDescription() const override { return {}; }
    GenApi::gcstring GetDisplayName() const override { return displayName; }
    GenApi::gcstring GetDeviceName() const override { return m_map.GetDeviceName(); }
    void GetChildren(GenApi::NodeList_t &list) const override { list.clear(); }
    void GetParents(GenApi::NodeList_t &list) const override { list.clear(); }
    GenApi::INodeMap *GetNodeMap() const override { return &m_map; }
    bool IsStreamable() const override { return false; }
    bool IsDeprecated() const override { return false; }
    bool IsFeature() const override { return true; }
    GenApi::EInterfaceType GetPrincipalInterfaceType() const override { return principalInterface; }
    GenApi::CallbackHandleType RegisterCallback(GenApi::CNodeCallback *callback) override
    {
        const GenApi::AutoLock lock(m_map.GetLock());
        m_callbacks.push_back(callback);
        return reinterpret_cast<GenApi::CallbackHandleType>(callback);
    }
    bool DeregisterCallback(GenApi::CallbackHandleType handle) override
    {
        const GenApi::AutoLock lock(m_map.GetLock());
        const auto found =
            std::find(m_callbacks.begin(), m_callbacks.end(), reinterpret_cast<GenApi::CNodeCallback *>(handle));
        if (found == m_callbacks.end())
            return false;
        m_callbacks.erase(found);
        return true;
    }

    GenApi::INode *GetNode() override { return this; }
    GenApi::gcstring ToString(bool, bool) override
    {
        const GenApi::AutoLock lock(m_map.GetLock());
        enter(Access::Read);
        return text();
    }
    void FromString(const GenApi::gcstring &text, bool) override
    {
        write([&] { setText(text); });
    }
    bool IsValueCacheValid() const override { return true; }

    bool IsSelector() const override { return false; }
    void GetSelectedFeatures(GenApi::FeatureList_t &features) const override { features.clear(); }
    void GetSelectingFeatures(GenApi::FeatureList_t &features) const override { features.clear(); }

protected:
    /** Every access passes here: counts, runs the fault, and refuses what the access mode forbids. */
    void enter(Access access) const
    {
        // Counting and failing belong to the test and not to the node's state.
        ++const_cast<FakeNode *>(this)->accesses[access];
        if (fault)
            fault(access);
        if ((access == Access::Read && !GenApi::IsReadable(accessMode))
            || (access == Access::Write && !GenApi::IsWritable(accessMode)))
            throw ACCESS_EXCEPTION("%s refuses the access", m_name.c_str());
    }
    /** The value as text and back, without locks and checks. */
    virtual GenApi::gcstring text() const { return {}; }
    virtual void setText(const GenApi::gcstring &)
    {
        throw LOGICAL_ERROR_EXCEPTION("%s takes no text", m_name.c_str());
    }

    /** Reads a member as an access of that kind. */
    template<class Value> Value read(const Value &value, Access access = Access::Read) const
    {
        const GenApi::AutoLock lock(m_map.GetLock());
        enter(access);
        return value;
    }
    /** Runs a write, then fires the callbacks. */
    template<class Change> void write(Change change)
    {
        const GenApi::AutoLock lock(m_map.GetLock());
        enter(Access::Write);
        change();
        changed();
    }

    GenApi::INodeMap &m_map;
    const GenApi::gcstring m_name;

private:
    std::vector<GenApi::CNodeCallback *> m_callbacks;
};

/** Owns its nodes and their order. */
class FakeNodeMap : public GenApi::INodeMap
{
public:
    /** Makes a node of the given fake class. */
    template<class Node> Node &add(const char *name)
    {
        auto node = std::make_unique<Node>(*this, name);
        Node &made = *node;
        m_nodes.push_back(std::move(node));
        return made;
    }

    void GetNodes(GenApi::NodeList_t &nodes) const override
    {
        nodes.clear();
        for (const auto &node : m_nodes)
            nodes.push_back(node.get());
    }
    GenApi::INode *GetNode(const GenApi::gcstring &name) const override
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
    std::uint64_t GetNumNodes() const override { return m_nodes.size(); }
    GenApi::gcstring GetDeviceName() const override { return "Fake"; }
    void InvalidateNodes() const override
    {
        const GenApi::AutoLock lock(m_lock);
        for (const auto &node : m_nodes)
            node->changed();
    }
    void Poll(std::int64_t elapsedTime) override
    {
        const GenApi::AutoLock lock(m_lock);
        if (onPoll)
            onPoll(elapsedTime);
    }
    GenApi::CLock &GetLock() const override { return m_lock; }

    /** Runs with the lock held in a lookup; what it throws comes out there. */
    std::function<void()> lookupFault;
    /** Runs with the lock held in each poll. */
    std::function<void(std::int64_t elapsedTime)> onPoll;

private:
    mutable GenApi::CLock m_lock;
    std::vector<std::unique_ptr<FakeNode>> m_nodes;
};

/** A kind of node; the map that makes it owns it. */
template<class Interface, GenApi::EInterfaceType type, GenApi::EAccessMode mode = GenApi::RW>
class FakeNodeOf : public FakeNode, public virtual Interface
{
public:
    FakeNodeOf(FakeNodeMap &itsMap, const char *name) : FakeNode(itsMap, name, type), map(itsMap) { accessMode = mode; }

protected:
    FakeNodeMap &map;
};

class FakeInteger : public FakeNodeOf<GenApi::IInteger, GenApi::intfIInteger>
{
public:
    using FakeNodeOf::FakeNodeOf;

    std::int64_t value = 0;
    std::int64_t min = 0;
    std::int64_t max = 100;
    std::int64_t increment = 1;
    std::vector<std::int64_t> validValues;

    void SetValue(std::int64_t newValue, bool verify) override
    {
        write([&] {
            const auto distance = std::uint64_t(newValue) - std::uint64_t(min);
            if (verify && (newValue < min || newValue > max || distance % std::uint64_t(increment) != 0))
                throw OUT_OF_RANGE_EXCEPTION("%s cannot be %lld", m_name.c_str(), static_cast<long long>(newValue));
            value = newValue;
        });
    }
    std::int64_t GetValue(bool, bool) override { return read(value); }
    std::int64_t GetMin() override { return read(min, Access::Limits); }
    std::int64_t GetMax() override { return read(max, Access::Limits); }
    GenApi::EIncMode GetIncMode() override
    {
        return validValues.empty() ? GenApi::fixedIncrement : GenApi::listIncrement;
    }
    std::int64_t GetInc() override { return read(increment, Access::Limits); }
    GenApi::int64_autovector_t GetListOfValidValues(bool) override { return GenApi::int64_autovector_t(validValues); }
    GenApi::ERepresentation GetRepresentation() override { return GenApi::PureNumber; }
    GenApi::gcstring GetUnit() override { return {}; }

protected:
    GenApi::gcstring text() const override { return GenApi::gcstring(std::to_string(value)); }
    void setText(const GenApi::gcstring &text) override
    {
        char *end = nullptr;
        const long long number = std::strtoll(text.c_str(), &end, 0);
        if (text.empty() || *end)
            throw INVALID_ARGUMENT_EXCEPTION("%s is no number", text.c_str());
        value = number;
    }
};

class FakeBoolean : public FakeNodeOf<GenApi::IBoolean, GenApi::intfIBoolean>
{
public:
    using FakeNodeOf::FakeNodeOf;

    bool value = false;

    void SetValue(bool newValue, bool) override
    {
        write([&] { value = newValue; });
    }
    bool GetValue(bool, bool) const override { return read(value); }

protected:
    GenApi::gcstring text() const override { return value ? "1" : "0"; }
    void setText(const GenApi::gcstring &text) override { value = text == "1" || text == "true"; }
};

class FakeCommand : public FakeNodeOf<GenApi::ICommand, GenApi::intfICommand, GenApi::WO>
{
public:
    using FakeNodeOf::FakeNodeOf;

    int executions = 0;

    void Execute(bool) override
    {
        write([this] { ++executions; });
    }
    bool IsDone(bool) override { return read(true); }
};

class FakeString : public FakeNodeOf<GenApi::IString, GenApi::intfIString>
{
public:
    using FakeNodeOf::FakeNodeOf;

    GenApi::gcstring value;
    std::int64_t maxLength = 16;

    void SetValue(const GenApi::gcstring &newValue, bool) override
    {
        write([&] { value = newValue; });
    }
    GenApi::gcstring GetValue(bool, bool) override { return read(value); }
    std::int64_t GetMaxLength() override { return read(maxLength, Access::Limits); }

protected:
    GenApi::gcstring text() const override { return value; }
    void setText(const GenApi::gcstring &text) override { value = text; }
};

class FakeEnumEntry : public FakeNodeOf<GenApi::IEnumEntry, GenApi::intfIEnumEntry, GenApi::RO>
{
public:
    using FakeNodeOf::FakeNodeOf;

    std::int64_t value = 0;
    GenApi::gcstring symbolic;

    std::int64_t GetValue() override { return read(value, Access::Limits); }
    GenApi::gcstring GetSymbolic() const override { return read(symbolic, Access::Limits); }
    bool IsSelfClearing() override { return false; }

protected:
    GenApi::gcstring text() const override { return symbolic; }
};

class FakeEnumeration : public FakeNodeOf<GenApi::IEnumeration, GenApi::intfIEnumeration>
{
public:
    using FakeNodeOf::FakeNodeOf;

    std::int64_t value = 0;
    std::vector<FakeEnumEntry *> entries;

    FakeEnumEntry &addEntry(const char *symbolic, std::int64_t number)
    {
        const std::string name = std::string("EnumEntry_") + m_name.c_str() + '_' + symbolic;
        auto &entry = map.add<FakeEnumEntry>(name.c_str());
        entry.symbolic = symbolic;
        entry.displayName = symbolic;
        entry.value = number;
        entries.push_back(&entry);
        return entry;
    }

    void GetSymbolics(GenApi::StringList_t &symbolics) override
    {
        symbolics.clear();
        for (const FakeEnumEntry *entry : read(entries, Access::Limits))
            symbolics.push_back(entry->symbolic);
    }
    void GetEntries(GenApi::NodeList_t &nodes) override
    {
        const std::vector<FakeEnumEntry *> list = read(entries, Access::Limits);
        nodes.assign(list.begin(), list.end());
    }
    void SetIntValue(std::int64_t newValue, bool verify) override
    {
        write([&] {
            if (verify && !GetEntry(newValue))
                throw INVALID_ARGUMENT_EXCEPTION("%s has no such entry", m_name.c_str());
            value = newValue;
        });
    }
    std::int64_t GetIntValue(bool, bool) override { return read(value); }
    GenApi::IEnumEntry *GetEntryByName(const GenApi::gcstring &symbolic) override
    {
        return find([&](const FakeEnumEntry *entry) { return entry->symbolic == symbolic; });
    }
    GenApi::IEnumEntry *GetEntry(std::int64_t number) override
    {
        return find([&](const FakeEnumEntry *entry) { return entry->value == number; });
    }
    GenApi::IEnumEntry *GetCurrentEntry(bool, bool) override { return GetEntry(read(value)); }

protected:
    GenApi::gcstring text() const override
    {
        const FakeEnumEntry *entry = find([this](const FakeEnumEntry *each) { return each->value == value; });
        return entry ? entry->symbolic : GenApi::gcstring();
    }
    void setText(const GenApi::gcstring &text) override
    {
        const FakeEnumEntry *entry = find([&](const FakeEnumEntry *each) { return each->symbolic == text; });
        if (!entry)
            throw INVALID_ARGUMENT_EXCEPTION("%s has no entry %s", m_name.c_str(), text.c_str());
        value = entry->value;
    }

private:
    template<class Wanted> FakeEnumEntry *find(Wanted wanted) const
    {
        const auto found = std::find_if(entries.begin(), entries.end(), wanted);
        return found == entries.end() ? nullptr : *found;
    }
};

class FakeCategory : public FakeNodeOf<GenApi::ICategory, GenApi::intfICategory, GenApi::RO>
{
public:
    using FakeNodeOf::FakeNodeOf;

    GenApi::FeatureList_t features;

    void GetFeatures(GenApi::FeatureList_t &list) const override { list = features; }
};

/** The way to the camera; give it the access mode NA to lose the camera. */
class FakePort : public FakeNodeOf<GenApi::IPort, GenApi::intfIPort>
{
public:
    using FakeNodeOf::FakeNodeOf;

    void Read(void *, std::int64_t, std::int64_t) override { enter(Access::Read); }
    void Write(const void *, std::int64_t, std::int64_t) override { enter(Access::Write); }
};

} // namespace MoxTest

#endif
