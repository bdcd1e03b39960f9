#include "datarow.h"
#include "sdkmetatypes.h"
#include "selectorscene.h"
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

    /** Fetches as an expanding view does. */
    std::string fetched()
    {
        model.fetchMore({});
        for (int i = 0; i < model.rowCount(); ++i)
            model.fetchMore(model.index(i, 0));
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
    void fillsLazily()
    {
        World world;
        DeviceTreeModel model(&world.system, nullptr);
        QCOMPARE(world.system.interfaceListCalls.load(), 1);
        QCOMPARE(world.system.discoveries.load(), 3);
        QCOMPARE(world.system.lastTypeMask.load(), 255u);
        QCOMPARE(world.system.lastTimeout.load(), 200u);
        QCOMPARE(model.rowCount(), 0);
        QVERIFY(!model.getFirstIdx().isValid() && !model.getItemIdx(QStringLiteral("A")).isValid());
        QSignalSpy aboutToInsert(&model, &QAbstractItemModel::rowsAboutToBeInserted);
        QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
        QVERIFY(model.hasChildren() && model.canFetchMore({}));
        for (int twice = 0; twice < 2; ++twice)
            model.fetchMore({});
        const QModelIndex a = model.index(0, 0);
        QVERIFY(!model.canFetchMore({}) && model.hasChildren(a) && model.canFetchMore(a));
        QCOMPARE(model.rowCount(a), 0);
        model.fetchMore(a);
        QVERIFY(!model.canFetchMore(a));
        const QModelIndex a1 = model.index(0, 0, a);
        QVERIFY(!model.hasChildren(a1) && !model.canFetchMore(a1));
        const QModelIndex c = model.index(2, 0);
        model.fetchMore(c);
        QVERIFY(model.hasChildren(c) && model.canFetchMore(c)); // empty, and asked again
        const QList<QVariantList> announced{{QModelIndex(), 0, 2}, {a, 0, 1}};
        QVERIFY(aboutToInsert == announced && inserted == announced);
        QCOMPARE(world.system.interfaceListCalls.load(), 1); // all from the snapshot
        world.b->deviceLists = ListAnswer::Throw;
        QVERIFY_EXCEPTION_THROWN(DeviceTreeModel(&world.system, nullptr), std::runtime_error);
        QCOMPARE(world.system.openLists.load(), 0);
    }

    void items()
    {
        World world;
        Shown shown(world);
        const DeviceTreeModel &model = shown.model;
        QCOMPARE(shown.fetched(), world.system.outline());
        const QModelIndex a = model.index(0, 0);
        const QModelIndex a1 = model.index(0, 0, a);
        QCOMPARE(model.flags({}), Qt::NoItemFlags);
        QCOMPARE(model.flags(a1), Qt::ItemIsSelectable | Qt::ItemIsEnabled);
        QCOMPARE(a.data(), QVariant(QStringLiteral("Adapter ä")));
        QCOMPARE(a1.data(), QVariant(QStringLiteral("相機")));
        QCOMPARE(a.data(Qt::UserRole).value<MoxCam::Interface *>(), world.a);
        QCOMPARE(a1.data(Qt::UserRole).value<MoxCam::DeviceInfo *>(), world.a1);
        QVERIFY(!a.data(Qt::DecorationRole).isValid() && !a1.data(Qt::EditRole).isValid() && !model.data({}).isValid());
        QCOMPARE(model.headerData(0, Qt::Horizontal), QVariant(QStringLiteral("Name")));
        QVERIFY(!model.headerData(1, Qt::Horizontal).isValid() && !model.headerData(0, Qt::Vertical).isValid());
        world.a1->atDisplayName = [] { throw std::runtime_error("gone"); };
        QVERIFY(!a1.data().isValid()); // nothing is thrown into a view

        const auto find = [&](const char *id) { return model.getItemIdx(QString::fromLatin1(id)); };
        QCOMPARE(model.getFirstIdx(), a);
        QCOMPARE(find("b1"), model.index(0, 0, model.index(1, 0)));
        QCOMPARE(find("C"), model.index(2, 0));
        QVERIFY(!find("x").isValid() && !model.getItemIdx(QString()).isValid());
        QVERIFY(model.getItemID({}).isNull());
        world.a1->id.reset();
        QCOMPARE(find(""), a1);
        world.b1->id = "A"; // an interface comes before its devices and before later ones
        QCOMPARE(find("A"), a);
    }

    void checkNew_data()
    {
        columns<Change, bool>("change", "expected");
        const auto row = [](const char *name, bool expected, const Change &change) {
            MoxTest::row(name, change, expected);
        };
        row("nothing", false, [](World &) {});
        row("interface comes", true, [](World &w) { w.system.add("D"); });
        row("interface goes", true, [](World &w) { w.system.unplug(w.c); });
        row("interface replaced", true, [](World &w) { w.system.unplug(w.c), w.system.add("D"); });
        row("interfaces change places", true, [](World &w) { w.system.unplug(w.a), w.system.plug(w.a, 1); });
        row("camera comes", true, [](World &w) { w.c->add("c1"); });
        row("camera goes", true, [](World &w) { w.a->unplug(w.a1); });
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
