#include "widgetgallery.h"

#include "signallist.h"

#include "qtmoxdoubleslider.h"
#include "qtmoxdoublespinboxval.h"
#include "qtmoxgainslider.h"
#include "qtmoxslider.h"
#include "qtmoxsliderspinbox.h"
#include "qtmoxspinbox.h"
#include "qtmoxspinboxval.h"
#include "qtmoxspinboxval64.h"

#include <QApplication>
#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLocale>
#include <QMetaMethod>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QSlider>
#include <QSplitter>
#include <QToolButton>

#include <algorithm>
#include <limits>
#include <vector>

namespace MoxDemo {

namespace {

QString textOf(const QString &argument)
{
    return QLatin1Char('"') + argument + QLatin1Char('"');
}

template<class Number> QString textOf(Number argument)
{
    if constexpr (std::is_floating_point_v<Number>)
        return QString::number(argument, 'g', QLocale::FloatingPointShortest);
    else
        return QString::number(argument);
}

/** The rows of a new box at the end of a column. */
QFormLayout *addGroup(QVBoxLayout *column, const QString &title)
{
    auto *group = new QGroupBox(title, column->parentWidget());
    auto *form = new QFormLayout(group);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    column->addWidget(group);
    return form;
}

/** Gives the captions of all boxes in a column one width, so that the widgets behind them stand in line. */
void alignCaptions(QVBoxLayout *column)
{
    std::vector<QWidget *> captions;
    int width = 0;
    for (int i = 0; i < column->count(); ++i) {
        const auto *form = qobject_cast<QFormLayout *>(column->itemAt(i)->widget()->layout());
        for (int row = 0; row < form->rowCount(); ++row) {
            if (QLayoutItem *caption = form->itemAt(row, QFormLayout::LabelRole)) {
                captions.push_back(caption->widget());
                width = std::max(width, caption->sizeHint().width());
            }
        }
    }
    for (QWidget *caption : captions)
        caption->setMinimumWidth(width);
}

/** Scrolls to a widget, with its caption where there is room for both. By itself Qt scrolls to the text cursor alone. */
void scrollTo(QScrollArea *scroll, QWidget *focused)
{
    if (!focused || !scroll->widget()->isAncestorOf(focused))
        return;
    for (const QWidget *shown : {focused->parentWidget(), focused}) {
        const QPoint center = shown->mapTo(scroll->widget(), shown->rect().center());
        scroll->ensureVisible(center.x(), center.y(), shown->width() / 2 + 1, shown->height() / 2 + 1);
    }
}

template<class Widget> constexpr bool isSpinBox = std::is_base_of_v<QAbstractSpinBox, Widget>;
template<class Widget> constexpr bool isSlider = std::is_base_of_v<SliderFrame, Widget>;

} // namespace

/** Names a widget and what of it takes the focus, and lists its signals. */
template<class Widget> void WidgetGallery::introduce(Widget *widget, const QString &setting)
{
    widget->setAccessibleName(setting);
    if constexpr (!isSpinBox<Widget>) {
        const auto parts = widget->template findChildren<QWidget *>();
        for (QWidget *part : parts) {
            if (part->focusPolicy() != Qt::NoFocus)
                part->setAccessibleName(setting);
        }
    }
    listSignals(widget);
}

/** Makes a widget with a caption in front of it. */
template<class Widget, class... Arguments>
Widget *WidgetGallery::addRow(QFormLayout *form, const QString &setting, Arguments... arguments)
{
    auto *widget = new Widget(arguments..., form->parentWidget());
    introduce(widget, setting);
    form->addRow(setting, widget); // the caption's buddy
    return widget;
}

template<class Widget> void WidgetGallery::listSignals(Widget *widget)
{
    using Value = decltype(widget->value());
    listSignal(widget, QOverload<Value>::of(&Widget::valueChanged));
    if constexpr (!isSlider<Widget>)
        listSignal(widget, QOverload<const QString &>::of(&Widget::valueChanged));
    if constexpr (isSpinBox<Widget>)
        listSignal(widget, &QAbstractSpinBox::editingFinished);
    else
        listSignal(widget, &Widget::rangeChanged);
    if constexpr (isSlider<Widget>) {
        listSignal(widget, &Widget::sliderPressed);
        listSignal(widget, &Widget::sliderMoved);
        listSignal(widget, &Widget::sliderReleased);
        listSignal(widget, &Widget::focusOut);
    }
}

template<class Sender, class Owner, class... Arguments>
void WidgetGallery::listSignal(Sender *sender, void (Owner::*signal)(Arguments...))
{
    const QString signature = QString::fromLatin1(QMetaMethod::fromSignal(signal).methodSignature());
    connect(sender, signal, &m_listener, [this, sender, signature](Arguments... arguments) {
        const QStringList texts{textOf(arguments)...};
        Q_EMIT emitted(QString::fromLatin1(Sender::staticMetaObject.className()), sender->accessibleName(), signature,
                       texts.join(QStringLiteral(", ")));
    });
}

/** Sets a range, and makes it follow the switch below the list. */
template<class Widget, class Value> void WidgetGallery::setRange(Widget *widget, Value min, Value max)
{
    widget->setRange(min, max);
    connect(m_wide, &QCheckBox::toggled, widget,
            [=](bool wide) { widget->setRange(wide ? min * 10 : min, wide ? max * 10 : max); });
}

WidgetGallery::WidgetGallery(QWidget *parent) : QWidget(parent, Qt::Window), m_wide(new QCheckBox(this))
{
    setWindowTitle(tr("Value widgets"));
    auto *content = new QWidget(this);
    auto *columns = new QHBoxLayout(content);
    const auto addColumn = [columns] {
        auto *column = new QVBoxLayout; // becomes the child of columns
        columns->addLayout(column, 1);
        return column;
    };
    auto *column = addColumn();
    addSpinBoxes64(column);
    addSpinBoxes(column);
    alignCaptions(column);
    column->addStretch();
    column = addColumn();
    addSliders(column);
    alignCaptions(column);
    addVerticalSliders(column);
    column = addColumn();
    addPopUps(column);
    addSliderSpinBoxes(column);
    addGainSliders(column);
    alignCaptions(column);
    column->addStretch();

    auto *scroll = new QScrollArea(this);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus); // nothing in it is hidden from the keyboard
    scroll->setWidgetResizable(true);
    scroll->setWidget(content);
    connect(qApp, &QApplication::focusChanged, &m_listener,
            [scroll](QWidget *, QWidget *now) { scrollTo(scroll, now); });
    auto *splitter = new QSplitter(Qt::Vertical, this);
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(scroll);
    splitter->addWidget(createSignals());
    splitter->setStretchFactor(0, 1);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(splitter);
    // All of the columns and some lines of the list, where the screen has room for them.
    resize((content->sizeHint() + QSize(60, 260)).boundedTo(QGuiApplication::primaryScreen()->availableSize()));
}

