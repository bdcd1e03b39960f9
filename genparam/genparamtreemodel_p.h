#ifndef MOX_GENPARAMTREEMODEL_P_H
#define MOX_GENPARAMTREEMODEL_P_H

#include "genparamcontroldata.h"

#include <QString>

#include <algorithm>
#include <list>
#include <map>
#include <vector>

class GenParamTreeModel;

/** The place of a node in the tree. */
struct IndexFeature
{
    using Record = std::pair<GenApi::IValue *const, IndexFeature>;

    Record *parent; // null for a top-level row
    Record **children; // null for what is no category, and for a category until its features are built
    qint32 row;
    qint32 childCount;
};

/**
 * The tree's records and how nodes are shown and written.
 *
 * The internal pointer of an index is a record of `features`. Built once, in Init and under the node map's lock;
 * constant from then on, so callbacks on any thread may look nodes up without a lock of their own. Owned by the model.
 */
class GenParamTreeModelPrivate
{
public:
    using Record = IndexFeature::Record;

    explicit GenParamTreeModelPrivate(GenApi::INodeMap *map) : nodeMap(map) { }
    ~GenParamTreeModelPrivate() { DeRegisterCallbacks(); } // also when a model cannot be completed
    Q_DISABLE_COPY(GenParamTreeModelPrivate)

    void Init(GenParamTreeModel *model);
    void RegisterCallbackForChildren(GenApi::ICategory *category, Record *parentPair);
    void DeRegisterCallbacks();
    /** Announces the value cell of a node; on the thread that changed it, with the node map's lock held. */
    void NodeCallback(GenApi::INode *node);

    // What the roles give. All of them throw what GenApi throws.
    QVariant DisplayRoleImp(GenApi::IValue *value) const;
    QVariant EditRoleImp(GenApi::IValue *value) const;
    QVariant ControlDataRoleImp(GenApi::IValue *value) const;
    /** The node's description in HTML; ends early where the node throws. */
    QVariant WhatsThis(GenApi::IValue *value) const;
    QString CacheModeToStr(GenApi::ECachingMode mode) const;

    /** How an integer is shown: as declared if this node map declares its addresses, otherwise addresses go by name. */
    GenApi::ERepresentation effectiveRepresentation(GenApi::IInteger *integer) const;

    GenParamTreeModel *q_ptr = nullptr;
    GenApi::INodeMap *nodeMap; // not owned
    bool deviceMarksAddresses = false;
    const GenICam::gcstring addressProbeName = "GevCurrentIPAddress";
    std::vector<GenApi::CallbackHandleType> callbackHandles;
    std::map<GenApi::IValue *, IndexFeature> features;
    std::list<std::vector<Record *>> childLists; // of each category visited; a list, so that the arrays stay put
    Record **rootChildren = nullptr;
    int rootCount = 0;
};

/** What to take an integer for whose node map does not declare addresses as such. */
GenApi::ERepresentation FixIntegerRepresentation(GenApi::IInteger *integer, const GenICam::gcstring &name);

inline QString toQString(const GenICam::gcstring &text)
{
    return QString::fromUtf8(text.c_str());
}

/** The reason of a failure, for the user. */
inline QString reasonOf(const GenICam::GenericException &e)
{
    const char *text = e.GetDescription();
    return text ? QString::fromUtf8(text) : QStringLiteral("Unknown Error");
}

/** Digits behind the point. A description may name any number; for more than these a double has no use. */
inline int digitsOf(GenApi::IFloat &number)
{
    constexpr std::int64_t most = 323;
    return static_cast<int>(std::clamp<std::int64_t>(number.GetDisplayPrecision(), -1, most));
}

/** The description side of a value; throws as any null pointer of the node map does. */
inline GenApi::INode &nodeOf(GenApi::IValue *value)
{
    GenApi::INode *node = value ? value->GetNode() : nullptr;
    return node ? *node : *GenApi::CNodePtr();
}

#endif
