// What the value widgets cost beside Qt's own: a step, a number typed and committed, a setValue, a drag over the whole
// range. Every pair has the same range, labels and receivers and stands in a window; painting is not timed. Each figure is
// the processor time of the quickest of the rounds in which both take turns.
#include "qtmoxdoubleslider.h"
#include "qtmoxdoublespinboxval.h"
#include "qtmoxgainslider.h"
#include "qtmoxslider.h"
#include "qtmoxsliderspinbox.h"
#include "qtmoxspinbox.h"
#include "qtmoxspinboxval.h"
#include "qtmoxspinboxval64.h"
#include "table.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionSlider>

#include <cmath>
#include <functional>
#include <vector>

namespace {

constexpr int rounds = 41;
qint64 received = 0; // signals of both sides
MoxBench::Table table("value widgets");
std::string pair; // that is compared

/** An action on a widget that has the focus while the action is timed. */
struct Side
{
    QWidget *widget;
    std::function<void(int run)> action;
};

/** Both sides in turn, in rounds, each first in every other one; the ratio is that of the quickest ones. */
void compare(const char *what, int runs, const Side &ours, const Side &theirs)
{
    std::vector<double> ourTimes, theirTimes;
    const auto measure = [what, runs](const Side &side, std::vector<double> &times) {
        side.widget->setFocus();
        QCoreApplication::processEvents();
        const qint64 before = received;
        const double time = MoxBench::microseconds([&] {
            for (int run = 0; run < runs; ++run)
                side.action(run);
        });
        times.push_back(time / runs);
        if (received - before < runs)
            qFatal("%s did not change the value each time", what);
        QCoreApplication::processEvents();
    };
    for (int round = 0; round < rounds; ++round) {
        if (round % 2)
            measure(ours, ourTimes);
        measure(theirs, theirTimes);
        if (round % 2 == 0)
            measure(ours, ourTimes);
    }
    table.add(pair + ": " + what, 0, MoxBench::quickest(theirTimes), MoxBench::quickest(ourTimes));
}

void heading(const std::string &ours, const std::string &theirs)
{
    pair = ours + " beside " + theirs;
}

void click(QWidget *widget, int key, const QString &text = {})
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(widget, &press);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(widget, &release);
}

/** An arrow key, up and down in turn. */
Side step(QWidget *widget)
{
    return {widget, [widget](int i) { click(widget, i % 2 ? Qt::Key_Down : Qt::Key_Up); }};
}

/** Two digits over those that are there, and Return. */
template<class SpinBox> Side type(SpinBox *box)
{
    return {box, [box](int i) {
                box->selectAll();
                click(box, i % 2 ? Qt::Key_4 : Qt::Key_5, QString(QLatin1Char(i % 2 ? '4' : '5')));
                click(box, Qt::Key_2, QStringLiteral("2"));
                click(box, Qt::Key_Return, QStringLiteral("\r"));
            }};
}

template<class Widget> Side set(Widget *widget)
{
    return {widget, [widget](int i) { widget->setValue(i % 2 ? 57 : 42); }};
}

/** The handle from one end to the other, through every position, and back the next time. */
Side drag(QSlider *slider)
{
    struct Access : QSlider
    {
        using QSlider::initStyleOption;
    };
    std::vector<QPoint> points;
    for (int i = slider->minimum(); i <= slider->maximum(); ++i) {
        QStyleOptionSlider option;
        (slider->*&Access::initStyleOption)(&option);
        option.sliderPosition = i;
        points.push_back(
            slider->style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, slider).center());
    }
    if (slider->orientation() == Qt::Vertical ? slider->height() <= int(points.size())
                                              : slider->width() <= int(points.size()))
        qFatal("the slider has fewer pixels than positions");
    slider->setValue(slider->minimum());
    return {slider, [slider, points](int i) {
                const auto send = [&](QEvent::Type type, const QPoint &pos, Qt::MouseButton button) {
                    QMouseEvent event(type, pos, slider->mapToGlobal(pos), button,
                                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton,
                                      Qt::NoModifier);
                    QCoreApplication::sendEvent(slider, &event);
                };
                const auto at = [&](std::size_t k) { return points[i % 2 ? points.size() - 1 - k : k]; };
                slider->setValue(i % 2 ? slider->maximum() : slider->minimum());
                send(QEvent::MouseButtonPress, at(0), Qt::LeftButton);
                for (std::size_t k = 1; k < points.size(); ++k)
                    send(QEvent::MouseMove, at(k), Qt::NoButton);
                send(QEvent::MouseButtonRelease, at(points.size() - 1), Qt::LeftButton);
                if (slider->value() != (i % 2 ? slider->minimum() : slider->maximum()))
                    qFatal("the drag did not reach the end");
            }};
}

