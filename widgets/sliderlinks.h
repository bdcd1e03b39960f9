// What keeps the spin box and the slider of a value control in step.
#ifndef MOX_SLIDERLINKS_H
#define MOX_SLIDERLINKS_H

#include <QObject>
#include <QPointer>
#include <QSlider>

#include <utility>

/**
 * The connections between a spin box, a slider and the control that shows both: a change on either side reaches the other
 * and ends there, since neither emits for a value that it already holds; the spin box speaks for the control. While the
 * slider is dragged the spin box follows it, but the control stays silent until the release, which it reports once.
 *
 * Owned by the control's private object. Nothing is emitted through the control once these links are gone: an inner
 * widget may still lose the focus, and commit a text, while the control's base classes are destroyed. GUI thread only.
 */
template<class Control, class SpinBox, class Slider> class SliderLinks
{
public:
    /** What a drag does to the way from the spin box to the slider. */
    enum Echo {
        CutByDrag, ///< the spin box does not answer the slider that drags it
        Own ///< the control has made a connection of its own, and no drag cuts it
    };

    /** All three must outlive this object. */
    SliderLinks(Control *itsControl, SpinBox *itsSpinBox, Slider *itsSlider, Echo echoOfDrag = CutByDrag)
        : control(itsControl), spinBox(itsSpinBox), slider(itsSlider), echo(echoOfDrag)
    { }

    /** To be called once. The order of the connections is that of the control's signals. */
    void connectAll()
    {
        QObject::connect(slider, &Slider::rangeChanged, spinBox, &SpinBox::setRange);
        QObject::connect(slider, &Slider::rangeChanged, &links,
                         [this](auto min, auto max) { Q_EMIT control->rangeChanged(min, max); });
        QObject::connect(slider, &Slider::valueChanged, spinBox, &SpinBox::setValue);
        connectSpinBox();
        QObject::connect(slider, &Slider::sliderPressed, &links, [this] { press(); });
        QObject::connect(slider, &Slider::sliderReleased, &links, [this] { release(); });
        // A drag ends with the focus: no release reaches a slider that is hidden or stands behind a message box.
        QObject::connect(slider, &Slider::focusOut, &links, [this] { slider->slider()->setSliderDown(false); });
    }

private:
    using Value = decltype(std::declval<const SpinBox &>().value());

    /** The connections that a drag cuts: all from the spin box to the links. */
    void connectSpinBox()
    {
        const auto valueChanged = QOverload<Value>::of(&SpinBox::valueChanged);
        if (echo == CutByDrag)
            QObject::connect(spinBox, valueChanged, &links, [this](Value value) { slider->setValue(value); });
        QObject::connect(spinBox, valueChanged, &links, [this](Value value) { Q_EMIT control->valueChanged(value); });
        QObject::connect(spinBox, QOverload<const QString &>::of(&SpinBox::valueChanged), &links,
                         [this](const QString &text) { Q_EMIT control->valueChanged(text); });
    }

    void press() { QObject::disconnect(spinBox, nullptr, &links, nullptr); }

    void release()
    {
        connectSpinBox();
        const QPointer<QObject> alive(spinBox);
        const Value value = spinBox->value();
        spinBox->setValue(slider->value());
        if (!alive || spinBox->value() != value)
            return; // it has spoken for itself
        // The drag has put it there while nobody heard, maybe rounded to its decimals, so that the slider's own number
        // differs a little. The text is the plain number, without prefix and suffix.
        Q_EMIT spinBox->valueChanged(value);
        if (alive)
            Q_EMIT spinBox->valueChanged(QString::number(value));
    }

    Control *const control;
    SpinBox *const spinBox;
    Slider *const slider;
    const Echo echo;
    QObject links; // the receiver of all that ends with this object
};

#endif
