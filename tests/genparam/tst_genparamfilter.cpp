// Which rows the filter shows, and how they come and go.
#include "datarow.h"
#include "fakenodes.h"
#include "genparamtreemodel.h"
#include "genparamtreevisibilityfilterproxymodel.h"
#include "testmain.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

using namespace GenApi;
using namespace MoxTest;

class TestGenParamFilter : public QObject
{
    Q_OBJECT

public:
    TestGenParamFilter()
    {
        const auto add = [this](const char *name, EVisibility visibility, EAccessMode mode) {
            auto *node = &map.add<FakeInteger>(name);
            node->visibility = visibility;
            node->accessMode = mode;
            return node;
        };
        map.add<FakeCategory>("Root").features = {&analog, &deep};
        deep.visibility = Expert;
        deep.features = {add("Inner", Beginner, RW)};
        auto *nameless = add("Nameless", Beginner, RW); // shows its short name; the text is tried on the empty one
        nameless->displayName = "";
        away.accessMode = NA;
        analog.features = {
            &gain, add("Black", Guru, RW), add("Hidden", Invisible, RW), add("Absent", Beginner, NI), &away, nameless};
    }

private Q_SLOTS:
    void init()
    {
        proxy = std::make_unique<GenParamTreeVisibilityFilterProxyModel>(nullptr);
        proxy->setSourceModel(new GenParamTreeModel(&map, proxy.get()));
        new QAbstractItemModelTester(proxy.get(), QAbstractItemModelTester::FailureReportingMode::QtTest, proxy.get());
    }

    void rows_data()
    {
        // A null text leaves the initial pattern.
        columns<int, QByteArray, QByteArray, QByteArray>("level", "text", "options", "expected");
        row("basic", 0, QByteArray(), "w", "Analog(AnalogGain Away Nameless)");
        row("expert category", 1, QByteArray(), "", "Analog(AnalogGain Away Nameless) Deep(Inner)");
        row("guru", 2, QByteArray(), "", "Analog(AnalogGain Black Away Nameless) Deep(Inner)");
        row("no level", -1, QByteArray(), "", "");
        row("no text", 1, "", "cw", "Analog(AnalogGain Away Nameless) Deep(Inner)");
        row("part", 1, "gain", "", "Analog(AnalogGain) Deep");
        row("part, whole", 1, "gain", "w", "Analog Deep");
        row("wildcard, whole", 1, "*gain", "w", "Analog(AnalogGain) Deep");
        row("wildcard, case", 1, "*gain", "cw", "Analog Deep");
        row("set", 0, "A[vw]?y", "", "Analog(Away)");
        row("broken set", 0, "A[", "", "Analog");
        row("category's own name", 1, "deep", "", "Analog Deep");
        row("no name fits only nothing", 0, "?*", "w", "Analog(AnalogGain Away)");
    }

    void rows()
    {
        QFETCH(int, level);
        QFETCH(QByteArray, text);
        QFETCH(QByteArray, options);
        proxy->setFilterVisibility(level);
        if (!text.isNull())
            proxy->setFilterText(QString::fromLatin1(text));
        if (options.contains('c'))
            proxy->regExp.setCaseSensitivity(Qt::CaseSensitive);
        proxy->wholeWords = options.contains('w');
        proxy->invalidate();
        QTEST(outline().toLatin1(), "expected");
    }

    void featuresComeAndGo()
    {
        QSignalSpy removed(proxy.get(), &QAbstractItemModel::rowsRemoved);
        QSignalSpy inserted(proxy.get(), &QAbstractItemModel::rowsInserted);
        for (const auto &fault : {std::function<void(Access)>(), {[](Access) { throw RUNTIME_EXCEPTION("gone"); }}}) {
            gain.fault = fault;
            gain.accessMode = fault ? RW : NI;
            QCOMPARE(removed.size(), 0); // nobody has told yet
            gain.changed();
            QCOMPARE(removed.takeFirst().mid(1), QVariantList({0, 0}));
            gain.fault = nullptr;
            gain.accessMode = RW;
            gain.changed();
            QCOMPARE(inserted.takeFirst().mid(1), QVariantList({0, 0}));
        }
        QVERIFY(removed.isEmpty() && inserted.isEmpty());
    }

    void changesInsideOfRemovals()
    {
        // What a view does that commits an edit because its row leaves: the write takes other features along.
        const auto writes = connect(proxy.get(), &QAbstractItemModel::rowsAboutToBeRemoved, this, [&] {
            away.accessMode = NI;
            away.changed();
            proxy->setFilterVisibility(0);
        });
        proxy->setFilterVisibility(2);
        proxy->setFilterText(QStringLiteral("a*")); // Black and Nameless go, and Away from within
        QCOMPARE(outline(), QStringLiteral("Analog(AnalogGain Black Away) Deep"));
        disconnect(writes);
        QTRY_COMPARE(outline(), QStringLiteral("Analog(AnalogGain)"));
        away.accessMode = NA;
        away.changed();
        QCOMPARE(outline(), QStringLiteral("Analog(AnalogGain Away)"));
    }

private:
    QString outline(const QModelIndex &parent = QModelIndex()) const
    {
        QStringList names;
        for (int row = 0; row < proxy->rowCount(parent); ++row) {
            const QString inside = outline(proxy->index(row, 0, parent));
            names << proxy->index(row, 0, parent).data().toString()
                    + (inside.isEmpty() ? QString() : QLatin1Char('(') + inside + QLatin1Char(')'));
        }
        return names.join(QLatin1Char(' '));
    }

    FakeNodeMap map;
    FakeCategory &analog = map.add<FakeCategory>("Analog");
    FakeCategory &deep = map.add<FakeCategory>("Deep");
    FakeInteger &gain = map.add<FakeInteger>("AnalogGain");
    FakeInteger &away = map.add<FakeInteger>("Away");
    std::unique_ptr<GenParamTreeVisibilityFilterProxyModel> proxy;
};

MOX_TEST_MAIN(TestGenParamFilter)
#include "tst_genparamfilter.moc"
