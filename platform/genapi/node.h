// What all nodes share: texts, links, access mode, callbacks, and how one node uses another.
#ifndef MOXGENAPI_NODE_H
#define MOXGENAPI_NODE_H

#include "description.h"
#include "kept.h"

#include <GenApi/GenApi.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace MoxGenApi {

class NodeMap;
class Node;

/** What a node uses another one for; it decides what a change of the other makes stale. */
enum class Role {
    Value, // holds this node's value: pValue and its indexed kin
    Operand, // is needed to find the value: variables, addresses, indexes, lengths
    Condition, // pIsImplemented, pIsAvailable, pIsLocked
    Limit, // pMin, pMax, pInc
    Port, // pPort
    Selector, // the node that selects this one
    Invalidator, // pInvalidator
    Entry, // an entry of this enumeration
    Mention // any other reference: it never makes anything stale
};

struct Link
{
    Role role;
    Node *target;
};

/**
 * One node of the map, which owns it. The interface functions may be called from any thread and take the map's lock;
 * the lower-case functions are how nodes use each other, with the lock held.
 *
 * What a node has found out it keeps until `forget`, as far as nothing that it depends on forbids it. The base class
 * is also the node of no particular kind: it has texts and an access mode, and no value.
 */
class Node : public virtual GenApi::INode, public virtual GenApi::IValue, public virtual GenApi::ISelector
{
public:
    Node(NodeMap &map, const NodeDescription &description, std::size_t position);
    ~Node() override;
    Node(const Node &) = delete;
    Node &operator=(const Node &) = delete;

    // INode
    GenApi::EAccessMode GetAccessMode() const override;
    GenApi::gcstring GetName(bool fullQualified) const override;
    GenApi::EVisibility GetVisibility() const override { return m_visibility; }
    void InvalidateNode() override;
    bool IsCachable() const override;
    GenApi::ECachingMode GetCachingMode() const override { return m_cachingMode; }
    std::int64_t GetPollingTime() const override { return m_pollingTime; }
    GenApi::gcstring GetToolTip() const override;
    GenApi::gcstring GetDescription() const override;
    GenApi::gcstring GetDisplayName() const override;
    GenApi::gcstring GetDeviceName() const override;
    void GetChildren(GenApi::NodeList_t &children) const override;
    void GetParents(GenApi::NodeList_t &parents) const override;
    GenApi::INodeMap *GetNodeMap() const override;
    bool IsStreamable() const override;
    bool IsDeprecated() const override;
    bool IsFeature() const override { return m_isFeature; }
    GenApi::EInterfaceType GetPrincipalInterfaceType() const override { return GenApi::intfIValue; }
    GenApi::CallbackHandleType RegisterCallback(GenApi::CNodeCallback *callback) override;
    bool DeregisterCallback(GenApi::CallbackHandleType handle) override;

    // IValue
    GenApi::INode *GetNode() override { return this; }
    GenApi::gcstring ToString(bool verify, bool ignoreCache) override;
    void FromString(const GenApi::gcstring &text, bool verify) override;
    bool IsValueCacheValid() const override;

    // ISelector
    bool IsSelector() const override;
    void GetSelectedFeatures(GenApi::FeatureList_t &features) const override;
    void GetSelectingFeatures(GenApi::FeatureList_t &features) const override;

    const char *name() const { return m_description.name.c_str(); }
    const NodeDescription &description() const { return m_description; }
    NodeMap &map() const { return m_map; }
    std::size_t position() const { return m_position; }
    const std::vector<Link> &links() const { return m_links; }

    /** Finds the nodes that the description refers to. Called once, when all nodes exist. */
    virtual void resolve();

    /** Access mode of now: the description's part, kept, and the port's, asked each time. */
    GenApi::EAccessMode accessMode();
    void requireReadable();
    void requireWritable();

    // The value, for the node's own interface and for the nodes above. Kinds without such a value throw.
    virtual std::int64_t integer(bool ignoreCache);
    virtual double real(bool ignoreCache);
    virtual std::string text(bool ignoreCache);
    virtual void setInteger(std::int64_t value, bool verify);
    virtual void setReal(double value, bool verify);
    virtual void setText(const std::string &text, bool verify);

