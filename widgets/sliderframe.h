// What the integer slider and the double slider have in common.
#ifndef MOX_SLIDERFRAME_H
#define MOX_SLIDERFRAME_H

#include <QFrame>

class QLabel;
class QSlider;

/**
 * A QSlider with a label at either end, which show the range in value units.
 *
 * Vertical: the maximum above the slider, the minimum below it. Horizontal: both below the slider, the minimum at the
 * left. The base of QtMoxSlider and QtMoxDoubleSlider, which fill the labels and give the slider's positions a meaning;
 * to the meta-object system their base is QFrame. The slider is the focus proxy. GUI thread only.
 */
class SliderFrame : public QFrame // clazy:exclude=missing-qobject-macro
{
    Q_DISABLE_COPY(SliderFrame)

public:
    /** Whether values are snapped to the grid of single steps that starts at the minimum. Off by default. */
    bool validate() const { return validating; }
    /** Turns snapping on or off. The slider's position is not revisited. */
    void setValidate(bool on) { validating = on; }

    /** Shows or hides the label of the maximum. The spelling of these four names is settled. */
    void setMaxLabelVisiable(bool visible);
    /** Shows or hides the label of the minimum. */
    void setMinLabelVisiable(bool visible);
    /** Whether the label of the maximum is visible now: false as long as the window is not shown. */
    bool isMaxLabelVisiable() const;
    /** Whether the label of the minimum is visible now: false as long as the window is not shown. */
    bool isMinLabelVisiable() const;

    /** The direction in which the slider runs. */
    Qt::Orientation orientation() const;
    /** Turns the slider and lays out anew; sizes given from outside stay. */
    void setOrientation(Qt::Orientation orientation);

    /** Whether the value follows the handle while it is dragged, or at its release only. On by default. */
    bool hasTracking() const;
    /** See hasTracking(). */
    void setTracking(bool on);

    /** The label of the maximum, owned by this widget, never null. */
    QLabel *maxLabel() const { return labelMax; }
    /** The label of the minimum, owned by this widget, never null. */
    QLabel *minLabel() const { return labelMin; }
    /** The slider, owned by this widget, never null. It runs in positions of its own, not in values. */
    QSlider *slider() const { return innerSlider; }

protected:
    /** @p parent owns the widget and may be null. */
    SliderFrame(Qt::Orientation orientation, QWidget *parent);

private:
    void buildLayout();

    QLabel *const labelMax;
    QLabel *const labelMin;
    QSlider *const innerSlider;
    bool validating = false;
};

#endif
