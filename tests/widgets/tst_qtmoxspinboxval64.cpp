#include "qtmoxspinboxval64.h"
#include "testmain.h"

#include <QLineEdit>
#include <QPointer>
#include <QRandomGenerator>
#include <QStyleOptionSpinBox>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <functional>

namespace {
constexpr qlonglong Min = std::numeric_limits<qlonglong>::min();
constexpr qlonglong Max = std::numeric_limits<qlonglong>::max();

QStringList emitted(qlonglong number, const QString &text)
{
    return {QString::number(number), QLatin1Char('"') + text + QLatin1Char('"')};
}

struct Box : QtMoxSpinBoxVal64
{
    explicit Box(QWidget *parent = nullptr) : QtMoxSpinBoxVal64(parent)
    {
        connect(this, QOverload<qlonglong>::of(&Box::valueChanged), this,
                [this](qlonglong number) { log << emitted(number, {}).constFirst(); });
        connect(this, QOverload<const QString &>::of(&Box::valueChanged), this,
                [this](const QString &text) { log << emitted(0, text).constLast(); });
    }
    using QtMoxSpinBoxVal64::lineEdit;
    using QtMoxSpinBoxVal64::stepEnabled;
    void pressButton(bool up)
    {
        QStyleOptionSpinBox option;
        initStyleOption(&option);
        const auto part = up ? QStyle::SC_SpinBoxUp : QStyle::SC_SpinBoxDown;
        const QRect rect = style()->subControlRect(QStyle::CC_SpinBox, &option, part, this);
        QTest::mousePress(this, Qt::LeftButton, {}, rect.center());
    }

    QStringList log; // of both signals
};

/** The box as a state machine of its own: range 10 to 495, step 20, prefix "<", suffix ">". */
struct Model
{
    const bool tracking, ignoreFocusOut, buttonTracking, validate, wrapping, readOnly;
    qlonglong value, pending;
    QString text;
    bool pressed, dirty;
    QStringList log;

    void show(qlonglong number) { text = QStringLiteral("<%1>").arg(number); }
    QString digits() const { return text.mid(1).chopped(1); }
    bool stepEnabled(bool up) const { return !readOnly && (wrapping || (up ? pending < 495 : pending > 10)); }
    void commit(qlonglong number)
    {
        if (number < 10 || number > 495)
            return;
        const qlonglong above = validate && number < 495 ? (number - 10) % 20 : 0;
        show(number = std::min(above < 10 ? number - above : number - above + 20, 495ll));
        if (number != value)
            log << emitted(value = pending = number, text);
    }
    void commitText(bool discard)
    {
        dirty = false;
        const qlonglong number = digits().toLongLong(); // no text: 0, which is out of range too
        discard || number<10 || number> 495 ? show(value) : commit(number);
    }
    void resolve()
    {
        if (!tracking && dirty)
            commitText(ignoreFocusOut);
    }
    void edit(const QString &number)
    {
        text = QLatin1Char('<') + number + QLatin1Char('>');
        dirty = true;
        if (tracking)
            commitText(false);
    }
    void type(const QString &number) // over the selected digits
    {
        for (int i = 0; i < number.size() && !readOnly; ++i) {
            const QString typed = (i == 0 ? QString() : digits()) + number[i];
            if (typed.toLongLong() <= 495)
                edit(typed);
        }
    }
    void press(int steps)
    {
        resolve();
        pressed = true;
        step(steps);
    }
    void release()
    {
        pressed = false;
        if (!buttonTracking)
            commit(pending);
    }
    void step(int steps)
    {
        if (!stepEnabled(steps > 0))
            return;
        const bool displayOnly = pressed && !buttonTracking;
        qlonglong number = (displayOnly ? pending : value) + 20 * steps;
        if (wrapping && (number < 10 || number > 495))
            number = number < 10 ? 495 : 10;
        displayOnly ? show(pending = number) : commit(number);
    }
};
} // namespace

