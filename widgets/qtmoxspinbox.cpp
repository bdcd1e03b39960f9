#include "qtmoxspinbox.h"

#include "qtmoxslider.h"
#include "qtmoxspinboxval64.h"
#include "sliderlinks.h"

#include <QHBoxLayout>
#include <QToolButton>

class QtMoxSpinBoxPrivate
{
public:
    explicit QtMoxSpinBoxPrivate(QtMoxSpinBox *owner);

    void showOrientation();
    void openSlider();

    QtMoxSlider *const slider;
    QToolButton *const button;
    SliderLinks<QtMoxSpinBox, QtMoxSpinBoxVal64, QtMoxSlider> links;
};

QtMoxSpinBoxPrivate::QtMoxSpinBoxPrivate(QtMoxSpinBox *owner)
    : slider(owner->slider()), button(new QToolButton(owner)), links(owner, owner->spinBox(), slider)
{
    button->setObjectName(QStringLiteral("button"));
    button->setAccessibleDescription(QtMoxSpinBox::tr("Opens a slider"));
    showOrientation();
    slider->setWindowFlags(Qt::Popup);
    slider->resize(slider->orientation() == Qt::Vertical ? QSize(20, 100) : QSize(100, 20));
    QObject::connect(slider, &QtMoxSlider::focusOut, slider, &QWidget::hide);
    QObject::connect(button, &QToolButton::clicked, slider, [this] { openSlider(); });
    links.connectAll();
}

void QtMoxSpinBoxPrivate::showOrientation()
{
    button->setText(slider->orientation() == Qt::Vertical ? QStringLiteral("^") : QStringLiteral(">"));
}

void QtMoxSpinBoxPrivate::openSlider()
{
    // The labels may need more room than the pop-up was given. It has to grow now, before its place is worked out.
    slider->ensurePolished();
    slider->layout()->activate();
    QPoint pos = button->mapToGlobal(QPoint(0, 0));
    if (slider->orientation() == Qt::Vertical)
        pos.ry() -= slider->height();
    else
        pos.rx() += button->width();
    slider->move(pos);
    slider->show();
    slider->setFocus(Qt::OtherFocusReason);
}

QtMoxSpinBox::QtMoxSpinBox(QWidget *parent) : QtMoxSpinBox(Qt::Vertical, parent)
{ }

QtMoxSpinBox::QtMoxSpinBox(Qt::Orientation orientation, QWidget *parent)
    : ValueControl(orientation, parent), d(new QtMoxSpinBoxPrivate(this))
{
    spinBox()->setButtonTracking(false);
    auto *layoutHH = new QHBoxLayout; // becomes the row's below
    layoutHH->setObjectName(QStringLiteral("layoutHH"));
    layoutHH->setContentsMargins(0, 0, 0, 0);
    layoutHH->setSpacing(0);
    layoutHH->addWidget(spinBox(), 1);
    layoutHH->addWidget(d->button, 0);
    row()->addLayout(layoutHH, 1);
    setFocusProxy(spinBox());
}

QtMoxSpinBox::~QtMoxSpinBox() = default;

bool QtMoxSpinBox::isReadOnly() const
{
    return spinBox()->isReadOnly();
}

void QtMoxSpinBox::setReadOnly(bool readOnly)
{
    spinBox()->setReadOnly(readOnly);
    d->button->setVisible(!readOnly);
}

bool QtMoxSpinBox::isSliderButtonVisible() const
{
    return d->button->isVisible();
}

void QtMoxSpinBox::setSliderButtonVisible(bool visible)
{
    d->button->setVisible(visible);
}

void QtMoxSpinBox::resizeSlider(int width, int height)
{
    slider()->resize(width, height);
}

void QtMoxSpinBox::resizeSlider(const QSize &size)
{
    slider()->resize(size);
}

void QtMoxSpinBox::setSliderOrientation(Qt::Orientation orientation)
{
    slider()->setOrientation(orientation);
    d->showOrientation();
}

QToolButton *QtMoxSpinBox::toolButton() const
{
    return d->button;
}

void QtMoxSpinBox::setValue(int val)
{
    spinBox()->setValue(val);
}

void QtMoxSpinBox::setRange(int min, int max)
{
    slider()->setRange(min, max);
}
