#include "qtmoxspinboxval64_p.h"

#include "qtmoxspinboxval64.h"
#include "stepgrid.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QStyle>
#include <QStyleOptionSpinBox>

#include <algorithm>

namespace {

bool isStepKey(const QKeyEvent &event)
{
    switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return !event.isAutoRepeat();
    default:
        return false;
    }
}

} // namespace

/**
 * Looks at the events of the spin box before the spin box does, and keeps none from it. Mouse presses in the line edit do
 * not come by here; those on the step buttons and all keys do.
 *
 * Nothing deletes it: it outlives the spin box on purpose.
 */
class QtMoxSpinBoxVal64Private::EventAnalyzer : public QObject
{
public:
    explicit EventAnalyzer(QtMoxSpinBoxVal64Private *analyzed) : d(analyzed) { }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        // Events still arrive while the base classes are destroyed (the focus is given up there). The private object is
        // gone by then, and so is the class that the cast asks for.
        if (qobject_cast<QtMoxSpinBoxVal64 *>(watched)) {
            const QPointer<QObject> alive(watched);
            analyze(*event);
            if (!alive)
                return true; // a slot deleted it: there is nobody left to pass the event on to
        }
        return QObject::eventFilter(watched, event);
    }

private:
    void analyze(const QEvent &event)
    {
        switch (event.type()) {
        case QEvent::MouseButtonPress:
            d->press();
            break;
        case QEvent::MouseButtonRelease:
            d->release();
            break;
        case QEvent::KeyPress:
            keyPress(static_cast<const QKeyEvent &>(event));
            break;
        case QEvent::KeyRelease:
            if (isStepKey(static_cast<const QKeyEvent &>(event)))
                d->release();
            break;
        case QEvent::FocusIn:
            if (d->selectWhenStepping)
                d->selectDigits();
            break;
        case QEvent::FocusAboutToChange:
            d->resolveTyping();
            break;
        default:
            break;
        }
    }

    void keyPress(const QKeyEvent &event)
    {
        if (isStepKey(event))
            d->press();
        else if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter)
            d->setValue(d->q_ptr->lineEdit()->text(), false);
    }

    QtMoxSpinBoxVal64Private *const d;
};

QtMoxSpinBoxVal64Private::QtMoxSpinBoxVal64Private(QtMoxSpinBoxVal64 *q) : q_ptr(q)
{ }

void QtMoxSpinBoxVal64Private::init()
{
    installEventAnalyzer();
    QLineEdit *edit = q_ptr->lineEdit();
    edit->setText(displayText(value));
    QObject::connect(edit, &QLineEdit::cursorPositionChanged, q_ptr,
                     [this](int oldPos, int newPos) { guardCursor(oldPos, newPos); });
    QObject::connect(edit, &QLineEdit::textEdited, q_ptr, [this](const QString &text) {
        dirty = true;
        if (q_ptr->keyboardTracking())
            setValue(text, false);
    });
}

// A function of its own, so that the leak check can name what is never deleted.
void QtMoxSpinBoxVal64Private::installEventAnalyzer()
{
    q_ptr->installEventFilter(new EventAnalyzer(this)); // without a parent
}

void QtMoxSpinBoxVal64Private::setValue(qlonglong number)
{
    if (number < minimum || number > maximum)
        return;
    if (validateStepping)
        number = StepGrid::snap(number, minimum, maximum, singleStep);
    const QString text = displayText(number);
    q_ptr->lineEdit()->setText(text); // also the same one: what was typed goes, and the cursor moves
    if (number == value)
        return;
    value = number;
    pendingValue = number;
    const QPointer<QtMoxSpinBoxVal64> alive(q_ptr); // a slot may delete the dialog around
    Q_EMIT q_ptr->valueChanged(number);
    if (alive)
        Q_EMIT alive->valueChanged(text);
}

void QtMoxSpinBoxVal64Private::setValue(const QString &text, bool discard)
{
    dirty = false;
    bool ok = false;
    const qlonglong number = cutNumber(text).toLongLong(&ok, displayIntegerBase);
    if (ok && number >= minimum && number <= maximum && !discard)
        setValue(number);
    else
        q_ptr->lineEdit()->setText(displayText(value));
}

