#include "bench.h"
#include "datarow.h"
#include "testmain.h"

#include <QCryptographicHash>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <QStringListModel>

using namespace MoxTest;
using Data = MoxGui::MoxCamConfigMapData;
using Bindings = QHash<QString, QVector<Data>>;

namespace {

// An explicit instantiation may name a private member. No operation makes the bindings that only display.
template<auto member> struct Reach
{
    friend Bindings &bindingsOf(MoxGui::MoxCamConfigMapper &mapper) { return mapper.*member; }
};
Bindings &bindingsOf(MoxGui::MoxCamConfigMapper &mapper);
template struct Reach<&MoxGui::MoxCamConfigMapper::bindings>;

const QString refused = QStringLiteral("Error while working with 'Feature' parameter!\r\n"
                                       "Description: GenICam: Access error");

} // namespace

class TestMoxCamConfigMapper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    /** One name, one control: the one before is cut loose, whatever its kind. */
    void oneControl()
    {
        Dialog dialog;
        Camera camera(1);
        QVERIFY(dialog.subject(Push).bind(&camera));
        for (int kind : {SpinBox, SliderSpinBox, ComboBox, Tabs, Radios, CheckBox, Toggle, Push, SpinBox}) {
            const Subject before = dialog.subject(kind == SpinBox ? Push : kind - 1), after = dialog.subject(kind);
            QVERIFY(after.bind(&camera));
            QVERIFY2(after.control->isEnabled() && !before.control->isEnabled(), kindNames[kind]);
            before.control->setEnabled(true);
            before.user(0);
            QVERIFY2(camera.features[before.feature]->writes.isEmpty(), kindNames[kind]);
        }
        QLabel companion; // keeps its state when another control comes
        camera.integer.writable = false;
        QVERIFY(dialog.mapper->mapIntParam(&camera.integer, dialog.spin, {&companion}));
        QVERIFY(!dialog.spin->isEnabled() && !companion.isEnabled());
        camera.integer.writable = true;
        QVERIFY(dialog.mapper->mapIntParam(&camera.integer, dialog.spin, {&companion}));
        QVERIFY(dialog.subject(SliderSpinBox).bind(&camera));
        QVERIFY(!dialog.spin->isEnabled() && companion.isEnabled());
    }

    void command()
    {
        Dialog dialog;
        Camera camera(0);
        const Subject subject = dialog.subject(Push);
        QVERIFY(!subject.bind(nullptr));
        QVERIFY(dialog.push->isEnabled());
        QVERIFY(subject.bind(&camera));
        camera.command.refusal = MoxCamError::GenICamAccess;
        const auto meanwhile = [&](QMessageBox *) { QVERIFY(!dialog.push->isEnabled() && dialog.timer.isActive()); };
        QCOMPARE(boxText([&] { click(dialog.push); }, meanwhile), refused);
        camera.command.refusal = MoxCamError::Success;
        QVERIFY(dialog.mapper->mapCommandParam(&camera.command, dialog.push, nullptr));
        click(dialog.push);
        QVERIFY(dialog.push->isEnabled());
        camera.command.writable = false;
        click(dialog.push);
        QCOMPARE(camera.command.writes, (Writes{1, 1}));
    }

    void integers_data()
    {
        columns<QVector<qint64>, QVector<int>, int, int>("camera", "shown", "factor",
                                                         "divisor"); // min, max, step, value
        using From = QVector<qint64>;
        using To = QVector<int>;
        row("plain", From{10, 90, 5, 50}, To{10, 90, 5, 50}, 1, 1);
        row("above 32 bits", From{0, 1LL << 40, 1, 1LL << 40}, To{0, INT_MAX, 1, INT_MAX}, 1, 1);
        row("limits of 32 bits", From{INT_MIN, INT_MAX, 1, -1}, To{INT_MIN, INT_MAX, 1, -1}, 1, 1);
        row("limits of 64 bits", From{LLONG_MIN, LLONG_MAX, 1, LLONG_MAX}, To{0, INT_MAX, 1, INT_MAX}, 1, 1);
        row("below 32 bits", From{-5 - (1LL << 32), 9, 1, 7 - (1LL << 33)}, To{-5, 9, 1, 7}, 1, 1);
        row("no increment", From{0, 10, 0, 4}, To{0, 10, 1, 4}, 1, 1);
        row("increment without low half", From{0, 10, 1LL << 32, 4}, To{0, 10, 1, 4}, 1, 1);
        row("converted", From{1, 9, 2, 5}, To{10, 90, 20, 50}, 10, 1);
        row("converted beyond 32 bits", From{0, INT_MAX, 1, INT_MAX}, To{0, INT_MAX, 10, INT_MAX}, 10, 1);
        row("converted to no increment", From{0, 100, 5, 50}, To{0, 10, 1, 5}, 1, 10);
    }
    void integers()
    {
        QFETCH(QVector<qint64>, camera);
        QFETCH(QVector<int>, shown);
        QFETCH(int, factor);
        QFETCH(int, divisor);
        Dialog dialog;
        dialog.converter.factor = factor;
        dialog.converter.divisor = divisor;
        Converter *const converter = factor == divisor ? nullptr : &dialog.converter;
        FakeInt param;
        param.min = camera.at(0);
        param.max = camera.at(1);
        param.increment = camera.at(2);
        param.value = camera.at(3);
        const auto look = [](auto &control) {
            return QVector<int>{control.minimum(), control.maximum(), control.singleStep(), control.value()};
        };
        const auto display = [&](Data::Kind kind, QWidget *widget, void *aux) {
            bindingsOf(*dialog.mapper)[QStringLiteral("Feature")] = {{kind, widget, aux}};
            param.tell();
        };
        dialog.mapper->mapIntParam(&param, dialog.slider, converter);
        QCOMPARE(look(*dialog.slider), shown);
        QSlider bar;
        display(Data::SliderInt, &bar, converter);
        QCOMPARE(look(bar), shown);
        if (!converter) {
            dialog.mapper->mapIntParam(&param, dialog.spin);
            QCOMPARE(look(*dialog.spin), shown);
            QSpinBox box;
            display(Data::SpinBoxInt, &box, nullptr);
            QCOMPARE(look(box), shown);
            QLineEdit edit;
            QIntValidator validator;
            edit.setValidator(&validator);
            display(Data::LineEditInt, &edit, nullptr);
            QCOMPARE(validator.bottom(), shown.at(0));
            QCOMPARE(validator.top(), shown.at(1));
            QCOMPARE(edit.text(), QString::number(qMin<qint64>(camera.at(3), INT_MAX)));
        }
        QCOMPARE(param.writes, Writes{});
    }

    /** A range that leaves the control's value behind is no reason to lose the camera's. */
    void rangeMoves()
    {
        for (int kind : {SpinBox, SliderSpinBox, Converted}) {
            Dialog dialog;
            Camera camera(1);
            const Subject subject = dialog.subject(kind);
            subject.bind(&camera);
            subject.user(2);
            QCOMPARE(camera.integer.writes, Writes{2});
            camera.integer.min = 60;
            camera.integer.change(70);
            QCOMPARE(subject.shown(), 70);
            QCOMPARE(camera.integer.value, 70);
        }
    }

    /** Three tabs and three buttons. */
    void entries_data()
    {
        columns<QByteArray, QByteArray, QByteArray, QByteArray>("entries", "items", "tabs", "buttons");
        row("as many", "A,B,C", "A,B,C", "A,B,C", "A,B,C");
        row("more", "A,B,C,D,E", "A,B,C,D,E", "A,B,C", "A,B,C");
        row("fewer", "A,B", "A,B", "A,B", "A,B");
        row("two surplus tabs", "A", "A", "A,Tab2", "A");
        row("none", "", "", "Tab1", "");
        row("null entries", "-,B,-,D", "B,D", "Tab0,B,Tab2", "B");
    }
    void entries()
    {
        QFETCH(QByteArray, entries);
        Dialog dialog;
        Camera camera(0);
        camera.enumeration.setEntries(QString::fromLatin1(entries).split(QLatin1Char(','), QString::SkipEmptyParts));
        for (int kind : {ComboBox, Tabs, Radios}) {
            QVERIFY(dialog.subject(kind).bind(&camera));
            camera.enumeration.tell();
        }
        QByteArrayList items, tabs, buttons;
        for (int i = 0; i < dialog.combo->count(); ++i)
            items << dialog.combo->itemText(i).toLatin1();
        for (int i = 0; i < dialog.tabs->count(); ++i)
            tabs << dialog.tabs->tabText(i).toLatin1();
        for (const QRadioButton *button : qAsConst(dialog.radios)) {
            if (button->isVisible())
                buttons << button->text().toLatin1();
        }
        QTEST(items.join(','), "items");
        QTEST(tabs.join(','), "tabs");
        QTEST(buttons.join(','), "buttons");
        QCOMPARE(camera.enumeration.writes, Writes{});
    }

    /** What a hidden button stood for belongs to another one now. */
    void anotherCamerasEntries()
    {
        // Which of two buttons with one id is found is a matter of chance.
        for (int attempt = 0; attempt < 10; ++attempt) {
            Dialog dialog;
            Camera before(0), camera(0);
            before.enumeration.setEntries({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")});
            QVERIFY(dialog.subject(Radios).bind(&before));
            camera.enumeration.setEntries({QStringLiteral("-"), QStringLiteral("-"), QStringLiteral("C")});
            camera.enumeration.entries.erase(camera.enumeration.entries.begin());
            camera.enumeration.value = 2;
            QVERIFY(dialog.subject(Radios).bind(&camera));
            QCOMPARE(dialog.radios.at(1)->text(), QStringLiteral("C"));
            QVERIFY(dialog.radios.at(1)->isChecked());
        }
    }

    void availability()
    {
        Dialog dialog;
        Camera camera(0);
        FakeEnum &param = camera.enumeration;
        param.entries[2]->available = false;
        dialog.subject(ComboBox).bind(&camera);
        param.tell();
        const QAbstractItemModel *items = dialog.combo->model();
        QVERIFY(items->flags(items->index(1, 0)).testFlag(Qt::ItemIsEnabled));
        QVERIFY(!items->flags(items->index(2, 0)).testFlag(Qt::ItemIsEnabled));
        dialog.subject(Radios).bind(&camera);
        QVERIFY(dialog.radios.at(1)->isEnabled() && !dialog.radios.at(2)->isEnabled());
        param.tell(); // enables every button, whatever its entry
        QVERIFY(dialog.radios.at(2)->isEnabled());
        dialog.subject(Tabs).bind(&camera);
        param.change(1);
        QVERIFY(dialog.tabs->widget(1)->isEnabled() && !dialog.tabs->widget(2)->isEnabled());
        param.change(7); // a value without an entry
        QCOMPARE(dialog.tabs->currentIndex(), 0);
        QStringListModel model;
        dialog.combo->setModel(&model);
        param.value = 1;
        dialog.subject(ComboBox).bind(&camera);
        QCOMPARE(dialog.combo->currentText(), QStringLiteral("Beta"));
    }

    /**
     * Behind the box of an update's or a user's write the device is replaced, or the whole dialog goes; the parameters are
     * gone when the box closes. Of the controls, not all bear to be deleted inside their signal.
     */
    void behindTheBox_data()
    {
        columns<int, bool, bool>("kind", "byUser", "closes");
        for (int kind = SpinBox; kind <= Radios; ++kind)
            row(kindNames[kind], kind, false, false);
        row("dialog of a slider spin box", SliderSpinBox, false, true);
        row("dialog of a slider spin box, by the user", SliderSpinBox, true, true);
        for (int kind = CheckBox; kind <= Push; ++kind)
            row(QByteArray("dialog of a ").append(kindNames[kind]).constData(), kind, true, true);
    }
    void behindTheBox()
    {
        QFETCH(int, kind);
        QFETCH(bool, byUser);
        QFETCH(bool, closes);
        Dialog dialog;
        auto camera = std::make_unique<Camera>(1);
        Camera other(2);
        const Subject subject = dialog.subject(kind);
        subject.bind(camera.get());
        FakeFeature *feature = camera->features[subject.feature];
        feature->refusal = MoxCamError::GenICamAccess;
        camera->integer.min = closes ? 50 : 0; // the range alone moves the value then
        const auto meanwhile = [&](QMessageBox *) {
            dialog.mapper->clearMappings();
            camera.reset();
            if (!closes)
                subject.bind(&other);
            else
                dialog.mapper.reset(), dialog.window.reset();
        };
        QCOMPARE(boxText([&] { byUser ? subject.user(0) : feature->change(0); }, meanwhile), refused);
        QCOMPARE(other.features[subject.feature]->writes, Writes{});
        if (!closes)
            QVERIFY(subject.shown() == 2 && subject.control->isEnabled());
    }

    void messages()
    {
        FakeInt param;
        const auto messageOf = [&](int code) {
            return boxText([&] { MoxGui::MoxCamConfigMapper::showErrorMessage(code, nullptr, &param); }).toUtf8();
        };
        param.name = "Ä%2b"; // takes the description
        for (int code : {INT_MAX, 1, -1, -1000, -1023, -40000, -40008, -40050, -40052, -40100, -40102, -40120, -40122,
                         -40199, -40208, INT_MIN})
            QCOMPARE(messageOf(code),
                     "Error while working with 'ÄUnknown codeb' parameter!\r\nDescription: Unknown code");
        param.name.clear();
        QCOMPARE(
            messageOf(-1011),
            "Error while working with '' parameter!\r\nDescription: GenTL: An operation\uFFFDs timeout time expired "
            "before it could be completed.");
        QVERIFY(messageOf(MoxCamError::Success).isEmpty());

        // Every text, byte by byte: the hash of all lines made of a code and its text, from a source of its own.
        QByteArray lines;
        for (const auto &block : {qMakePair(-1001, 22), qMakePair(-40001, 7), qMakePair(-40051, 1),
                                  qMakePair(-40101, 1), qMakePair(-40121, 1), qMakePair(-40200, 8)}) {
            for (int code = block.first; code > block.first - block.second; --code) {
                const QByteArray text = messageOf(code);
                lines += QByteArray::number(code) + text.mid(text.indexOf(": ") + 2) + '\n';
            }
        }
        QCOMPARE(QCryptographicHash::hash(lines, QCryptographicHash::Sha1).toHex(),
                 QByteArray("ea733cff1b68e6a49596f80babe642d5d992c8f6"));
    }

    /** A box over its parent, which may be disabled or go while it is open, and the parameter with it. */
    void box()
    {
        const QPointer<QWidget> parent = new QWidget;
        auto param = std::make_unique<FakeInt>();
        QPointer<QMessageBox> shown;
        boxText([&] { MoxGui::MoxCamConfigMapper::showErrorMessage(-40006, parent, param.get()); },
                [&](QMessageBox *box) {
                    QCOMPARE(box->parentWidget(), parent.data());
                    QCOMPARE(box->icon(), QMessageBox::Critical);
                    QCOMPARE(box->windowTitle(), QString());
                    QCOMPARE(box->standardButtons(), QMessageBox::Ok);
                    shown = box;
                    parent->setEnabled(false);
                    QVERIFY(box->isEnabled() && box->button(QMessageBox::Ok)->isEnabled());
                    param.reset();
                    delete parent;
                });
        QVERIFY(!parent && !shown);
    }
};

MOX_TEST_MAIN(TestMoxCamConfigMapper)
#include "tst_moxcamconfigmapper.moc"
