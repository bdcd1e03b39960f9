// What assistive tools read of a slider.
#ifndef MOX_SLIDERACCESSIBLE_H
#define MOX_SLIDERACCESSIBLE_H

#include <QAccessibleWidget>

/**
 * The slider inside a QtMoxSlider or QtMoxDoubleSlider, with the owner's values where Qt's own interface tells
 * positions: on a scale that is not linear, and on a double slider, these are other numbers.
 *
 * Made and owned by QAccessible. GUI thread only.
 */
class SliderAccessible : public QAccessibleWidget, public QAccessibleValueInterface
{
    Q_DISABLE_COPY(SliderAccessible)

public:
    /** Makes QAccessible use this class for these sliders. May be called any number of times. */
    static void install();

    void *interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text text) const override;
    QVariant currentValue() const override;
    void setCurrentValue(const QVariant &value) override;
    QVariant minimumValue() const override;
    QVariant maximumValue() const override;
    QVariant minimumStepSize() const override;

private:
    explicit SliderAccessible(QWidget *slider);
    static QAccessibleInterface *make(const QString &className, QObject *object);
};

#endif
