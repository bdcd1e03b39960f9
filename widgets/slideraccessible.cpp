#include "slideraccessible.h"

#include "qtmoxdoubleslider.h"
#include "qtmoxslider.h"

#include <QSlider>

namespace {

/**
 * What @p read tells of the QtMoxSlider or QtMoxDoubleSlider around a slider. Nothing of a slider elsewhere, and of one
 * whose owner is just being destroyed.
 */
template<class Read> QVariant ofOwner(QObject *slider, Read read)
{
    if (auto *owner = qobject_cast<QtMoxSlider *>(slider->parent()))
        return read(owner);
    if (auto *owner = qobject_cast<QtMoxDoubleSlider *>(slider->parent()))
        return read(owner);
    return {};
}

} // namespace

void SliderAccessible::install()
{
    QAccessible::installFactory(&SliderAccessible::make);
}

QAccessibleInterface *SliderAccessible::make(const QString &className, QObject *object)
{
    // The name is that of each class of the object in turn, the object's own first.
    if (className != QLatin1String("QSlider") || !object)
        return nullptr;
    const bool isInner = ofOwner(object, [](auto *) { return true; }).toBool();
    return isInner ? new SliderAccessible(static_cast<QWidget *>(object)) : nullptr;
}

SliderAccessible::SliderAccessible(QWidget *slider) : QAccessibleWidget(slider, QAccessible::Slider)
{ }

void *SliderAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

QString SliderAccessible::text(QAccessible::Text text) const
{
    if (text != QAccessible::Value)
        return QAccessibleWidget::text(text);
    const QVariant value = currentValue();
    // Ten digits leave out what binary fractions add.
    return value.type() == QVariant::Double ? QString::number(value.toDouble(), 'g', 10) : value.toString();
}

QVariant SliderAccessible::currentValue() const
{
    return ofOwner(object(), [](auto *owner) { return QVariant(owner->value()); });
}

void SliderAccessible::setCurrentValue(const QVariant &value)
{
    if (!widget()->isEnabled())
        return;
    ofOwner(object(), [&value](auto *owner) {
        owner->setValue(value.value<decltype(owner->value())>());
        return true;
    });
}

QVariant SliderAccessible::minimumValue() const
{
    return ofOwner(object(), [](auto *owner) { return QVariant(owner->valueAt(owner->slider()->minimum())); });
}

QVariant SliderAccessible::maximumValue() const
{
    return ofOwner(object(), [](auto *owner) { return QVariant(owner->valueAt(owner->slider()->maximum())); });
}

QVariant SliderAccessible::minimumStepSize() const
{
    return ofOwner(object(), [](auto *owner) { return QVariant(owner->singleStep()); });
}
