// Text in spin boxes. The input is a line "base minimum maximum step flags", and behind it the text that is typed.
#include "application.h"
#include "fuzzer.h"
#include "int64validator.h"
#include "qtmoxdoublespinboxval.h"
#include "qtmoxspinboxval.h"
#include "qtmoxspinboxval64.h"

#include <QKeyEvent>
#include <QLineEdit>

#include <algorithm>
#include <cmath>
#include <sstream>

namespace {

enum Flag : unsigned { Snaps = 1, Tracks = 2, Wraps = 4, Affixed = 8, TypingCounts = 16, Separated = 32 };

struct Case
{
    int base = 10;
    qlonglong minimum = 0;
    qlonglong maximum = 0;
    qlonglong step = 0;
    unsigned flags = 0;
    QString text;

    bool has(Flag flag) const { return flags & flag; }
};

Case caseOf(const std::uint8_t *data, std::size_t size)
{
    MoxFuzz::Input input(data, size);
    std::istringstream head(input.until('\n'));
    Case result;
    head >> result.base >> result.minimum >> result.maximum >> result.step >> result.flags;
    result.base = 2 + int((unsigned(result.base) - 2) % 35);
    result.text = QString::fromUtf8(QByteArray::fromStdString(input.rest())).remove(QChar(0));
    return result;
}

/** Plain digits, with a minus sign in every base. */
QString digitsOf(qlonglong number, int base)
{
    const qulonglong magnitude = number < 0 ? 0 - qulonglong(number) : qulonglong(number);
    return (number < 0 ? QStringLiteral("-") : QString()) + QString::number(magnitude, base);
}

QValidator::State verdictOn(const Int64Validator &validator, const QString &text)
{
    QString input = text;
    int pos = text.size();
    const QValidator::State verdict = validator.validate(input, pos);
    MOX_FUZZ_CHECK(input == text && pos == text.size());
    return verdict;
}

void checkValidator(const Case &given)
{
    Int64Validator validator(given.minimum, given.maximum);
    validator.setBase(given.base);
    const auto isWithin = [&](qlonglong number) { return number >= given.minimum && number <= given.maximum; };

    const QValidator::State verdict = verdictOn(validator, given.text);
    bool isNumber = false;
    const qlonglong number = given.text.toLongLong(&isNumber, given.base);
    MOX_FUZZ_CHECK((verdict == QValidator::Acceptable) == (isNumber && isWithin(number)));
    if (!isNumber)
        return;
    // The text that the number itself has is judged the same, and names the same number.
    const QString written = digitsOf(number, given.base);
    MOX_FUZZ_CHECK(written.toLongLong(nullptr, given.base) == number);
    MOX_FUZZ_CHECK(verdictOn(validator, written) == verdict);
    // A number below a positive range, or above zero where a sign may be missing, may still become one of the range.
    if (verdict == QValidator::Intermediate)
        MOX_FUZZ_CHECK(given.minimum >= 0 ? number < given.minimum : given.maximum < 0 && number > given.maximum);
}

void press(QWidget *widget, int key)
{
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &down);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &up);
}

/** Types a text and commits it. */
template<class SpinBox> void type(SpinBox &box, const QString &text)
{
    box.setLineEditText(text);
    press(&box, Qt::Key_Return);
}

class SpinBox64 : public QtMoxSpinBoxVal64
{
public:
    void setLineEditText(const QString &text) { lineEdit()->setText(text); }
    QString shown() const { return lineEdit()->text(); }
};

