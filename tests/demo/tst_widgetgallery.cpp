// The gallery of value widgets, with the keyboard alone.

#include "datarow.h"
#include "testmain.h"

#include "signallist.h"
#include "widgetgallery.h"

#include <QAbstractSpinBox>
#include <QAccessible>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>

#include <algorithm>
#include <memory>

using namespace MoxDemo;

namespace {

QRect placeOf(const QWidget *widget)
{
    return {widget->mapTo(widget->window(), QPoint()), widget->size()};
}

/** The innermost box around a widget, or the widget itself without any. */
const QWidget *groupOf(const QWidget *widget)
{
    const QWidget *group = widget;
    while (group->parentWidget() && !qobject_cast<const QGroupBox *>(group))
        group = group->parentWidget();
    return group;
}

/** Whether a box is below another, or in a column behind it. */
bool startsBehind(const QRect &next, const QRect &previous)
{
    return next.top() > previous.bottom() || next.left() > previous.right();
}

/** Whether a widget comes after another of its box as one reads: below it, or in the same row. */
bool follows(const QRect &next, const QRect &previous)
{
    return next.top() > previous.bottom() || (next.left() > previous.right() && next.bottom() >= previous.top());
}

/** Types the words: names of keys, or a digit each. */
void type(const QByteArray &keys)
{
    static const QHash<QByteArray, Qt::Key> names{
        {"up", Qt::Key_Up},   {"down", Qt::Key_Down},   {"return", Qt::Key_Return}, {"tab", Qt::Key_Tab},
        {"end", Qt::Key_End}, {"space", Qt::Key_Space}, {"escape", Qt::Key_Escape}, {"right", Qt::Key_Right}};
    const QList<QByteArray> words = keys.split(' ');
    for (const QByteArray &word : words) {
        QWidget *target = QApplication::focusWidget();
        QVERIFY2(target, word);
        if (names.contains(word))
            QTest::keyClick(target, names.value(word));
        else
            QTest::keyClicks(target, QString::fromLatin1(word));
    }
}

} // namespace

class TestWidgetGallery : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void walk();
    void nothingIsClipped();
    void keys_data();
    void keys();
    void ranges();
    void listIsBounded();
    void closedWhileTyping();

private:
    void focus(const QByteArray &group, const QByteArray &setting) const;
    QByteArray listed() const;

    std::unique_ptr<WidgetGallery> m_gallery;
    SignalList *m_list = nullptr;
};

void TestWidgetGallery::init()
{
    m_gallery = std::make_unique<WidgetGallery>();
    m_gallery->resize(1200, 1000);
    m_gallery->show();
    m_gallery->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_gallery.get()));
    m_list = m_gallery->findChild<SignalList *>();
}

void TestWidgetGallery::cleanup()
{
    m_gallery.reset();
}

/** Gives the focus to the first widget with that setting in the group, as a click of its caption would. */
void TestWidgetGallery::focus(const QByteArray &group, const QByteArray &setting) const
{
    const auto widgets = m_gallery->findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        const auto *box = qobject_cast<const QGroupBox *>(groupOf(widget));
        if (box && box->title() == QLatin1String(group) && widget->accessibleName() == QLatin1String(setting)) {
            widget->setFocus();
            m_list->clear();
            return;
        }
    }
    QFAIL("no such widget");
}

/** The lines of the list, signal by signal, of the last widget that was given the focus. */
QByteArray TestWidgetGallery::listed() const
{
    QStringList lines;
    for (int i = 0; i < m_list->topLevelItemCount(); ++i)
        lines << m_list->topLevelItem(i)->text(2).section(QLatin1Char('('), 0, 0) + QLatin1Char(' ')
                + m_list->topLevelItem(i)->text(3);
    return lines.join(QLatin1String("; ")).replace(QLatin1String(" ;"), QLatin1String(";")).trimmed().toUtf8();
}

void TestWidgetGallery::walk()
{
    QList<QWidget *> expected = m_gallery->findChildren<QWidget *>();
    expected.erase(std::remove_if(expected.begin(), expected.end(),
                                  [](const QWidget *widget) {
                                      return !(widget->focusPolicy() & Qt::TabFocus) || widget->focusProxy()
                                          || !widget->isVisible();
                                  }),
                   expected.end());
    QCOMPARE(expected.size(), 10 + 3 + 3 + 8 + 4 + (5 * 2 + 1) + 4 * 2 + 2 * 2 + 3); // the last: list, switch, button

    QList<QWidget *> walked; // from where the window puts the focus
    for (int i = 0; i < expected.size(); ++i) {
        QWidget *widget = QApplication::focusWidget();
        const QString name = QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
        QVERIFY2(!name.isEmpty(), widget->metaObject()->className());
        QVERIFY2(!walked.contains(widget), qPrintable(name));
        QVERIFY2(widget->visibleRegion().boundingRect() == widget->rect(), qPrintable(name)); // scrolled to
        if (!walked.isEmpty()) {
            const QWidget *group = groupOf(widget), *previous = groupOf(walked.last());
            QVERIFY2(group == previous ? follows(placeOf(widget), placeOf(walked.last()))
                                       : startsBehind(placeOf(group), placeOf(previous)),
                     qPrintable(name));
        }
        walked << widget;
        QTest::keyClick(widget, Qt::Key_Tab);
    }
    QCOMPARE(QApplication::focusWidget(), walked.first());
    QTest::keyClick(walked.first(), Qt::Key_Backtab);
    QCOMPARE(QApplication::focusWidget(), walked.last());
}

