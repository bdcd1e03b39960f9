#include "qtmoxsliderspinbox.h"

#include "qtmoxslider.h"
#include "qtmoxspinboxval.h"
#include "sliderlinks.h"

#include <QHBoxLayout>

class QtMoxSliderSpinBoxPrivate
{
public:
    explicit QtMoxSliderSpinBoxPrivate(QtMoxSliderSpinBox *owner) : links(owner, owner->spinBox(), owner->slider())
    {
        links.connectAll();
    }

    SliderLinks<QtMoxSliderSpinBox, QtMoxSpinBoxVal, QtMoxSlider> links;
};

QtMoxSliderSpinBox::QtMoxSliderSpinBox(QWidget *parent)
    : ValueControl(Qt::Horizontal, parent), d(new QtMoxSliderSpinBoxPrivate(this))
{
    row()->addWidget(slider(), 1);
    row()->addWidget(spinBox(), 0);
    setFocusProxy(slider());
}

QtMoxSliderSpinBox::~QtMoxSliderSpinBox() = default;

void QtMoxSliderSpinBox::setValue(int val)
{
    spinBox()->setValue(val);
}

void QtMoxSliderSpinBox::setRange(int min, int max)
{
    slider()->setRange(min, max);
}
