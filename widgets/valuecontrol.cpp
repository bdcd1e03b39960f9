#include "valuecontrol.h"

#include "qtmoxdoubleslider.h"
#include "qtmoxdoublespinboxval.h"
#include "qtmoxslider.h"
#include "qtmoxspinboxval.h"
#include "qtmoxspinboxval64.h"

#include <type_traits>

// The 64-bit spin box has switches of its own, and asked for validate() it answers for the slider too.
template<class SpinBox> constexpr bool is64Bit = std::is_same_v<SpinBox, QtMoxSpinBoxVal64>;

template<class SpinBox, class Slider, class Value>
ValueControl<SpinBox, Slider, Value>::ValueControl(Qt::Orientation orientation, QWidget *parent)
    : LabelledRow(parent), innerSlider(new Slider(orientation, this)), innerSpinBox(new SpinBox(this))
{
    innerSlider->setObjectName(QStringLiteral("slider"));
    innerSpinBox->setObjectName(QStringLiteral("spinbox"));
    innerSpinBox->setAccelerated(true);
    innerSpinBox->setRange(0, 100); // the slider's own
}

template<class SpinBox, class Slider, class Value> Value ValueControl<SpinBox, Slider, Value>::value() const
{
    return static_cast<Value>(innerSpinBox->value());
}

template<class SpinBox, class Slider, class Value> Value ValueControl<SpinBox, Slider, Value>::minimum() const
{
    return innerSlider->minimum();
}

template<class SpinBox, class Slider, class Value> Value ValueControl<SpinBox, Slider, Value>::maximum() const
{
    return innerSlider->maximum();
}

template<class SpinBox, class Slider, class Value> void ValueControl<SpinBox, Slider, Value>::setMinimum(Value minimum)
{
    innerSlider->setMinimum(minimum);
}

template<class SpinBox, class Slider, class Value> void ValueControl<SpinBox, Slider, Value>::setMaximum(Value maximum)
{
    innerSlider->setMaximum(maximum);
}

template<class SpinBox, class Slider, class Value> Value ValueControl<SpinBox, Slider, Value>::singleStep() const
{
    return static_cast<Value>(innerSpinBox->singleStep());
}

template<class SpinBox, class Slider, class Value> void ValueControl<SpinBox, Slider, Value>::setSingleStep(Value step)
{
    if (step == innerSpinBox->singleStep())
        return;
    innerSpinBox->setSingleStep(step);
    innerSlider->setSingleStep(step);
}

template<class SpinBox, class Slider, class Value> bool ValueControl<SpinBox, Slider, Value>::validate() const
{
    if constexpr (is64Bit<SpinBox>)
        return innerSpinBox->validateStepping();
    else
        return innerSlider->validate();
}

template<class SpinBox, class Slider, class Value> void ValueControl<SpinBox, Slider, Value>::setValidate(bool on)
{
    innerSlider->setValidate(on);
    if constexpr (is64Bit<SpinBox>)
        innerSpinBox->setValidateStepping(on);
    else
        innerSpinBox->setValidate(on);
}

template<class SpinBox, class Slider, class Value> bool ValueControl<SpinBox, Slider, Value>::validateTyping() const
{
    if constexpr (is64Bit<SpinBox>)
        return innerSpinBox->keyboardTracking();
    else
        return innerSpinBox->validateTyping();
}

template<class SpinBox, class Slider, class Value> void ValueControl<SpinBox, Slider, Value>::setValidateTyping(bool on)
{
    if constexpr (is64Bit<SpinBox>)
        innerSpinBox->setKeyboardTracking(on);
    else
        innerSpinBox->setValidateTyping(on);
}

template class ValueControl<QtMoxSpinBoxVal64, QtMoxSlider, int>;
template class ValueControl<QtMoxSpinBoxVal, QtMoxSlider, int>;
template class ValueControl<QtMoxDoubleSpinBoxVal, QtMoxDoubleSlider, double>;
