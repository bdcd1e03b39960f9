// Nodes made by hand, with their state in the open.
#ifndef MOX_FAKENODES_H
#define MOX_FAKENODES_H

#include <GenApi/GenApi.h>

#include <functional>
#include <map>
#include <memory>

namespace MoxTest {

class FakeNode;

/** Owns its nodes and their order. */
class FakeNodeMap : public GenApi::INodeMap
{
public:
    ~FakeNodeMap() override;

    /** Makes a node of the given fake class. */
    template<class Node> Node &add(const char *name)
    {
        auto node = std::make_unique<Node>(*this, name);
        Node &made = *node;
        m_nodes.push_back(std::move(node));
        return made;
    }

    void GetNodes(GenApi::NodeList_t &nodes) const override;
    GenApi::INode *GetNode(const GenApi::gcstring &name) const override;
    std::uint64_t GetNumNodes() const override { return m_nodes.size(); }
    GenApi::gcstring GetDeviceName() const override { return "Fake"; }
    void InvalidateNodes() const override;
    void Poll(std::int64_t elapsedTime) override;
    GenApi::CLock &GetLock() const override { return m_lock; }

    /** Runs with the lock held in a lookup; what it throws comes out there. */
    std::function<void()> lookupFault;
    /** Runs with the lock held in each poll. */
    std::function<void(std::int64_t elapsedTime)> onPoll;

private:
    mutable GenApi::CLock m_lock;
    std::vector<std::unique_ptr<FakeNode>> m_nodes;
};

/** What an access of a fake node is about. */
enum class Access { Mode, Read, Limits, Write };

/** What all fakes have. Change the members as the test needs; `changed` tells the callbacks. */
class FakeNode : public virtual GenApi::INode, public virtual GenApi::IValue, public virtual GenApi::ISelector
{
public:
    FakeNode(FakeNodeMap &map, const char *name, GenApi::EInterfaceType type = GenApi::intfIValue);
    ~FakeNode() override;

    GenApi::EAccessMode accessMode = GenApi::RW;
    GenApi::EVisibility visibility = GenApi::Beginner;
    GenApi::ECachingMode cachingMode = GenApi::WriteThrough;
    std::int64_t pollingTime = -1;
    GenApi::gcstring displayName;
    GenApi::gcstring toolTip;
    GenApi::gcstring description;
    bool feature = true;
    bool streamable = false;
    bool deprecated = false;
    GenApi::EInterfaceType principalInterface;
    GenApi::NodeList_t children;
    GenApi::NodeList_t parents;
    GenApi::FeatureList_t selected;
    GenApi::FeatureList_t selecting;
    /** Nodes whose callbacks fire with this one's. */
    std::vector<FakeNode *> dependents;
    /** Runs in each access with the lock held; what it throws comes out there. */
    std::function<void(Access)> fault;
    std::map<Access, int> accesses;

    /** Fires the callbacks of this node, then those of its dependents. */
    void changed();
    std::size_t callbackCount() const { return m_callbacks.size(); }

    GenApi::EAccessMode GetAccessMode() const override;
    GenApi::gcstring GetName(bool fullQualified) const override;
    GenApi::EVisibility GetVisibility() const override { return visibility; }
    void InvalidateNode() override { changed(); }
    bool IsCachable() const override { return cachingMode != GenApi::NoCache; }
    GenApi::ECachingMode GetCachingMode() const override { return cachingMode; }
    std::int64_t GetPollingTime() const override { return pollingTime; }
    GenApi::gcstring GetToolTip() const override { return toolTip; }
    GenApi::gcstring GetDescription() const override { return description; }
    GenApi::gcstring GetDisplayName() const override { return displayName; }
    GenApi::gcstring GetDeviceName() const override { return m_map.GetDeviceName(); }
    void GetChildren(GenApi::NodeList_t &list) const override { list = children; }
    void GetParents(GenApi::NodeList_t &list) const override { list = parents; }
    GenApi::INodeMap *GetNodeMap() const override { return &m_map; }
    bool IsStreamable() const override { return streamable; }
    bool IsDeprecated() const override { return deprecated; }
    bool IsFeature() const override { return feature; }
    GenApi::EInterfaceType GetPrincipalInterfaceType() const override { return principalInterface; }
    GenApi::CallbackHandleType RegisterCallback(GenApi::CNodeCallback *callback) override;
    bool DeregisterCallback(GenApi::CallbackHandleType handle) override;

    GenApi::INode *GetNode() override { return this; }
    GenApi::gcstring ToString(bool verify, bool ignoreCache) override;
    void FromString(const GenApi::gcstring &text, bool verify) override;
    bool IsValueCacheValid() const override { return IsCachable(); }

    bool IsSelector() const override { return !selected.empty(); }
    void GetSelectedFeatures(GenApi::FeatureList_t &features) const override { features = selected; }
    void GetSelectingFeatures(GenApi::FeatureList_t &features) const override { features = selecting; }

protected:
    /** Every access passes here: counts, runs the fault, and refuses what the access mode forbids. */
    void enter(Access access) const;
    /** The value as text and back, without locks and checks. */
    virtual GenApi::gcstring text() const;
    virtual void setText(const GenApi::gcstring &text);

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

