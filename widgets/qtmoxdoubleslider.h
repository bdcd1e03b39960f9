// A slider for floating-point values.
#ifndef MOX_QTMOXDOUBLESLIDER_H
#define MOX_QTMOXDOUBLESLIDER_H

#include "sliderframe.h"

#include <memory>

class QtMoxDoubleSliderPrivate;

/**
 * A slider over a range of doubles, one tick per single step.
 *
 * The QSlider inside runs from tick 0 upwards. Its bottom and its top tick stand for the minimum and the maximum exactly,
 * also where the range is not a whole number of steps: the top tick then covers less than one. Nothing checks that the
 * minimum is below the maximum or that the number of ticks suits the slider; a step of 0.0 gives one as large as there
 * can be. GUI thread only.
 */
class QtMoxDoubleSlider : public SliderFrame
{
    Q_OBJECT
    Q_DISABLE_COPY(QtMoxDoubleSlider)

public:
    /** A vertical slider from 0.0 to 100.0 with a step of 1.0. @p parent owns it and may be null. */
    explicit QtMoxDoubleSlider(QWidget *parent = nullptr);
    /** The same in the given @p orientation. */
    explicit QtMoxDoubleSlider(Qt::Orientation orientation, QWidget *parent = nullptr);
    ~QtMoxDoubleSlider() override;

    /** The value of the slider's current tick. */
    double value() const;
    /** The value of a position of the slider inside. */
    double valueAt(int position) const;

    /** The lower bound, in value units. */
    double minimum() const;
    /** The upper bound, in value units. */
    double maximum() const;
    /** setRange() with maximum() as the other bound. */
    void setMinimum(double minimum);
    /** setRange() with minimum() as the other bound. */
    void setMaximum(double maximum);

    /** The value of one tick, which is what an arrow key moves; 1.0 by default. */
    double singleStep() const;
    /** Sets the step and with it the number of ticks, and moves the slider to the tick nearest to the value. */
    void setSingleStep(double step);

    /** Digits after the point in the labels, 3 by default. */
    int decimals() const;
    /** Sets the digits after the point. The labels keep their text until the range changes. */
    void setDecimals(int decimals);

    /** Watches the slider inside. Its loss of the focus is reported as focusOut() and kept from it. */
    bool eventFilter(QObject *watched, QEvent *event) override;

public Q_SLOTS:
    /** Moves the slider to the tick nearest to @p value, which value() then answers; clamped to the range. */
    void setValue(double value);
    /**
     * Sets the range, shows it in the labels and keeps the value as far as it fits. Does nothing when both bounds are
     * the current ones.
     */
    void setRange(double min, double max);

Q_SIGNALS:
    /** The slider lost the focus. */
    void focusOut();
    /** The slider moved by a tick or more, by whomever; also when the snapped value is the same as before. */
    void valueChanged(double value);
    /** The handle was pressed. */
    void sliderPressed();
    /** The handle was moved while pressed; @p position is a tick, not a value. */
    void sliderMoved(int position);
    /** The handle was released. */
    void sliderReleased();
    /** setRange() changed the range; emitted before the value is put back. */
    void rangeChanged(double min, double max);

private:
    std::unique_ptr<QtMoxDoubleSliderPrivate> const d;
};

#endif
