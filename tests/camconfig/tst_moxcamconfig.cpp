#include "configscene.h"
#include "datarow.h"
#include "fakedevice.h"
#include "fakesdk.h"
#include "messagebox.h"
#include "testmain.h"

#include <QCheckBox>
#include <QMenu>
#include <QMenuBar>

using namespace MoxTest;

namespace {

constexpr int connected = MoxCam::EventDeviceConnected, disconnected = MoxCam::EventDeviceDisconnected;

const QString nothing = QStringLiteral("Disconnected; ; ; ");
// The tick and showing the window read the temperature, taking up a camera does not.
const QString fresh = QStringLiteral("Model; 640x480 100.00 10000 2000; 320x480 200.00 5000 2000; ");
const QString live = fresh + QStringLiteral("31");

/** A camera with frames A and B, in turn to begin with. Width and frame time follow the selector, which can refuse. */
struct Camera : FakeDevice, MoxGenParam::ParamEventSink
{
    Camera()
    {
        feature<FakeString>("DeviceModelName").text = "Model";
        setNumbers({{"CurrentTemperature", 31}, {"CurrentExposureTime", 2000}, {"Height", 480}});
        setNumbers({{"Width", 640}, {"CurrentFrameTime", 10000}});
        selector.sinks << this;
        mode.value = 2;
    }
    void OnParameterUpdate(MoxGenParam::Param *) override
    {
        selector.refusal = answer; // from the second write on
        setNumbers({{"Width", 640 / (selector.value + 1)}, {"CurrentFrameTime", 10000 / (selector.value + 1)}});
    }
    /** The frames that were selected, without the repetitions that the frame dialog's tabs answer with. */
    Writes takeSelections()
    {
        Writes writes = std::exchange(selector.writes, {});
        writes.erase(std::unique(writes.begin(), writes.end()), writes.end());
        return writes;
    }
    /** How many events and parameters the window listens to. Its dialogs have sinks of their own. */
    QVector<int> subscribed() const
    {
        const auto sinks = selector.sinks + mode.sinks;
        const auto isWindow = [](auto *sink) { return dynamic_cast<WindowPrivate *>(sink) != nullptr; };
        return {int(subscriptions.size()), int(std::count_if(sinks.begin(), sinks.end(), isWindow))};
    }

    MoxCamErr answer = MoxCamError::Success;
    FakeEnum &selector = setEntries("FrameAB_Selector", words("FrameA FrameB"));
    FakeEnum &mode = setEntries("FrameMode", words("FrameA FrameB FrameAB -"));
    FakeBoolean &mirror = feature<FakeBoolean>("ReverseX"); // in one of the last dialogs to be given a device
};

const QVector<int> bound{2, 2}, silent{2, 0}, unbound{0, 0};

} // namespace

