#ifndef MOX_DEVICETREEMODEL_H
#define MOX_DEVICETREEMODEL_H

#include <QAbstractItemModel>

#include <map>
#include <memory>
#include <vector>

class DeviceTreeNode;
class RootNode;

namespace MoxCam {
class DeviceInfo;
class Interface;
class System;
} // namespace MoxCam

/**
 * The interfaces of a camera system and the cameras found on each, two levels in one column.
 *
 * Shows a snapshot: nodes are filled lazily from it and hold SDK pointers, which stay valid as far as the SDK keeps
 * them. Qt::UserRole carries the `MoxCam::Interface *` or `MoxCam::DeviceInfo *` behind an index.
 *
 * Owned by the selector dialog. Lives on the GUI thread; checkNew() alone runs on the dialog's poll thread. There is no
 * lock on purpose: when the slot that calls updateModel() is delayed beyond a poll period, the two overlap.
 */
class DeviceTreeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    using InterfaceVector = std::vector<MoxCam::Interface *>;
    using DeviceMap = std::map<QString, std::vector<MoxCam::DeviceInfo *>>;

    /** Enumerates @p system, which is not owned; discovery time is paid here. Rows appear as a view fetches them. */
    DeviceTreeModel(MoxCam::System *system, QObject *parent);
    ~DeviceTreeModel() override;

    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex index(DeviceTreeNode *node) const;
    QModelIndex parent(const QModelIndex &child) const override;
    using QObject::parent;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    bool hasChildren(const QModelIndex &parent = QModelIndex()) const override;
    bool canFetchMore(const QModelIndex &parent) const override;
    void fetchMore(const QModelIndex &parent) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    /** The SDK's identifier of a camera or interface; null for any other index. */
    QString getItemID(const QModelIndex &index) const;
    /** The first item with an identifier among those fetched so far; nothing is fetched. Invalid when there is none. */
    QModelIndex getItemIdx(const QString &id) const;
    /** The first interface, not the first camera; invalid when there is none. */
    QModelIndex getFirstIdx() const;

    /** Enumerates afresh and says whether identifiers or their order differ from what is shown. Emits nothing. */
    bool checkNew();
    /** Shows what the last checkNew() found. */
    void updateModel();
    /** Enumerates the system into the targets; every interface runs a discovery. */
    void getDevices(InterfaceVector &foundInterfaces, DeviceMap &foundDevices);

public Q_SLOTS:
    /** Enumerates afresh and shows the result. */
    void rescan();

private:
    // They announce their rows and read the snapshot.
    friend class DeviceTreeNode;
    friend class RootNode;
    friend class InterfaceNode;

    DeviceTreeNode *node(const QModelIndex &index) const;
    void renewRoot();

    std::unique_ptr<RootNode> root;
    InterfaceVector interfaces; // on show
    DeviceMap devices; // on show, by interface identifier
    InterfaceVector newInterfaces; // found by checkNew
    DeviceMap newDevices; // found by checkNew
};

#endif
