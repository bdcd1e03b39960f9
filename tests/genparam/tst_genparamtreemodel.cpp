// The tree over a node map: its shape, its cells, what is written through it, and how changes arrive in it.
#include "fakenodes.h"
#include "paramscript.h"
#include "testmain.h"

#include <thread>

using namespace GenApi;
using namespace MoxTest;

namespace {

/** An integer that names no increment, and that can lose its texts and what stands behind it. */
struct Odd : FakeInteger
{
    using FakeInteger::FakeInteger;
    bool hasTexts = true;
    INode *node = this;
    EIncMode GetIncMode() override { return noIncrement; }
    INode *GetNode() override { return node; }
    gcstring GetDisplayName() const override { return hasTexts ? displayName : throw RUNTIME_EXCEPTION("no name"); }
    gcstring GetToolTip() const override { return hasTexts ? toolTip : throw RUNTIME_EXCEPTION("no tip"); }
};

QString outline(const QAbstractItemModel &model, const QModelIndex &parent = QModelIndex())
{
    QStringList rows;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        rows << ParamScript::nameOf(index) + (model.hasChildren(index) ? outline(model, index) : QString());
    }
    return QLatin1Char('(') + rows.join(QLatin1Char(' ')) + QLatin1Char(')');
}

} // namespace

class TestGenParamTreeModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void structure();
    void callbacks();
    void incompleteModel();
    void cells_data() { addRows({QFINDTESTDATA("cells.txt"), QFINDTESTDATA("writes.txt")}); }
    void cells();
    void oddNode();
};

// A node that is listed again keeps the place that its first category gave it, and is told of once more.
void TestGenParamTreeModel::structure()
{
    Camera camera(
        "Integer Leaf Value=1 pIsImplemented=No; Integer No Value=0; Category Group pFeature=Deep pFeature=Both; "
        "Integer Deep Value=2; Integer Both Value=3 Visibility=Invisible; Category Empty; "
        "Category Again pFeature=Both pFeature=Empty pFeature=Group",
        "Leaf Group Empty Again");
    {
        GenParamTreeModel model(camera.map.get());
        QCOMPARE(outline(model), QStringLiteral("(Leaf Group(Deep Both) Empty Again(Both Empty Group(Deep Both)))"));
        const QModelIndex group = model.index(1, 0);
        QCOMPARE(model.rowCount(group.siblingAtColumn(1)), 2);
        QCOMPARE(model.columnCount(group), 2);
        QCOMPARE(model.parent(model.index(0, 1, group)), group);
        QCOMPARE(model.parent(model.index(0, 0, model.index(3, 0))), group);
        for (const auto &outside : {model.index(4, 0), model.index(0, 2), model.index(-1, 0), model.parent(group),
                                    model.index(0, 0, model.index(0, 0)), model.index(0, 0, model.index(2, 0))})
            QVERIFY(!outside.isValid());
        QCOMPARE(ParamScript(model, &camera).run(QStringLiteral("Both=4; told==Both[], Both[], Both[]")), QString());
        QVERIFY(!model.setData(model.index(1, 0, group), 7));
        QVERIFY(!model.setData(model.index(1, 1, group), 7, Qt::DisplayRole));
        QCOMPARE(model.headerData(1, Qt::Vertical), QVariant(QStringLiteral("Value")));
        QVERIFY(!model.headerData(2, Qt::Horizontal).isValid());
    }
    QCOMPARE(camera.run("Both=5; Leaf*"), QString()); // and nothing of the model is left to be told
}

void TestGenParamTreeModel::callbacks()
{
    Camera camera(
        "Integer A Value=1; Integer B Value=1 pMax=A; Integer Loose Value=1; Category C pFeature=D; Integer D Value=2",
        "A B C");
    GenParamTreeModel model(camera.map.get());
    ParamScript script(model, &camera);
    const auto play = [&script](const char *steps) { return script.run(QString::fromLatin1(steps)); };
    QCOMPARE(play("Loose=4; Root*; told==; C*; A=3; D=4; told==C[], A[], B[], D[]"), QString());
    std::thread([&camera] { camera.integer("A").SetValue(5); }).join();
    QCOMPARE(play("told=="), QString()); // that comes through the event loop
    QCoreApplication::processEvents();
    QCOMPARE(play("told==A[], B[]; A.d==5"), QString());
}

// What is thrown while the tree is built goes to the caller, and no callback stays behind.
void TestGenParamTreeModel::incompleteModel()
{
    struct Root : FakeCategory
    {
        using FakeCategory::FakeCategory;
        void GetFeatures(FeatureList_t &list) const override
        {
            // Nobody else may change nodes while their records are being made.
            bool isFree = true;
            std::thread([&] {
                if ((isFree = m_map.GetLock().TryLock()))
                    m_map.GetLock().Unlock();
            }).join();
            QVERIFY(!isFree);
            list = features;
        }
    };
    FakeNodeMap map, flat;
    auto &leaf = map.add<FakeInteger>("Leaf");
    map.add<Root>("Root").features = {&leaf, nullptr};
    QVERIFY_EXCEPTION_THROWN(GenParamTreeModel model(&map), GenICam::LogicalErrorException);
    QCOMPARE(leaf.callbackCount(), std::size_t(0));
    QCOMPARE(GenParamTreeModel(&flat).rowCount(), 0);
    flat.add<FakeInteger>("Root");
    QCOMPARE(GenParamTreeModel(&flat).rowCount(), 0);
    QCOMPARE(GenParamTreeModel(static_cast<INodeMap *>(nullptr)).rowCount(), 0);
}

void TestGenParamTreeModel::cells()
{
    QFETCH(QString, nodes);
    QFETCH(QString, script);
    QStringList features;
    for (const QString &node : nodes.split(QStringLiteral("; ")))
        features << QRegularExpression(QStringLiteral(" (?:Name=')?(\\w+)")).match(node).captured(1);
    Camera camera(nodes.toUtf8(), features.join(QLatin1Char(' ')).toUtf8());
    GenParamTreeModel model(camera.map.get());
    QCOMPARE(ParamScript(model, &camera).run(script), QString());
}

void TestGenParamTreeModel::oddNode()
{
    FakeNodeMap map;
    auto &node = map.add<Odd>("X");
    map.add<FakeCategory>("Root").features = {&node};
    GenParamTreeModel model(&map);
    ParamScript script(model);
    const auto play = [&script](const char *steps) { return script.run(QString::fromLatin1(steps)); };
    const QString limits = told(model.index(0, 0).data(Qt::WhatsThisRole)).section(QLatin1Char('|'), 2, 3);
    QCOMPARE(limits, QStringLiteral("<i>Limits</i>: Min: 0, Max: 100|<i>Description:</i> "));
    node.fault = [](Access) { throw TIMEOUT_EXCEPTION("gone"); };
    QCOMPARE(play("X.c==-; X.w==<i>Name:</i> X|<i>Type:</i> Integer; X.m==false; told=="), QString());
    QCOMPARE(play("X<-int 1==false; X<-int 1==false; told==+UnknownNode#256 gone"), QString());
    node.hasTexts = false;
    QCOMPARE(play("X.D==ERROR; X.T==no tip; told==; X.t==-; X.t==no tip; told==+X#3 no tip"), QString());
    node.node = nullptr;
    for (int role : {0, 2, 3, 5, 8, 9, 257})
        QVERIFY(!model.index(0, 0).data(role).isValid() && !model.index(0, 1).data(role).isValid());
}

MOX_TEST_MAIN(TestGenParamTreeModel)
#include "tst_genparamtreemodel.moc"
