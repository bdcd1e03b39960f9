#include "devicetreenode.h"

#include "devicetreemodel.h"
#include "sdkmetatypes.h"

#include <QCoreApplication>

DeviceTreeNode::DeviceTreeNode(DeviceTreeNode *parentNode, DeviceTreeModel *owner) : parent(parentNode), model(owner)
{ }

DeviceTreeNode::~DeviceTreeNode() = default;

int DeviceTreeNode::row() const
{
    if (!parent)
        return 0;
    int row = 0;
    for (const auto &sibling : parent->children) {
        if (sibling.get() == this)
            return row;
        ++row;
    }
    return 0;
}

template<class Node, class SdkObject> void DeviceTreeNode::appendChildren(const std::vector<SdkObject *> &objects)
{
    if (objects.empty())
        return;
    const int first = rowCount();
    model->beginInsertRows(model->index(this), first, first + static_cast<int>(objects.size()) - 1);
    for (SdkObject *object : objects)
        children.push_back(std::make_unique<Node>(this, model, object));
    model->endInsertRows();
}

RootNode::RootNode(MoxCam::System *observedSystem, DeviceTreeModel *owner)
    : DeviceTreeNode(nullptr, owner), system(observedSystem)
{ }

QVariant RootNode::data(int column, int role) const
{
    if (column == 0 && role == Qt::DisplayRole)
        return QCoreApplication::translate("DeviceTreeModel", "Name");
    return {};
}

void RootNode::fetchMore()
{
    appendChildren<InterfaceNode>(model->interfaces);
}

InterfaceNode::InterfaceNode(DeviceTreeNode *parentNode, DeviceTreeModel *owner, MoxCam::Interface *shownInterface)
    : DeviceTreeNode(parentNode, owner), iface(shownInterface)
{ }

QVariant InterfaceNode::data(int column, int role) const
{
    if (column == 0 && role == Qt::DisplayRole)
        return QString::fromUtf8(iface->GetDescription());
    if (column == 0 && role == Qt::UserRole)
        return QVariant::fromValue(iface);
    return {};
}

void InterfaceNode::fetchMore()
{
    appendChildren<DeviceInfoNode>(model->devices[QString::fromUtf8(iface->GetID())]);
}

DeviceInfoNode::DeviceInfoNode(DeviceTreeNode *parentNode, DeviceTreeModel *owner, MoxCam::DeviceInfo *shownDevice)
    : DeviceTreeNode(parentNode, owner), info(shownDevice)
{ }

QVariant DeviceInfoNode::data(int column, int role) const
{
    if (column == 0 && role == Qt::DisplayRole)
        return QString::fromUtf8(info->GetDisplayName());
    if (column == 0 && role == Qt::UserRole)
        return QVariant::fromValue(info);
    return {};
}
