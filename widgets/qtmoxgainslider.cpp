#include "qtmoxgainslider.h"

#include "qtmoxdoubleslider.h"
#include "qtmoxdoublespinboxval.h"
#include "sliderlinks.h"

#include <QHBoxLayout>

namespace {

/** Moves the slider without an answer from it. */
void moveSilently(QtMoxDoubleSlider *slider, double value, QtMoxDoubleSpinBoxVal *spinBox)
{
    QObject::disconnect(slider, &QtMoxDoubleSlider::valueChanged, spinBox, &QtMoxDoubleSpinBoxVal::setValue);
    const QPointer<QtMoxDoubleSlider> alive(slider);
    slider->setValue(value);
    if (alive)
        QObject::connect(slider, &QtMoxDoubleSlider::valueChanged, spinBox, &QtMoxDoubleSpinBoxVal::setValue);
}

} // namespace

class QtMoxGainSliderPrivate
{
public:
    explicit QtMoxGainSliderPrivate(QtMoxGainSlider *owner) : links(owner, owner->spinBox(), owner->slider(), links.Own)
    {
        // The slider is moved twice: the second way would keep a value between two ticks from coming back rounded, but
        // the first has brought it back by then where the tick moves. Both stay.
        QtMoxDoubleSpinBoxVal *const spinBox = owner->spinBox();
        QtMoxDoubleSlider *const slider = owner->slider();
        QObject::connect(spinBox, QOverload<double>::of(&QtMoxDoubleSpinBoxVal::valueChanged), slider,
                         &QtMoxDoubleSlider::setValue);
        QObject::connect(spinBox, QOverload<double>::of(&QtMoxDoubleSpinBoxVal::valueChanged), slider,
                         [slider, spinBox](double value) { moveSilently(slider, value, spinBox); });
        links.connectAll();
    }

    SliderLinks<QtMoxGainSlider, QtMoxDoubleSpinBoxVal, QtMoxDoubleSlider> links;
};

QtMoxGainSlider::QtMoxGainSlider(QWidget *parent)
    : ValueControl(Qt::Horizontal, parent), d(new QtMoxGainSliderPrivate(this))
{
    spinBox()->setDecimals(3); // the slider's own
    row()->addWidget(slider(), 1);
    row()->addWidget(spinBox(), 0);
    setFocusProxy(slider());
}

QtMoxGainSlider::~QtMoxGainSlider() = default;

int QtMoxGainSlider::decimals() const
{
    return slider()->decimals();
}

void QtMoxGainSlider::setDecimals(int decimals)
{
    slider()->setDecimals(decimals);
    spinBox()->setDecimals(decimals);
}

void QtMoxGainSlider::setValue(double val)
{
    spinBox()->setValue(val);
}

void QtMoxGainSlider::setRange(double min, double max)
{
    slider()->setRange(min, max);
}
