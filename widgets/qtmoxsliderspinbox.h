// An integer slider beside a spin box.
#ifndef MOX_QTMOXSLIDERSPINBOX_H
#define MOX_QTMOXSLIDERSPINBOX_H

#include "valuecontrol.h"

#include <memory>

class QtMoxSliderSpinBoxPrivate;

/**
 * A horizontal slider and, right of it, a spin box for the same integer.
 *
 * A drag of the slider is reported once, at its release. The slider comes first in the focus chain and is the focus
 * proxy. GUI thread only.
 */
class QtMoxSliderSpinBox : public ValueControl<QtMoxSpinBoxVal, QtMoxSlider, int>
{
    Q_OBJECT
    Q_DISABLE_COPY(QtMoxSliderSpinBox)

public:
    /** A control from 0 to 100. @p parent owns it and may be null. */
    explicit QtMoxSliderSpinBox(QWidget *parent = nullptr);
    ~QtMoxSliderSpinBox() override;

public Q_SLOTS:
    /** The spin box's setValue(), which clamps to its range; the slider follows. */
    void setValue(int val);
    /** Sets the range in value units; the spin box follows. The value is kept as far as it fits. */
    void setRange(int min, int max);

Q_SIGNALS:
    /** The value changed, by whomever; of a drag only the end is reported. */
    void valueChanged(int);
    /** The same as the spin box shows it, but without prefix and suffix after a drag. */
    void valueChanged(const QString &);
    /** The range changed. */
    void rangeChanged(int min, int max);

private:
    std::unique_ptr<QtMoxSliderSpinBoxPrivate> const d;
};

#endif
