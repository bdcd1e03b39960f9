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

/** Interfaces A with cameras a1 and a2, B with b1, and C with none. */
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

using Change = std::function<void(World &)>;

} // namespace

Q_DECLARE_METATYPE(Change)

class TestDeviceTreeModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void metatypes();
    void enumeration();
    void fillsLazily();
    void structure();
    void data_data();
    void data();
    void identifiers();
    void checkNew_data();
    void checkNew();
    void rescan();
    void oddAnswers();
    void throwingSystem();
    void rescanThrows();
};

void TestDeviceTreeModel::metatypes()
{
    QCOMPARE(QMetaType::typeName(qMetaTypeId<MoxCam::DeviceInfo *>()), "MoxCam::DeviceInfo*");
    QCOMPARE(QMetaType::typeName(qMetaTypeId<MoxCam::Interface *>()), "MoxCam::Interface*");
}

void TestDeviceTreeModel::enumeration()
{
    World world;
    DeviceTreeModel model(&world.system, nullptr);
    QCOMPARE(world.system.interfaceListCalls.load(), 1);
    QCOMPARE(world.system.discoveries.load(), 3);
    QCOMPARE(world.system.lastTypeMask.load(), 255u);
    QCOMPARE(world.system.lastTimeout.load(), 200u);
    QCOMPARE(world.system.openLists.load(), 0);
    QCOMPARE(model.rowCount(), 0); // until a view fetches
}

void TestDeviceTreeModel::fillsLazily()
{
    World world;
    DeviceTreeModel model(&world.system, nullptr);
    QSignalSpy aboutToInsert(&model, &QAbstractItemModel::rowsAboutToBeInserted);
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    const auto announced = [](QSignalSpy &spy, const QModelIndex &parent, int last) {
        const QVariantList arguments = spy.value(0);
        spy.clear();
        return arguments.value(0).toModelIndex() == parent && arguments.value(1) == 0 && arguments.value(2) == last;
    };

    QVERIFY(model.hasChildren() && model.canFetchMore({}));
    model.fetchMore({});
    QCOMPARE(inserted.count(), 1);
    QVERIFY(announced(aboutToInsert, {}, 2) && announced(inserted, {}, 2));
    QVERIFY(!model.canFetchMore({}));
    model.fetchMore({});
    QCOMPARE(inserted.count(), 0);

    const QModelIndex a = model.index(0, 0);
    QVERIFY(model.hasChildren(a) && model.canFetchMore(a));
    QCOMPARE(model.rowCount(a), 0);
    model.fetchMore(a);
    QCOMPARE(inserted.count(), 1);
    QVERIFY(announced(aboutToInsert, a, 1) && announced(inserted, a, 1));
    QVERIFY(!model.canFetchMore(a));

    const QModelIndex device = model.index(0, 0, a);
    QVERIFY(!model.hasChildren(device) && !model.canFetchMore(device));
    const QModelIndex c = model.index(2, 0);
    model.fetchMore(c);
    QCOMPARE(aboutToInsert.count(), 0);
    QVERIFY(model.hasChildren(c) && model.canFetchMore(c)); // empty, and asked again
    QCOMPARE(world.system.interfaceListCalls.load(), 1); // all from the snapshot
}

void TestDeviceTreeModel::structure()
{
    World world;
    DeviceTreeModel model(&world.system, nullptr);
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    fetchAll(model);
    QCOMPARE(outline(model), world.system.outline());
    const QModelIndex b = model.index(1, 0);
    const QModelIndex b1 = model.index(0, 0, b);
    QCOMPARE(b1.parent(), b);
    QVERIFY(!b.parent().isValid());
    QVERIFY(!model.parent({}).isValid());
    QVERIFY(!model.index(3, 0).isValid() && !model.index(0, 1).isValid() && !model.index(-1, 0).isValid());
    QVERIFY(!model.index(1, 0, b).isValid() && !model.index(0, 0, b1).isValid());
    QCOMPARE(model.columnCount(b1), 1);
    QCOMPARE(model.index(static_cast<DeviceTreeNode *>(b1.internalPointer())), b1);
    QVERIFY(!model.index(static_cast<DeviceTreeNode *>(b.internalPointer())->parent).isValid());
    QCOMPARE(model.flags({}), Qt::NoItemFlags);
    QCOMPARE(model.flags(b1), Qt::ItemIsSelectable | Qt::ItemIsEnabled);
}

