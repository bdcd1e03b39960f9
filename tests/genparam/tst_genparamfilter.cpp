#include "fakenodes.h"
#include "genparamcontroldata.h"
#include "genparamtreemodel.h"
#include "genparamtreevisibilityfilterproxymodel.h"
#include "testmain.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QStandardItemModel>

using namespace GenApi;
using namespace MoxTest;

class TestGenParamFilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        tester.reset();
        proxy = std::make_unique<GenParamTreeVisibilityFilterProxyModel>(nullptr);
        if (!gain) {
            auto &root = map.add<FakeCategory>("Root");
            auto &analog = map.add<FakeCategory>("Analog");
            auto &expert = map.add<FakeCategory>("Deep");
            expert.visibility = Expert;
            gain = &map.add<FakeInteger>("AnalogGain");
            auto &blackLevel = map.add<FakeInteger>("Black");
            blackLevel.visibility = Guru;
            auto &hidden = map.add<FakeInteger>("Hidden");
            hidden.visibility = Invisible;
            auto &absent = map.add<FakeInteger>("Absent");
            absent.accessMode = NI;
            auto &away = map.add<FakeInteger>("Away");
            away.accessMode = NA;
            auto &inner = map.add<FakeInteger>("Inner");
            auto &nameless = map.add<FakeInteger>("Nameless");
            nameless.displayName = "";
            root.features = {&analog, &expert};
            analog.features = {gain, &blackLevel, &hidden, &absent, &away, &nameless};
            expert.features = {&inner};
        }
        gain->accessMode = RW;
        gain->fault = nullptr;
        proxy->setSourceModel(new GenParamTreeModel(&map, proxy.get()));
        tester = std::make_unique<QAbstractItemModelTester>(proxy.get(),
                                                            QAbstractItemModelTester::FailureReportingMode::QtTest);
    }

    void rows_data()
    {
        QTest::addColumn<int>("level");
        QTest::addColumn<QString>("text"); // null leaves the initial pattern
        QTest::addColumn<bool>("matchCase");
        QTest::addColumn<bool>("whole");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *name, int level, const char *text, const char *options, const char *expected) {
            QTest::newRow(name) << level << QString::fromUtf8(text) << bool(strchr(options, 'c'))
                                << bool(strchr(options, 'w')) << QString::fromUtf8(expected);
        };
        row("basic", 0, nullptr, "", "Analog(AnalogGain Away Nameless)");
        row("expert category", 1, nullptr, "", "Analog(AnalogGain Away Nameless) Deep(Inner)");
        row("guru", 2, nullptr, "", "Analog(AnalogGain Black Away Nameless) Deep(Inner)");
        row("no level", -1, nullptr, "", "");
        row("initial pattern, whole", 0, nullptr, "w", "Analog(AnalogGain Away Nameless)");
        row("no text", 1, "", "cw", "Analog(AnalogGain Away Nameless) Deep(Inner)");
        row("part", 1, "gain", "", "Analog(AnalogGain) Deep");
        row("part, whole", 1, "gain", "w", "Analog Deep");
        row("wildcard, whole", 1, "*gain", "w", "Analog(AnalogGain) Deep");
        row("wildcard, case", 1, "*gain", "cw", "Analog Deep");
        row("case", 1, "Gain", "c", "Analog(AnalogGain) Deep");
        row("one letter", 0, "Aw?y", "", "Analog(Away)");
        row("set", 0, "A[vw]ay", "", "Analog(Away)");
        row("broken set", 0, "A[", "", "Analog");
        row("category's own name", 1, "deep", "", "Analog Deep");
        row("no name fits only nothing", 0, "?*", "w", "Analog(AnalogGain Away)");
    }

    void rows()
    {
        QFETCH(int, level);
        QFETCH(QString, text);
        QFETCH(bool, matchCase);
        QFETCH(bool, whole);
        QFETCH(QString, expected);
        // A nameless feature shows its short name; the text is tried on the display name, which is empty.
        QCOMPARE(outline(), QStringLiteral("Analog(AnalogGain Away Nameless)"));
        proxy->setFilterVisibility(level);
        if (!text.isNull())
            proxy->setFilterText(text);
        proxy->regExp.setCaseSensitivity(matchCase ? Qt::CaseSensitive : Qt::CaseInsensitive);
        proxy->wholeWords = whole;
        proxy->invalidate();
        QCOMPARE(outline(), expected);
    }

    void featuresComeAndGo()
    {
        const QString all = outline();
        QSignalSpy removed(proxy.get(), &QAbstractItemModel::rowsRemoved);
        QSignalSpy inserted(proxy.get(), &QAbstractItemModel::rowsInserted);
        for (const bool throws : {false, true}) {
            if (throws)
                gain->fault = [](Access) { throw RUNTIME_EXCEPTION("gone"); };
            else
                gain->accessMode = NI;
            QCOMPARE(outline(), all); // nobody has told yet
            gain->changed();
            QCOMPARE(removed.size(), 1);
            QCOMPARE(removed.takeFirst().mid(1), QVariantList({0, 0}));
            gain->accessMode = RW;
            gain->fault = nullptr;
            gain->changed();
            QCOMPARE(inserted.size(), 1);
            QCOMPARE(inserted.takeFirst().mid(1), QVariantList({0, 0}));
            QCOMPARE(outline(), all);
        }
    }

    void changesInsideOfRemovals()
    {
        // What a view does that commits an edit because its row leaves: the write takes other features along.
        auto &away = *dynamic_cast<FakeNode *>(map.GetNode("Away"));
        const auto writes = connect(proxy.get(), &QAbstractItemModel::rowsAboutToBeRemoved, this, [&] {
            away.accessMode = NI;
            away.changed();
            proxy->setFilterVisibility(0);
        });
        QSignalSpy removed(proxy.get(), &QAbstractItemModel::rowsRemoved);
        proxy->setFilterVisibility(2);
        proxy->setFilterText(QStringLiteral("a*")); // Black and Nameless go, and Away from within
        QCOMPARE(outline(), QStringLiteral("Analog(AnalogGain Black Away) Deep"));
        disconnect(writes);
        QTRY_COMPARE(outline(), QStringLiteral("Analog(AnalogGain)"));
        away.accessMode = NA;
        away.changed();
        QCOMPARE(outline(), QStringLiteral("Analog(AnalogGain Away)"));
    }

    void rowsWithoutNode()
    {
        QStandardItemModel items(2, 1);
        items.setData(items.index(1, 0), QVariant::fromValue<IValue *>(nullptr), IValueRole);
        items.setData(items.index(0, 0), 7, IValueRole);
        proxy->setSourceModel(&items);
        proxy->setFilterText(QStringLiteral("x"));
        QCOMPARE(proxy->rowCount(), 2);
        proxy->setSourceModel(nullptr);
    }

private:
    QString outline(const QModelIndex &parent = QModelIndex()) const
    {
        QStringList names;
        for (int row = 0; row < proxy->rowCount(parent); ++row) {
            const QModelIndex index = proxy->index(row, 0, parent);
            const QString inside = outline(index);
            names << index.data().toString()
                    + (inside.isEmpty() ? QString() : QLatin1Char('(') + inside + QLatin1Char(')'));
        }
        return names.join(QLatin1Char(' '));
    }

    FakeNodeMap map;
    FakeInteger *gain = nullptr;
    std::unique_ptr<GenParamTreeVisibilityFilterProxyModel> proxy;
    std::unique_ptr<QAbstractItemModelTester> tester;
};

MOX_TEST_MAIN(TestGenParamFilter)
#include "tst_genparamfilter.moc"