void QtMoxSpinBoxVal64Private::stepBy(int steps)
{
    const qlonglong distance = StepGrid::wrappingMultiply<qlonglong>(steps, singleStep);
    const bool displayOnly = !buttonTracking && pressed;
    qlonglong number = StepGrid::wrappingAdd(displayOnly ? pendingValue : value, distance);
    if (q_ptr->wrapping()) {
        if (number < minimum)
            number = maximum;
        else if (number > maximum)
            number = minimum;
    }
    if (!displayOnly) {
        setValue(number); // outside the range it does nothing: the step is refused, and does not stop at the bound
        return;
    }
    // Neither snapped nor held in the range: the release does that, or drops it.
    q_ptr->lineEdit()->setText(displayText(number));
    pendingValue = number;
}

QString QtMoxSpinBoxVal64Private::cutNumber(const QString &text) const
{
    return text.mid(prefix.size(), text.size() - prefix.size() - suffix.size());
}

QString QtMoxSpinBoxVal64Private::digits(qlonglong number) const
{
    const qulonglong magnitude = number < 0 ? 0 - qulonglong(number) : qulonglong(number);
    if (displayIntegerBase != 10) {
        const QString text = QString::number(magnitude, displayIntegerBase);
        return number < 0 ? QLatin1Char('-') + text : text;
    }
    const QLocale locale = q_ptr->locale();
    QString text = locale.toString(number);
    if (magnitude >= 1000 && !q_ptr->isGroupSeparatorShown())
        text.remove(locale.groupSeparator());
    return text;
}

QString QtMoxSpinBoxVal64Private::displayText(qlonglong number) const
{
    return prefix + digits(number) + suffix;
}

QSize QtMoxSpinBoxVal64Private::sizeForHeight(int height) const
{
    const QFontMetrics metrics = q_ptr->fontMetrics();
    const QString fixed = prefix + suffix + QLatin1Char(' ');
    int width = 0;
    for (qlonglong end : {minimum, maximum}) {
        const QString text = q_ptr->textFromValue(end).left(20) + fixed; // as long as 64-bit numbers get
        width = std::max(width, metrics.horizontalAdvance(text));
    }
    if (!q_ptr->specialValueText().isEmpty())
        width = std::max(width, metrics.horizontalAdvance(q_ptr->specialValueText()));
    width += 2; // the cursor

    QStyleOptionSpinBox option;
    q_ptr->initStyleOption(&option);
    const QSize size = q_ptr->style()->sizeFromContents(QStyle::CT_SpinBox, &option, QSize(width, height), q_ptr);
    return size.expandedTo(QApplication::globalStrut());
}

void QtMoxSpinBoxVal64Private::selectDigits()
{
    QLineEdit *edit = q_ptr->lineEdit();
    const int end = edit->displayText().size() - suffix.size();
    if (end >= 0) // a text without room for the suffix has nothing to select
        edit->setSelection(end, prefix.size() - end);
}

void QtMoxSpinBoxVal64Private::guardCursor(int oldPos, int newPos)
{
    QLineEdit *edit = q_ptr->lineEdit();
    const int first = prefix.size();
    const int last = std::max(0, edit->displayText().size() - suffix.size());
    // Never to a place that would itself be corrected, which a text shorter than prefix and suffix has: the cursor would
    // go to and fro for ever.
    if (newPos < first) {
        if (oldPos >= first)
            edit->setCursorPosition(oldPos); // not to the end of the prefix
    } else if (newPos > last && last >= first) {
        edit->setCursorPosition(last);
    }
}

void QtMoxSpinBoxVal64Private::resolveTyping()
{
    if (dirty && !q_ptr->keyboardTracking())
        setValue(q_ptr->lineEdit()->text(), ignoreFocusOut);
}

void QtMoxSpinBoxVal64Private::press()
{
    const QPointer<QtMoxSpinBoxVal64> alive(q_ptr);
    resolveTyping();
    if (alive)
        pressed = true;
}

void QtMoxSpinBoxVal64Private::release()
{
    pressed = false;
    if (!buttonTracking)
        setValue(pendingValue);
}