class TestMoxCamConfig : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        own = std::make_unique<Camera>();
        system = std::make_unique<FakeSystem>();
        system->add("A")->add("a1")->device = own.get();
    }
    void cleanup() { FakeSystem::current = nullptr; }

    void cameraKinds_data()
    {
        columns<QByteArray, int, QByteArray>("lacking", "frameTime", "shown");
        row("all there", "", 10000, "Model; 640x480 100.00 10000 2000; 320x480 200.00 5000 2000; 31");
        row("one frame", "FrameAB_Selector", 10000, "Model; 640x480 100.00 10000 2000; 640x480 100.00 10000 2000; 31");
        row("no frame mode", "FrameMode", 10000, "Model; 640x480 100.00 10000 2000; 320x480 200.00 5000 2000; 31");
        row("no height", "Height", 3, "Model; 640 333333.33 3 2000; 320 200.00 5000 2000; 31");
        row("no width", "Width", 0, "Model; x480 0.00 0 2000; x480 200.00 5000 2000; 31");
        row("no frame time", "CurrentFrameTime", 0, "Model; 640x480   2000; 320x480   2000; 31");
        row("no exposure", "CurrentExposureTime", 1, "Model; 640x480 1000000.00 1; 320x480 200.00 5000; 31");
        row("no temperature", "CurrentTemperature", 9, "Model; 640x480 111111.11 9 2000; 320x480 200.00 5000 2000; ");
        row("no name", "DeviceModelName", 9, "Unknown; 640x480 111111.11 9 2000; 320x480 200.00 5000 2000; 31");
    }
    void cameraKinds()
    {
        QFETCH(QByteArray, lacking);
        QFETCH(int, frameTime);
        Camera camera;
        camera.hidden = lacking.toStdString();
        camera.setNumbers({{"CurrentFrameTime", frameTime}});
        Window window(&camera), maximizable(nullptr, nullptr, Qt::WindowMinMaxButtonsHint);
        QVERIFY(maximizable.windowFlags() & ~window.windowFlags() & Qt::WindowMaximizeButtonHint);
        window.show();
        QCOMPARE(window.minimumSize(), window.maximumSize());
        QTEST(figures(window).toUtf8(), "shown");
        const bool ab = lacking != "FrameAB_Selector";
        QCOMPARE(camera.takeSelections(), ab ? (Writes{1, 0}) : Writes{});
        for (const char *name : {"pushBtnFrameAB", "lblFrameB", "lineEditExpFrameB"})
            QCOMPARE(child<QWidget>(window, name)->isVisible(), ab);
        QCOMPARE(child<QAction>(window, "actionFrame_A_B")->isVisible(), ab);
        auto *edit = child<QLineEdit>(window, "lineEditFtmFrameA");
        QCOMPARE(edit->maximumWidth(),
                 ab ? edit->fontMetrics().horizontalAdvance(QStringLiteral("xxxxxxxxxxxx")) : 0xFFFFFF);
        QCOMPARE(edit->geometry().right(), child<QWidget>(window, "lineEditTemperature")->geometry().right());
    }

    void frameModes()
    {
        Camera camera;
        camera.mode.value = 0;
        Window window(&camera);
        const Writes toBAndBack{1, 0}, toAAndBack{0, 1};
        // After a change the next tick shows the figures in the column that the mode calls for.
        const auto check = [&](int exposureTime, const char *shown, const Writes &writes) {
            camera.setNumbers({{"CurrentExposureTime", exposureTime}});
            tick(window);
            QCOMPARE(figures(window), QString::fromLatin1(shown));
            QCOMPARE(camera.takeSelections(), writes);
        };
        // With frame A alone its dialog keeps it selected, so the other column got its figures, too.
        check(1, "Model; 640x480 100.00 10000 1; 640x480 100.00 10000 2000; 31", toBAndBack);
        check(1, "Model; 640x480 100.00 10000 1; 640x480 100.00 10000 2000; 31", {});
        camera.mode.change(1);
        check(2, "Model; 640x480 100.00 10000 1; 320x480 200.00 5000 2; 31", {1});
        for (const int mode : {2, 3}) { // the last one has no text
            camera.mode.change(mode);
            check(3, "Model; 640x480 100.00 10000 3; 320x480 200.00 5000 3; 31", toAAndBack);
            check(4, "Model; 640x480 100.00 10000 3; 320x480 200.00 5000 4; 31", {});
        }
        camera.selector.change(0);
        check(5, "Model; 640x480 100.00 10000 5; 320x480 200.00 5000 4; 31", {0}); // the tabs' answer
        camera.selector.readable = false;
        camera.selector.change(1); // not heard
        camera.selector.readable = true;
        camera.mode.change(2);
        check(6, "Model; 320x480 200.00 5000 6; 320x480 200.00 5000 6; 31", toBAndBack);
        camera.selector.refusal = MoxCamError::GenICamAccess;
        camera.mode.change(2);
        check(7, "Model; 640x480 100.00 10000 7; 640x480 100.00 10000 7; 31", toBAndBack);
        camera.selector.refusal = MoxCamError::Success;

        // With frames in turn from the start they are read twice: when the camera is taken up, and at the first tick.
        window.SetDevice(&camera);
        QCOMPARE(camera.takeSelections(), toBAndBack);
        tick(window);
        tick(window);
        QCOMPARE(camera.takeSelections(), toBAndBack);
    }

    /** Events wait for the tick, where the last one counts; those of a device that was given up do not. */
    void events()
    {
        Camera camera, other;
        Window window(&camera);
        const auto check = [&](const QString &shown, const QVector<int> &subscribed) {
            QCOMPARE(figures(window), shown);
            QCOMPARE(camera.subscribed(), subscribed);
            for (const auto &function : privateOf(window)->functions)
                QCOMPARE(function.dialog->isEnabled(), shown != nothing);
        };
        // What is raised before a tick, + for connected, and what shows behind it: live or fresh figures, or none.
        for (const QByteArray step :
             {": live", "-: none", ": none", "+-: none", "-+: fresh", ": live", "+: live", "-+: live", "-: none"}) {
            const QString before = figures(window);
            for (const char event : step.left(step.indexOf(':')))
                camera.raise(event == '+' ? connected : disconnected);
            QCOMPARE(figures(window), before);
            tick(window);
            check(step.endsWith("none")       ? nothing
                      : step.endsWith("live") ? live
                                              : fresh,
                  step.endsWith("none") ? silent : bound);
        }
        window.SetDevice(&camera);
        camera.atParameters = [&] { camera.raise(disconnected); }; // pulled out again while it is taken up
        camera.raise(connected);
        tick(window);
        check(fresh, bound);
        tick(window);
        check(nothing, silent);
        camera.givesParameters = false;
        camera.raise(connected);
        tick(window);
        check(nothing, silent);
        camera.raise(disconnected);
        window.SetDevice(&other);
        tick(window);
        check(live, unbound);
        window.SetDevice(nullptr);
        QCOMPARE(other.subscribed(), unbound);
        check(nothing, unbound);
    }

    void menu()
    {
        std::unique_ptr<Window> window;
        const auto construct = [&] { window = std::make_unique<Window>(nullptr); };
        const auto connect = [&] { trigger(*window, "actionConnect"); };
        const auto reject = [](QDialog *selector) { selector->reject(); };
        const auto check = [&](const QString &shown, int systemReleases, int deviceReleases) {
            QCOMPARE(figures(*window), shown);
            QCOMPARE(own->subscribed(), shown == nothing ? unbound : bound);
            QCOMPARE(system->releases.load(), systemReleases);
            QCOMPARE(own->releases, deviceReleases);
        };
        QVERIFY(!select(construct, acceptFirst)); // no system
        QVERIFY(window->isEnabled());
        FakeSystem::current = system.get();
        QVERIFY(select(construct, reject));
        check(nothing, 0, 0);
        MoxCam::Device *&found = system->plugged().front()->plugged().front()->device;
        MoxCam::Device *const device = std::exchange(found, nullptr); // cannot be opened
        QVERIFY(select(connect, acceptFirst));
        check(nothing, 1, 0);
        found = device;
        QVERIFY(select(connect, acceptFirst));
        check(fresh, 2, 0);
        QVERIFY(select(connect, reject));
        check(nothing, 3, 1);
        QVERIFY(select(connect, acceptFirst));
        own->raise(disconnected);
        tick(*window);
        trigger(*window, "actionDisconnect");
        check(nothing, 5, 2);
        QVERIFY(select(construct, acceptFirst));
        check(fresh, 5, 2);
        window.reset();
        QCOMPARE(own->sinkCount(), 1); // the camera itself
        QCOMPARE(own->releases, 3);

        // A device that gives way to one from outside is nobody's to release.
        Camera other;
        QVERIFY(select(construct, acceptFirst));
        window->SetDevice(&other);
        QCOMPARE(own->subscribed(), unbound);
        window.reset();
        QCOMPARE(own->releases + other.releases, 3);
    }

    void deletedWhileSelecting_data()
    {
        columns<QByteArray>("by");
        for (const char *by : {"constructor", "click", "key"})
            row(by, by);
    }
    void deletedWhileSelecting()
    {
        QFETCH(QByteArray, by);
        FakeSystem::current = system.get();
        Camera camera;
        auto parent = std::make_unique<QWidget>();
        QPointer<QMenu> menu;
        const auto action = [&] {
            auto *window = new Window(by == "constructor" ? nullptr : &camera, parent.get());
            if (by == "constructor")
                return; // deleted already
            window->show();
            menu = child<QMenu>(*window, "menuMenu");
            for (const char *missing : {"raise()", "grabbing the keyboard"})
                QTest::ignoreMessage(QtWarningMsg, QByteArray("This plugin does not support ").append(missing));
            menu->popup({});
            if (by == "click") {
                QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions().first()).center());
            } else {
                QTest::keyClick(menu, Qt::Key_Down);
                QTest::keyClick(menu, Qt::Key_Return);
            }
        };
        int releasesWithSelector = -1;
        QVERIFY(select(action, [&](QDialog *selector) {
            QObject::connect(selector, &QObject::destroyed, qApp, [&] { releasesWithSelector = system->releases; });
            parent.reset();
        }));
        QCOMPARE(releasesWithSelector, 0); // the selector went first
        QCOMPARE(system->releases.load(), 1);
        QCOMPARE(camera.subscribed(), unbound);
        QCOMPARE(camera.sinkCount(), 1);
        // Qt goes back to the menu whose entry has opened the selector.
        QCOMPARE(bool(menu), by != "constructor");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!menu);
    }

    void selectingOverlaps()
    {
        FakeSystem::current = system.get();
        Camera camera;
        Window window(&camera);
        const auto connect = [&] { trigger(window, "actionConnect"); };
        // Given a device meanwhile: what the user selects comes later.
        QVERIFY(select(connect, [&](QDialog *selector) {
            window.SetDevice(&camera);
            acceptFirst(selector);
        }));
        QCOMPARE(camera.subscribed(), unbound);
        QCOMPARE(own->subscribed(), bound);
        // Another selection, or a disconnection, takes the place of the one under way.
        QVERIFY(select(connect, [&](QDialog *) { QVERIFY(select(connect, acceptFirst)); }));
        QCOMPARE(own->subscribed(), bound);
        QVERIFY(select(connect, [&](QDialog *) { trigger(window, "actionDisconnect"); }));
        QCOMPARE(own->subscribed(), unbound);
        QCOMPARE(own->releases, 2);
        QCOMPARE(system->releases.load(), 4);
    }

    /** The dialogs can put up a message box in the middle of what the window does. */
    void boxes_data()
    {
        columns<QByteArray, QByteArray>("by", "meanwhile");
        row("made, deleted", "constructor", "delete");
        for (const char *by : {"device", "again", "back", "mode"}) {
            for (const char *meanwhile : {"delete", "null", "other"})
                row(QByteArray(by) + ", " + meanwhile, by, meanwhile);
        }
        for (const char *by : {"device", "back", "mode"}) // at the others nothing of the device is heard of
            row(QByteArray(by) + ", pull", by, "pull");
    }
    void boxes()
    {
        QFETCH(QByteArray, by);
        QFETCH(QByteArray, meanwhile);
        Camera other;
        other.feature<FakeString>("DeviceModelName").text = "Other";
        auto camera = std::make_unique<Camera>();
        camera->mode.value = by == "mode" ? 0 : by == "again" ? 2 : 1;
        auto parent = std::make_unique<QWidget>();
        QPointer<Window> window;
        if (by != "constructor")
            window = new Window(by == "device" ? nullptr : camera.get(), parent.get());
        if (by == "back") {
            camera->raise(MoxCam::EventDeviceDisconnected);
            tick(*window);
            camera->selector.value = 0;
        }
        if (by == "mode" || by == "again")
            camera->answer = MoxCamError::GenTLIo; // to the dialog's tabs, which repeat what the window selects
        else
            camera->selector.refusal = MoxCamError::GenTLIo; // to the dialog, which chooses frame B

        const auto action = [&] {
            if (by == "constructor") {
                new Window(camera.get(), parent.get());
            } else if (by == "device" || by == "again") {
                window->SetDevice(camera.get());
            } else if (by == "back") {
                camera->raise(MoxCam::EventDeviceConnected);
                tick(*window);
            } else {
                camera->mode.change(2);
                tick(*window);
            }
        };
        const QString text = boxText(action, [&](QMessageBox *) {
            if (meanwhile == "delete")
                return parent.reset();
            if (meanwhile == "pull") {
                camera->raise(MoxCam::EventDeviceDisconnected);
                return tick(*window);
            }
            window->SetDevice(meanwhile == "other" ? &other : nullptr);
        });
        QVERIFY(text.contains(QStringLiteral("FrameAB_Selector")));

        if (meanwhile == "delete") {
            QVERIFY(!window);
            QCOMPARE(camera->sinkCount(), 1); // the camera itself
            QVERIFY(camera->subscriptions.empty() && other.subscriptions.empty());
            return;
        }
        const bool bound = meanwhile == "other";
        QCOMPARE(privateOf(*window)->statusText->text(),
                 bound ? QStringLiteral("Other") : QStringLiteral("Disconnected"));
        QCOMPARE(camera->subscriptions.size(), meanwhile == "pull" ? 2u : 0u);
        if (meanwhile != "pull")
            camera.reset(); // nothing may reach for it any more
        auto *mirror = child<QCheckBox>(*window, "chBoxHorMirror");
        QCOMPARE(mirror->isEnabled(), bound);
        tick(*window);
        mirror->click();
        QCOMPARE(other.mirror.writes, bound ? Writes{1} : Writes{});
    }

    void about()
    {
        FakeDevice full, empty;
        Window window(nullptr);
        trigger(window, "actionAbout");
        auto *dialog = child<QDialog>(window, "MoxCamConfigAboutDialog");
        QVERIFY(dialog->isVisible());
        QVector<QPair<const QLabel *, QString>> values;
        for (const QLabel *caption : dialog->findChildren<QLabel *>(QRegularExpression(QStringLiteral("Caption$")))) {
            // Reads like the parameter's name, but for one.
            const QByteArray name =
                caption->text().remove(QLatin1Char(' ')).chopped(1).toLatin1().replace("UserDefinedName", "UserID");
            const QString text = QString::number(INT64_MIN + values.size());
            if (name == "SensorType")
                full.setEntries(name, {text});
            else if (name.startsWith("Device"))
                full.feature<FakeString>(name).text = text.toStdString();
            else
                full.feature<FakeInt>(name).value = text.toLongLong();
            values.append({child<QLabel>(*dialog, caption->objectName().chopped(7).toLatin1()), text});
        }
        QCOMPARE(values.size(), 16);
        for (MoxCam::Device *device : {&full, &empty}) {
            window.SetDevice(device);
            for (const auto &[label, text] : values) {
                QCOMPARE(label->text(), device == &full ? text : QStringLiteral("N/A"));
                QCOMPARE(label->textFormat(), Qt::PlainText); // the camera's own words
            }
        }
        QTest::keyClick(dialog, Qt::Key_Return);
        QVERIFY(!dialog->isVisible());
    }

    void hosting()
    {
        Camera camera, other;
        Window window(&camera);
        window.show();
        const auto &functions = privateOf(window)->functions;
        // Of each: no button, its dialog closed, open, or open without a camera. The button is down with an open one.
        const auto states = [&] {
            QByteArray letters;
            for (const auto &[button, action, dialog, setDevice] : functions) {
                if (button->isChecked() != dialog->isVisible())
                    return QByteArray("apart");
                const char open = dialog->isEnabled() ? 'O' : 'x';
                letters += !button->isVisible() ? '-' : dialog->isVisible() ? open : 'c';
            }
            return letters;
        };
        QByteArray expected = "cccccc";
        for (int i = 0; i < 6; ++i) {
            const auto &[button, action, dialog, setDevice] = functions[i];
            QVERIFY(dialog->windowTitle().startsWith(button->text()) && action->text() == button->text());
            const std::function<void()> closings[] = {[d = dialog] { QTest::keyClick(d, Qt::Key_Escape); },
                                                      [d = dialog] { d->close(); }, [b = button] { b->click(); },
                                                      [a = action] { a->trigger(); }};
            for (const auto &close : closings) {
                button->click();
                QCOMPARE(states(), expected.replace(i, 1, "O"));
                close();
                QCOMPARE(states(), expected.replace(i, 1, action->isChecked() ? "c" : "-"));
            }
            action->trigger();
            button->click();
            expected[i] = 'O';
        }
        camera.raise(disconnected);
        tick(window);
        QCOMPARE(states(), "xxxxxx");
        camera.raise(connected);
        tick(window);
        QCOMPARE(states(), "OOOOOO");
        // What the user has hidden stays hidden, whatever becomes of the camera; and a plain camera has no frames.
        functions[1].action->trigger();
        other.hidden = "FrameAB_Selector";
        window.SetDevice(&other);
        QCOMPARE(states(), "--OOOO");
        trigger(window, "actionDisconnect");
        QCOMPARE(states(), "--xxxx");
        window.SetDevice(&camera);
        QCOMPARE(states(), "c-OOOO");
        trigger(window, "actionQuit");
        QVERIFY(!window.isVisible());
    }

private:
    std::unique_ptr<Camera> own; // the one that the selector finds
    std::unique_ptr<FakeSystem> system;
};

MOX_TEST_MAIN(TestMoxCamConfig)
#include "tst_moxcamconfig.moc"
