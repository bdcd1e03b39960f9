// Structure: the tree's records, navigation, and how a node's change arrives.
#include "genparamtreemodel.h"

#include "genparamtreemodel_p.h"

#include <MoxCameraApi/MoxGenParam.h>

#include <QVector>

using namespace GenApi;

GenParamTreeModel::GenParamTreeModel(MoxGenParam::Array *params, QObject *parent)
    : GenParamTreeModel(params ? params->GetNodeMap(nullptr) : nullptr, parent)
{ }

GenParamTreeModel::GenParamTreeModel(INodeMap *nodeMap, QObject *parent)
    : QAbstractItemModel(parent), d(std::make_unique<GenParamTreeModelPrivate>(nodeMap))
{
    d->Init(this);
}

GenParamTreeModel::~GenParamTreeModel() = default;

QModelIndex GenParamTreeModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    if (!parent.isValid())
        return createIndex(row, column, d->rootChildren[row]);
    const auto *record = static_cast<const IndexFeature::Record *>(parent.internalPointer());
    return createIndex(row, column, record->second.children[row]);
}

QModelIndex GenParamTreeModel::parent(const QModelIndex &child) const
{
    const auto *record = static_cast<const IndexFeature::Record *>(child.internalPointer());
    if (!record || !record->second.parent)
        return {};
    IndexFeature::Record *parentRecord = record->second.parent;
    return createIndex(parentRecord->second.row, 0, parentRecord);
}

int GenParamTreeModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return d->rootCount;
    const auto *record = static_cast<const IndexFeature::Record *>(parent.internalPointer());
    return record ? record->second.childCount : 0;
}

int GenParamTreeModel::columnCount(const QModelIndex &) const
{
    return 2;
}

QVariant GenParamTreeModel::headerData(int section, Qt::Orientation, int role) const
{
    if (role != Qt::DisplayRole || section < 0 || section > 1)
        return {};
    return section == 0 ? tr("Name") : tr("Value");
}

Qt::ItemFlags GenParamTreeModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags plain = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    const auto *record = static_cast<const IndexFeature::Record *>(index.internalPointer());
    if (index.column() != 1 || !record || !record->first)
        return plain;
    try {
        // Whatever the type: a writable register gets the stock editor, whose value goes nowhere.
        return IsWritable(record->first->GetAccessMode()) ? plain | Qt::ItemIsEditable : plain;
    } catch (const GenICam::GenericException &) {
        return plain;
    }
}

void GenParamTreeModelPrivate::Init(GenParamTreeModel *model)
{
    // For dataChanged() through a queued connection, when another thread writes to the node map.
    qRegisterMetaType<QVector<int>>("QVector<int>");
    q_ptr = model;
    if (!nodeMap)
        return;
    // The callbacks of the first nodes must not look for records, on another thread, while those of the last are made.
    const AutoLock lock(nodeMap->GetLock());
    RegisterCallbackForChildren(dynamic_cast<ICategory *>(nodeMap->GetNode("Root")), nullptr);
    if (childLists.empty())
        return;
    rootChildren = childLists.front().data();
    rootCount = int(childLists.front().size());
}

// A node that two categories list stays what the first one made of it: it has that row and parent under both.
void GenParamTreeModelPrivate::RegisterCallbackForChildren(ICategory *category, Record *parentPair)
{
    if (!category)
        return;
    FeatureList_t list;
    category->GetFeatures(list);
    std::vector<Record *> &children = childLists.emplace_back(list.size());
    for (std::size_t row = 0; row < list.size(); ++row) {
        IValue *feature = list[row];
        INode &node = nodeOf(feature);
        if (node.GetName() == addressProbeName) {
            const CIntegerPtr integer(feature);
            if (integer && integer->GetRepresentation() == IPV4Address)
                deviceMarksAddresses = true;
        }
        callbackHandles.push_back(
            node.RegisterCallback(make_NodeCallback(&node, this, &GenParamTreeModelPrivate::NodeCallback)));
        Record &record = *features.emplace(feature, IndexFeature{parentPair, nullptr, int(row), 0}).first;
        children[row] = &record;
        // The circles that a description may hold are opened by the node map.
        RegisterCallbackForChildren(dynamic_cast<ICategory *>(feature), &record);
    }
    if (parentPair) {
        parentPair->second.children = children.data();
        parentPair->second.childCount = int(children.size());
    }
}

void GenParamTreeModelPrivate::DeRegisterCallbacks()
{
    for (const CallbackHandleType handle : callbackHandles)
        Deregister(handle);
    callbackHandles.clear();
    features.clear();
    childLists.clear();
    deviceMarksAddresses = false;
}

void GenParamTreeModelPrivate::NodeCallback(INode *node)
{
    const auto found = features.find(dynamic_cast<IValue *>(node));
    if (found == features.end())
        return;
    const QModelIndex cell = q_ptr->createIndex(found->second.row, 1, &*found);
    Q_EMIT q_ptr->dataChanged(cell, cell);
}
