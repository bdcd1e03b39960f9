// What the device tree costs above discovery itself: enumerating beside a bare walk of the SDK's lists, and rebuilding
// the tree beside a ready QStandardItemModel of the same rows.
#include "devicetreemodel.h"
#include "fakesdk.h"
#include "table.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QStandardItemModel>
#include <QTreeView>

#include <algorithm>

using namespace MoxTest;

namespace {

constexpr int camerasPerInterface = 16;

void fill(FakeSystem &system, int interfaceCount)
{
    for (int i = 0; i < interfaceCount; ++i) {
        FakeInterface *iface = system.add("interface-" + std::to_string(i), "Adapter " + std::to_string(i));
        for (int k = 0; k < camerasPerInterface; ++k) {
            const std::string number = std::to_string(i) + '-' + std::to_string(k);
            iface->add("camera-" + number, "Camera " + number);
        }
    }
}

/** Shortest time of an action in microseconds, by the clock: discovery waits. */
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

void enumeration(MoxBench::Table &table, FakeSystem &system, int cameraCount, unsigned discoveryTime, int runs)
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
    if (cameras != std::size_t(cameraCount) || interfaces.size() * camerasPerInterface != cameras || changed)
        qFatal("the enumerations disagree");

    const std::string baseline =
        " beside a bare walk of the lists, discovery " + std::to_string(discoveryTime) + " ms an interface";
    table.add("listing all cameras" + baseline, cameraCount, walk, get);
    table.add("looking for changes" + baseline, cameraCount, walk, check);
}

void rebuild(MoxBench::Table &table, FakeSystem &system, int cameraCount, int rounds)
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
    const auto update = [&] {
        model.updateModel();
        view.expandAll();
        view.grab();
    };

    QTreeView stock;
    stock.resize(400, 400);
    stock.show();
    const auto fresh = ready(model);
    const auto show = [&] {
        stock.setModel(nullptr);
        stock.setModel(fresh.get());
        stock.expandAll();
        stock.grab();
    };
    const auto build = [&] {
        const auto items = ready(model);
        stock.setModel(items.get());
        stock.expandAll();
        stock.grab();
        stock.setModel(nullptr);
    };
    const std::string what = "tree rebuilt, expanded and painted, beside a QStandardItemModel ";
    table.compare(what + "that is ready", cameraCount, rounds, 1, show, update);
    table.compare(what + "filled anew", cameraCount, rounds, 1, build, update);
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    MoxBench::Table table("camera selector");
    for (const int interfaceCount : {4, 16, 64}) {
        FakeSystem system;
        fill(system, interfaceCount);
        const int cameraCount = interfaceCount * camerasPerInterface;
        enumeration(table, system, cameraCount, 0, 200);
        enumeration(table, system, cameraCount, 1, 20);
        rebuild(table, system, cameraCount, 30);
    }
    return 0;
}