template<class Widget, class Value> void receive(Widget *widget)
{
    QObject::connect(widget, QOverload<Value>::of(&Widget::valueChanged), widget, [](Value) { ++received; });
}

template<class Widget> Widget *spinBoxOf(QWidget *parent)
{
    auto *box = new Widget(parent);
    box->setRange(0, 100);
    receive<Widget, decltype(box->value())>(box);
    receive<Widget, const QString &>(box);
    parent->layout()->addWidget(box);
    return box;
}

/** What a user of QSlider builds for the same look: the slider with the ends of its range at its ends. */
QSlider *labelledSlider(Qt::Orientation orientation, QWidget *parent, int max)
{
    auto *frame = new QFrame(parent);
    auto *slider = new QSlider(orientation, frame);
    slider->setRange(0, max);
    auto *layout =
        new QBoxLayout(orientation == Qt::Vertical ? QBoxLayout::BottomToTop : QBoxLayout::LeftToRight, frame);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new QLabel(QStringLiteral("0"), frame));
    layout->addWidget(slider);
    layout->addWidget(new QLabel(QString::number(max), frame));
    parent->layout()->addWidget(frame);
    return slider;
}

/** A window for one pair. */
class Window : public QWidget
{
public:
    Window() { new QVBoxLayout(this); }
    void open()
    {
        resize(700, 400);
        show();
        activateWindow();
        QCoreApplication::processEvents();
        if (!isActiveWindow())
            qFatal("the window is not active");
    }
};

template<class Ours, class Theirs> void spinBoxes(const char *ours, const char *theirs)
{
    heading(ours, theirs);
    Window window;
    auto *our = spinBoxOf<Ours>(&window);
    auto *their = spinBoxOf<Theirs>(&window);
    window.open();
    compare("a step by key", 400, step(our), step(their));
    compare("a number typed and committed", 200, type(our), type(their));
    compare("setValue", 1000, set(our), set(their));
    our->setKeyboardTracking(false);
    their->setKeyboardTracking(false);
    compare("typed and committed, no keyboard tracking", 200, type(our), type(their));
    if constexpr (std::is_base_of_v<Theirs, Ours>) {
        our->setKeyboardTracking(true);
        our->setValidateTyping(false);
        compare("typed and committed, no typing validated", 200, type(our), type(their));
        our->setValidate(true);
        compare("setValue, snapping", 1000, set(our), set(their));
    } else {
        our->setValidateStepping(true);
        compare("setValue, snapping", 1000, set(our), set(their));
    }
}

