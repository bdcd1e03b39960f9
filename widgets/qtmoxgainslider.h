// A slider for floating-point values beside a spin box.
#ifndef MOX_QTMOXGAINSLIDER_H
#define MOX_QTMOXGAINSLIDER_H

#include "valuecontrol.h"

#include <memory>

class QtMoxGainSliderPrivate;

/**
 * A horizontal slider and, right of it, a spin box for the same floating-point number.
 *
 * A drag of the slider is reported once, at its release. The slider comes first in the focus chain and is the focus
 * proxy. The spin box holds the value, rounded to decimals(); that is what is reported. GUI thread only.
 */
class QtMoxGainSlider : public ValueControl<QtMoxDoubleSpinBoxVal, QtMoxDoubleSlider, double>
{
    Q_OBJECT
    Q_DISABLE_COPY(QtMoxGainSlider)

public:
    /** A control from 0.0 to 100.0 with three decimals. @p parent owns it and may be null. */
    explicit QtMoxGainSlider(QWidget *parent = nullptr);
    ~QtMoxGainSlider() override;

    /** The slider's decimals. */
    int decimals() const;
    /** Sets the digits after the point: in the labels, which follow when the range changes, and in the spin box. */
    void setDecimals(int decimals);

public Q_SLOTS:
    /** The spin box's setValue(), which clamps to its range; the slider moves to the nearest tick. */
    void setValue(double val);
    /** Sets the range; the spin box follows. The value is kept as far as it fits. */
    void setRange(double min, double max);

Q_SIGNALS:
    /** The value changed, by whomever; of a drag only the end is reported. */
    void valueChanged(double);
    /** The same as the spin box shows it; after a drag as a plain number of up to six digits. */
    void valueChanged(const QString &);
    /** The range changed. */
    void rangeChanged(double min, double max);

private:
    std::unique_ptr<QtMoxGainSliderPrivate> const d;
};

#endif