WidgetGallery::~WidgetGallery() = default;

void WidgetGallery::addSpinBoxes64(QVBoxLayout *column)
{
    QFormLayout *form = addGroup(column, QStringLiteral("QtMoxSpinBoxVal64"));
    const auto add = [&](const QString &setting) { return addRow<QtMoxSpinBoxVal64>(form, setting); };

    add(tr("As made"));
    QtMoxSpinBoxVal64 *box = add(tr("All 64 bits"));
    box->setRange(std::numeric_limits<qlonglong>::min(), std::numeric_limits<qlonglong>::max());
    box->setValue(9007199254740993); // no double holds it
    box = add(tr("Base 16"));
    box->setDisplayIntegerBase(16);
    box->setPrefix(QStringLiteral("0x"));
    box->setRange(0, 0xffffffff);
    box->setValue(0xcafe);
    box = add(tr("Prefix and suffix"));
    box->setPrefix(QStringLiteral("t = "));
    box->setSuffix(QStringLiteral(" µs"));
    box->setRange(-10000, 10000);
    box = add(tr("Snapping, 10 to 100 by 25"));
    box->setRange(10, 100);
    box->setSingleStep(25);
    box->setValidateStepping(true);
    box->setValue(35);
    box = add(tr("Held step counts at release"));
    box->setButtonTracking(false);
    box->setAccelerated(true);
    box->setRange(0, 10000);
    box = add(tr("Typing counts at Return only"));
    box->setKeyboardTracking(false);
    box = add(tr("Typing counts on leaving, too"));
    box->setKeyboardTracking(false);
    box->setIgnoreFocusOut(false);
    box = add(tr("Wrapping, 0 to 5"));
    box->setWrapping(true);
    box->setRange(0, 5);
    box = add(tr("Read-only"));
    box->setReadOnly(true);
    box->setValue(42);
}

