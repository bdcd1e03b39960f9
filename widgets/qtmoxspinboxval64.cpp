#include "qtmoxspinboxval64.h"

#include "qtmoxspinboxval64_p.h"

#include <QLineEdit>
#include <QPointer>

#include <algorithm>

QtMoxSpinBoxVal64::QtMoxSpinBoxVal64(QWidget *parent)
    : QAbstractSpinBox(parent), d(std::make_unique<QtMoxSpinBoxVal64Private>(this))
{
    d->init();
}

QtMoxSpinBoxVal64::~QtMoxSpinBoxVal64() = default;

qlonglong QtMoxSpinBoxVal64::value() const
{
    return d->value;
}

QString QtMoxSpinBoxVal64::prefix() const
{
    return d->prefix;
}

void QtMoxSpinBoxVal64::setPrefix(const QString &prefix)
{
    setPrefix(QString(prefix));
}

void QtMoxSpinBoxVal64::setPrefix(QString &&prefix)
{
    d->prefix = std::move(prefix);
    updateGeometry(); // although the cached hints stay
    d->setValue(d->value); // last: a slot may delete the spin box
}

QString QtMoxSpinBoxVal64::suffix() const
{
    return d->suffix;
}

void QtMoxSpinBoxVal64::setSuffix(const QString &suffix)
{
    setSuffix(QString(suffix));
}

void QtMoxSpinBoxVal64::setSuffix(QString &&suffix)
{
    d->suffix = std::move(suffix);
    updateGeometry(); // although the cached hints stay
    d->setValue(d->value); // last: a slot may delete the spin box
}

QString QtMoxSpinBoxVal64::cleanText() const
{
    return QString::number(d->value, 10); // decimal in every base of the display
}

qlonglong QtMoxSpinBoxVal64::singleStep() const
{
    return d->singleStep;
}

void QtMoxSpinBoxVal64::setSingleStep(qlonglong step)
{
    d->singleStep = step;
}

qlonglong QtMoxSpinBoxVal64::minimum() const
{
    return d->minimum;
}

void QtMoxSpinBoxVal64::setMinimum(qlonglong minimum)
{
    setRange(minimum, std::max(d->maximum, minimum));
}

qlonglong QtMoxSpinBoxVal64::maximum() const
{
    return d->maximum;
}

void QtMoxSpinBoxVal64::setMaximum(qlonglong maximum)
{
    setRange(std::min(d->minimum, maximum), maximum);
}

void QtMoxSpinBoxVal64::setRange(qlonglong minimum, qlonglong maximum)
{
    d->minimum = minimum;
    d->maximum = std::max(minimum, maximum);
    d->validator.setRange(minimum, maximum); // as given: with the ends swapped no typed text is acceptable
    d->cachedSizeHint = QSize();
    d->cachedMinimumSizeHint = QSize();
    updateGeometry();
}

int QtMoxSpinBoxVal64::displayIntegerBase() const
{
    return d->displayIntegerBase;
}

void QtMoxSpinBoxVal64::setDisplayIntegerBase(int base)
{
    d->displayIntegerBase = base;
    d->validator.setBase(base);
}

bool QtMoxSpinBoxVal64::selectWhenStepping() const
{
    return d->selectWhenStepping;
}

void QtMoxSpinBoxVal64::setSelectWhenStepping(bool select)
{
    d->selectWhenStepping = select;
}

bool QtMoxSpinBoxVal64::ignoreFocusOut() const
{
    return d->ignoreFocusOut;
}

void QtMoxSpinBoxVal64::setIgnoreFocusOut(bool ignore)
{
    d->ignoreFocusOut = ignore;
}

bool QtMoxSpinBoxVal64::validateStepping() const
{
    return d->validateStepping;
}

void QtMoxSpinBoxVal64::setValidateStepping(bool validate)
{
    d->validateStepping = validate;
}

bool QtMoxSpinBoxVal64::buttonTracking() const
{
    return d->buttonTracking;
}

void QtMoxSpinBoxVal64::setButtonTracking(bool track)
{
    d->buttonTracking = track;
}

QSize QtMoxSpinBoxVal64::sizeHint() const
{
    if (d->cachedSizeHint.isEmpty()) {
        ensurePolished();
        d->cachedSizeHint = d->sizeForHeight(lineEdit()->sizeHint().height());
    }
    return d->cachedSizeHint;
}

QSize QtMoxSpinBoxVal64::minimumSizeHint() const
{
    if (d->cachedMinimumSizeHint.isEmpty()) {
        ensurePolished();
        d->cachedMinimumSizeHint = d->sizeForHeight(lineEdit()->minimumSizeHint().height());
    }
    return d->cachedMinimumSizeHint;
}

QValidator::State QtMoxSpinBoxVal64::validate(QString &input, int &pos) const
{
    QString number = d->cutNumber(input);
    return d->validator.validate(number, pos);
}

void QtMoxSpinBoxVal64::fixup(QString &) const
{ }

void QtMoxSpinBoxVal64::stepBy(int steps)
{
    const QPointer<QtMoxSpinBoxVal64> alive(this);
    d->stepBy(steps);
    if (!alive)
        return;
    if (d->selectWhenStepping)
        d->selectDigits();
    update();
}

void QtMoxSpinBoxVal64::setValue(qlonglong val)
{
    d->setValue(val);
}

void QtMoxSpinBoxVal64::selectAll()
{
    d->selectDigits();
}

void QtMoxSpinBoxVal64::clear()
{
    lineEdit()->setText(d->prefix + d->suffix);
    lineEdit()->setCursorPosition(d->prefix.size());
}

QAbstractSpinBox::StepEnabled QtMoxSpinBoxVal64::stepEnabled() const
{
    if (isReadOnly())
        return StepNone;
    if (wrapping())
        return StepUpEnabled | StepDownEnabled;
    StepEnabled enabled = StepNone;
    if (d->pendingValue > d->minimum)
        enabled |= StepDownEnabled;
    if (d->pendingValue < d->maximum)
        enabled |= StepUpEnabled;
    return enabled;
}

QString QtMoxSpinBoxVal64::textFromValue(qlonglong value) const
{
    return d->digits(value);
}

qlonglong QtMoxSpinBoxVal64::valueFromText(const QString &text) const
{
    QString number = d->cutNumber(text);
    int pos = 0;
    if (d->validator.validate(number, pos) != QValidator::Acceptable)
        return d->minimum;
    return number.toLongLong(nullptr, d->displayIntegerBase);
}
