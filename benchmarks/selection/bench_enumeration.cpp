// What the device tree costs above discovery itself: enumerating beside a bare walk of the SDK's lists, and rebuilding
// the tree beside a ready QStandardItemModel of the same rows.
#include "devicetreemodel.h"
#include "fakesdk.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QStandardItemModel>
#include <QTreeView>

#include <algorithm>
#include <cstdio>

using namespace MoxTest;

namespace {

constexpr int interfaceCount = 64;
constexpr int camerasPerInterface = 16;

void fill(FakeSystem &system)
{
    for (int i = 0; i < interfaceCount; ++i) {
        FakeInterface *iface = system.add("interface-" + std::to_string(i), "Adapter " + std::to_string(i));
        for (int k = 0; k < camerasPerInterface; ++k) {
            const std::string number = std::to_string(i) + '-' + std::to_string(k);
            iface->add("camera-" + number, "Camera " + number);
        }
    }
}

/** Shortest time of an action in microseconds. */
template<class Action> double shortest(int runs, Action action)
{
    qint64 best = std::numeric_limits<qint64>::max();
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer timer;
        timer.start();
        action();
        best = std::min(best, timer.nsecsElapsed());
    }
    return double(best) / 1000.0;
}

/** The walk that any user of the SDK makes, keeping the pointers in one vector. */
std::size_t bareWalk(FakeSystem &system)
{
    std::vector<MoxCam::DeviceInfo *> found;
    MoxCam::InterfaceList *list = system.GetInterfaceList(255);
    for (MoxCam::Interface *iface = list->GetFirst(); iface; iface = list->GetNext()) {
        bool changed = false;
        iface->ReDiscoverDevices(&changed, 200);
        MoxCam::DeviceInfoList *devices = iface->GetDeviceInfoList();
        for (MoxCam::DeviceInfo *info = devices->GetFirst(); info; info = devices->GetNext())
            found.push_back(info);
        devices->Release();
    }
    list->Release();
    return found.size();
}

void row(const char *what, double microseconds, double baseline)
{
    std::printf("%-44s %10.1f us %8.2f x %10.1f us more\n", what, microseconds, microseconds / baseline,
                microseconds - baseline);
}

std::unique_ptr<QStandardItemModel> ready(const DeviceTreeModel &model)
{
    auto items = std::make_unique<QStandardItemModel>();
    for (int i = 0; i < model.rowCount(); ++i) {
        const QModelIndex iface = model.index(i, 0);
        auto *item = new QStandardItem(iface.data().toString()); // owned by items
        for (int k = 0; k < model.rowCount(iface); ++k)
            item->appendRow(new QStandardItem(model.index(k, 0, iface).data().toString())); // owned by item
        items->appendRow(item);
    }
    return items;
}

void enumeration(FakeSystem &system, unsigned discoveryTime, int runs)
{
    system.discoveryTime = discoveryTime;
    std::size_t cameras = 0;
    const double walk = shortest(runs, [&] { cameras = bareWalk(system); });
    DeviceTreeModel model(&system, nullptr);
    DeviceTreeModel::InterfaceVector interfaces;
    DeviceTreeModel::DeviceMap devices;
    const double get = shortest(runs, [&] { model.getDevices(interfaces, devices); });
    bool changed = false;
    const double check = shortest(runs, [&] { changed = model.checkNew(); });
    if (cameras != interfaceCount * camerasPerInterface || interfaces.size() != interfaceCount || changed)
        qFatal("the enumerations disagree");

    std::printf("\nEnumeration, discovery %u ms on each of %d interfaces with %d cameras\n", discoveryTime,
                interfaceCount, camerasPerInterface);
    row("bare walk of the SDK's lists", walk, walk);
    row("DeviceTreeModel::getDevices", get, walk);
    row("DeviceTreeModel::checkNew", check, walk);
}

void rebuild(FakeSystem &system, int runs)
{
    system.discoveryTime = 0;
    DeviceTreeModel model(&system, nullptr);
    QTreeView view;
    view.resize(400, 400);
    view.setModel(&model);
    view.expandAll();
    view.show();
    QCoreApplication::processEvents();
    model.checkNew();
    const double update = shortest(runs, [&] {
        model.updateModel();
        view.expandAll();
        view.grab();
    });

    QTreeView stock;
    stock.resize(400, 400);
    stock.show();
    const auto fresh = ready(model);
    const double show = shortest(runs, [&] {
        stock.setModel(nullptr);
        stock.setModel(fresh.get());
        stock.expandAll();
        stock.grab();
    });
    const double build = shortest(runs, [&] {
        const auto items = ready(model);
        stock.setModel(items.get());
        stock.expandAll();
        stock.grab();
        stock.setModel(nullptr);
    });
    std::printf("\nTree of %d rows, rebuilt, expanded and painted\n", interfaceCount * (1 + camerasPerInterface));
    row("QStandardItemModel, ready", show, show);
    row("QStandardItemModel, filled anew", build, show);
    row("DeviceTreeModel::updateModel", update, show);
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    FakeSystem system;
    fill(system);
    enumeration(system, 0, 200);
    enumeration(system, 1, 20);
    rebuild(system, 50);
    return 0;
}
