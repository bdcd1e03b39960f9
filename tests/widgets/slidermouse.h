// What the tests of the sliders and of the value controls share.
#ifndef MOX_SLIDERMOUSE_H
#define MOX_SLIDERMOUSE_H

#include <QMouseEvent>
#include <QSlider>
#include <QStyleOptionSlider>
#include <QTest>

namespace MoxTest {

/** The handle's centre if it stood at @p position. */
inline QPoint handle(QSlider *slider, int position)
{
    struct Access : QSlider
    {
        using QSlider::initStyleOption;
    };
    QStyleOptionSlider option;
    (slider->*&Access::initStyleOption)(&option);
    option.sliderPosition = position;
    return slider->style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, slider).center();
}

/** Drags the handle to @p position and leaves it pressed. By hand: the offscreen platform sends no moves. */
inline void drag(QSlider *slider, int position)
{
    if (!slider->isSliderDown())
        QTest::mousePress(slider, Qt::LeftButton, Qt::NoModifier, handle(slider, slider->sliderPosition()));
    const QPoint pos = handle(slider, position);
    QMouseEvent move(QEvent::MouseMove, pos, slider->mapToGlobal(pos), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(slider, &move);
}

inline void release(QSlider *slider)
{
    QTest::mouseRelease(slider, Qt::LeftButton, Qt::NoModifier, handle(slider, slider->sliderPosition()));
}

inline void wheelUp(QSlider *slider)
{
    const QPoint pos = slider->rect().center();
    QWheelEvent wheel(pos, slider->mapToGlobal(pos), {}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QCoreApplication::sendEvent(slider, &wheel);
}

} // namespace MoxTest

#endif
