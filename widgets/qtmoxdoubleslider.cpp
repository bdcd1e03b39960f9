#include "qtmoxdoubleslider.h"

#include "saturate.h"
#include "stepgrid.h"

#include <QEvent>
#include <QLabel>
#include <QPointer>
#include <QSlider>

#include <algorithm>

using Saturate::toInt;
using Saturate::truncated;

class QtMoxDoubleSliderPrivate
{
public:
    explicit QtMoxDoubleSliderPrivate(QtMoxDoubleSlider *owner) : q(owner), slider(owner->slider()) { }

    double valueOf(int tick) const;
    int tickOf(double value) const;
    void setSliderBounds();

    QtMoxDoubleSlider *const q;
    QSlider *const slider;
    int decimals = 3;
    double minimum = 0.0;
    double maximum = 0.0;
    double singleStep = 1.0;
};

double QtMoxDoubleSliderPrivate::valueOf(int tick) const
{
    if (tick == slider->minimum())
        return minimum;
    if (tick == slider->maximum())
        return maximum;
    const double value = tick * singleStep + minimum;
    if (!q->validate())
        return value;
    return std::min(maximum, minimum + StepGrid::snapDistance(value - minimum, singleStep));
}

int QtMoxDoubleSliderPrivate::tickOf(double value) const
{
    if (value == minimum)
        return slider->minimum();
    if (value == maximum)
        return slider->maximum();
    double distance = value - minimum;
    if (q->validate()) {
        distance = StepGrid::snapDistance(distance, singleStep);
        if (minimum + distance > maximum)
            distance = maximum - minimum;
    }
    return toInt(truncated(distance / singleStep + 0.5));
}

void QtMoxDoubleSliderPrivate::setSliderBounds()
{
    const int top = toInt(truncated((maximum - minimum) / singleStep + 0.5));
    // One more tick where the last whole step falls short of the maximum.
    const bool extra = maximum > top * singleStep + minimum;
    slider->setRange(0, toInt(static_cast<qint64>(top) + extra));
}

QtMoxDoubleSlider::QtMoxDoubleSlider(QWidget *parent) : QtMoxDoubleSlider(Qt::Vertical, parent)
{ }

QtMoxDoubleSlider::QtMoxDoubleSlider(Qt::Orientation orientation, QWidget *parent)
    : SliderFrame(orientation, parent), d(new QtMoxDoubleSliderPrivate(this))
{
    connect(slider(), &QSlider::sliderPressed, this, &QtMoxDoubleSlider::sliderPressed);
    connect(slider(), &QSlider::sliderMoved, this, &QtMoxDoubleSlider::sliderMoved);
    connect(slider(), &QSlider::sliderReleased, this, &QtMoxDoubleSlider::sliderReleased);
    // Every tick is reported, also one that repeats the same snapped value.
    connect(slider(), &QSlider::valueChanged, this, [this] { Q_EMIT valueChanged(value()); });
    slider()->installEventFilter(this);
    setRange(0.0, 100.0);
}

QtMoxDoubleSlider::~QtMoxDoubleSlider() = default;

double QtMoxDoubleSlider::value() const
{
    return d->valueOf(slider()->value());
}

double QtMoxDoubleSlider::valueAt(int position) const
{
    return d->valueOf(position);
}

void QtMoxDoubleSlider::setValue(double value)
{
    slider()->setValue(d->tickOf(value));
}

double QtMoxDoubleSlider::minimum() const
{
    return d->minimum;
}

double QtMoxDoubleSlider::maximum() const
{
    return d->maximum;
}

void QtMoxDoubleSlider::setMinimum(double minimum)
{
    setRange(minimum, d->maximum);
}

void QtMoxDoubleSlider::setMaximum(double maximum)
{
    setRange(d->minimum, maximum);
}

void QtMoxDoubleSlider::setRange(double min, double max)
{
    if (min == d->minimum && max == d->maximum)
        return;
    const QPointer<QtMoxDoubleSlider> alive(this);
    const double kept = value();
    d->minimum = min;
    d->maximum = max;
    minLabel()->setText(QString::number(min, 'f', d->decimals));
    maxLabel()->setText(QString::number(max, 'f', d->decimals));
    d->setSliderBounds();
    if (alive)
        Q_EMIT rangeChanged(d->minimum, d->maximum);
    if (alive)
        setValue(kept);
}

double QtMoxDoubleSlider::singleStep() const
{
    return d->singleStep;
}

void QtMoxDoubleSlider::setSingleStep(double step)
{
    const QPointer<QtMoxDoubleSlider> alive(this);
    const double kept = value();
    d->singleStep = step;
    // The slider's own single step stays at 1: one arrow key is one tick.
    d->setSliderBounds();
    if (alive)
        setValue(kept);
}

int QtMoxDoubleSlider::decimals() const
{
    return d->decimals;
}

void QtMoxDoubleSlider::setDecimals(int decimals)
{
    d->decimals = decimals;
}

bool QtMoxDoubleSlider::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == slider() && event->type() == QEvent::FocusOut) {
        slider()->update(); // it does not see the event, but must not keep showing the focus
        Q_EMIT focusOut();
        return true;
    }
    return SliderFrame::eventFilter(watched, event);
}
