// The tree over a node map: its shape, its cells, what is written through it, and how changes arrive in it.
#include "fakenodes.h"
#include "paramscript.h"
#include "testmain.h"

#include <QAbstractItemModelTester>

#include <thread>

using namespace GenApi;
using namespace MoxTest;

namespace {

/** The model with children under its first column alone, which QAbstractItemModelTester insists on. */
class OneColumnTree : public GenParamTreeModel
{
public:
    using GenParamTreeModel::GenParamTreeModel;
    int rowCount(const QModelIndex &parent) const override
    {
        return parent.column() > 0 ? 0 : GenParamTreeModel::rowCount(parent);
    }
};

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
    void interface();
    void structure();
    void nothingToShow();
    void callbacks();
    void incompleteModel();
    void cells_data() { addRows({QFINDTESTDATA("cells.txt"), QFINDTESTDATA("writes.txt")}); }
    void cells();
    void oddNode();
    void castsThatFail();
    void notToBeWritten();
    void errorStore();
};

void TestGenParamTreeModel::interface()
{
    QCOMPARE(int(IValueRole), 256);
    QCOMPARE(QMetaType::typeName(qMetaTypeId<IValue *>()), "GenApi::IValue*");
    QCOMPARE(QMetaType::typeName(qMetaTypeId<ControlData>()), "ControlData");
    QCOMPARE(QMetaType::typeName(qMetaTypeId<VariantData>()), "VariantData");
    const QMetaObject &meta = GenParamTreeModel::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 2);
    QVERIFY(meta.indexOfSignal("errorAppeared(QModelIndex,QString,QString,int)") > 0);
    QVERIFY(meta.indexOfSignal("errorDisappeared(QModelIndex,QString,int)") > 0);
}

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
        QCOMPARE(model.index(0, 1, group).internalPointer(), model.index(0, 0, group).internalPointer());
        QCOMPARE(model.parent(model.index(0, 1, group)), group);
        QCOMPARE(model.parent(model.index(0, 0, model.index(3, 0))), group);
        for (const auto &outside : {model.index(4, 0), model.index(0, 2), model.index(-1, 0), model.parent(group),
                                    model.index(0, 0, model.index(0, 0)), model.index(0, 0, model.index(2, 0))})
            QVERIFY(!outside.isValid());
        QCOMPARE(ParamScript(model, &camera).run(QStringLiteral("Both=4; told==Both[], Both[], Both[]")), QString());

        QCOMPARE(model.flags(QModelIndex()), Qt::ItemFlags());
        QCOMPARE(model.flags(model.index(0, 1)), Qt::ItemIsSelectable | Qt::ItemIsEnabled);
        QCOMPARE(model.headerData(0, Qt::Horizontal), QVariant(QStringLiteral("Name")));
        QCOMPARE(model.headerData(1, Qt::Vertical, Qt::DisplayRole), QVariant(QStringLiteral("Value")));
        for (const QVariant &none : {model.headerData(2, Qt::Horizontal), model.headerData(-1, Qt::Horizontal),
                                     model.headerData(0, Qt::Horizontal, Qt::ToolTipRole)})
            QVERIFY(!none.isValid());
    }
    QCOMPARE(camera.run("Both=5; Leaf*"), QString()); // and nothing of the model is left to be told
}

void TestGenParamTreeModel::nothingToShow()
{
    FakeNodeMap bare, flat, hollow;
    flat.add<FakeInteger>("Root");
    hollow.add<FakeCategory>("Root");
    for (INodeMap *map : std::initializer_list<INodeMap *>{&bare, &flat, &hollow, nullptr}) {
        const GenParamTreeModel model(map);
        QCOMPARE(model.rowCount(), 0);
        QVERIFY(!model.index(0, 0).isValid());
    }
    QCOMPARE(GenParamTreeModel(static_cast<MoxGenParam::Array *>(nullptr)).rowCount(), 0);
}

void TestGenParamTreeModel::callbacks()
{
    Camera camera(
        "Integer A Value=1; Integer B Value=1 pMax=A; Integer Loose Value=1; Category C pFeature=D; Integer D Value=2",
        "A B C");
    OneColumnTree model(camera.map.get());
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
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
    FakeNodeMap map;
    auto &leaf = map.add<FakeInteger>("Leaf");
    map.add<FakeCategory>("Root").features = {&leaf, nullptr};
    QVERIFY_EXCEPTION_THROWN(GenParamTreeModel model(&map), GenICam::LogicalErrorException);
    QCOMPARE(leaf.callbackCount(), std::size_t(0));
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

// Nodes that claim to be what they are not. An integer is asked before it is written.
void TestGenParamTreeModel::castsThatFail()
{
    for (EInterfaceType type : {intfIInteger, intfIBoolean, intfICommand, intfIFloat, intfIString, intfIEnumeration}) {
        FakeNodeMap map;
        auto &node = map.add<FakeNode>("X");
        node.principalInterface = type;
        map.add<FakeCategory>("Root").features = {&node};
        GenParamTreeModel model(&map);
        const QString reason = QStringLiteral("NULL pointer dereferenced");
        const QString written = type == intfIInteger ? QString() : QStringLiteral("+X#256 %1").arg(reason);
        const QString read = type == intfICommand ? QString() : QStringLiteral("+X#2 %1").arg(reason);
        const QString steps = QStringLiteral("X<-QString a==false; told==%1; X.e==%2; told==%3");
        QCOMPARE(ParamScript(model).run(steps.arg(written, read.isEmpty() ? QStringLiteral("-") : reason, read)),
                 QString());
    }
}

void TestGenParamTreeModel::notToBeWritten()
{
    Camera camera("Integer X Value=5; String S Value=a", "X S");
    GenParamTreeModel model(camera.map.get());
    const GenParamTreeModel other(camera.map.get());
    for (const auto &[index, role] :
         std::initializer_list<std::pair<QModelIndex, int>>{{model.index(0, 0), Qt::EditRole},
                                                            {model.index(0, 1), Qt::DisplayRole},
                                                            {other.index(0, 1), Qt::EditRole},
                                                            {QModelIndex(), Qt::EditRole}})
        QVERIFY(!model.setData(index, 7, role));
    QVERIFY(model.setData(model.index(1, 1), QString(QStringLiteral("b") + QChar() + QLatin1Char('c'))));
    QCOMPARE(camera.run("X==5; S==b"), QString());
}

void TestGenParamTreeModel::errorStore()
{
    GenParamErrorController store;
    const QString a = QStringLiteral("a%2");
    const QString b = QStringLiteral("b");
    QVERIFY(store.SetError(b, a, 256) && store.SetError(b, a, 2) && !store.SetError(b, b, 2)
            && store.SetError(a, b, 0));
    QCOMPARE(store.GetErrorInfo(), QStringLiteral("{a%2}{id:0}: b \n{b}{id:2}: a%2 \n{b}{id:256}: a%2 \n"));
    QVERIFY(!store.ClearError(b, 0) && store.ClearError(b, 2) && store.ClearError(b, 256) && !store.ClearError(b, 256));
    QVERIFY(store.ClearError(a, 0) && store.IsEmpty() && store.GetErrorInfo().isEmpty());
}

MOX_TEST_MAIN(TestGenParamTreeModel)
#include "tst_genparamtreemodel.moc"
