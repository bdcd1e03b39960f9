// The gallery of value widgets, with the keyboard alone.
#include "datarow.h"
#include "testmain.h"

#include "signallist.h"
#include "widgetgallery.h"

#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>

#include <memory>

using namespace MoxDemo;

namespace {

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
    void init()
    {
        m_gallery = std::make_unique<WidgetGallery>();
        m_gallery->resize(1200, 1000);
        m_gallery->show();
        m_gallery->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_gallery.get()));
        m_list = m_gallery->findChild<SignalList *>();
    }

    void nothingIsClipped()
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

    void keys_data()
    {
        MoxTest::columns<QByteArray, QByteArray, QByteArray, QByteArray>("group", "setting", "keys", "signals");
        const auto row = [](const char *group, const char *setting, const char *keys, const char *emitted) {
            MoxTest::row(QByteArray(group + QByteArray(", ") + setting).constData(), group, setting, keys, emitted);
        };
        row("QtMoxSpinBoxVal64", "Base 16", "up return",
            "valueChanged 51967; valueChanged \"0xcaff\"; editingFinished");
        row("QtMoxSpinBoxVal64", "Typing counts on leaving, too", "4 2 tab",
            "valueChanged 42; valueChanged \"42\"; editingFinished");
        row("QtMoxSpinBoxVal", "Snapping, 10 to 100 by 25", "up", "valueChanged \"35\"; valueChanged 35");
        row("QtMoxDoubleSpinBoxVal", "Snapping, 0 to 1 by 0.25", "up up down",
            "valueChanged \"0.25\"; valueChanged 0.25; valueChanged \"0.50\"; valueChanged 0.5; valueChanged \"0.25\"; "
            "valueChanged 0.25");
        row("QtMoxSlider", "Linear", "up right tab", "valueChanged 1; valueChanged 2; focusOut");
        row("QtMoxSlider", "Logarithmic", "up up end", "valueChanged 1; valueChanged 2; valueChanged 1000");
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

    void keys()
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

    void ranges()
    {
        const int sliders = 9 + 1 + 1; // on their own, and in the controls
        for (int times : {1, 2}) {
            QTest::keyClick(m_gallery->findChild<QCheckBox *>(), Qt::Key_Space);
            QCOMPARE(listed().count("rangeChanged"), times * sliders);
        }
        QTest::keyClick(m_gallery->findChild<QPushButton *>(), Qt::Key_Space);
        QCOMPARE(m_list->topLevelItemCount(), 0);
        for (int i = 0; i < SignalList::capacity + 7; ++i)
            m_list->add(QString(), QString(), QString(), QString::number(i));
        QCOMPARE(m_list->topLevelItemCount(), SignalList::capacity);
        QCOMPARE(m_list->topLevelItem(0)->text(3), QStringLiteral("7"));
    }

    void closedWhileTyping()
    {
        focus("QtMoxSpinBoxVal64", "Typing counts on leaving, too");
        type("4 2");
        const QSignalSpy emitted(m_gallery.get(), &WidgetGallery::emitted);
        m_gallery.reset();
        QCOMPARE(emitted.count(), 0);
    }

private:
    /** Gives the focus to the first widget with that setting in the group, as a click of its caption would. */
    void focus(const QByteArray &group, const QByteArray &setting) const
    {
        const auto boxes = m_gallery->findChildren<QGroupBox *>();
        for (const QGroupBox *box : boxes) {
            const auto widgets =
                box->title() == QLatin1String(group) ? box->findChildren<QWidget *>() : QList<QWidget *>();
            for (QWidget *widget : widgets) {
                if (widget->accessibleName() == QLatin1String(setting)) {
                    widget->setFocus();
                    return m_list->clear();
                }
            }
        }
        QFAIL("no such widget");
    }

    /** The lines of the list, signal by signal, of the last widget that was given the focus. */
    QByteArray listed() const
    {
        QStringList lines;
        for (int i = 0; i < m_list->topLevelItemCount(); ++i)
            lines << m_list->topLevelItem(i)->text(2).section(QLatin1Char('('), 0, 0) + QLatin1Char(' ')
                    + m_list->topLevelItem(i)->text(3);
        return lines.join(QLatin1String("; ")).replace(QLatin1String(" ;"), QLatin1String(";")).trimmed().toUtf8();
    }

    std::unique_ptr<WidgetGallery> m_gallery;
    SignalList *m_list = nullptr;
};

MOX_TEST_MAIN(TestWidgetGallery)
#include "tst_widgetgallery.moc"
