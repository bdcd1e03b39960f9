// Wrappers of the nodes behind an array, which the parameter tree shows.
#include "faultycalls.h"

namespace MoxTest {

namespace {

using namespace GenApi;

constexpr unsigned nodeCall = NodeError | CameraLost;

INode *wrap(Wrappers &wrappers, INode *node);

template<class Element> Element *wrap(Wrappers &wrappers, Element *element)
{
    return dynamic_cast<Element *>(wrap(wrappers, dynamic_cast<INode *>(element)));
}

// clang-format off
#define CALL(Target, Result, Name, Parameters, Arguments)                                                              \
    MOX_PASS(Result, nodeCall, nullptr, Target, Name, Parameters, Arguments)
#define GET(Result, Name) CALL(real, Result, Name, (), ())
#define TELL(Result, Name) CALL(node, Result, Name, () const, ())
#define READ(Result, Const) CALL(real, Result, GetValue, (bool verify, bool ignoreCache) Const, (verify, ignoreCache))
#define WRITE(Name, Value) CALL(real, void, Name, (Value value, bool verify), (value, verify))
#define OBJECT(Result, Name, Parameters, Arguments)                                                                    \
    MOX_PASS_OBJECT(Result, nodeCall | NullObject, nullptr, real, Name, Parameters, Arguments)
#define LIST(Target, Name, List, Const)                                                                                \
    void Name(List &list) Const override                                                                               \
    {                                                                                                                  \
        pass<void>(__PRETTY_FUNCTION__, nodeCall, nullptr, [&] { Target->Name(list); });                               \
        for (auto &element : list)                                                                                     \
            element = wrap(wrappers, element);                                                                         \
    }

template<class Interface> class FaultyNode : public INode, public ISelector, public Interface, public Wrapped
{
public:
    FaultyNode(Wrappers &itsWrappers, INode *itsNode)
        : wrappers(itsWrappers), node(itsNode), selector(dynamic_cast<ISelector *>(node)),
          real(dynamic_cast<Interface *>(node))
    { }
    std::string subject() const override { return node->GetName().c_str(); }

    CALL(node, gcstring, GetName, (bool full) const, (full))
    TELL(EAccessMode, GetAccessMode) TELL(EVisibility, GetVisibility) TELL(EInterfaceType, GetPrincipalInterfaceType)
    TELL(bool, IsCachable) TELL(ECachingMode, GetCachingMode) TELL(std::int64_t, GetPollingTime)
    TELL(gcstring, GetToolTip) TELL(gcstring, GetDescription) TELL(gcstring, GetDisplayName)
    TELL(gcstring, GetDeviceName)
    TELL(bool, IsStreamable) TELL(bool, IsDeprecated) TELL(bool, IsFeature)
    CALL(node, void, InvalidateNode, (), ())
    LIST(node, GetChildren, NodeList_t, const) LIST(node, GetParents, NodeList_t, const)
    INodeMap *GetNodeMap() const override { return MoxTest::wrap(wrappers, node->GetNodeMap()); }
    CallbackHandleType RegisterCallback(CNodeCallback *callback) override
    {
        try {
            return pass<CallbackHandleType>(__PRETTY_FUNCTION__, nodeCall, nullptr, [&] {
                ++FaultPlan::instance().nodeCallbacks;
                return node->RegisterCallback(callback);
            });
        } catch (...) {
            callback->Destroy(); // it is the node's from the call on
            throw;
        }
    }
    // Cannot throw: it happens while objects go.
    bool DeregisterCallback(CallbackHandleType handle) override
    {
        --FaultPlan::instance().nodeCallbacks;
        return pass<bool>(__PRETTY_FUNCTION__, CameraLost, nullptr, [&] { return node->DeregisterCallback(handle); });
    }

    CALL(selector, bool, IsSelector, () const, ())
    LIST(selector, GetSelectedFeatures, FeatureList_t, const) LIST(selector, GetSelectingFeatures, FeatureList_t, const)

    OBJECT(INode, GetNode, (), ())
    CALL(real, gcstring, ToString, (bool verify, bool ignoreCache), (verify, ignoreCache))
    CALL(real, bool, IsValueCacheValid, () const, ())
    WRITE(FromString, const gcstring &)

protected:
    Wrappers &wrappers;
    INode *const node;
    ISelector *const selector;
    Interface *const real;
};

#define NODE(Faulty, Real, ...) struct Faulty final : FaultyNode<Real> { using FaultyNode::FaultyNode; __VA_ARGS__ };
NODE(FaultyInteger, IInteger,
    READ(std::int64_t, ) WRITE(SetValue, std::int64_t)
    GET(std::int64_t, GetMin) GET(std::int64_t, GetMax) GET(std::int64_t, GetInc) GET(EIncMode, GetIncMode)
    GET(ERepresentation, GetRepresentation) GET(gcstring, GetUnit)
    CALL(real, int64_autovector_t, GetListOfValidValues, (bool bounded), (bounded)))
NODE(FaultyFloat, IFloat,
    READ(double, ) WRITE(SetValue, double)
    GET(double, GetMin) GET(double, GetMax) GET(double, GetInc) GET(bool, HasInc) GET(EIncMode, GetIncMode)
    GET(ERepresentation, GetRepresentation)
    CALL(real, gcstring, GetUnit, () const, ())
    CALL(real, EDisplayNotation, GetDisplayNotation, () const, ())
    CALL(real, std::int64_t, GetDisplayPrecision, () const, ())
    CALL(real, double_autovector_t, GetListOfValidValues, (bool bounded), (bounded)))
NODE(FaultyBoolean, IBoolean,
    READ(bool, const) WRITE(SetValue, bool))
NODE(FaultyCommand, ICommand,
    CALL(real, void, Execute, (bool verify), (verify)) CALL(real, bool, IsDone, (bool verify), (verify)))
NODE(FaultyString, IString,
    READ(gcstring, ) WRITE(SetValue, const gcstring &) GET(std::int64_t, GetMaxLength))
NODE(FaultyEntry, IEnumEntry,
    GET(std::int64_t, GetValue) GET(bool, IsSelfClearing) CALL(real, gcstring, GetSymbolic, () const, ()))
NODE(FaultyEnumeration, IEnumeration,
    CALL(real, void, GetSymbolics, (StringList_t & list), (list))
    LIST(real, GetEntries, NodeList_t, )
    CALL(real, std::int64_t, GetIntValue, (bool verify, bool ignoreCache), (verify, ignoreCache))
    WRITE(SetIntValue, std::int64_t)
    OBJECT(IEnumEntry, GetEntryByName, (const gcstring &symbolic), (symbolic))
    OBJECT(IEnumEntry, GetEntry, (std::int64_t value), (value))
    OBJECT(IEnumEntry, GetCurrentEntry, (bool verify, bool ignoreCache), (verify, ignoreCache)))
NODE(FaultyCategory, ICategory,
    LIST(real, GetFeatures, FeatureList_t, const))

struct FaultyNodeMap final : Passing<INodeMap>
{
    using Passing::Passing;
    LIST(real, GetNodes, NodeList_t, const)
    OBJECT(INode, GetNode, (const gcstring &name) const, (name))
    CALL(real, std::uint64_t, GetNumNodes, () const, ())
    CALL(real, gcstring, GetDeviceName, () const, ())
    CALL(real, void, InvalidateNodes, () const, ())
    CALL(real, void, Poll, (std::int64_t elapsed), (elapsed))
    CLock &GetLock() const override { return real->GetLock(); }
};
// clang-format on

INode *wrap(Wrappers &wrappers, INode *node)
{
    if (!node)
        return nullptr;
    switch (node->GetPrincipalInterfaceType()) {
    case intfIInteger:
        return wrappers.of<FaultyInteger>(node);
    case intfIFloat:
        return wrappers.of<FaultyFloat>(node);
    case intfIBoolean:
        return wrappers.of<FaultyBoolean>(node);
    case intfICommand:
        return wrappers.of<FaultyCommand>(node);
    case intfIString:
        return wrappers.of<FaultyString>(node);
    case intfIEnumEntry:
        return wrappers.of<FaultyEntry>(node);
    case intfIEnumeration:
        return wrappers.of<FaultyEnumeration>(node);
    case intfICategory:
        return wrappers.of<FaultyCategory>(node);
    default:
        return wrappers.of<FaultyNode<IValue>>(node);
    }
}

} // namespace

INodeMap *wrap(Wrappers &wrappers, INodeMap *nodeMap)
{
    return wrappers.of<FaultyNodeMap>(nodeMap);
}

} // namespace MoxTest
