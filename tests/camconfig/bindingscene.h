// A dialog that binds parameters to controls, tested by the table of both.
#ifndef MOX_BINDINGSCENE_H
#define MOX_BINDINGSCENE_H

#include "bench.h"
#include "configscene.h"
#include "fakedevice.h"
#include "qtmoxslider.h"

#include <QSignalSpy>
#include <QSlider>
#include <QToolButton>

namespace MoxTest {

struct Binding
{
    const char *param;
    QByteArrayList controls; // the one that tells the parameter's type, and those enabled and disabled with it
};
using Bindings = QVector<Binding>;

/** A camera with all that a dialog binds; values go from 0 to 2, those of buttons to 1. */
struct BoundCamera : FakeDevice
{
    BoundCamera(const QDialog &dialog, const Bindings &bindings)
    {
        for (const auto &[param, controls] : bindings) {
            if (child<QComboBox>(dialog, controls.first()))
                features << &setEntries(param, words("A B C"));
            else if (child<QRadioButton>(dialog, controls.first()))
                features << &setEntries(param, words("A B"));
            else if (child<QAbstractButton>(dialog, controls.first()))
                features << &feature<FakeBoolean>(param);
            else
                features << &feature<FakeInt>(param);
        }
    }
    QVector<FakeFeature *> features; // in the order of the bindings
};

inline void setValue(QWidget *control, int value)
{
    if (auto *combo = qobject_cast<QComboBox *>(control))
        combo->setCurrentIndex(value);
    else if (auto *button = qobject_cast<QAbstractButton *>(control))
        button->click();
    else
        type(control->findChild<QAbstractSpinBox *>(), value);
}

inline int valueOf(const QWidget *control)
{
    if (const auto *combo = qobject_cast<const QComboBox *>(control))
        return combo->currentIndex();
    const auto *button = qobject_cast<const QAbstractButton *>(control);
    return button ? button->isChecked() : control->findChild<QAbstractSpinBox *>()->text().toInt();
}

/** @p sinks listen to a camera in the end. */
template<class Dialog, class Camera = BoundCamera> void checkBindings(const Bindings &bindings, int sinks)
{
    Dialog dialog(nullptr);
    Camera camera(dialog, bindings), other(dialog, bindings), mute(dialog, bindings), failing(dialog, bindings);
    mute.givesParameters = false;
    failing.parametersError = MoxCamError::GenTLIo;
    QByteArrayList all;
    for (const Binding &binding : bindings)
        all << binding.controls;
    const auto disabled = [&] {
        QByteArrayList names;
        std::copy_if(all.begin(), all.end(), std::back_inserter(names),
                     [&](const QByteArray &name) { return !child<QWidget>(dialog, name)->isEnabled(); });
        return names;
    };
    dialog.show();
    QCOMPARE(dialog.minimumSize(), dialog.maximumSize());
    Camera *const none = nullptr;
    for (Camera *device : {&camera, &camera, none, &camera, &other, &mute, &camera, &failing, &camera}) {
        const bool bound = device == &camera || device == &other;
        QCOMPARE(dialog.SetDevice(device), bound);
        QCOMPARE(dialog.isEnabled(), bound);
        QCOMPARE(disabled(), bound ? QByteArrayList() : all);
        camera.features.last()->change(!bound); // of no interest while unbound
        QCOMPARE(valueOf(child<QWidget>(dialog, bindings.last().controls.first())), 0);
    }
    QCOMPARE(camera.sinkCount(), sinks);
    camera.features.last()->writes.clear();

    for (int i = 0; i < bindings.size(); ++i) {
        const auto &[param, controls] = bindings.at(i);
        auto *control = child<QWidget>(dialog, controls.first());
        FakeFeature &feature = *camera.features.at(i);
        const int top = qobject_cast<QAbstractButton *>(control) ? 1 : 2;
        setValue(control, top);
        QCOMPARE(feature.writes, Writes{top}); // once, after all these devices
        feature.change(0);
        QCOMPARE(valueOf(control), 0);
        feature.refusal = MoxCamError::GenTLIo;
        const QString text = boxText([&, box = control] { setValue(box, top); });
        QVERIFY(text.contains(QLatin1String(param)) && text.contains(QStringLiteral("Communication error")));
        QCOMPARE(valueOf(control), top);
        feature.refusal = MoxCamError::Success;
        feature.tell();
        QCOMPARE(valueOf(control), 0);
        feature.writes.clear();
        feature.writable = false;
        setValue(control, top); // the control has not been told yet
        feature.tell();
        QCOMPARE(valueOf(control), 0);
        QVERIFY2(disabled() == controls, param);
        feature.writable = true;
        feature.readable = false;
        feature.change(top);
        QCOMPARE(valueOf(control), 0);
        QVERIFY2(disabled().isEmpty(), param);
        QCOMPARE(feature.writes, Writes{});
        feature.readable = true;
        feature.change(0);

        for (const bool available : {false, true}) {
            feature.available = available;
            feature.change(available ? 0 : top);
            QCOMPARE(disabled(), available ? QByteArrayList() : controls);
            QCOMPARE(valueOf(control), 0);
        }
        camera.hidden = param;
        QVERIFY(dialog.SetDevice(&camera));
        QCOMPARE(disabled(), controls);
        camera.hidden.clear();
        QVERIFY(dialog.SetDevice(&camera));
        feature.writes.clear();
    }

    // Unplugged in the middle of a drag. The pop-ups are sized when the dialog is shown, by labels that are laid out by now.
    dialog.hide();
    dialog.show();
    const auto boxes = dialog.template findChildren<QtMoxSpinBox *>();
    for (const QtMoxSpinBox *box : boxes) {
        const int labelWidth = box->leftLabel() ? box->leftLabel()->width() : 0;
        const QSize popup = box->slider()->size(); // upright or not
        QCOMPARE(qMax(popup.width(), popup.height()), box->sizeHint().width() - labelWidth);
        for (const char *missing : {"raise()", "grabbing the keyboard"})
            QTest::ignoreMessage(QtWarningMsg, QByteArray("This plugin does not support ").append(missing));
        QTest::mouseClick(box->toolButton(), Qt::LeftButton);
        QVERIFY(box->slider()->isVisible());
        box->slider()->slider()->setSliderDown(true);
        box->slider()->slider()->setSliderPosition(50);
        QVERIFY(!dialog.SetDevice(nullptr));
        QVERIFY(!box->slider()->isVisible());
        QVERIFY(dialog.SetDevice(&camera));
    }
    for (const FakeFeature *feature : camera.features)
        QCOMPARE(feature->writes, Writes{});

    QSignalSpy closing(&dialog, &Dialog::closing);
    dialog.close();
    QCOMPARE(closing.size(), 1);
}

} // namespace MoxTest

#endif
