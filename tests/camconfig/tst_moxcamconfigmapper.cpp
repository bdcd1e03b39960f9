#include "bench.h"
#include "datarow.h"
#include "testmain.h"

#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QRandomGenerator>
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
    void bothWays_data()
    {
        columns<int>("kind");
        for (int kind = SpinBox; kind <= Toggle; ++kind)
            row(kindNames[kind], kind);
    }
    void bothWays()
    {
        QFETCH(int, kind);
        Dialog dialog;
        Camera camera(1), other(1);
        const Subject subject = dialog.subject(kind);
        FakeFeature &feature = *camera.features[subject.feature];
        // What the control shows, whether it is enabled, and what was written since the last look.
        const auto check = [&](int shown, bool enabled, const Writes &writes) {
            QCOMPARE(subject.shown(), shown);
            QCOMPARE(subject.control->isEnabled(), enabled);
            QCOMPARE(std::exchange(feature.writes, {}), writes);
        };
        QVERIFY(subject.bind(&camera));
        check(1, true, {});
        subject.user(0);
        check(0, true, {0});
        feature.change(1); // written back by the controls that hear of it
        check(1, true, kind < CheckBox ? Writes{1} : Writes{});
        feature.writable = false;
        subject.user(0); // the control has not been told yet
        check(0, true, {});
        feature.tell();
        check(1, false, {});
        feature.writable = true;
        feature.readable = false;
        feature.change(0);
        check(1, true, {});
        feature.available = false;
        feature.readable = true;
        feature.tell();
        check(1, false, {});
        feature.available = true;
        feature.change(1);
        check(1, true, {});

        // A refused value stays on show until the next update, which may come while the box is open, as may a timer.
        feature.refusal = MoxCamError::GenICamAccess;
        const auto meanwhile = [&](QMessageBox *box) {
            QCOMPARE(box->parentWidget(), subject.control);
            bool ticked = false;
            QTimer::singleShot(0, box, [&] { ticked = true; });
            QTRY_VERIFY(ticked);
            check(0, true, {0});
            feature.refusal = MoxCamError::Success;
            feature.tell();
        };
        QCOMPARE(boxText([&] { subject.user(0); }, meanwhile), refused);
        check(1, true, kind < CheckBox ? Writes{1} : Writes{});

        QVERIFY(subject.bind(&camera)); // again: one subscription, one connection
        QCOMPARE(feature.sinks.size(), 1);
        subject.user(0);
        check(0, true, {0});
        QVERIFY(!subject.bind(nullptr));
        check(0, false, {});
    }

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

    void companions()
    {
        Dialog dialog;
        Camera camera(1);
        QLabel first, second;
        const auto enabled = [&] {
            return QVector<bool>{dialog.spin->isEnabled(), first.isEnabled(), second.isEnabled()};
        };
        camera.integer.writable = false;
        QVERIFY(dialog.mapper->mapIntParam(&camera.integer, dialog.spin, {&first, &second}));
        QCOMPARE(enabled(), (QVector<bool>{false, false, false}));
        camera.integer.writable = true;
        camera.integer.tell();
        QCOMPARE(enabled(), (QVector<bool>{true, true, true}));
        QVERIFY(dialog.mapper->mapIntParam(&camera.integer, dialog.spin, {&second}));
        camera.integer.available = false;
        camera.integer.tell();
        QCOMPARE(enabled(), (QVector<bool>{false, true, false}));
        dialog.mapper->clearMappings();
        QVERIFY(!dialog.mapper->mapIntParam(nullptr, dialog.spin, {&first}));
        QCOMPARE(enabled(), (QVector<bool>{false, false, false}));
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
        camera.enumeration.setEntries(QString::fromLatin1(entries).split(QLatin1Char(','), Qt::SkipEmptyParts));
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

    /** Bindings and changes in any order, against a small model of three controls and two parameters. */
    void anyOrder()
    {
        QtMoxSpinBox boxes[3];
        FakeInt params[2];
        int writesTo[] = {-1, -1, -1}, shown[] = {0, 0, 0}, boundTo[] = {-1, -1}, value[] = {0, 0}, writes[] = {0, 0};
        bool enabled[] = {true, true, true}, subscribed[] = {false, false};
        MoxGui::MoxCamConfigMapper mapper;
        params[0].name = "P0";
        params[1].name = "P1";
        std::function<void(int)> update;
        const auto show = [&](int c, int number) {
            const int p = writesTo[c];
            if (std::exchange(shown[c], number) == number || p < 0 || !params[p].IsWritable())
                return;
            ++writes[p];
            value[p] = number;
            update(p);
        };
        update = [&](int p) {
            const int c = boundTo[p];
            if (!subscribed[p] || c < 0)
                return;
            if (params[p].available)
                show(c, value[p]);
            enabled[c] = params[p].IsWritable();
        };
        const auto cut = [&](int p) {
            const int c = std::exchange(boundTo[p], -1);
            if (c >= 0) {
                enabled[c] = false;
                writesTo[c] = -1;
            }
        };
        QRandomGenerator random(20201122);
        for (int i = 0; i < 20000; ++i) {
            const int p = random.bounded(2), c = random.bounded(3), number = random.bounded(101),
                      move = random.bounded(24);
            if (move < 6) {
                QVERIFY(mapper.mapIntParam(&params[p], &boxes[c]));
                if (boundTo[p] != c)
                    cut(p);
                boundTo[p] = c;
                writesTo[c] = p;
                subscribed[p] = true;
                enabled[c] = params[p].IsWritable();
                shown[c] = value[p];
            } else if (move < 8) {
                mapper.unmapParam(&params[p]);
                subscribed[p] = subscribed[p] && boundTo[p] < 0;
                cut(p);
            } else if (move == 8) {
                mapper.clearMappings();
                cut(0);
                cut(1);
            } else if (move < 16) {
                boxes[c].setValue(number);
                show(c, number);
            } else {
                params[p].available = move != 16;
                params[p].writable = move != 17;
                params[p].change(number);
                value[p] = number;
                update(p);
            }
            for (int n = 0; n < 3; ++n)
                QVERIFY2(boxes[n].value() == shown[n] && boxes[n].isEnabled() == enabled[n], QByteArray::number(i));
            for (int n = 0; n < 2; ++n)
                QVERIFY2(params[n].value == value[n] && params[n].writes.size() == writes[n], QByteArray::number(i));
        }
        QVERIFY(writes[0] > 500 && writes[1] > 500);
    }
};

MOX_TEST_MAIN(TestMoxCamConfigMapper)
#include "tst_moxcamconfigmapper.moc"
