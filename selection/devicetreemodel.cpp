#include "devicetreemodel.h"

#include "devicetreenode.h"
#include "sdkmetatypes.h"

#include <algorithm>
#include <exception>
#include <iterator>

namespace {

// Transport types to ask the system for: all that it has.
constexpr std::uint32_t allTransports = 255;
// Longest discovery on one interface, in the SDK's unit.
constexpr std::uint32_t discoveryLimit = 200;

/** Ends the use of an SDK list. */
struct ReleaseList
{
    template<class List> void operator()(List *list) const { list->Release(); }
};

template<class List> using ListPtr = std::unique_ptr<List, ReleaseList>;

/** Hands each element to @p take, in the one sequence that the list itself keeps. */
template<class List, class Take> void walk(List *list, Take take)
{
    if (!list || list->GetCount() == 0)
        return;
    for (auto *element = list->GetFirst(); element; element = list->GetNext())
        take(element);
}

template<class SdkObject> QString idOf(SdkObject *object)
{
    return QString::fromUtf8(object->GetID());
}

} // namespace

DeviceTreeModel::DeviceTreeModel(MoxCam::System *system, QObject *parent)
    : QAbstractItemModel(parent), root(std::make_unique<RootNode>(system, this))
{
    getDevices(interfaces, devices);
}

DeviceTreeModel::~DeviceTreeModel() = default;

DeviceTreeNode *DeviceTreeModel::node(const QModelIndex &index) const
{
    return index.isValid() ? static_cast<DeviceTreeNode *>(index.internalPointer()) : root.get();
}

QModelIndex DeviceTreeModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    const auto &children = node(parent)->children;
    return createIndex(row, column, std::next(children.begin(), row)->get());
}

QModelIndex DeviceTreeModel::index(DeviceTreeNode *node) const
{
    return node->parent ? createIndex(node->row(), 0, node) : QModelIndex();
}

QModelIndex DeviceTreeModel::parent(const QModelIndex &child) const
{
    return child.isValid() ? index(node(child)->parent) : QModelIndex();
}

int DeviceTreeModel::rowCount(const QModelIndex &parent) const
{
    return parent.column() > 0 ? 0 : node(parent)->rowCount();
}

int DeviceTreeModel::columnCount(const QModelIndex &) const
{
    return 1;
}

QVariant DeviceTreeModel::data(const QModelIndex &index, int role) const
{
    try {
        return index.isValid() ? node(index)->data(index.column(), role) : QVariant();
    } catch (...) {
        // A view paints from here. Unwound through Qt, it would leave a painter behind, and the window blank for good.
        return {};
    }
}

QVariant DeviceTreeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return root->data(section, role);
}

bool DeviceTreeModel::hasChildren(const QModelIndex &parent) const
{
    return node(parent)->hasChildren();
}

bool DeviceTreeModel::canFetchMore(const QModelIndex &parent) const
{
    return node(parent)->canFetchMore();
}

void DeviceTreeModel::fetchMore(const QModelIndex &parent)
{
    if (canFetchMore(parent))
        node(parent)->fetchMore();
}

Qt::ItemFlags DeviceTreeModel::flags(const QModelIndex &index) const
{
    return index.isValid() ? QAbstractItemModel::flags(index) : Qt::NoItemFlags;
}

QString DeviceTreeModel::getItemID(const QModelIndex &index) const
{
    const QVariant object = index.data(Qt::UserRole);
    if (auto *info = object.value<MoxCam::DeviceInfo *>())
        return idOf(info);
    if (auto *iface = object.value<MoxCam::Interface *>())
        return idOf(iface);
    return {};
}

QModelIndex DeviceTreeModel::getItemIdx(const QString &id) const
{
    int interfaceRow = 0;
    for (const auto &interfaceNode : root->children) {
        const QModelIndex interfaceIndex = createIndex(interfaceRow++, 0, interfaceNode.get());
        if (getItemID(interfaceIndex) == id)
            return interfaceIndex;
        int deviceRow = 0;
        for (const auto &deviceNode : interfaceNode->children) {
            const QModelIndex deviceIndex = createIndex(deviceRow++, 0, deviceNode.get());
            if (getItemID(deviceIndex) == id)
                return deviceIndex;
        }
    }
    return {};
}

QModelIndex DeviceTreeModel::getFirstIdx() const
{
    return root->children.empty() ? QModelIndex() : index(root->children.front().get());
}

void DeviceTreeModel::getDevices(InterfaceVector &foundInterfaces, DeviceMap &foundDevices)
{
    foundInterfaces.clear();
    foundDevices.clear();
    const ListPtr<MoxCam::InterfaceList> list(root->system->GetInterfaceList(allTransports));
    walk(list.get(), [&](MoxCam::Interface *iface) {
        const QString id = idOf(iface);
        foundInterfaces.push_back(iface);
        bool changed = false; // the lists are compared instead
        iface->ReDiscoverDevices(&changed, discoveryLimit);
        auto &onInterface = foundDevices[id]; // also for an interface without devices
        const ListPtr<MoxCam::DeviceInfoList> deviceList(iface->GetDeviceInfoList());
        walk(deviceList.get(), [&](MoxCam::DeviceInfo *info) { onInterface.push_back(info); });
    });
}

bool DeviceTreeModel::checkNew()
{
    getDevices(newInterfaces, newDevices);
    if (newInterfaces.size() != interfaces.size())
        return true;
    // By position: the same interfaces or devices in another order are a change.
    for (std::size_t i = 0; i < interfaces.size(); ++i) {
        const QString newId = idOf(newInterfaces[i]);
        if (newId != idOf(interfaces[i]))
            return true;
        const auto &found = newDevices[newId];
        const auto &shown = devices[newId];
        // By identifier alone: another name or access status is no change.
        if (!std::equal(found.begin(), found.end(), shown.begin(), shown.end(),
                        [](auto *a, auto *b) { return idOf(a) == idOf(b); }))
            return true;
    }
    return false;
}

void DeviceTreeModel::updateModel()
{
    beginResetModel();
    interfaces = newInterfaces;
    devices = newDevices;
    renewRoot();
    endResetModel();
}

void DeviceTreeModel::rescan()
{
    beginResetModel();
    std::exception_ptr failure;
    try {
        getDevices(interfaces, devices);
    } catch (...) {
        failure = std::current_exception();
    }
    // Also when the SDK throws: the nodes must not outlive the list that they were made from. The view asks the SDK for
    // texts in here, which may throw, too.
    renewRoot();
    endResetModel();
    if (failure)
        std::rethrow_exception(failure);
}

void DeviceTreeModel::renewRoot()
{
    root = std::make_unique<RootNode>(root->system, this);
}
