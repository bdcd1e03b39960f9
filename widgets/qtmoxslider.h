// A slider for integers on a linear, a logarithmic or a square-root scale.
#ifndef MOX_QTMOXSLIDER_H
#define MOX_QTMOXSLIDER_H

#include "sliderframe.h"

#include <memory>

class QtMoxSliderPrivate;

/**
 * A slider whose value and whose position are two numbers: range, step and signals are in value units, the QSlider inside
 * runs in positions, and the scale maps one to the other. The top and the bottom position always stand for the maximum
 * and the minimum exactly; between them the way to a position and back is not exact on the nonlinear scales.
 *
 * With validate() on, value() is snapped to the grid of single steps from the minimum. Nothing checks that the minimum
 * is below the maximum, that the step suits the range, or that the coefficient is not zero; such settings give useless
 * positions, but no harm. GUI thread only.
 */
class QtMoxSlider : public SliderFrame
{
    Q_OBJECT
    Q_DISABLE_COPY(QtMoxSlider)

public:
    /** How a position becomes a value. */
    enum ScaleType {
        LinearScale = 0, ///< the position is the value
        Log10Scale = 1, ///< log10Coef() positions per decade of the distance from the minimum
        SqrtScale = 2 ///< the distance from the minimum is the square of the position
    };

    /** A vertical slider from 0 to 100 on the linear scale. @p parent owns it and may be null. */
    explicit QtMoxSlider(QWidget *parent = nullptr);
    /** The same in the given @p orientation. */
    explicit QtMoxSlider(Qt::Orientation orientation, QWidget *parent = nullptr);
    ~QtMoxSlider() override;

    /** The value of the slider's current position. */
    int value() const;
    /** The value of a position of the slider inside. */
    int valueAt(int position) const;

    /** The lowest position of the QSlider inside: on the linear scale the minimum, on the others no value at all. */
    int minimum() const;
    /** The highest position of the QSlider inside: on the linear scale the maximum, on the others no value at all. */
    int maximum() const;
    /**
     * setRange() with maximum() as the other bound. On the nonlinear scales that is a position, and it becomes the
     * maximum as if it were a value; use setRange() there.
     */
    void setMinimum(int minimum);
    /** setRange() with minimum() as the other bound; see setMinimum(). */
    void setMaximum(int maximum);

    /** The distance of the grid lines, and what an arrow key moves at least; in value units, 1 by default. */
    int singleStep() const;
    /** Sets the step and keeps the value. On the nonlinear scales an arrow key tries the next position first. */
    void setSingleStep(int step);

    /** LinearScale by default. */
    ScaleType scaleType() const;
    /**
     * Sets the scale and keeps the value as far as its position outlasts the change of the slider's bounds. What an arrow
     * key moves, in positions, is set by setSingleStep() alone: call that afterwards.
     */
    void setScaleType(ScaleType type);
    /** Positions per decade on the logarithmic scale, 100 by default. */
    double log10Coef() const;
    /** Sets the positions per decade; see setScaleType() for the value. */
    void setLog10Coef(double coefficient);

    /** Watches the slider inside. Its loss of the focus is reported as focusOut() and kept from it. */
    bool eventFilter(QObject *watched, QEvent *event) override;

public Q_SLOTS:
    /** Moves the slider to the position of @p value, which is clamped and, with validate() on, snapped. */
    void setValue(int value);
    /**
     * Sets the range in value units, shows it in the labels and keeps the value as far as it fits. Does nothing when
     * both bounds are the current ones.
     */
    void setRange(int min, int max);

Q_SIGNALS:
    /** The slider lost the focus. */
    void focusOut();
    /**
     * The value changed, by whomever. On the linear scale this is the position as it is, also with validate() on, when
     * value() is snapped.
     */
    void valueChanged(int value);
    /** The handle was pressed. */
    void sliderPressed();
    /** The handle was moved while pressed; @p position is a position, not a value. */
    void sliderMoved(int position);
    /** The handle was released. */
    void sliderReleased();
    /** setRange() changed the range; in value units, emitted before the value is put back. */
    void rangeChanged(int min, int max);

private:
    std::unique_ptr<QtMoxSliderPrivate> const d;
};

#endif