class TestQtMoxSpinBoxVal64 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cycles_data()
    {
        QTest::addColumn<int>("flags");
        for (int flags = 0; flags < 64; ++flags)
            QTest::addRow("%s%s%s%s%s%s", flags & 1 ? "tracking " : "", flags & 2 ? "ignoreFocusOut " : "",
                          flags & 4 ? "buttonTracking " : "", flags & 8 ? "validateStepping " : "",
                          flags & 16 ? "wrapping " : "", flags & 32 ? "readOnly" : "")
                << flags;
    }

    /** Keys, mouse, wheel, focus and calls in random order, compared with the model after each. */
    void cycles()
    {
        QFETCH(int, flags);
        const auto flag = [&](int bit) { return bool(flags & bit); };
        Model model{flag(1), flag(2), flag(4), flag(8), flag(16), flag(32), 50, 50, QStringLiteral("<50>"),
                    false,   false,   {}};
        QWidget window;
        QVBoxLayout layout(&window);
        Box box;
        QLineEdit other;
        layout.addWidget(&box);
        layout.addWidget(&other);
        box.setRange(10, 495);
        box.setValue(50);
        box.setSingleStep(20);
        box.setPrefix(QStringLiteral("<"));
        box.setSuffix(QStringLiteral(">"));
        box.setKeyboardTracking(model.tracking);
        box.setIgnoreFocusOut(model.ignoreFocusOut);
        box.setButtonTracking(model.buttonTracking);
        box.setValidateStepping(model.validate);
        box.setWrapping(model.wrapping);
        box.setReadOnly(model.readOnly);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        box.log.clear();

        constexpr std::pair<Qt::Key, int> keys[] = {
            {Qt::Key_Up, 1}, {Qt::Key_Down, -1}, {Qt::Key_PageUp, 10}, {Qt::Key_PageDown, -10}};
        QRandomGenerator random(flags + 1);
        Qt::Key heldKey{};
        bool mouseHeld = false;
        for (int i = 0; i < 150; ++i) {
            const int event = random.bounded(12), number = random.bounded(700);
            const bool up = number & 1, free = !heldKey && !mouseHeld;
            if (event < 2 && free) {
                const auto &[key, steps] = keys[number % 4];
                QTest::keyPress(&box, heldKey = key);
                model.press(steps);
            } else if (event < 4 && free) {
                mouseHeld = true;
                box.pressButton(up);
                model.press(up ? 1 : -1);
            } else if (event < 2) {
                heldKey ? QTest::keyRelease(&box, heldKey) : QTest::mouseRelease(&box, Qt::LeftButton);
                model.release();
                heldKey = {};
                mouseHeld = false;
            } else if (event < 5) {
                QWheelEvent wheel({3, 3}, {3, 3}, {}, {0, up ? 120 : -120}, {}, {}, Qt::NoScrollPhase, false);
                QApplication::sendEvent(&box, &wheel);
                model.step(up ? 1 : -1);
            } else if (event == 5) {
                QTest::keyClick(&box, up ? Qt::Key_Return : Qt::Key_Enter);
                model.commitText(false);
            } else if (event < 8) {
                box.selectAll();
                QTest::keyClicks(&box, QString::number(number));
                model.type(QString::number(number));
            } else if (event == 8 && !model.digits().isEmpty()) {
                box.selectAll();
                QTest::keyClick(&box, Qt::Key_Delete);
                if (!model.readOnly)
                    model.edit({});
            } else if (event == 9) {
                if (box.hasFocus())
                    model.resolve();
                other.setFocus();
            } else if (event == 10) {
                box.setFocus();
            } else if (event == 11) {
                up ? box.setValue(number) : box.clear();
                up ? model.commit(number) : void(model.text = QStringLiteral("<>"));
            }
            QCOMPARE(box.log, model.log);
            QCOMPARE(box.value(), model.value);
            QCOMPARE(box.text(), model.text);
            QCOMPARE(bool(box.stepEnabled() & Box::StepUpEnabled), model.stepEnabled(true));
            QCOMPARE(bool(box.stepEnabled() & Box::StepDownEnabled), model.stepEnabled(false));
        }
    }

    /** The timer of a held button moves the display alone; the release commits once. */
    void heldButton()
    {
        Box box;
        box.setRange(0, Max);
        box.setButtonTracking(false);
        box.show();
        box.pressButton(true);
        QTRY_VERIFY(box.text().toInt() > 3);
        QTest::mouseRelease(&box, Qt::LeftButton);
        QCOMPARE(box.log, emitted(box.value(), box.text()));
        // A held key's own repetition is neither press nor release.
        QTest::keyPress(&box, Qt::Key_Up);
        QKeyEvent repeated(QEvent::KeyRelease, Qt::Key_Up, {}, {}, true);
        QApplication::sendEvent(&box, &repeated);
        QCOMPARE(box.text(), QString::number(box.value() + 1));
        QCOMPARE(box.log.size(), 2);
    }

    void limits_data()
    {
        QTest::addColumn<QVector<qlonglong>>("row"); // range, step, value, steps, validateStepping, result
        using Row = QVector<qlonglong>;
        QTest::newRow("half of an odd step") << Row{0, 100, 5, 12, 0, 1, 15};
        QTest::newRow("beyond doubles") << Row{0, Max, 2, 9007199254740993, 1, 0, 9007199254740995};
        QTest::newRow("to the largest") << Row{0, Max, 1, Max - 1, 1, 0, Max};
        QTest::newRow("overflow refused") << Row{0, Max, 1, Max, 1, 0, Max};
        QTest::newRow("overflow in range") << Row{Min, Max, 1, Max, 1, 0, Min};
        QTest::newRow("overflow of the product") << Row{Min, Max, Max, 0, 3, 0, Max - 2};
        QTest::newRow("overflow of the distance") << Row{Min, Max, 1000, 5, 0, 1, 808};
        QTest::newRow("overflow of the snap")
            << Row{0, Max, 6000000000000000000, 9100000000000000000, 0, 1, -6446744073709551616};
        QTest::newRow("smallest by -1") << Row{Min, Max, -1, 0, 0, 1, 0};
        QTest::newRow("no step") << Row{0, 100, 0, 37, 1, 1, 37};
    }

    void limits()
    {
        QFETCH(QVector<qlonglong>, row);
        Box box;
        box.setRange(row[0], row[1]);
        box.setSingleStep(row[2]);
        box.setValidateStepping(row[5]);
        box.setValue(row[3]);
        if (row[4])
            box.stepBy(int(row[4]));
        QCOMPARE(box.value(), row[6]);
        QCOMPARE(box.text(), QString::number(row[6]));
    }

    /** Against the rule in wider integers. */
    void snappingAtRandom()
    {
        QRandomGenerator random(1);
        Box box;
        box.setValidateStepping(true);
        for (int i = 0; i < 2000; ++i) {
            const auto positive = [&] { return qlonglong(1 + (random.generate64() >> (2 + random.bounded(60)))); };
            const qlonglong minimum = i % 2 ? positive() : -positive(), maximum = minimum + positive(),
                            step = positive();
            const qlonglong value = minimum + qlonglong(random.generate64() % quint64(maximum - minimum + 1));
            const __int128 line = (value - minimum) / step * __int128(step) + minimum;
            const __int128 nearest = line == value || value - line < step / 2 ? line : line + step;
            box.setRange(minimum, maximum);
            box.setSingleStep(step);
            box.setValue(value);
            QCOMPARE(box.value(), value == maximum || nearest > maximum ? maximum : qlonglong(nearest));
        }
    }

    void bases()
    {
        Box box;
        box.setRange(Min, Max);
        box.setKeyboardTracking(false);
        for (int base : {2, 10, 16, 36}) {
            box.setDisplayIntegerBase(base);
            for (qlonglong value : {Min, -9007199254740993ll}) {
                box.setValue(value);
                const QString text = box.text();
                QCOMPARE(std::strtoll(text.toLatin1().data(), nullptr, base), value);
                QCOMPARE(box.cleanText(), QString::number(value));
                QCOMPARE(box.valueFromText(text), value);
                box.setValue(0);
                box.selectAll();
                QTest::keyClicks(&box, text);
                QTest::keyClick(&box, Qt::Key_Return);
                QTest::keyClick(&box, Qt::Key_Return); // the same value: nothing to tell
                QCOMPARE(box.log.mid(4), emitted(value, text));
                box.log.clear();
            }
        }
        QCOMPARE(box.valueFromText(QStringLiteral("+")), Min);
    }

    /** Group separators are left out, or shown and then not to be committed. */
    void locales()
    {
        Box box;
        box.setRange(Min, Max);
        for (const QLocale locale : {QLocale::English, QLocale::German, QLocale::French, QLocale::Hindi}) {
            box.setLocale(locale);
            for (qlonglong value : {Min, Max, -1234567ll, -999ll, 1000ll}) {
                const QString grouped = locale.toString(value);
                box.setGroupSeparatorShown(true);
                box.setValue(value);
                box.log.clear();
                QTest::keyClick(&box, Qt::Key_Return);
                QCOMPARE(box.text(), grouped);
                QCOMPARE(box.log, QStringList());
                box.setGroupSeparatorShown(false);
                box.setValue(value);
                QCOMPARE(box.text(), QString(grouped).remove(locale.groupSeparator()));
            }
        }
    }

    void ranges()
    {
        Box box;
        QCOMPARE(box.stepEnabled(), Box::StepUpEnabled);
        box.setRange(10, 5);
        QString text = QStringLiteral("10");
        int pos = 0;
        QCOMPARE(box.validate(text, pos), QValidator::Invalid);
        QCOMPARE(box.maximum(), 10ll);
        box.setMinimum(20);
        QCOMPARE(box.maximum(), 20ll);
        box.setMaximum(15);
        QCOMPARE(box.minimum(), 15ll);
        box.setPrefix(QStringLiteral("a")); // the value, 0, is outside: the text stays
        box.setValue(1000);
        QCOMPARE(box.text(), QStringLiteral("0"));
    }

    void cursor()
    {
        Box box;
        QLineEdit &edit = *box.lineEdit();
        box.setPrefix(QStringLiteral("ab"));
        box.setSuffix(QStringLiteral("cd"));
        box.setValue(57);
        const auto at = [&](int pos) {
            edit.setCursorPosition(pos);
            return edit.cursorPosition();
        };
        QCOMPARE(QVector<int>({at(6), at(2), at(0), at(3), at(1), at(5)}), QVector<int>({4, 2, 2, 3, 3, 4}));
        box.selectAll();
        QCOMPARE(edit.selectedText() + QString::number(edit.cursorPosition()), QStringLiteral("572"));
        box.clear();
        QCOMPARE(edit.text() + QString::number(edit.cursorPosition()) + box.cleanText(), QStringLiteral("abcd257"));
        // A text without room between prefix and suffix has no place for the cursor: it must not be sought for ever.
        for (const char *text : {"abc", "x"}) {
            edit.setText(QString::fromLatin1(text));
            for (int pos : {0, 1, 3, 2, 0, 3})
                at(pos);
            box.selectAll();
        }
    }

    void hints()
    {
        Box box;
        const auto width = [&](const char *text) { return box.fontMetrics().horizontalAdvance(QLatin1String(text)); };
        const QSize hint = box.sizeHint();
        box.setPrefix(QStringLiteral("prefix "));
        QCOMPARE(box.sizeHint(), hint); // until the range is set
        box.setMinimum(Min);
        QCOMPARE(box.sizeHint(), hint + QSize(width("prefix -9223372036854775808 ") - width("99 "), 0));
        QCOMPARE(box.minimumSizeHint().width(), box.sizeHint().width());
    }

    /** A slot of the first signal may delete the box, whatever made the box emit. */
    void destroyedInSlot()
    {
        const std::function<void(Box *)> actions[] = {
            [](Box *box) { box->stepBy(1); }, [](Box *box) { box->setSuffix(QStringLiteral("b")); }, // snaps
            [](Box *box) {
                QWheelEvent wheel({3, 3}, {3, 3}, {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
                QApplication::sendEvent(box, &wheel);
            },
            [](Box *box) { QTest::sendKeyEvent(QTest::Press, box, Qt::Key_Return, QString(), Qt::NoModifier); },
            [](Box *box) { QTest::sendKeyEvent(QTest::Press, box, Qt::Key_Up, QString(), Qt::NoModifier); }};
        for (const auto &action : actions) {
            QPointer<Box> box = new Box;
            box->setValue(57);
            box->setSingleStep(20);
            box->setValidateStepping(true);
            box->setKeyboardTracking(false);
            box->setIgnoreFocusOut(false);
            box->selectAll();
            QTest::keyClicks(box, QStringLiteral("33"));
            connect(box, QOverload<qlonglong>::of(&Box::valueChanged), [&] { delete box; });
            action(box);
            QVERIFY(!box);
        }
    }
};

MOX_TEST_MAIN(TestQtMoxSpinBoxVal64)
#include "tst_qtmoxspinboxval64.moc"