    // Limits and presentation, for the nodes above that declare none.
    virtual std::int64_t integerMin();
    virtual std::int64_t integerMax();
    virtual std::int64_t integerInc() { return 1; }
    virtual double realMin();
    virtual double realMax();
    virtual std::int64_t textMax();
    virtual GenApi::ERepresentation representation() { return GenApi::_UndefinedRepresentation; }
    virtual std::string unit() { return m_description.text("Unit"); }
    virtual const std::vector<std::int64_t> *validIntegers() { return nullptr; }
    virtual const std::vector<double> *validReals() { return nullptr; }
    /** Whether the value is a floating point number. */
    virtual bool isReal() const { return false; }

    /** Drops what is kept of value, limits and access mode. */
    virtual void forget();
    /** Ends a write that this node took part in; with @p keep what was written may stay known. */
    virtual void settle(bool keep);

    // Filled in by the analysis of the dependencies, constant from then on.
    std::vector<Node *> dependents; // nodes that go stale with this one
    std::vector<Node *> prompted; // those of them that go stale down to the device: invalidated or selected by this one
    std::vector<Node *> parents; // nodes that refer to this one
    std::vector<Node *> selecting; // selectors of this one
    bool keepsValue = true;
    bool keepsOperands = true;
    bool keepsLimits = true;
    bool keepsMode = true;
    bool usesPort = false; // the value ends in a register of the device

    /** One registered callback; the serial tells it from a later one at the same address. */
    struct Registration
    {
        GenApi::CNodeCallback *callback;
        std::uint64_t serial;
        GenApi::ECallbackType type;
    };
    const std::vector<Registration> &callbacks() const { return m_callbacks; }
    bool isRegistered(const Registration &registration) const;

protected:
    friend class Evaluation;

    /** The node of that name, entered among the links; null, and tolerated, when there is none. */
    Node *link(Role role, const std::string &name);
    Node *linkTo(Role role, const char *tag);

    /** The mode of what holds the value, before the node's own restrictions. */
    virtual GenApi::EAccessMode sourceMode() { return GenApi::RO; }
    virtual GenApi::EAccessMode defaultImposedMode() const { return GenApi::RW; }
    /** RO when each operand can be read, else NA. */
    GenApi::EAccessMode operandMode();
    virtual bool isValueKept() const { return false; }

    /** The text form that `ToString` and `FromString` speak; the latter runs without the lock and takes it itself. */
    virtual std::string printed(bool ignoreCache);
    virtual void setPrinted(const std::string &text, bool verify);

    /** Runs a write as one change: caches and callbacks follow when it has ended. */
    template<class Action> void change(Action action);

    NodeMap &m_map;
    const NodeDescription &m_description;
    bool m_isFeature = false;
    bool m_hasBrokenOperand = false;

private:
    friend class Dependencies;

    GenApi::EAccessMode describedMode();
    GenApi::EAccessMode computeMode();
    std::optional<bool> condition(Node *node);

    const std::size_t m_position;
    std::vector<Link> m_links;
    std::vector<Node *> m_selected;
    Node *m_implemented = nullptr;
    Node *m_available = nullptr;
    Node *m_locked = nullptr;
    GenApi::EAccessMode m_imposed = GenApi::RW;
    GenApi::ECachingMode m_cachingMode = GenApi::WriteThrough;
    std::int64_t m_pollingTime = -1;
    Kept<GenApi::EAccessMode> m_mode;
    bool m_isModeOfCircle = false; // the mode found last holds for the evaluation under way only
    GenApi::EVisibility m_visibility;
    const std::string *m_displayName;
    unsigned m_busy = 0; // aspects being evaluated, as `Evaluation` marks them
    std::vector<Registration> m_callbacks;
};

/** What both sides allow: reading and writing each need both. */
GenApi::EAccessMode intersected(GenApi::EAccessMode a, GenApi::EAccessMode b);
/** RO, WO, RW by name, anything else @p otherwise. */
GenApi::EAccessMode modeFromText(const std::string &text, GenApi::EAccessMode otherwise);

} // namespace MoxGenApi

#endif
