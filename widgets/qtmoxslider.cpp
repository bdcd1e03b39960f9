#include "qtmoxslider.h"

#include "saturate.h"
#include "stepgrid.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QSlider>

#include <cmath>

using Saturate::toInt;
using Saturate::truncated;

namespace {

// Keeps the lowest point of the logarithmic scale on log10(10) = 1.
constexpr int log10Shift = 10;

enum KeyDirection { NoDirection, Up, Down };

} // namespace

class QtMoxSliderPrivate
{
public:
    explicit QtMoxSliderPrivate(QtMoxSlider *owner) : q(owner), slider(owner->slider()) { }

    int snapped(qint64 value) const;
    int valueOf(int position) const;
    int positionOf(int value) const;
    void setSliderBounds();
    template<class Change> void reconfigure(Change change);
    void onPositionChanged(int position);
    int stepInKeyDirection(int value);

    QtMoxSlider *const q;
    QSlider *const slider;
    int minimum = 0;
    int maximum = 0;
    int singleStep = 1;
    double log10Coef = 100.0;
    QtMoxSlider::ScaleType scaleType = QtMoxSlider::LinearScale;
    int lastValue = 0; // the value last reported, or carried across a reconfiguration
    bool isStepping = false; // in stepInKeyDirection(), which reports by itself
    KeyDirection keyDirection = NoDirection; // of the last key press; a mouse drag does not clear it
};

/** In 64 bits, where no difference of two int overflows. */
int QtMoxSliderPrivate::snapped(qint64 value) const
{
    return toInt(q->validate() ? StepGrid::snap<qint64>(value, minimum, maximum, singleStep) : value);
}

int QtMoxSliderPrivate::valueOf(int position) const
{
    if (scaleType == QtMoxSlider::LinearScale)
        return snapped(position);
    if (position == slider->maximum())
        return maximum;
    if (position == slider->minimum())
        return minimum;
    if (scaleType == QtMoxSlider::Log10Scale)
        return snapped(truncated(std::pow(10.0, position / log10Coef) + 0.5) - log10Shift + minimum);
    return snapped(static_cast<qint64>(position) * position + minimum);
}

int QtMoxSliderPrivate::positionOf(int value) const
{
    if (scaleType == QtMoxSlider::LinearScale)
        return snapped(value);
    if (value == maximum)
        return slider->maximum();
    if (value == minimum)
        return slider->minimum();
    const double distance = static_cast<double>(snapped(value)) - minimum;
    if (scaleType == QtMoxSlider::Log10Scale)
        return toInt(truncated(std::log10(distance + log10Shift) * log10Coef + 0.5));
    return toInt(truncated(std::sqrt(distance) + 0.5));
}

void QtMoxSliderPrivate::setSliderBounds()
{
    const qint64 span = static_cast<qint64>(maximum) - minimum;
    // The extra position at the top is there so that rounding cannot leave the maximum out of reach.
    switch (scaleType) {
    case QtMoxSlider::LinearScale:
        slider->setRange(minimum, maximum);
        break;
    case QtMoxSlider::Log10Scale: {
        const qint64 top = truncated(std::log10(static_cast<double>(log10Shift + span)) * log10Coef + 0.5);
        // The power still contains the shift; that is settled, although it rarely grants the extra position.
        const bool extra = span > truncated(std::pow(10.0, top / log10Coef) + 0.5);
        slider->setRange(toInt(truncated(log10Coef)), toInt(top + extra));
        break;
    }
    case QtMoxSlider::SqrtScale: {
        const qint64 top = truncated(std::sqrt(static_cast<double>(span)) + 0.5);
        slider->setRange(0, toInt(top + (span > top * top)));
        break;
    }
    }
}

/** Carries the value through @p change, which stores a setting and applies it to the slider. */
template<class Change> void QtMoxSliderPrivate::reconfigure(Change change)
{
    const QPointer<QtMoxSlider> alive(q);
    lastValue = q->value();
    change();
    // The slider's new bounds may have clamped its position; lastValue is what was reported of that then.
    if (alive)
        slider->setValue(positionOf(lastValue));
}

void QtMoxSliderPrivate::onPositionChanged(int position)
{
    if (isStepping)
        return;
    const QPointer<QtMoxSlider> alive(q);
    const bool linear = scaleType == QtMoxSlider::LinearScale;
    // The linear scale reports the position as it is, never snapped, unlike value().
    int value = linear ? position : valueOf(position);
    const bool atEnd = position == slider->minimum() || position == slider->maximum();
    if (!linear && !atEnd && value == lastValue) {
        if (keyDirection == NoDirection)
            return;
        value = stepInKeyDirection(value);
    }
    if (!alive || value == lastValue)
        return;
    Q_EMIT q->valueChanged(value);
    if (alive)
        lastValue = value; // only now: a slot that moves the slider is compared with what came before
}