void WidgetGallery::addSpinBoxes(QVBoxLayout *column)
{
    QFormLayout *form = addGroup(column, QStringLiteral("QtMoxSpinBoxVal"));
    addRow<QtMoxSpinBoxVal>(form, tr("As made"));
    auto *box = addRow<QtMoxSpinBoxVal>(form, tr("Snapping, 10 to 100 by 25"));
    box->setRange(10, 100);
    box->setSingleStep(25);
    box->setValidate(true);
    box = addRow<QtMoxSpinBoxVal>(form, tr("Typing counts at Return"));
    box->setValidateTyping(false);

    form = addGroup(column, QStringLiteral("QtMoxDoubleSpinBoxVal"));
    addRow<QtMoxDoubleSpinBoxVal>(form, tr("As made"));
    auto *doubleBox = addRow<QtMoxDoubleSpinBoxVal>(form, tr("Snapping, 0 to 1 by 0.25"));
    doubleBox->setRange(0.0, 1.0);
    doubleBox->setSingleStep(0.25);
    doubleBox->setValidate(true);
    doubleBox = addRow<QtMoxDoubleSpinBoxVal>(form, tr("Typing counts at Return"));
    doubleBox->setValidateTyping(false);
}

void WidgetGallery::addSliders(QVBoxLayout *column)
{
    QFormLayout *form = addGroup(column, QStringLiteral("QtMoxSlider"));
    const auto add = [&](const QString &setting) { return addRow<QtMoxSlider>(form, setting, Qt::Horizontal); };
    add(tr("Linear"));
    QtMoxSlider *slider = add(tr("Linear, snapping by 10"));
    slider->setSingleStep(10);
    slider->setValidate(true);
    slider = add(tr("Linear, counts at release"));
    slider->setTracking(false);
    slider = add(tr("Logarithmic"));
    slider->setScaleType(QtMoxSlider::Log10Scale);
    setRange(slider, 0, 1000);
    slider = add(tr("Square root"));
    slider->setScaleType(QtMoxSlider::SqrtScale);
    setRange(slider, 0, 1000);
    slider = add(tr("Square root, snapping by 50"));
    slider->setScaleType(QtMoxSlider::SqrtScale);
    slider->setSingleStep(50);
    slider->setValidate(true);
    setRange(slider, 0, 1000);

    form = addGroup(column, QStringLiteral("QtMoxDoubleSlider"));
    auto *doubleSlider = addRow<QtMoxDoubleSlider>(form, tr("By 0.3"), Qt::Horizontal);
    doubleSlider->setSingleStep(0.3);
    setRange(doubleSlider, 0.0, 1.0);
    doubleSlider = addRow<QtMoxDoubleSlider>(form, tr("Snapping by 0.25"), Qt::Horizontal);
    doubleSlider->setSingleStep(0.25);
    doubleSlider->setValidate(true);
    setRange(doubleSlider, 0.0, 10.0);
}

