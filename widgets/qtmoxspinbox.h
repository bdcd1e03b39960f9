// An integer spin box with a slider in a pop-up.
#ifndef MOX_QTMOXSPINBOX_H
#define MOX_QTMOXSPINBOX_H

#include "valuecontrol.h"

#include <memory>

class QToolButton;
class QtMoxSpinBoxPrivate;

/**
 * A spin box and a small button that opens a slider for the same value.
 *
 * A drag of the slider is reported once, at its release; so is a held arrow of the spin box. The spin box is the focus
 * proxy; the button is reached with Tab, and Escape closes the slider. GUI thread only.
 */
class QtMoxSpinBox : public ValueControl<QtMoxSpinBoxVal64, QtMoxSlider, int>
{
    Q_OBJECT
    Q_DISABLE_COPY(QtMoxSpinBox)

public:
    /** A control from 0 to 100 with a vertical slider. @p parent owns it and may be null. */
    explicit QtMoxSpinBox(QWidget *parent = nullptr);
    /** The same with a slider in the given @p orientation. */
    explicit QtMoxSpinBox(Qt::Orientation orientation, QWidget *parent = nullptr);
    ~QtMoxSpinBox() override;

    /** Whether the spin box is read-only. */
    bool isReadOnly() const;
    /** A read-only control offers no slider: this hides or shows the button, whatever setSliderButtonVisible() did. */
    void setReadOnly(bool readOnly);

    /** Whether the button is visible now: false as long as the window is not shown. */
    bool isSliderButtonVisible() const;
    /** Shows or hides the button. */
    void setSliderButtonVisible(bool visible);
    /**
     * Resizes the pop-up, in pixels: 20 by 100 at first, the longer side along the slider. On show it is not smaller than
     * what it holds.
     */
    void resizeSlider(int width, int height);
    void resizeSlider(const QSize &size); ///< \overload
    /** Turns the slider, which opens above the button when vertical and right of it otherwise. The size stays. */
    void setSliderOrientation(Qt::Orientation orientation);

    /** The button that opens the slider, owned by this widget, never null. */
    QToolButton *toolButton() const;

public Q_SLOTS:
    /** The spin box's setValue(), which ignores what lies outside its range; the slider follows. */
    void setValue(int val);
    /** Sets the range in value units; the spin box follows. The value is kept as far as the slider keeps it. */
    void setRange(int min, int max);

Q_SIGNALS:
    /** The value changed, by whomever; of a drag or a held arrow only the end is reported. */
    void valueChanged(int);
    /** The same as the spin box shows it, but without prefix and suffix after a drag. */
    void valueChanged(const QString &);
    /** The range changed. */
    void rangeChanged(int min, int max);

private:
    std::unique_ptr<QtMoxSpinBoxPrivate> const d;
};

#endif
