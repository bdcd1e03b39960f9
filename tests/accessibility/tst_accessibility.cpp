// Every window without a mouse, and as a screen reader tells of it.

#include "datarow.h"
#include "everywindow.h"
#include "testmain.h"

#include "qtmoxdoubleslider.h"
#include "qtmoxslider.h"
#include "qtmoxspinbox.h"
#include "qtmoxspinboxval64.h"
#include "widgetgallery.h"

#include <QAccessible>
#include <QButtonGroup>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QRegularExpression>
#include <QSlider>
#include <QToolButton>

using namespace MoxTest;

namespace {

/** What has the focus itself: Tab, or a click, does not hand it on to another widget. The lists of combo boxes are Qt's. */
bool takesFocus(const QWidget *widget)
{
    return widget->focusPolicy() != Qt::NoFocus && !widget->focusProxy() && !widget->inherits("QMenuBar")
        && !widget->window()->inherits("QComboBoxPrivateContainer");
}

/** Of a group Tab reaches one button, and the arrow keys the others: they count as one. */
const QObject *stopOf(const QWidget *widget)
{
    const auto *button = qobject_cast<const QRadioButton *>(widget);
    return button && button->group() ? static_cast<const QObject *>(button->group()) : widget;
}

QAccessibleInterface *interfaceOf(QWidget *widget)
{
    return QAccessible::queryAccessibleInterface(widget);
}

QString nameOf(QWidget *widget)
{
    return interfaceOf(widget)->text(QAccessible::Name);
}

QString describe(const QWidget *widget)
{
    return QLatin1String(widget->metaObject()->className()) + QLatin1Char(' ') + widget->objectName();
}

QRect placeOf(const QWidget *widget)
{
    return {widget->mapTo(widget->window(), QPoint()), widget->size()};
}

/** Whether a widget comes before another as one reads: above it, or left of it in the same row. */
bool isBefore(const QRect &one, const QRect &other)
{
    const bool sameRow = one.top() <= other.bottom() && other.top() <= one.bottom();
    return sameRow ? one.right() < other.left() : one.bottom() < other.top() && one.left() <= other.right();
}

void verifyNames(QWidget &window)
{
    const auto widgets = window.findChildren<QWidget *>(); // those of pop-ups too
    for (QWidget *widget : widgets) {
        if (!takesFocus(widget))
            continue;
        const QString name = nameOf(widget);
        QVERIFY2(name.contains(QRegularExpression(QStringLiteral("\\w"))), qPrintable(describe(widget)));
        QVERIFY2(name != widget->objectName(), qPrintable(describe(widget)));
    }
    const auto labels = window.findChildren<QLabel *>();
    for (const QLabel *label : labels)
        QVERIFY2(QKeySequence::mnemonic(label->text()).isEmpty() || label->buddy(), qPrintable(describe(label)));
}

void verifyTabs(QWidget &window)
{
    QSet<const QObject *> expected;
    const auto widgets = window.findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        if (takesFocus(widget) && widget->focusPolicy() & Qt::TabFocus && widget->isVisible() && widget->isEnabled()
            && widget->window() == &window)
            expected << stopOf(widget);
    }
    QVERIFY(!expected.isEmpty());

    QList<QWidget *> walked;
    if (!QApplication::focusWidget()) // a main window gives it to nobody
        QTest::keyClick(&window, Qt::Key_Tab);
    while (QApplication::focusWidget() && !walked.contains(QApplication::focusWidget())) {
        walked << QApplication::focusWidget();
        QVERIFY2(expected.remove(stopOf(walked.last())), qPrintable(describe(walked.last())));
        QTest::keyClick(walked.last(), Qt::Key_Tab);
    }
    for (const QWidget *widget : widgets)
        QVERIFY2(!expected.contains(stopOf(widget)), qPrintable(describe(widget) + QStringLiteral(" is not reached")));
    QCOMPARE(QApplication::focusWidget(), walked.first());

    QStringList returns; // one, from the last to the first
    for (int i = 0; i < walked.size(); ++i) {
        const QWidget *next = walked.at((i + 1) % walked.size());
        if (isBefore(placeOf(next), placeOf(walked.at(i))))
            returns << describe(walked.at(i)) + QStringLiteral(" to ") + describe(next);
    }
    QVERIFY2(returns.size() <= 1, qPrintable(returns.join(QStringLiteral(", "))));
}

/** All of it in view. */
struct Gallery : MoxDemo::WidgetGallery
{
    Gallery() { resize(1200, 1000); }
};

/** Expects minimum, maximum, step, and a value that can be set and is told as text. */
void verifyValues(QWidget *widget, const QVariantList &expected)
{
    QAccessibleInterface *interface = interfaceOf(widget);
    QAccessibleValueInterface *values = interface->valueInterface();
    QVERIFY(values);
    values->setCurrentValue(expected[3]);
    const double told = values->currentValue().toDouble(); // also 0.30000000000000004
    QVERIFY2(qAbs(told - expected[3].toDouble()) < 1e-9, qPrintable(values->currentValue().toString()));
    QCOMPARE(QVariantList({values->minimumValue(), values->maximumValue(), values->minimumStepSize()}),
             expected.mid(0, 3));
    QCOMPARE(interface->text(QAccessible::Value), expected[3].toString());
    QCOMPARE(interface->role(), qobject_cast<QSlider *>(widget) ? QAccessible::Slider : QAccessible::SpinBox);
}

} // namespace