void checkBox64(const Case &given)
{
    SpinBox64 box;
    box.setDisplayIntegerBase(given.base);
    box.setRange(given.minimum, given.maximum);
    box.setSingleStep(given.step);
    box.setKeyboardTracking(given.has(Tracks));
    box.setWrapping(given.has(Wraps));
    box.setGroupSeparatorShown(given.has(Separated));
    const QString prefix = given.has(Affixed) ? QStringLiteral("0x") : QString();
    const QString suffix = given.has(Affixed) ? QStringLiteral(" us") : QString();
    box.setPrefix(prefix);
    box.setSuffix(suffix);
    box.setValue(box.minimum());
    MOX_FUZZ_CHECK(box.value() == box.minimum());
    box.setValidateStepping(given.has(Snaps));

    bool isNumber = false;
    const qlonglong number = given.text.toLongLong(&isNumber, given.base);
    const bool isTaken = isNumber && number >= given.minimum && number <= given.maximum;
    type(box, prefix + given.text + suffix);
    if (!isTaken)
        MOX_FUZZ_CHECK(box.value() == box.minimum());
    else if (!given.has(Snaps))
        MOX_FUZZ_CHECK(box.value() == number);
    // With keyboard tracking each edit is committed or undone at once; else the display shows the value after Return.
    if (!given.has(Separated) && box.value() >= box.minimum() && box.value() <= box.maximum())
        MOX_FUZZ_CHECK(box.shown() == prefix + box.textFromValue(box.value()) + suffix);

    const qlonglong back = box.valueFromText(prefix + given.text + suffix);
    MOX_FUZZ_CHECK(back == (isTaken ? number : box.minimum()));

    const bool wasWithin = box.value() >= box.minimum() && box.value() <= box.maximum();
    box.setValidateStepping(false);
    for (int key : {Qt::Key_Up, Qt::Key_Up, Qt::Key_Down, Qt::Key_PageDown}) {
        press(&box, key);
        if (wasWithin)
            MOX_FUZZ_CHECK(box.value() >= box.minimum() && box.value() <= box.maximum());
    }
    box.sizeHint();
    box.clear();
}

int asInt(qlonglong number)
{
    return int(std::clamp<qlonglong>(number, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

void checkIntBox(const Case &given)
{
    QtMoxSpinBoxVal box;
    box.setDisplayIntegerBase(given.base);
    box.setRange(asInt(given.minimum), asInt(given.maximum));
    box.setSingleStep(asInt(given.step));
    box.setValidate(given.has(Snaps));
    box.setValidateTyping(given.has(TypingCounts));
    box.setKeyboardTracking(given.has(Tracks));
    box.setWrapping(given.has(Wraps));
    const auto isWithin = [&] { return box.value() >= box.minimum() && box.value() <= box.maximum(); };
    type(box, given.text);
    MOX_FUZZ_CHECK(isWithin());
    for (int key : {Qt::Key_Up, Qt::Key_PageUp, Qt::Key_Down}) {
        press(&box, key);
        MOX_FUZZ_CHECK(isWithin());
    }
    // What it shows is what it takes: a second time changes nothing.
    const int value = box.value();
    box.setValue(value);
    MOX_FUZZ_CHECK(box.value() == value || given.has(Snaps));
}

void checkDoubleBox(const Case &given)
{
    QtMoxDoubleSpinBoxVal box;
    box.setDecimals(int(given.flags % 12));
    box.setRange(double(given.minimum) / 8, double(given.maximum) / 8);
    box.setSingleStep(double(given.step) / 8);
    box.setValidate(given.has(Snaps));
    box.setValidateTyping(given.has(TypingCounts));
    box.setKeyboardTracking(given.has(Tracks));
    box.setWrapping(given.has(Wraps));
    const auto isWithin = [&] { return box.value() >= box.minimum() && box.value() <= box.maximum(); };
    // A step of 0 has no grid: snapped to it, a value is no number.
    const bool isDefined = !given.has(Snaps) || box.singleStep() != 0.0;
    type(box, given.text);
    if (isDefined)
        MOX_FUZZ_CHECK(isWithin());
    for (int key : {Qt::Key_Up, Qt::Key_PageUp, Qt::Key_Down}) {
        press(&box, key);
        if (isDefined)
            MOX_FUZZ_CHECK(isWithin());
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size > 256)
        return -1;
    MoxFuzz::needApplication();
    const Case given = caseOf(data, size);
    checkValidator(given);
    checkBox64(given);
    checkIntBox(given);
    checkDoubleBox(given);
    return 0;
}