void TestWidgetGallery::nothingIsClipped()
{
    const auto labels = m_gallery->findChildren<QLabel *>();
    QVERIFY(labels.size() > 40);
    for (const QLabel *label : labels) {
        if (label->isVisible())
            QVERIFY2(label->width() >= label->sizeHint().width() && label->height() >= label->sizeHint().height(),
                     qPrintable(label->text()));
    }
    const auto spinBoxes = m_gallery->findChildren<QAbstractSpinBox *>();
    for (QAbstractSpinBox *spinBox : spinBoxes) {
        for (int steps : {-2000000000, 2000000000}) { // to the ends, where those are in reach
            spinBox->stepBy(steps);
            const auto *edit = spinBox->findChild<QLineEdit *>();
            const int needed = edit->fontMetrics().horizontalAdvance(edit->displayText());
            QVERIFY2(edit->width() >= needed + 4, qPrintable(spinBox->accessibleName() + spinBox->text()));
        }
        QVERIFY2(spinBox->height() >= spinBox->minimumSizeHint().height(), qPrintable(spinBox->accessibleName()));
    }
}

void TestWidgetGallery::keys_data()
{
    MoxTest::columns<QByteArray, QByteArray, QByteArray, QByteArray>("group", "setting", "keys", "signals");
    const auto row = [](const char *group, const char *setting, const char *keys, const char *emitted) {
        MoxTest::row(QByteArray(group + QByteArray(", ") + setting).constData(), group, setting, keys, emitted);
    };
    const char *group = "QtMoxSpinBoxVal64";
    row(group, "As made", "up down", "valueChanged 1; valueChanged \"1\"; valueChanged 0; valueChanged \"0\"");
    row(group, "Base 16", "up return", "valueChanged 51967; valueChanged \"0xcaff\"; editingFinished");
    row(group, "Held step counts at release", "up", "valueChanged 1; valueChanged \"1\"");
    row(group, "Typing counts at Return only", "4 2 tab", "editingFinished");
    row(group, "Typing counts on leaving, too", "4 2 tab", "valueChanged 42; valueChanged \"42\"; editingFinished");
    row(group, "Wrapping, 0 to 5", "down", "valueChanged 5; valueChanged \"5\"");
    row(group, "Read-only", "up 7 return", "editingFinished");
    row("QtMoxSpinBoxVal", "Snapping, 10 to 100 by 25", "up", "valueChanged \"35\"; valueChanged 35");
    row("QtMoxSpinBoxVal", "Typing counts at Return", "7 return", "valueChanged \"70\"; valueChanged 70");
    row("QtMoxDoubleSpinBoxVal", "Snapping, 0 to 1 by 0.25", "up up down",
        "valueChanged \"0.25\"; valueChanged 0.25; valueChanged \"0.50\"; valueChanged 0.5; valueChanged \"0.25\"; "
        "valueChanged 0.25");
    row("QtMoxSlider", "Linear", "up right tab", "valueChanged 1; valueChanged 2; focusOut");
    row("QtMoxSlider", "Logarithmic", "up up end", "valueChanged 1; valueChanged 2; valueChanged 1000");
    row("QtMoxSlider", "Square root", "up up", "valueChanged 1; valueChanged 4");
    row("QtMoxDoubleSlider", "By 0.3", "up end", "valueChanged 0.3; valueChanged 1");
    row("Vertical", "Double", "up", "valueChanged 0.1");
    // The slider pops up, takes the keys, and gives the focus back.
    row("QtMoxSpinBox", "Vertical pop-up", "tab space up up escape down",
        "valueChanged 1; valueChanged \"1\"; valueChanged 2; valueChanged \"2\"");
    row("QtMoxSliderSpinBox", "Linear", "up tab down",
        "valueChanged \"1\"; valueChanged 1; valueChanged \"0\"; valueChanged 0");
    row("QtMoxGainSlider", "Decibels", "up tab up",
        "valueChanged \"0.1 dB\"; valueChanged 0.1; valueChanged \"0.2 dB\"; valueChanged 0.2");
}

void TestWidgetGallery::keys()
{
    QFETCH(QByteArray, group);
    QFETCH(QByteArray, setting);
    QFETCH(QByteArray, keys);
    if (group == "QtMoxSpinBox" && QGuiApplication::platformName() == QLatin1String("offscreen")) {
        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support raise()");
        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support grabbing the keyboard");
    }
    focus(group, setting);
    type(keys);
    QTEST(listed(), "signals");
}

void TestWidgetGallery::ranges()
{
    const int sliders = 9 + 1 + 1; // on their own, and in the controls
    for (int times : {1, 2}) {
        QTest::keyClick(m_gallery->findChild<QCheckBox *>(), Qt::Key_Space);
        QCOMPARE(listed().count("rangeChanged"), times * sliders);
    }
    QTest::keyClick(m_gallery->findChild<QPushButton *>(), Qt::Key_Space);
    QCOMPARE(m_list->topLevelItemCount(), 0);
}

void TestWidgetGallery::listIsBounded()
{
    for (int i = 0; i < SignalList::capacity + 7; ++i)
        m_list->add(QString(), QString(), QString(), QString::number(i));
    QCOMPARE(m_list->topLevelItemCount(), SignalList::capacity);
    QCOMPARE(m_list->topLevelItem(0)->text(3), QStringLiteral("7"));
}

void TestWidgetGallery::closedWhileTyping()
{
    focus("QtMoxSpinBoxVal64", "Typing counts on leaving, too");
    type("4 2");
    const QSignalSpy emitted(m_gallery.get(), &WidgetGallery::emitted);
    m_gallery.reset();
    QCOMPARE(emitted.count(), 0);
}

MOX_TEST_MAIN(TestWidgetGallery)
#include "tst_widgetgallery.moc"
