#include "int64validator.h"
#include "testmain.h"

namespace {
constexpr qlonglong Min = std::numeric_limits<qlonglong>::min();
constexpr qlonglong Max = std::numeric_limits<qlonglong>::max();
} // namespace

class TestInt64Validator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void validate_data()
    {
        QTest::addColumn<QVector<qlonglong>>("range"); // and base
        QTest::addColumn<QString>("verdicts"); // X invalid, ? intermediate, = acceptable
        const auto row = [](const char *name, qlonglong bottom, qlonglong top, int base, const char *verdicts) {
            QTest::newRow(name) << QVector<qlonglong>{bottom, top, base} << QString::fromLatin1(verdicts);
        };
        row("above zero", 100, 200, 10, "? X- X-5 ?0 ?5 ?99 =100 =150 =200 X201 X1,0 X1.0 Xf =+100 Xx");
        row("from zero", 0, 99, 10, "? X- X-1 =0 =99 X100");
        row("up to zero", -50, 0, 10, "? ?- X-51 =-50 =0 X1 X50");
        row("below zero", -100, -10, 10, "? ?- X-101 =-100 =-10 ?-9 ?-5 ?5 ?100 X101");
        row("swapped above zero", 10, 5, 10, "? X- X-1 ?0 ?7 ?9 X10 X11");
        row("one number", 7, 7, 10, "?6 =7 X8");
        row("all numbers", Min, Max, 10,
            "=-9223372036854775808 =9223372036854775807 X-9223372036854775809 X9223372036854775808");
        row("the smallest has no negative", Min, -2, 10,
            "? ?- =-9223372036854775808 =-2 X-1 X0 X1 X9223372036854775807");
        row("almost the smallest", Min + 1, -2, 10, "X-9223372036854775808 ?-1 ?9223372036854775807");
        row("beyond doubles", 9007199254740993, Max, 10, "?9007199254740992 =9007199254740993");
        row("base 16", -255, 255, 16, "? ?- =-ff =FF X100 Xg");
        row("base 2", 0, 5, 2, "=101 X110 X2");
    }

    void validate()
    {
        QFETCH(QVector<qlonglong>, range);
        QFETCH(QString, verdicts);
        Int64Validator validator(range[0], range[1]);
        validator.setBase(int(range[2]));
        QString answers;
        for (const QString &verdict : verdicts.split(QLatin1Char(' '))) {
            QString text = verdict.mid(1);
            int pos = 3;
            answers += QLatin1Char("X?="[validator.validate(text, pos)]) + text + QLatin1Char(' ');
            validator.fixup(text);
            QCOMPARE(text, verdict.mid(1));
            QCOMPARE(pos, 3);
        }
        QCOMPARE(answers.chopped(1), verdicts);
    }

    void bounds()
    {
        Int64Validator validator;
        QVector<qlonglong> log; // of the bottom, then of the top negated
        connect(&validator, &Int64Validator::bottomChanged, this, [&](qlonglong bottom) { log << 0 << bottom; });
        connect(&validator, &Int64Validator::topChanged, this, [&](qlonglong top) { log << 1 << top; });
        QCOMPARE(validator.property("bottom"), QVariant(Min));
        QCOMPARE(validator.property("top"), QVariant(Max));
        validator.setRange(7, 3);
        validator.setRange(7, 4);
        validator.setRange(8, 4);
        validator.setRange(8, 4);
        QVERIFY(validator.setProperty("bottom", -1));
        validator.setTop(4);
        QCOMPARE(log, (QVector<qlonglong>{0, 7, 1, 3, 1, 4, 0, 8, 0, -1}));
    }
};

MOX_TEST_MAIN(TestInt64Validator)
#include "tst_int64validator.moc"