template<class Ours> void sliders(const char *ours)
{
    heading(ours, "QSlider with labels");
    Window window;
    auto *our = new Ours(Qt::Horizontal, &window);
    receive<Ours, decltype(our->value())>(our);
    window.layout()->addWidget(our);
    QSlider *their = labelledSlider(Qt::Horizontal, &window, 100);
    receive<QSlider, int>(their);
    window.open();
    compare("a step by key", 1000, step(our->slider()), step(their));
    compare("setValue", 2000, set(our), set(their));
    compare("a drag over the whole range", 20, drag(our->slider()), drag(their));
    if constexpr (std::is_same_v<Ours, QtMoxSlider>) {
        our->setScaleType(QtMoxSlider::Log10Scale);
        our->setSingleStep(1);
        our->setRange(0, 1000);
        their->setRange(0, 200); // as many positions
        our->setValue(0);
        compare("a step by key, logarithmic, at the flat end", 1000, step(our->slider()), step(their));
        our->setValue(500);
        compare("a step by key, logarithmic", 1000, step(our->slider()), step(their));
        compare("setValue, logarithmic, beside a bare QSlider", 2000, set(our), set(their));
        // What a user of QSlider computes for the same scale.
        QObject::connect(their, &QSlider::valueChanged, their,
                         [](int position) { received += int(std::pow(10.0, position / 100.0) + 0.5) - 10 >= 0; });
        const auto setByFormula = [their](int i) {
            their->setValue(int(std::log10((i % 2 ? 57 : 42) + 10) * 100.0 + 0.5) - 100);
        };
        compare("setValue, logarithmic, beside the formulas", 2000, set(our), {their, setByFormula});
        compare("a drag over the whole range, logarithmic", 20, drag(our->slider()), drag(their));
    }
}

/** Qt's two, connected both ways. The ticks of a double spin box are hundredths. */
template<class SpinBox> struct Pair
{
    Pair(Qt::Orientation orientation, QWidget *parent)
        : spinBox(spinBoxOf<SpinBox>(parent)), slider(labelledSlider(orientation, parent, 100))
    {
        using Value = decltype(spinBox->value());
        QObject::connect(slider, &QSlider::valueChanged, spinBox, &SpinBox::setValue);
        QObject::connect(spinBox, QOverload<Value>::of(&SpinBox::valueChanged), slider,
                         [this](Value value) { slider->setValue(int(value)); });
    }
    SpinBox *const spinBox;
    QSlider *const slider;
};

template<class Ours, class SpinBox> void composites(const char *ours, const char *theirs)
{
    heading(ours, theirs);
    Window window;
    auto *our = new Ours(&window);
    using Value = decltype(our->value());
    receive<Ours, Value>(our);
    receive<Ours, const QString &>(our);
    window.layout()->addWidget(our);
    Pair<SpinBox> their(our->slider()->orientation(), &window);
    if constexpr (std::is_same_v<Value, double>)
        their.spinBox->setDecimals(3);
    window.open();
    compare("a step by key in the spin box", 400, step(our->spinBox()), step(their.spinBox));
    compare("a number typed and committed", 200, type(our->spinBox()), type(their.spinBox));
    compare("setValue", 1000, set(our), set(their.spinBox));
    if (our->slider()->isWindow()) {
        our->slider()->resize(60, 300);
        our->slider()->show();
        QCoreApplication::processEvents();
    }
    compare("a step by key in the slider", 400, step(our->slider()->slider()), step(their.slider));
    compare("a drag over the whole range", 10, drag(our->slider()->slider()), drag(their.slider));
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    spinBoxes<QtMoxSpinBoxVal64, QSpinBox>("QtMoxSpinBoxVal64", "QSpinBox");
    spinBoxes<QtMoxSpinBoxVal, QSpinBox>("QtMoxSpinBoxVal", "QSpinBox");
    spinBoxes<QtMoxDoubleSpinBoxVal, QDoubleSpinBox>("QtMoxDoubleSpinBoxVal", "QDoubleSpinBox");
    sliders<QtMoxSlider>("QtMoxSlider");
    sliders<QtMoxDoubleSlider>("QtMoxDoubleSlider");
    composites<QtMoxSpinBox, QSpinBox>("QtMoxSpinBox", "QSpinBox and QSlider");
    composites<QtMoxSliderSpinBox, QSpinBox>("QtMoxSliderSpinBox", "QSpinBox and QSlider");
    composites<QtMoxGainSlider, QDoubleSpinBox>("QtMoxGainSlider", "QDoubleSpinBox and QSlider");
    return 0;
}