/**
 * Where the scale is so flat that the next position has the same value, a key press moves by one step in value units.
 * The result may lie outside the range.
 */
int QtMoxSliderPrivate::stepInKeyDirection(int value)
{
    value = toInt(static_cast<qint64>(value) + (keyDirection == Up ? 1 : -1) * static_cast<qint64>(singleStep));
    const QPointer<QtMoxSlider> alive(q);
    isStepping = true;
    slider->setValue(positionOf(value));
    if (alive) {
        isStepping = false;
        keyDirection = NoDirection;
    }
    return value;
}

QtMoxSlider::QtMoxSlider(QWidget *parent) : QtMoxSlider(Qt::Vertical, parent)
{ }

QtMoxSlider::QtMoxSlider(Qt::Orientation orientation, QWidget *parent)
    : SliderFrame(orientation, parent), d(new QtMoxSliderPrivate(this))
{
    connect(slider(), &QSlider::sliderPressed, this, &QtMoxSlider::sliderPressed);
    connect(slider(), &QSlider::sliderMoved, this, &QtMoxSlider::sliderMoved);
    connect(slider(), &QSlider::sliderReleased, this, &QtMoxSlider::sliderReleased);
    connect(slider(), &QSlider::valueChanged, this, [this](int position) { d->onPositionChanged(position); });
    setRange(0, 100);
    slider()->installEventFilter(this);
}

QtMoxSlider::~QtMoxSlider() = default;

int QtMoxSlider::value() const
{
    return d->valueOf(slider()->value());
}

int QtMoxSlider::valueAt(int position) const
{
    return d->valueOf(position);
}

void QtMoxSlider::setValue(int value)
{
    slider()->setValue(d->positionOf(value));
}

int QtMoxSlider::minimum() const
{
    return slider()->minimum();
}

int QtMoxSlider::maximum() const
{
    return slider()->maximum();
}

void QtMoxSlider::setMinimum(int minimum)
{
    // Taken from the slider, not from the range: a position, on the nonlinear scales.
    setRange(minimum, slider()->maximum());
}

void QtMoxSlider::setMaximum(int maximum)
{
    setRange(slider()->minimum(), maximum);
}

void QtMoxSlider::setRange(int min, int max)
{
    if (min == d->minimum && max == d->maximum)
        return;
    const QPointer<QtMoxSlider> alive(this);
    d->reconfigure([&] {
        d->minimum = min;
        d->maximum = max;
        minLabel()->setText(QString::number(min, 10));
        maxLabel()->setText(QString::number(max, 10));
        d->setSliderBounds();
        if (alive)
            Q_EMIT rangeChanged(d->minimum, d->maximum);
    });
}

int QtMoxSlider::singleStep() const
{
    return d->singleStep;
}

void QtMoxSlider::setSingleStep(int step)
{
    d->reconfigure([&] {
        d->singleStep = step;
        slider()->setSingleStep(d->scaleType == LinearScale ? step : 1);
    });
}

QtMoxSlider::ScaleType QtMoxSlider::scaleType() const
{
    return d->scaleType;
}

void QtMoxSlider::setScaleType(ScaleType type)
{
    d->reconfigure([&] {
        d->scaleType = type;
        d->setSliderBounds();
    });
}

double QtMoxSlider::log10Coef() const
{
    return d->log10Coef;
}

void QtMoxSlider::setLog10Coef(double coefficient)
{
    d->reconfigure([&] {
        d->log10Coef = coefficient;
        d->setSliderBounds(); // on every scale
    });
}

bool QtMoxSlider::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == slider() && event->type() == QEvent::FocusOut) {
        slider()->update(); // it does not see the event, but must not keep showing the focus
        Q_EMIT focusOut();
        return true;
    }
    if (watched == slider() && event->type() == QEvent::KeyPress) {
        switch (static_cast<QKeyEvent *>(event)->key()) {
        case Qt::Key_Up:
        case Qt::Key_Right:
        case Qt::Key_PageUp:
            d->keyDirection = Up;
            break;
        case Qt::Key_Left:
        case Qt::Key_Down:
        case Qt::Key_PageDown:
            d->keyDirection = Down;
            break;
        default:
            d->keyDirection = NoDirection;
        }
    }
    return SliderFrame::eventFilter(watched, event);
}
