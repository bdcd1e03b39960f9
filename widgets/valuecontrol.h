// What the controls made of a spin box and a slider have in common.
#ifndef MOX_VALUECONTROL_H
#define MOX_VALUECONTROL_H

#include "labelledrow.h"

/**
 * A spin box and a slider for the same value. The spin box holds the value and the slider holds the range.
 *
 * The base of QtMoxSpinBox, QtMoxSliderSpinBox and QtMoxGainSlider, which place the two and link them; to the meta-object
 * system their base is QWidget. Both inner widgets start with the range from 0 to 100. @p Value is what the control deals
 * in: int, also where the spin box holds 64 bits, or double. GUI thread only.
 */
template<class SpinBox, class Slider, class Value> class ValueControl : public LabelledRow
{
    Q_DISABLE_COPY(ValueControl)

public:
    /** The spin box's value. Of one beyond the range of int, which the slider's range prevents, the low 32 bits. */
    Value value() const;

    /** The slider's minimum(): of an integer slider on a nonlinear scale, a position. */
    Value minimum() const;
    /** The slider's maximum(): of an integer slider on a nonlinear scale, a position. */
    Value maximum() const;
    /** The slider's setMinimum(). On the nonlinear scales use setRange(). */
    void setMinimum(Value minimum);
    /** The slider's setMaximum(). On the nonlinear scales use setRange(). */
    void setMaximum(Value maximum);

    /** The spin box's step, 1 by default. */
    Value singleStep() const;
    /** Sets the step of the spin box and of the slider. Does nothing when it is the spin box's step already. */
    void setSingleStep(Value step);

    /** Whether values are snapped to the grid of single steps that starts at the minimum. Off by default. */
    bool validate() const;
    /** Turns snapping on or off in both; the value is not revisited. */
    void setValidate(bool on);

    /** Whether typed text may count before Return or Enter. On by default. */
    bool validateTyping() const;
    /** When off, typed text counts at Return or Enter alone, and is thrown away when the field is left before. */
    void setValidateTyping(bool on);

    /** The spin box, owned by this widget, never null. */
    SpinBox *spinBox() const { return innerSpinBox; }
    /** The slider, owned by this widget, never null. */
    Slider *slider() const { return innerSlider; }

protected:
    /** @p parent owns the widget and may be null. */
    ValueControl(Qt::Orientation orientation, QWidget *parent);

private:
    Slider *const innerSlider; // made first, so that Tab goes from left to right where both are on show
    SpinBox *const innerSpinBox;
};

class QtMoxDoubleSlider;
class QtMoxDoubleSpinBoxVal;
class QtMoxSlider;
class QtMoxSpinBoxVal;
class QtMoxSpinBoxVal64;

extern template class ValueControl<QtMoxSpinBoxVal64, QtMoxSlider, int>;
extern template class ValueControl<QtMoxSpinBoxVal, QtMoxSlider, int>;
extern template class ValueControl<QtMoxDoubleSpinBoxVal, QtMoxDoubleSlider, double>;

#endif