class TestAccessibility : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_windows = std::make_unique<EveryWindow>();
        m_kinds = m_windows->kinds();
        m_kinds.push_back({"widget gallery", nullptr, nullptr, EveryWindow::on<Gallery>()});
    }
    void cleanupTestCase() { m_windows.reset(); }

    void window_data()
    {
        columns<int>("kind");
        for (std::size_t i = 0; i < m_kinds.size(); ++i)
            row(m_kinds[i].name, int(i));
    }

    void window()
    {
        QFETCH(int, kind);
        QList<QAccessible::Id> known;
        m_kinds[std::size_t(kind)].open([&known](QWidget &window) {
            QVERIFY(!window.windowTitle().isEmpty());
            if (dynamic_cast<Gallery *>(&window)) // begins with its first
                QVERIFY(qobject_cast<QtMoxSpinBoxVal64 *>(QApplication::focusWidget()));
            verifyNames(window);
            verifyTabs(window);
            const auto widgets = window.findChildren<QWidget *>();
            for (QWidget *widget : widgets)
                known << QAccessible::uniqueId(interfaceOf(widget));
        });
        // What is told of a widget ends with the widget, however often its signals have been cut.
        for (const QAccessible::Id id : qAsConst(known))
            QVERIFY(!QAccessible::accessibleInterface(id));
    }

    void filterOptions()
    {
        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support raise()");
        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support grabbing the keyboard");
        MoxGui::MoxGenParamTreeView tree(nullptr);
        tree.show();
        tree.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&tree));
        auto *field = tree.findChild<QLineEdit *>(QStringLiteral("filterLineEdit"));
        QVERIFY(interfaceOf(field)->text(QAccessible::Description).contains(QLatin1String("Alt+Down")));
        field->setFocus();
        QTest::keyClick(field, Qt::Key_Down, Qt::AltModifier);
        auto *options = tree.findChild<QWidget *>(QStringLiteral("FilterOptions"));
        QCOMPARE(QApplication::activePopupWidget(), options);
        for (const char *name : {"checkBoxCase", "checkBoxWhole"}) {
            auto *box = options->findChild<QCheckBox *>(QLatin1String(name));
            QCOMPARE(options->focusWidget(), box);
            QTest::keyClick(box, Qt::Key_Space);
            QVERIFY(box->isChecked());
            QTest::keyClick(box, Qt::Key_Tab);
        }
        QTest::keyClick(options, Qt::Key_Escape);
        QVERIFY(!options->isVisible());
        QCOMPARE(QApplication::focusWidget(), field);
    }

    void values()
    {
        const struct
        {
            QtMoxSlider::ScaleType scale;
            int minimum, maximum, step, value;
        } rows[] = {{QtMoxSlider::LinearScale, -5, 20, 5, 10},
                    // Positions of these are logarithms and roots.
                    {QtMoxSlider::Log10Scale, 0, 100000, 1, 100000},
                    {QtMoxSlider::SqrtScale, 0, 10000, 1, 2500}};
        for (const auto &row : rows) {
            QtMoxSlider slider(nullptr);
            slider.setSingleStep(row.step);
            slider.setScaleType(row.scale);
            slider.setRange(row.minimum, row.maximum);
            verifyValues(slider.findChild<QSlider *>(), {row.minimum, row.maximum, row.step, row.value});
        }
        QtMoxDoubleSlider slider(nullptr);
        slider.setSingleStep(0.1);
        slider.setRange(0.0, 2.0);
        verifyValues(slider.findChild<QSlider *>(), {0.0, 2.0, 0.1, 0.3}); // counted in ticks
        QtMoxSpinBoxVal64 box;
        verifyValues(&box, {0LL, 99LL, QVariant(), 42LL}); // Qt tells no step of any spin box
        QSlider plain; // one that stands by itself is Qt's own
        verifyValues(&plain, {0, 99, 1, 7});
    }

    void controlNames()
    {
        // The left label names the parts, until the control has a name of its own.
        QtMoxSpinBox control;
        control.setLeftLabelText(QStringLiteral("Width:"));
        QCOMPARE(nameOf(control.findChild<QSlider *>()), QStringLiteral("Width:"));
        control.setAccessibleName(QStringLiteral("Width of the frame"));
        control.setLeftLabelText(QStringLiteral("W:"));
        const auto widgets = control.findChildren<QWidget *>();
        int named = 0;
        for (QWidget *widget : widgets) {
            if (takesFocus(widget) && ++named)
                QCOMPARE(nameOf(widget), QStringLiteral("Width of the frame"));
        }
        QCOMPARE(named, 3);
        QCOMPARE(interfaceOf(control.toolButton())->text(QAccessible::Description), QStringLiteral("Opens a slider"));
    }

private:
    std::unique_ptr<EveryWindow> m_windows;
    std::vector<WindowKind> m_kinds;
};

MOX_TEST_MAIN(TestAccessibility)
#include "tst_accessibility.moc"
