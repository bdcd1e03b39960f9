// A control of every kind that a mapper can bind, each beside a feature of a fake camera.
#ifndef MOX_BENCH_H
#define MOX_BENCH_H

#include "fakefeatures.h"
#include "imoxcamconfigintconverter.h"
#include "messagebox.h"
#include "moxcamconfigmapper.h"
#include "qtmoxsliderspinbox.h"
#include "qtmoxspinbox.h"
#include "qtmoxspinboxval.h"
#include "qtmoxspinboxval64.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

namespace MoxTest {

enum Kind { SpinBox, SliderSpinBox, Converted, ComboBox, Tabs, Radios, CheckBox, Toggle, Push };
constexpr const char *kindNames[] = {"spin box",      "slider spin box", "converted",     "combo box",  "tabs",
                                     "radio buttons", "check box",       "toggle button", "push button"};

/** Shows camera values multiplied by a fraction. */
struct Converter final : MoxGui::IMoxCamConfigIntConverter
{
    long ToControl(long value, MoxGenParam::Int *) override { return value * factor / divisor; }
    long ToDevice(long value, MoxGenParam::Int *) override { return value * divisor / factor; }
    long factor = 10, divisor = 1;
};

/** A camera with one feature of each type, all of the same name. */
struct Camera
{
    explicit Camera(int value) : features{&integer, &enumeration, &boolean, &command}
    {
        enumeration.setEntries({QStringLiteral("Alpha"), QStringLiteral("Beta"), QStringLiteral("Gamma")});
        for (FakeFeature *feature : features)
            feature->value = value;
    }
    FakeInt integer;
    FakeEnum enumeration;
    FakeBoolean boolean;
    FakeCommand command;
    FakeFeature *const features[4];
};

inline void click(QAbstractButton *button)
{
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2)); // the indicator
}

inline void type(QAbstractSpinBox *spinBox, int number)
{
    spinBox->selectAll();
    QTest::keyClicks(spinBox, QString::number(number));
    QTest::keyClick(spinBox, Qt::Key_Return);
}

/** A control as its user and its mapper know it, in camera values. The user turns two states over, and steps items. */
struct Subject
{
    QWidget *control;
    int feature; // by its place in Camera::features
    std::function<bool(Camera *camera)> bind; // null for a missing parameter
    std::function<void(int value)> user;
    std::function<int()> shown; // none for a command
};

/** The controls and their mapper, as a dialog holds them: the mapper dies before the window. */
struct Dialog
{
    Dialog()
    {
        auto *layout = new QVBoxLayout(window.get());
        for (int i = 0; i < 3; ++i) {
            radios << new QRadioButton(window.get());
            group->addButton(radios.last());
            tabs->addTab(new QWidget, QStringLiteral("Tab%1").arg(i));
        }
        toggle->setCheckable(true);
        const auto children = window->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
        for (QWidget *child : children)
            layout->addWidget(child);
        window->show();
        QTRY_VERIFY(QTest::qWaitForWindowExposed(window.get()));
    }

    Subject subject(int kind)
    {
        const auto of = [](Camera *camera, auto feature) { return camera ? &(camera->*feature) : nullptr; };
        const auto integer = [=](Camera *camera) { return of(camera, &Camera::integer); };
        const auto choice = [=](Camera *camera) { return of(camera, &Camera::enumeration); };
        const auto boolean = [=](Camera *camera) { return of(camera, &Camera::boolean); };
        const auto command = [=](Camera *camera) { return of(camera, &Camera::command); };
        const auto tabAt = [=](int index) { return tabs->tabBar()->tabRect(index).center(); };
        const Subject subjects[] = {
            {spin, 0, [=](Camera *camera) { return mapper->mapIntParam(integer(camera), spin); },
             [=](int value) { type(spin->spinBox(), value); }, [=] { return spin->value(); }},
            {slider, 0, [=](Camera *camera) { return mapper->mapIntParam(integer(camera), slider, nullptr); },
             [=](int value) { type(slider->spinBox(), value); }, [=] { return slider->value(); }},
            {slider, 0, [=](Camera *camera) { return mapper->mapIntParam(integer(camera), slider, &converter); },
             [=](int value) { type(slider->spinBox(), value * 10); }, [=] { return slider->value() / 10; }},
            {combo, 1, [=](Camera *camera) { return mapper->mapEnumParam(choice(camera), combo); },
             [=](int value) { QTest::keyClick(combo, value > combo->currentIndex() ? Qt::Key_Down : Qt::Key_Up); },
             [=] { return combo->currentIndex(); }},
            {tabs, 1, [=](Camera *camera) { return mapper->mapEnumParam(choice(camera), tabs); },
             [=](int value) { QTest::mouseClick(tabs->tabBar(), Qt::LeftButton, {}, tabAt(value)); },
             [=] { return tabs->currentIndex(); }},
            {radios.first(), 1, [=](Camera *camera) { return mapper->mapEnumParam(choice(camera), group); },
             [=](int value) { click(radios.at(value)); }, [=] { return group->checkedId(); }},
            {check, 1, [=](Camera *camera) { return mapper->mapEnumParam(choice(camera), check); },
             [=](int) { click(check); }, [=] { return check->isChecked(); }},
            {toggle, 2, [=](Camera *camera) { return mapper->mapBooleanParam(boolean(camera), toggle); },
             [=](int) { click(toggle); }, [=] { return toggle->isChecked(); }},
            {push,
             3,
             [=](Camera *camera) { return mapper->mapCommandParam(command(camera), push, &timer); },
             [=](int) { click(push); },
             {}},
        };
        return subjects[kind];
    }

    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    QtMoxSpinBox *const spin = new QtMoxSpinBox(window.get());
    QtMoxSliderSpinBox *const slider = new QtMoxSliderSpinBox(window.get());
    QComboBox *const combo = new QComboBox(window.get());
    QTabWidget *const tabs = new QTabWidget(window.get());
    QButtonGroup *const group = new QButtonGroup(window.get());
    QCheckBox *const check = new QCheckBox(window.get());
    QPushButton *const toggle = new QPushButton(window.get());
    QPushButton *const push = new QPushButton(window.get());
    QList<QRadioButton *> radios;
    QTimer timer;
    Converter converter;
    std::unique_ptr<MoxGui::MoxCamConfigMapper> mapper = std::make_unique<MoxGui::MoxCamConfigMapper>();
};

} // namespace MoxTest

#endif
