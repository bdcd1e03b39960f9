#ifndef MOX_DEVICETREENODE_H
#define MOX_DEVICETREENODE_H

#include <QVariant>

#include <list>
#include <memory>
#include <vector>

class DeviceTreeModel;

namespace MoxCam {
class DeviceInfo;
class Interface;
class System;
} // namespace MoxCam

/**
 * A node of the device tree. Owns its children; their place in the list is their row. Lives in a DeviceTreeModel, on
 * the GUI thread, until the next reset.
 */
class DeviceTreeNode
{
public:
    DeviceTreeNode(DeviceTreeNode *parentNode, DeviceTreeModel *owner);
    virtual ~DeviceTreeNode();
    Q_DISABLE_COPY(DeviceTreeNode)

    virtual QVariant data(int column, int role) const = 0;
    virtual bool hasChildren() const = 0;
    virtual bool canFetchMore() const = 0;
    /** Fills the children from the model's snapshot and announces their rows. */
    virtual void fetchMore() = 0;

    int rowCount() const { return static_cast<int>(children.size()); }
    /** Place among the parent's children; 0 where there is none. */
    int row() const;

    std::list<std::unique_ptr<DeviceTreeNode>> children;
    DeviceTreeNode *parent; // null for the root
    DeviceTreeModel *model;

protected:
    /** Appends one @p Node per object; nothing is announced for none. */
    template<class Node, class SdkObject> void appendChildren(const std::vector<SdkObject *> &objects);
};

/** The invisible root over the whole system; speaks for the header. */
class RootNode : public DeviceTreeNode
{
public:
    RootNode(MoxCam::System *observedSystem, DeviceTreeModel *owner);

    QVariant data(int column, int role) const override;
    bool hasChildren() const override { return true; }
    bool canFetchMore() const override { return children.empty(); }
    void fetchMore() override;

    MoxCam::System *system; // not owned
};

/** An interface. Without devices it stays fetchable, and is asked again at no cost. */
class InterfaceNode : public DeviceTreeNode
{
public:
    InterfaceNode(DeviceTreeNode *parentNode, DeviceTreeModel *owner, MoxCam::Interface *shownInterface);

    QVariant data(int column, int role) const override;
    bool hasChildren() const override { return true; }
    bool canFetchMore() const override { return children.empty(); }
    void fetchMore() override;

    MoxCam::Interface *iface; // not owned
};

/** A camera. */
class DeviceInfoNode : public DeviceTreeNode
{
public:
    DeviceInfoNode(DeviceTreeNode *parentNode, DeviceTreeModel *owner, MoxCam::DeviceInfo *shownDevice);

    QVariant data(int column, int role) const override;
    bool hasChildren() const override { return false; }
    bool canFetchMore() const override { return false; }
    void fetchMore() override { }

    MoxCam::DeviceInfo *info; // not owned
};

#endif