void WidgetGallery::addVerticalSliders(QVBoxLayout *column)
{
    auto *group = new QGroupBox(tr("Vertical"), column->parentWidget());
    auto *grid = new QGridLayout(group);
    const auto add = [&](auto *slider, const QString &setting) {
        introduce(slider, setting);
        auto *caption = new QLabel(setting, group);
        caption->setBuddy(slider);
        const int next = grid->columnCount();
        grid->addWidget(caption, 0, next, Qt::AlignHCenter);
        grid->addWidget(slider, 1, next);
    };
    auto *slider = new QtMoxSlider(group);
    add(slider, tr("Linear"));
    setRange(slider, -100, 100);
    slider = new QtMoxSlider(group);
    add(slider, tr("Logarithmic"));
    slider->setScaleType(QtMoxSlider::Log10Scale);
    setRange(slider, 0, 1000);
    slider = new QtMoxSlider(group);
    add(slider, tr("Square root"));
    slider->setScaleType(QtMoxSlider::SqrtScale);
    setRange(slider, 0, 1000);
    auto *doubleSlider = new QtMoxDoubleSlider(group);
    add(doubleSlider, tr("Double"));
    doubleSlider->setSingleStep(0.1);
    setRange(doubleSlider, 0.0, 1.0);
    column->addWidget(group, 1);
}

void WidgetGallery::addPopUps(QVBoxLayout *column)
{
    QFormLayout *form = addGroup(column, QStringLiteral("QtMoxSpinBox"));
    addRow<QtMoxSpinBox>(form, tr("Vertical pop-up"));
    addRow<QtMoxSpinBox>(form, tr("Horizontal pop-up"), Qt::Horizontal);
    auto *control = addRow<QtMoxSpinBox>(form, tr("Snapping by 10"));
    control->setSingleStep(10);
    control->setValidate(true);
    control = addRow<QtMoxSpinBox>(form, tr("Typing counts at Return"));
    control->setValidateTyping(false);
    control = addRow<QtMoxSpinBox>(form, tr("Read-only"));
    control->setReadOnly(true);
    control = new QtMoxSpinBox(form->parentWidget());
    introduce(control, tr("Label of its own"));
    control->setLeftLabelText(control->accessibleName());
    control->leftLabel()->setBuddy(control);
    form->addRow(control);
}

void WidgetGallery::addSliderSpinBoxes(QVBoxLayout *column)
{
    QFormLayout *form = addGroup(column, QStringLiteral("QtMoxSliderSpinBox"));
    addRow<QtMoxSliderSpinBox>(form, tr("Linear"));
    auto *control = addRow<QtMoxSliderSpinBox>(form, tr("Logarithmic"));
    control->slider()->setScaleType(QtMoxSlider::Log10Scale);
    setRange(control, 0, 10000);
    control = addRow<QtMoxSliderSpinBox>(form, tr("Snapping by 10"));
    control->setSingleStep(10);
    control->setValidate(true);
    control = new QtMoxSliderSpinBox(form->parentWidget());
    introduce(control, tr("Label on top"));
    control->setTopLabelText(control->accessibleName());
    control->topLabel()->setBuddy(control);
    form->addRow(control);
}

void WidgetGallery::addGainSliders(QVBoxLayout *column)
{
    QFormLayout *form = addGroup(column, QStringLiteral("QtMoxGainSlider"));
    auto *control = addRow<QtMoxGainSlider>(form, tr("Decibels"));
    control->setSingleStep(0.1);
    control->setDecimals(1);
    setRange(control, 0.0, 24.0);
    control->spinBox()->setSuffix(QStringLiteral(" dB"));
    control = addRow<QtMoxGainSlider>(form, tr("Snapping by 0.25"));
    control->setSingleStep(0.25);
    control->setValidate(true);
}

QWidget *WidgetGallery::createSignals()
{
    auto *group = new QGroupBox(tr("Signals"), this);
    auto *list = new SignalList(group);
    list->setAccessibleName(group->title());
    connect(this, &WidgetGallery::emitted, list, &SignalList::add);
    m_wide->setParent(group);
    m_wide->setText(tr("&Tenfold ranges"));
    auto *clear = new QPushButton(tr("&Clear"), group);
    connect(clear, &QPushButton::clicked, list, &SignalList::clear);
    auto *row = new QHBoxLayout;
    row->addWidget(m_wide);
    row->addStretch();
    row->addWidget(clear);
    auto *layout = new QVBoxLayout(group);
    layout->addWidget(list);
    layout->addLayout(row);
    setTabOrder(list, m_wide); // which was made first
    setTabOrder(m_wide, clear);
    return group;
}

} // namespace MoxDemo