    FakeNodeMap &m_map;

private:
    const GenApi::gcstring m_name;
    std::vector<GenApi::CNodeCallback *> m_callbacks;
};

class FakeInteger : public FakeNode, public virtual GenApi::IInteger
{
public:
    FakeInteger(FakeNodeMap &map, const char *name) : FakeNode(map, name, GenApi::intfIInteger) { }

    std::int64_t value = 0;
    std::int64_t min = 0;
    std::int64_t max = 100;
    std::int64_t increment = 1;
    std::vector<std::int64_t> validValues;
    GenApi::ERepresentation representation = GenApi::PureNumber;
    GenApi::gcstring unit;

    void SetValue(std::int64_t newValue, bool verify) override;
    std::int64_t GetValue(bool, bool) override { return read(value); }
    std::int64_t GetMin() override { return read(min, Access::Limits); }
    std::int64_t GetMax() override { return read(max, Access::Limits); }
    GenApi::EIncMode GetIncMode() override;
    std::int64_t GetInc() override { return read(increment, Access::Limits); }
    GenApi::int64_autovector_t GetListOfValidValues(bool) override { return GenApi::int64_autovector_t(validValues); }
    GenApi::ERepresentation GetRepresentation() override { return representation; }
    GenApi::gcstring GetUnit() override { return unit; }

protected:
    GenApi::gcstring text() const override;
    void setText(const GenApi::gcstring &text) override;
};

class FakeBoolean : public FakeNode, public virtual GenApi::IBoolean
{
public:
    FakeBoolean(FakeNodeMap &map, const char *name) : FakeNode(map, name, GenApi::intfIBoolean) { }

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

class FakeCommand : public FakeNode, public virtual GenApi::ICommand
{
public:
    FakeCommand(FakeNodeMap &map, const char *name) : FakeNode(map, name, GenApi::intfICommand)
    {
        accessMode = GenApi::WO;
    }

    int executions = 0;
    bool done = true;

    void Execute(bool) override
    {
        write([this] { ++executions; });
    }
    bool IsDone(bool) override { return read(done); }
};

class FakeString : public FakeNode, public virtual GenApi::IString
{
public:
    FakeString(FakeNodeMap &map, const char *name) : FakeNode(map, name, GenApi::intfIString) { }

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

class FakeEnumEntry : public FakeNode, public virtual GenApi::IEnumEntry
{
public:
    FakeEnumEntry(FakeNodeMap &map, const char *name) : FakeNode(map, name, GenApi::intfIEnumEntry)
    {
        accessMode = GenApi::RO;
    }

    std::int64_t value = 0;
    GenApi::gcstring symbolic;

    std::int64_t GetValue() override { return read(value, Access::Limits); }
    GenApi::gcstring GetSymbolic() const override { return read(symbolic, Access::Limits); }
    bool IsSelfClearing() override { return false; }

protected:
    GenApi::gcstring text() const override { return symbolic; }
};

class FakeEnumeration : public FakeNode, public virtual GenApi::IEnumeration
{
public:
    FakeEnumeration(FakeNodeMap &map, const char *name) : FakeNode(map, name, GenApi::intfIEnumeration) { }

    std::int64_t value = 0;
    std::vector<FakeEnumEntry *> entries;

    FakeEnumEntry &addEntry(const char *symbolic, std::int64_t number);

    void GetSymbolics(GenApi::StringList_t &symbolics) override;
    void GetEntries(GenApi::NodeList_t &nodes) override;
    void SetIntValue(std::int64_t newValue, bool verify) override;
    std::int64_t GetIntValue(bool, bool) override { return read(value); }
    GenApi::IEnumEntry *GetEntryByName(const GenApi::gcstring &symbolic) override;
    GenApi::IEnumEntry *GetEntry(std::int64_t number) override;
    GenApi::IEnumEntry *GetCurrentEntry(bool, bool) override { return GetEntry(read(value)); }

protected:
    GenApi::gcstring text() const override;
    void setText(const GenApi::gcstring &text) override;
};

class FakeCategory : public FakeNode, public virtual GenApi::ICategory
{
public:
    FakeCategory(FakeNodeMap &map, const char *name) : FakeNode(map, name, GenApi::intfICategory)
    {
        accessMode = GenApi::RO;
    }

    GenApi::FeatureList_t features;

    void GetFeatures(GenApi::FeatureList_t &list) const override { list = features; }
};

/** The way to the camera; give it the access mode NA to lose the camera. */
class FakePort : public FakeNode, public virtual GenApi::IPort
{
public:
    FakePort(FakeNodeMap &map, const char *name) : FakeNode(map, name, GenApi::intfIPort) { }

    void Read(void *, std::int64_t, std::int64_t) override { enter(Access::Read); }
    void Write(const void *, std::int64_t, std::int64_t) override { enter(Access::Write); }
};

} // namespace MoxTest

#endif