void TestDeviceTreeModel::data_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("role");
    QTest::addColumn<QVariant>("expected");
    for (const char *item : {"A", "a1"}) {
        const bool device = *item == 'a';
        const QString id = QString::fromLatin1(item);
        QTest::addRow("%s text", item) << id << 0 << int(Qt::DisplayRole)
                                       << QVariant(device ? QStringLiteral("相機") : QStringLiteral("Adapter ä"));
        QTest::addRow("%s edit", item) << id << 0 << int(Qt::EditRole) << QVariant();
        QTest::addRow("%s icon", item) << id << 0 << int(Qt::DecorationRole) << QVariant();
        QTest::addRow("%s next role", item) << id << 0 << 257 << QVariant();
        QTest::addRow("%s column 1", item) << id << 1 << int(Qt::DisplayRole) << QVariant();
        QTest::addRow("%s column 1 object", item) << id << 1 << 256 << QVariant();
    }
}

void TestDeviceTreeModel::data()
{
    QFETCH(QString, item);
    QFETCH(int, column);
    QFETCH(int, role);
    QFETCH(QVariant, expected);
    World world;
    DeviceTreeModel model(&world.system, nullptr);
    fetchAll(model);
    const QModelIndex index = model.getItemIdx(item);
    const auto *node = static_cast<DeviceTreeNode *>(index.internalPointer());
    QCOMPARE(node->data(column, role), expected);
    if (column == 0)
        QCOMPARE(model.data(index, role), expected);
    QVERIFY(!model.data({}, role).isValid());
    QCOMPARE(model.headerData(column, Qt::Horizontal, role),
             column == 0 && role == Qt::DisplayRole ? QVariant(QStringLiteral("Name")) : QVariant());
    QVERIFY(!model.headerData(column, Qt::Vertical, role).isValid());
    QCOMPARE(model.index(0, 0).data(256).value<MoxCam::Interface *>(), world.a);
    QCOMPARE(model.index(0, 0, model.index(0, 0)).data(256).value<MoxCam::DeviceInfo *>(), world.a1);
}

void TestDeviceTreeModel::identifiers()
{
    World world;
    DeviceTreeModel model(&world.system, nullptr);
    QVERIFY(!model.getFirstIdx().isValid());
    QVERIFY(!model.getItemIdx(QStringLiteral("A")).isValid()); // nothing is fetched for a search
    model.fetchMore({});
    QCOMPARE(model.getFirstIdx(), model.index(0, 0));
    QVERIFY(!model.getItemIdx(QStringLiteral("a1")).isValid());
    fetchAll(model);
    QCOMPARE(model.getItemIdx(QStringLiteral("b1")), model.index(0, 0, model.index(1, 0)));
    QCOMPARE(model.getItemIdx(QStringLiteral("C")), model.index(2, 0));
    QVERIFY(!model.getItemIdx(QStringLiteral("x")).isValid());
    QVERIFY(!model.getItemIdx(QString()).isValid());
    QVERIFY(model.getItemID({}).isNull());
    world.a1->id.reset();
    QCOMPARE(model.getItemIdx(QLatin1String("")), model.index(0, 0, model.index(0, 0)));
    world.b1->id = "A"; // an interface comes before its devices and before later ones
    QCOMPARE(model.getItemIdx(QStringLiteral("A")), model.index(0, 0));
}

void TestDeviceTreeModel::checkNew_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<bool>("expected");
    const auto row = [](const char *name, bool expected, Change change) {
        QTest::newRow(name) << std::move(change) << expected;
    };
    row("nothing", false, [](World &) {});
    row("interface comes", true, [](World &w) { w.system.add("D"); });
    row("interface goes", true, [](World &w) { w.system.unplug(w.c); });
    row("interface replaced", true, [](World &w) {
        w.system.unplug(w.c);
        w.system.add("D");
    });
    row("interfaces change places", true, [](World &w) {
        w.system.unplug(w.a);
        w.system.plug(w.a, 1);
    });
    row("camera comes", true, [](World &w) { w.c->add("c1"); });
    row("camera goes", true, [](World &w) { w.a->unplug(w.a1); });
    row("last camera goes", true, [](World &w) { w.b->unplug(w.b1); });
    row("camera replaced", true, [](World &w) {
        w.b->unplug(w.b1);
        w.b->add("b2");
    });
    row("cameras change places", true, [](World &w) {
        w.a->unplug(w.a1);
        w.a->plug(w.a1, 1);
    });
    row("camera moves to another interface", true, [](World &w) {
        w.b->unplug(w.b1);
        w.a->plug(w.b1, 2);
    });
    row("other object, same identifier", false, [](World &w) {
        w.b->unplug(w.b1);
        w.b->add("b1");
    });
    row("name and status", false, [](World &w) {
        w.a1->displayName = "renamed";
        w.a1->accessStatus = MoxCam::AccessNoAccess;
        w.a->description = "renamed";
    });
    row("everything goes", true, [](World &w) { w.system.interfaceLists = ListAnswer::Null; });
    row("device list refused", true, [](World &w) { w.a->deviceLists = ListAnswer::Null; });
}

