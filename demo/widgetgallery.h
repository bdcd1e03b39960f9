// The value widgets by themselves.
#ifndef MOXDEMO_WIDGETGALLERY_H
#define MOXDEMO_WIDGETGALLERY_H

#include <QWidget>

class QCheckBox;
class QFormLayout;
class QVBoxLayout;

namespace MoxDemo {

/**
 * Every value widget in its settings, and below them a list of the signals that they emit.
 *
 * The library's dialogs are made of these widgets but do not export them: the demo is linked with their objects. A
 * widget's accessible name tells its setting. They are made in the order in which Tab goes: down each column.
 *
 * GUI thread only.
 */
class WidgetGallery : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(WidgetGallery)
public:
    /** A window of its own, also with a parent. */
    explicit WidgetGallery(QWidget *parent = nullptr);
    ~WidgetGallery() override;

Q_SIGNALS:
    /** One of the widgets emitted a signal: its class and setting, the signal's signature, the arguments as text. */
    void emitted(const QString &widget, const QString &setting, const QString &signal, const QString &arguments);

private:
    void addSpinBoxes64(QVBoxLayout *column);
    void addSpinBoxes(QVBoxLayout *column);
    void addSliders(QVBoxLayout *column);
    void addVerticalSliders(QVBoxLayout *column);
    void addPopUps(QVBoxLayout *column);
    void addSliderSpinBoxes(QVBoxLayout *column);
    void addGainSliders(QVBoxLayout *column);
    QWidget *createSignals();

    template<class Widget> void introduce(Widget *widget, const QString &setting);
    template<class Widget, class... Arguments>
    Widget *addRow(QFormLayout *form, const QString &setting, Arguments... arguments);
    template<class Widget> void listSignals(Widget *widget);
    template<class Sender, class Owner, class... Arguments>
    void listSignal(Sender *sender, void (Owner::*signal)(Arguments...));
    template<class Widget, class Value> void setRange(Widget *widget, Value min, Value max);

    QCheckBox *const m_wide; // asks for ranges of ten times the size
    // The receiver of the widgets' signals. The focused one may still emit while the base class is destroyed, when this
    // object is gone.
    const QObject m_listener;
};

} // namespace MoxDemo

#endif
