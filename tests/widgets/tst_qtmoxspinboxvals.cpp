#include "qtmoxdoublespinboxval.h"
#include "qtmoxspinboxval.h"
#include "testmain.h"

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr int Min = std::numeric_limits<int>::min();
constexpr int Max = std::numeric_limits<int>::max();

/** A dialog with one of the boxes, another field, and a default button. */
template<class Box> struct Scene
{
    explicit Scene(int decimals = 0)
    {
        auto *layout = new QVBoxLayout(&dialog);
        layout->addWidget(box);
        layout->addWidget(other);
        layout->addWidget(button);
        button->setDefault(true);
        if constexpr (std::is_same_v<Box, QtMoxDoubleSpinBoxVal>)
            box->setDecimals(decimals);
        dialog.show();
        box->setFocus();
        if (!QTest::qWaitForWindowActive(&dialog) || !box->hasFocus())
            qFatal("no focus");
        QObject::connect(button, &QPushButton::clicked, button, [this] { log << "default"; });
        QObject::connect(box, &Box::editingFinished, button, [this] { log << "finished"; });
        QObject::connect(box, QOverload<decltype(box->value())>::of(&Box::valueChanged), button,
                         [this](auto value) { log << QByteArray::number(value); });
    }

    void type(const char *text)
    {
        box->selectAll();
        QTest::keyClicks(box, QString::fromLatin1(text));
    }

    QByteArrayList log;
    QDialog dialog;
    Box *box = new Box(&dialog);
    QLineEdit *other = new QLineEdit(&dialog);
    QPushButton *button = new QPushButton(&dialog);
};

template<class Box> void typing()
{
    Scene<Box> scene;
    Box &box = *scene.box;
    box.setRange(0, 200);
    box.setValue(7);
    QVERIFY(box.validateTyping() && !box.validate());

    // As in Qt: every keystroke counts; Return repeats the value and reaches the dialog.
    scene.type("42");
    QTest::keyClick(&box, Qt::Key_Return);
    QCOMPARE(scene.log, (QByteArrayList{"7", "4", "42", "42", "finished", "default"}));
    scene.log.clear();

    box.setValidateTyping(false);
    scene.type("16x3"); // what is no digit is refused while it is typed
    QCOMPARE(box.text(), QStringLiteral("163"));
    scene.other->setFocus();
    QCOMPARE(box.value(), decltype(box.value())(42));
    QCOMPARE(box.text(), QStringLiteral("42"));
    QCOMPARE(scene.log, QByteArrayList{"finished"});
    scene.log.clear();
    box.setFocus();
    for (Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        scene.type(key == Qt::Key_Return ? "43" : "44");
        QTest::keyClick(&box, key);
    }
    QCOMPARE(scene.log, (QByteArrayList{"43", "44"}));
    scene.log.clear();
    box.setValidate(true);
    box.setSingleStep(10);
    box.setLineEditText(QStringLiteral("68"));
    QTest::keyClick(&box, Qt::Key_Return);
    QCOMPARE(scene.log, QByteArrayList{"70"});
    scene.log.clear();

    // A suffix is no part of a number: the key goes on to the base, which keeps the value.
    box.setSuffix(QStringLiteral(" us"));
    scene.type("55");
    QTest::keyClick(&box, Qt::Key_Return);
    QCOMPARE(box.text(), QStringLiteral("70 us"));
    QCOMPARE(scene.log, (QByteArrayList{"70", "finished", "default"}));
}
} // namespace

class TestQtMoxSpinBoxVals : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typingIntegers() { typing<QtMoxSpinBoxVal>(); }
    void typingDoubles() { typing<QtMoxDoubleSpinBoxVal>(); }

    void typingWithoutStep()
    {
        Scene<QtMoxDoubleSpinBoxVal> scene(2);
        scene.box->setLocale(QLocale(QLocale::German));
        scene.box->setValidateTyping(false);
        scene.box->setLineEditText(QStringLiteral("1.5")); // read with a point in every locale
        QTest::keyClick(scene.box, Qt::Key_Return);
        QCOMPARE(scene.log, QByteArrayList{"1.5"});
        scene.box->setSingleStep(0.0);
        scene.box->setLineEditText(QStringLiteral("2.5"));
        QTest::keyClick(scene.box, Qt::Key_Return);
        QCOMPARE(scene.log, (QByteArrayList{"1.5", "1.5", "finished", "default"}));
    }

    void snapping_data()
    {
        QTest::addColumn<QVector<int>>("row"); // range, step, value, snapped, and a step up from there
        using Row = QVector<int>;
        QTest::newRow("to the grid") << Row{10, 100, 25, 48, 60, 85};
        QTest::newRow("below the range") << Row{10, 100, 25, -37, 10, 35};
        QTest::newRow("no step") << Row{10, 100, 0, 37, 37, 37};
        QTest::newRow("overflow") << Row{0, Max, 10, Max - 2, Max, Max};
        QTest::newRow("overflow from the least one") << Row{Min, Max, 10, Max - 2, Max, Max};
        QTest::newRow("distance beyond the type") << Row{Min, Max, 1000, 5, 648, 1648};
    }

    void snapping()
    {
        QFETCH(QVector<int>, row);
        QtMoxSpinBoxVal box;
        box.setRange(row[0], row[1]);
        box.setSingleStep(row[2]);
        box.setWrapping(true); // not heeded
        box.setValue(row[3]);
        QCOMPARE(box.value(), qBound(row[0], row[3], row[1]));
        box.setValue(row[1]);
        box.stepBy(1);
        QCOMPARE(box.value(), row[1]);
        box.setValidate(true);
        box.setValue(row[3]);
        QCOMPARE(box.value(), row[4]);
        box.stepBy(1);
        QCOMPARE(box.value(), row[5]);
    }

    void doubles()
    {
        QtMoxDoubleSpinBoxVal box;
        box.setRange(-1.0, 1.0);
        box.setSingleStep(0.75);
        for (const auto &[value, snapped] :
             {qMakePair(-1.0, -1.0), {-0.65, -1.0}, {-0.625, -0.25}, {0.1, -0.25}, {0.2, 0.5}, {0.9, 1.0}, {1.0, 1.0}})
            QCOMPARE(box.doValidation(value), snapped);
        box.setSingleStep(0.0);
        box.setValidate(true);
        QVERIFY(qIsNaN(box.doValidation(0.3)));
        box.setValue(0.3);
        QCOMPARE(box.value(), 1.0);
        // Beyond the integers that hold a quotient.
        box.setRange(0.0, 1e300);
        box.setSingleStep(0.5);
        QCOMPARE(box.doValidation(1e200), 1e200);
    }
};

MOX_TEST_MAIN(TestQtMoxSpinBoxVals)
#include "tst_qtmoxspinboxvals.moc"