void TestDeviceTreeModel::checkNew()
{
    QFETCH(Change, change);
    QFETCH(bool, expected);
    World world;
    DeviceTreeModel model(&world.system, nullptr);
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    fetchAll(model);
    const std::string before = outline(model);
    QSignalSpy aboutToReset(&model, &QAbstractItemModel::modelAboutToBeReset);
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);

    change(world);
    QCOMPARE(model.checkNew(), expected);
    QCOMPARE(model.checkNew(), expected); // nothing is taken over yet
    QCOMPARE(aboutToReset.count(), 0);
    QCOMPARE(outline(model), before);
    QCOMPARE(world.system.openLists.load(), 0);

    const int enumerations = world.system.interfaceListCalls;
    model.updateModel();
    QCOMPARE(world.system.interfaceListCalls.load(), enumerations);
    QCOMPARE(aboutToReset.count(), 1);
    QCOMPARE(reset.count(), 1);
    fetchAll(model);
    if (world.system.interfaceLists == ListAnswer::Null)
        QCOMPARE(model.rowCount(), 0);
    else if (world.a->deviceLists == ListAnswer::Null)
        QCOMPARE(model.rowCount(model.index(0, 0)), 0);
    else
        QCOMPARE(outline(model), world.system.outline());
    QCOMPARE(model.checkNew(), false);
}

void TestDeviceTreeModel::rescan()
{
    World world;
    DeviceTreeModel model(&world.system, nullptr);
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    fetchAll(model);
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    world.system.unplug(world.a);
    world.c->add("c1");
    QVERIFY(QMetaObject::invokeMethod(&model, "rescan"));
    QCOMPARE(reset.count(), 1);
    fetchAll(model);
    QCOMPARE(outline(model), world.system.outline());
    QVERIFY(!model.checkNew());
}

void TestDeviceTreeModel::oddAnswers()
{
    World world;
    world.b->id = world.a->id; // one entry for both: each shows the cameras of the two
    world.c->id.reset();
    world.c->description.reset();
    world.c->add(std::nullopt, std::nullopt);
    DeviceTreeModel model(&world.system, nullptr);
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    fetchAll(model);
    QCOMPARE(outline(model), std::string("A[a1 a2 b1 ]A[a1 a2 b1 ][ ]"));
    const QModelIndex c = model.index(2, 0);
    QVERIFY(c.data().isValid() && c.data().toString().isEmpty());
    QVERIFY(model.index(0, 0, c).data().toString().isEmpty());
    QVERIFY(!model.checkNew());
}

void TestDeviceTreeModel::throwingSystem()
{
    World world;
    world.b->deviceLists = ListAnswer::Throw;
    QVERIFY_EXCEPTION_THROWN(DeviceTreeModel(&world.system, nullptr), std::runtime_error);
    QCOMPARE(world.system.openLists.load(), 0);
}

void TestDeviceTreeModel::rescanThrows()
{
    World world;
    DeviceTreeModel model(&world.system, nullptr);
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    fetchAll(model);
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);

    // What was found before the failure is shown.
    world.b->deviceLists = ListAnswer::Throw;
    QVERIFY_EXCEPTION_THROWN(model.rescan(), std::runtime_error);
    QCOMPARE(reset.count(), 1);
    fetchAll(model);
    QCOMPARE(outline(model), std::string("A[a1 a2 ]B[]"));

    world.system.interfaceLists = ListAnswer::Throw;
    QVERIFY_EXCEPTION_THROWN(model.rescan(), std::runtime_error);
    QCOMPARE(reset.count(), 2);
    fetchAll(model);
    QCOMPARE(outline(model), std::string());

    world.system.interfaceLists = ListAnswer::List;
    world.b->deviceLists = ListAnswer::List;
    model.rescan();
    QCOMPARE(reset.count(), 3);
    fetchAll(model);
    QCOMPARE(outline(model), world.system.outline());
    QCOMPARE(world.system.openLists.load(), 0);
}

MOX_TEST_MAIN(TestDeviceTreeModel)
#include "tst_devicetreemodel.moc"
