#include "devicetreemodel.h"
#include "devicetreenode.h"
#include "fakesdk.h"
#include "outline.h"
#include "sdkmetatypes.h"
#include "testmain.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

using namespace MoxTest;

namespace {

/** Interfaces A with cameras a1 and a2, B with b1, and C with none; and a model that makes no mistake of its own. */
struct World
{
    FakeSystem system;
    FakeInterface *a = system.add("A", "Adapter \xc3\xa4");
    FakeInterface *b = system.add("B", "Host");
    FakeInterface *c = system.add("C", "Empty");
    FakeDeviceInfo *a1 = a->add("a1", "\xe7\x9b\xb8\xe6\xa9\x9f");
    FakeDeviceInfo *a2 = a->add("a2");
    FakeDeviceInfo *b1 = b->add("b1");
};

struct Shown
{
    explicit Shown(World &world) : model(&world.system, nullptr) { }

    DeviceTreeModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::QtTest};
    QSignalSpy aboutToReset{&model, &QAbstractItemModel::modelAboutToBeReset};
    QSignalSpy reset{&model, &QAbstractItemModel::modelReset};

    std::string fetched()
    {
        fetchAll(model);
        return outline(model);
    }
};

using Change = std::function<void(World &)>;

} // namespace

Q_DECLARE_METATYPE(Change)

class TestDeviceTreeModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void enumeration()
    {
        QCOMPARE(QMetaType::typeName(qMetaTypeId<MoxCam::DeviceInfo *>()), "MoxCam::DeviceInfo*");
        QCOMPARE(QMetaType::typeName(qMetaTypeId<MoxCam::Interface *>()), "MoxCam::Interface*");
        World world;
        DeviceTreeModel model(&world.system, nullptr);
        QCOMPARE(world.system.interfaceListCalls.load(), 1);
        QCOMPARE(world.system.discoveries.load(), 3);
        QCOMPARE(world.system.lastTypeMask.load(), 255u);
        QCOMPARE(world.system.lastTimeout.load(), 200u);
        QCOMPARE(world.system.openLists.load(), 0);
        QCOMPARE(model.rowCount(), 0); // until a view fetches
        world.b->deviceLists = ListAnswer::Throw;
        QVERIFY_EXCEPTION_THROWN(DeviceTreeModel(&world.system, nullptr), std::runtime_error);
        QCOMPARE(world.system.openLists.load(), 0);
    }

    void fillsLazily()
    {
        World world;
        DeviceTreeModel model(&world.system, nullptr);
        QSignalSpy aboutToInsert(&model, &QAbstractItemModel::rowsAboutToBeInserted);
        QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
        const auto announced = [&](const QModelIndex &parent, int last) {
            const QList<QVariantList> arguments{{parent, 0, last}};
            const bool right = aboutToInsert == arguments && inserted == arguments;
            aboutToInsert.clear();
            inserted.clear();
            return right;
        };
        QVERIFY(model.hasChildren() && model.canFetchMore({}));
        model.fetchMore({});
        QVERIFY(announced({}, 2));
        QVERIFY(!model.canFetchMore({}));
        model.fetchMore({});
        QCOMPARE(inserted.count(), 0);

        const QModelIndex a = model.index(0, 0);
        QVERIFY(model.hasChildren(a) && model.canFetchMore(a));
        QCOMPARE(model.rowCount(a), 0);
        model.fetchMore(a);
        QVERIFY(announced(a, 1));
        QVERIFY(!model.canFetchMore(a));
        const QModelIndex device = model.index(0, 0, a);
        QVERIFY(!model.hasChildren(device) && !model.canFetchMore(device));
        const QModelIndex c = model.index(2, 0);
        model.fetchMore(c);
        QCOMPARE(aboutToInsert.count(), 0);
        QVERIFY(model.hasChildren(c) && model.canFetchMore(c)); // empty, and asked again
        QCOMPARE(world.system.interfaceListCalls.load(), 1); // all from the snapshot
    }

    void structure()
    {
        World world;
        Shown shown(world);
        const DeviceTreeModel &model = shown.model;
        QCOMPARE(shown.fetched(), world.system.outline());
        const QModelIndex b = model.index(1, 0);
        const QModelIndex b1 = model.index(0, 0, b);
        QCOMPARE(b1.parent(), b);
        QVERIFY(!model.index(1, 0, b).isValid() && !model.index(0, 0, b1).isValid() && !model.index(0, 1).isValid());
        QCOMPARE(model.columnCount(b1), 1);
        QCOMPARE(model.index(static_cast<DeviceTreeNode *>(b1.internalPointer())), b1);
        QVERIFY(!model.index(static_cast<DeviceTreeNode *>(b.internalPointer())->parent).isValid());
        QCOMPARE(model.flags({}), Qt::NoItemFlags);
        QCOMPARE(model.flags(b1), Qt::ItemIsSelectable | Qt::ItemIsEnabled);

        const QModelIndex a = model.index(0, 0);
        const QModelIndex a1 = model.index(0, 0, a);
        QCOMPARE(a.data(), QVariant(QStringLiteral("Adapter ä")));
        QCOMPARE(a1.data(), QVariant(QStringLiteral("相機")));
        QCOMPARE(a.data(256).value<MoxCam::Interface *>(), world.a);
        QCOMPARE(a1.data(256).value<MoxCam::DeviceInfo *>(), world.a1);
        QCOMPARE(model.headerData(0, Qt::Horizontal), QVariant(QStringLiteral("Name")));
        QVERIFY(!model.headerData(1, Qt::Horizontal).isValid() && !model.headerData(0, Qt::Vertical).isValid());
        QVERIFY(!model.headerData(0, Qt::Horizontal, Qt::EditRole).isValid() && !model.data({}).isValid());
        for (const QModelIndex &index : {a, a1}) {
            for (const int role : {int(Qt::EditRole), int(Qt::DecorationRole), 257})
                QVERIFY(!index.data(role).isValid());
            for (const int role : {int(Qt::DisplayRole), 256})
                QVERIFY(!static_cast<DeviceTreeNode *>(index.internalPointer())->data(1, role).isValid());
        }
        world.a1->atDisplayName = [] { throw std::runtime_error("gone"); };
        QVERIFY(!a1.data().isValid()); // nothing is thrown into a view
    }

    void identifiers()
    {
        World world;
        DeviceTreeModel model(&world.system, nullptr);
        const auto find = [&](const char *id) { return model.getItemIdx(QString::fromLatin1(id)); };
        QVERIFY(!model.getFirstIdx().isValid() && !find("A").isValid()); // nothing is fetched for a search
        model.fetchMore({});
        QCOMPARE(model.getFirstIdx(), model.index(0, 0));
        QVERIFY(!find("a1").isValid());
        fetchAll(model);
        QCOMPARE(find("b1"), model.index(0, 0, model.index(1, 0)));
        QCOMPARE(find("C"), model.index(2, 0));
        QVERIFY(!find("x").isValid() && !model.getItemIdx(QString()).isValid());
        QVERIFY(model.getItemID({}).isNull());
        world.a1->id.reset();
        QCOMPARE(find(""), model.index(0, 0, model.index(0, 0)));
        world.b1->id = "A"; // an interface comes before its devices and before later ones
        QCOMPARE(find("A"), model.index(0, 0));
    }

    void checkNew_data()
    {
        QTest::addColumn<Change>("change");
        QTest::addColumn<bool>("expected");
        const auto row = [](const char *name, bool expected, Change change) {
            QTest::newRow(name) << std::move(change) << expected;
        };
        row("nothing", false, [](World &) {});
        row("interface comes", true, [](World &w) { w.system.add("D"); });
        row("interface goes", true, [](World &w) { w.system.unplug(w.c); });
        row("interface replaced", true, [](World &w) { w.system.unplug(w.c), w.system.add("D"); });
        row("interfaces change places", true, [](World &w) { w.system.unplug(w.a), w.system.plug(w.a, 1); });
        row("camera comes", true, [](World &w) { w.c->add("c1"); });
        row("camera goes", true, [](World &w) { w.a->unplug(w.a1); });
        row("last camera goes", true, [](World &w) { w.b->unplug(w.b1); });
        row("camera replaced", true, [](World &w) { w.b->unplug(w.b1), w.b->add("b2"); });
        row("cameras change places", true, [](World &w) { w.a->unplug(w.a1), w.a->plug(w.a1, 1); });
        row("camera moves to another interface", true, [](World &w) { w.b->unplug(w.b1), w.a->plug(w.b1, 2); });
        row("other object, same identifier", false, [](World &w) { w.b->unplug(w.b1), w.b->add("b1"); });
        row("name and status", false, [](World &w) {
            w.a1->displayName = w.a->description = "renamed";
            w.a1->accessStatus = MoxCam::AccessNoAccess;
        });
        row("everything goes", true, [](World &w) { w.system.interfaceLists = ListAnswer::Null; });
        row("device list refused", true, [](World &w) { w.a->deviceLists = ListAnswer::Null; });
    }

    void checkNew()
    {
        QFETCH(Change, change);
        QFETCH(bool, expected);
        World world;
        Shown shown(world);
        DeviceTreeModel &model = shown.model;
        const std::string before = shown.fetched();
        change(world);
        QCOMPARE(model.checkNew(), expected);
        QCOMPARE(model.checkNew(), expected); // nothing is taken over yet
        QCOMPARE(shown.aboutToReset.count(), 0);
        QCOMPARE(outline(model), before);
        QCOMPARE(world.system.openLists.load(), 0);

        const int enumerations = world.system.interfaceListCalls;
        model.updateModel();
        QCOMPARE(world.system.interfaceListCalls.load(), enumerations);
        QCOMPARE(shown.aboutToReset.count(), 1);
        QCOMPARE(shown.reset.count(), 1);
        QCOMPARE(shown.fetched(),
                 world.system.interfaceLists == ListAnswer::Null ? std::string()
                     : world.a->deviceLists == ListAnswer::Null  ? std::string("A[]B[b1 ]C[]")
                                                                 : world.system.outline());
        QVERIFY(!model.checkNew());
    }

    void oddAnswers()
    {
        World world;
        world.b->id = world.a->id; // one entry for both: each shows the cameras of the two
        world.c->id.reset();
        world.c->description.reset();
        world.c->add(std::nullopt, std::nullopt);
        Shown shown(world);
        QCOMPARE(shown.fetched(), std::string("A[a1 a2 b1 ]A[a1 a2 b1 ][ ]"));
        const QModelIndex c = shown.model.index(2, 0);
        QVERIFY(c.data().isValid() && c.data().toString().isEmpty());
        QVERIFY(shown.model.index(0, 0, c).data().toString().isEmpty());
        QVERIFY(!shown.model.checkNew());
    }

    // Also when it throws: what was found before the failure is shown.
    void rescan()
    {
        World world;
        Shown shown(world);
        shown.fetched();
        world.system.unplug(world.c);
        world.b->deviceLists = ListAnswer::Throw;
        QVERIFY_EXCEPTION_THROWN(shown.model.rescan(), std::runtime_error);
        QCOMPARE(shown.reset.count(), 1);
        QCOMPARE(shown.fetched(), std::string("A[a1 a2 ]B[]"));
        world.system.interfaceLists = ListAnswer::Throw;
        QVERIFY_EXCEPTION_THROWN(shown.model.rescan(), std::runtime_error);
        QCOMPARE(shown.reset.count(), 2);
        QCOMPARE(shown.fetched(), std::string());
        world.system.interfaceLists = ListAnswer::List;
        world.b->deviceLists = ListAnswer::List;
        QVERIFY(QMetaObject::invokeMethod(&shown.model, "rescan"));
        QCOMPARE(shown.reset.count(), 3);
        QCOMPARE(shown.fetched(), world.system.outline());
        QVERIFY(!shown.model.checkNew());
        QCOMPARE(world.system.openLists.load(), 0);
    }
};

MOX_TEST_MAIN(TestDeviceTreeModel)
#include "tst_devicetreemodel.moc"
