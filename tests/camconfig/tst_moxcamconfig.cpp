#include "configscene.h"
#include "datarow.h"
#include "fakedevice.h"
#include "fakesdk.h"
#include "testmain.h"

#include <QMenu>
#include <QMenuBar>

using namespace MoxTest;

namespace {

constexpr int connected = MoxCam::EventDeviceConnected, disconnected = MoxCam::EventDeviceDisconnected;

const QString nothing = QStringLiteral("Disconnected; ; ; ");
// The tick and showing the window read the temperature, taking up a camera does not.
const QString fresh = QStringLiteral("Model; 640x480 100.00 10000 2000; 320x480 200.00 5000 2000; ");
const QString live = fresh + QStringLiteral("31");

/** A camera with frames A and B, whose width and frame time follow the selector. */
struct Camera : FakeDevice, MoxGenParam::ParamEventSink
{
    Camera()
    {
        feature<FakeString>("DeviceModelName").text = "Model";
        setNumbers({{"CurrentTemperature", 31}, {"CurrentExposureTime", 2000}, {"Height", 480}});
        setNumbers({{"Width", 640}, {"CurrentFrameTime", 10000}});
        selector.sinks << this;
    }
    void OnParameterUpdate(MoxGenParam::Param *) override
    {
        setNumbers({{"Width", 640 / (selector.value + 1)}, {"CurrentFrameTime", 10000 / (selector.value + 1)}});
    }
    void pull(int times = 1)
    {
        for (int i = 0; i < times; ++i)
            raise(disconnected);
    }
    Writes takeWrites() { return std::exchange(selector.writes, {}); }
    /** Events and parameters that a window listens to. */
    QVector<int> subscribed() const
    {
        QVector<int> events;
        for (const Subscription &subscription : subscriptions)
            events << subscription.eventId;
        return events << sinkCount() - 1;
    }

    FakeEnum &selector = setEntries("FrameAB_Selector", {QStringLiteral("FrameA"), QStringLiteral("FrameB")});
    FakeEnum &mode = setEntries(
        "FrameMode",
        {QStringLiteral("FrameA"), QStringLiteral("FrameB"), QStringLiteral("FrameAB"), QStringLiteral("-")});
};

const QVector<int> bound{disconnected, connected, 2}, unbound{0};

/** A dialog as the window knows them; notes what it is told. */
class Hosted : public QDialog
{
    Q_OBJECT

public:
    Hosted(MoxCam::Device *device, QWidget *parent) : QDialog(parent), devices{device} { }
    void SetDevice(MoxCam::Device *device) { devices << device; }
    QVector<MoxCam::Device *> devices;

Q_SIGNALS:
    void closing();

protected:
    void closeEvent(QCloseEvent *) override { Q_EMIT closing(); }
};

} // namespace

class TestMoxCamConfig : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        system = std::make_unique<FakeSystem>();
        system->add("A")->add("a1")->device = &own;
    }
    void cleanup() { FakeSystem::current = nullptr; }
    void cameraKinds_data();
    void cameraKinds();
    void frameModes();
    void plugging();
    void menu();
    void setDevice_data();
    void setDevice();
    void ownDeviceReplaced();
    void deletedWhileSelecting_data();
    void deletedWhileSelecting();
    void selectingOverlaps();
    void about();
    void hosting();
    void looks();

private:
    std::unique_ptr<FakeSystem> system;
    Camera own; // the one that the selector finds
};

void TestMoxCamConfig::cameraKinds_data()
{
    columns<QByteArray, int, QByteArray>("lacking", "frameTime", "shown");
    row("all there", "", 10000, "Model; 640x480 100.00 10000 2000; 320x480 200.00 5000 2000; 31");
    row("one frame", "FrameAB_Selector", 10000, "Model; 640x480 100.00 10000 2000; 640x480 100.00 10000 2000; 31");
    row("no frame mode", "FrameMode", 10000, "Model; 640x480 100.00 10000 2000; 320x480 200.00 5000 2000; 31");
    row("no height", "Height", 3, "Model; 640 333333.33 3 2000; 320 200.00 5000 2000; 31");
    row("no width", "Width", 0, "Model; x480 0.00 0 2000; x480 200.00 5000 2000; 31");
    row("no frame time", "CurrentFrameTime", 0, "Model; 640x480   2000; 320x480   2000; 31");
    row("no exposure", "CurrentExposureTime", 1, "Model; 640x480 1000000.00 1; 320x480 200.00 5000; 31");
    row("no temperature", "CurrentTemperature", 10000, "Model; 640x480 100.00 10000 2000; 320x480 200.00 5000 2000; ");
    row("no name", "DeviceModelName", 10000, "Unknown; 640x480 100.00 10000 2000; 320x480 200.00 5000 2000; 31");
}

void TestMoxCamConfig::cameraKinds()
{
    QFETCH(QByteArray, lacking);
    QFETCH(int, frameTime);
    QFETCH(QByteArray, shown);
    Camera camera;
    camera.hidden = lacking.toStdString();
    camera.setNumbers({{"CurrentFrameTime", frameTime}});
    Window window(&camera);
    window.show();
    QCOMPARE(figures(window), QString::fromLatin1(shown));
    const bool ab = lacking != "FrameAB_Selector";
    QCOMPARE(camera.takeWrites(), ab ? (Writes{1, 0}) : Writes{});
    for (const char *name : {"pushBtnFrameAB", "lblFrameA", "lblFrameB", "lineEditSizeFrameB", "lineEditFpsFrameB",
                             "lineEditFtmFrameB", "lineEditExpFrameB"})
        QCOMPARE(child<QWidget>(window, name)->isVisible(), ab);
    QCOMPARE(child<QAction>(window, "actionFrame_A_B")->isVisible(), ab);
    auto *edit = child<QLineEdit>(window, "lineEditFtmFrameA");
    QCOMPARE(edit->maximumWidth(),
             ab ? edit->fontMetrics().horizontalAdvance(QStringLiteral("xxxxxxxxxxxx")) : 0xFFFFFF);
    QCOMPARE(edit->geometry().right(), child<QWidget>(window, "lineEditTemperature")->geometry().right());
}

void TestMoxCamConfig::frameModes()
{
    Camera camera;
    Window window(&camera);
    const Writes toBAndBack{1, 0}, toAAndBack{0, 1};
    QCOMPARE(camera.takeWrites(), toBAndBack);
    // After a change the next tick shows the figures in the column that the mode calls for.
    const auto check = [&](int exposureTime, const char *shown, const Writes &writes) {
        camera.setNumbers({{"CurrentExposureTime", exposureTime}});
        tick(window);
        QCOMPARE(figures(window), QString::fromLatin1(shown));
        QCOMPARE(camera.takeWrites(), writes);
    };
    check(1, "Model; 640x480 100.00 10000 1; 320x480 200.00 5000 2000; 31", {});
    camera.mode.change(1);
    check(2, "Model; 640x480 100.00 10000 1; 640x480 100.00 10000 2; 31", {});
    for (const int mode : {2, 3}) { // the last one has no text
        camera.mode.change(mode);
        check(3, "Model; 640x480 100.00 10000 3; 320x480 200.00 5000 3; 31", toBAndBack);
        check(4, "Model; 640x480 100.00 10000 4; 320x480 200.00 5000 3; 31", {});
    }
    camera.selector.change(1);
    check(5, "Model; 640x480 100.00 10000 4; 320x480 200.00 5000 5; 31", {});
    camera.selector.readable = false;
    camera.selector.change(0); // not heard
    camera.selector.readable = true;
    camera.mode.change(2);
    check(6, "Model; 640x480 100.00 10000 6; 640x480 100.00 10000 6; 31", toAAndBack);
    camera.takeWrites();
    camera.selector.refusal = MoxCamError::GenICamAccess;
    camera.mode.change(2);
    check(7, "Model; 320x480 200.00 5000 7; 320x480 200.00 5000 7; 31", toAAndBack);
    camera.selector.refusal = MoxCamError::Success;

    // A camera with another mode from the start is read twice: when it is taken up, and at the first tick.
    window.SetDevice(&camera);
    QCOMPARE(camera.takeWrites(), toAAndBack);
    tick(window);
    tick(window);
    QCOMPARE(camera.takeWrites(), toAAndBack);
}

void TestMoxCamConfig::plugging()
{
    Camera camera;
    Window window(&camera);
    QCOMPARE(camera.subscribed(), bound);
    camera.pull(5000);
    QCOMPARE(figures(window), fresh); // until the tick
    tick(window);
    QCOMPARE(figures(window), nothing);
    QCOMPARE(camera.subscribed(), (QVector<int>{disconnected, connected, 0}));
    QCOMPARE(child<QLabel>(window, "lblDeviceModelName")->text(), QStringLiteral("N/A"));
    tick(window);
    QCOMPARE(figures(window), nothing);

    camera.raise(connected);
    tick(window);
    QCOMPARE(figures(window), fresh);
    QCOMPARE(camera.subscribed(), bound);
    QCOMPARE(child<QLabel>(window, "lblDeviceModelName")->text(), QStringLiteral("Model"));
    tick(window);
    QCOMPARE(figures(window), live);

    // Within one tick the last event counts.
    camera.pull(5000);
    camera.raise(connected);
    camera.feature<FakeString>("DeviceModelName").text = "Other";
    tick(window);
    QCOMPARE(figures(window).left(5), QStringLiteral("Other"));
    camera.raise(connected);
    camera.pull();
    tick(window);
    QCOMPARE(figures(window), nothing);

    // Pulled out again while the tick is taking it up: for the next tick.
    camera.raise(connected);
    camera.atParameters = [&] { camera.pull(); };
    tick(window);
    QCOMPARE(figures(window).left(5), QStringLiteral("Other"));
    tick(window);
    QCOMPARE(figures(window), nothing);

    // Found again, but it gives no parameters.
    camera.raise(connected);
    tick(window);
    QCOMPARE(camera.subscribed(), bound);
    camera.parametersError = MoxCamError::GenTLIo;
    camera.raise(connected);
    tick(window);
    tick(window);
    QCOMPARE(figures(window), nothing);
    QCOMPARE(camera.subscribed(), (QVector<int>{disconnected, connected, 0}));
}

void TestMoxCamConfig::menu()
{
    std::unique_ptr<Window> window;
    const auto construct = [&] { window = std::make_unique<Window>(nullptr); };
    const auto connect = [&] { trigger(*window, "actionConnect"); };
    QVERIFY(!select(construct, acceptFirst)); // no system
    QCOMPARE(figures(*window), nothing);
    QVERIFY(window->isEnabled());

    FakeSystem::current = system.get();
    QVERIFY(select(construct, [](QDialog *selector) { selector->reject(); }));
    QCOMPARE(figures(*window), nothing);
    system->plugged().front()->plugged().front()->device = nullptr; // cannot be opened
    QVERIFY(select(connect, acceptFirst));
    QCOMPARE(figures(*window), nothing);
    QCOMPARE(system->releases.load(), 1);
    system->plugged().front()->plugged().front()->device = &own;
    QVERIFY(select(connect, acceptFirst));
    QCOMPARE(figures(*window), fresh);
    QCOMPARE(own.subscribed(), bound);
    QCOMPARE(own.releases, 0);
    QVERIFY(select(connect, [](QDialog *selector) { selector->reject(); }));
    QCOMPARE(figures(*window), nothing);
    QCOMPARE(own.releases, 1);

    QVERIFY(select(connect, acceptFirst));
    own.pull();
    tick(*window);
    trigger(*window, "actionDisconnect");
    QCOMPARE(own.subscribed(), unbound);
    QCOMPARE(own.releases, 2);
    QCOMPARE(system->releases.load(), 5);
    tick(*window);
    QCOMPARE(figures(*window), nothing);

    QVERIFY(select(construct, acceptFirst));
    QCOMPARE(figures(*window), fresh);
    window.reset();
    QCOMPARE(own.subscribed(), unbound);
    QCOMPARE(own.releases, 3);
    QCOMPARE(system->releases.load(), 6);
}

void TestMoxCamConfig::setDevice_data()
{
    columns<QByteArray, QByteArray>("before", "given");
    for (const char *before : {"none", "connected", "pulled", "lost", "back", "mute"}) {
        for (const char *given : {"null", "same", "other", "mute"})
            row(qPrintable(QStringLiteral("%1, %2").arg(QLatin1String(before), QLatin1String(given))), before, given);
    }
}

void TestMoxCamConfig::setDevice()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, given);
    Camera camera, other;
    camera.givesParameters = before != "mute";
    other.givesParameters = given != "mute";
    other.feature<FakeString>("DeviceModelName").text = "Other";
    Window window(&camera);
    if (before == "none")
        trigger(window, "actionDisconnect");
    if (before == "pulled" || before == "lost" || before == "back")
        camera.pull();
    if (before == "lost" || before == "back")
        tick(window);
    if (before == "back")
        camera.raise(connected);

    Camera *next = given == "null" ? nullptr : given == "same" ? &camera : &other;
    window.SetDevice(next);
    camera.pull(next != &camera); // of no interest any more
    for (int i = 0; i < 2; ++i) {
        if (next && next->givesParameters)
            QCOMPARE(figures(window).mid(5), (i == 0 ? fresh : live).mid(5));
        else
            QCOMPARE(figures(window), nothing);
        tick(window);
    }
    const QVector<int> silent{disconnected, connected, 0};
    QCOMPARE(camera.subscribed(), next != &camera ? unbound : camera.givesParameters ? bound : silent);
    QCOMPARE(other.subscribed(), next != &other ? unbound : other.givesParameters ? bound : silent);
    QVERIFY(next != &other || !other.givesParameters || figures(window).startsWith(QStringLiteral("Other; ")));
    trigger(window, "actionDisconnect");
    QCOMPARE(camera.subscribed() + other.subscribed(), unbound + unbound);
    QCOMPARE(camera.releases + other.releases, 0);
}

void TestMoxCamConfig::ownDeviceReplaced()
{
    FakeSystem::current = system.get();
    Camera other;
    const int releases = own.releases;
    for (MoxCam::Device *next : {static_cast<MoxCam::Device *>(&other), static_cast<MoxCam::Device *>(nullptr)}) {
        std::unique_ptr<Window> window;
        QVERIFY(select([&] { window = std::make_unique<Window>(nullptr); }, acceptFirst));
        window->SetDevice(next);
        QCOMPARE(own.subscribed(), unbound);
        trigger(*window, "actionDisconnect");
        window.reset();
        QCOMPARE(own.releases, releases);
        QCOMPARE(other.releases, 0);
    }
}

void TestMoxCamConfig::deletedWhileSelecting_data()
{
    columns<QByteArray>("by");
    for (const char *by : {"constructor", "action", "click", "key"})
        row(by, by);
}

void TestMoxCamConfig::deletedWhileSelecting()
{
    QFETCH(QByteArray, by);
    FakeSystem::current = system.get();
    Camera camera;
    auto parent = std::make_unique<QWidget>();
    QPointer<Window> window;
    QPointer<QMenu> menu;
    const auto action = [&] {
        if (by == "constructor") {
            new Window(nullptr, parent.get());
            return;
        }
        window = new Window(&camera, parent.get());
        window->show();
        menu = child<QMenu>(*window, "menuMenu");
        if (by == "action")
            return trigger(*window, "actionConnect");
        for (const char *missing : {"raise()", "grabbing the keyboard"})
            QTest::ignoreMessage(QtWarningMsg, QByteArray("This plugin does not support ").append(missing));
        menu->popup({});
        if (by == "click")
            return QTest::mouseClick(menu.data(), Qt::LeftButton, {},
                                     menu->actionGeometry(menu->actions().first()).center());
        QTest::keyClick(menu.data(), Qt::Key_Down);
        QTest::keyClick(menu.data(), Qt::Key_Return);
    };
    int releasesWithSelector = -1;
    QVERIFY(select(action, [&](QDialog *selector) {
        QObject::connect(selector, &QObject::destroyed, [&] { releasesWithSelector = system->releases; });
        parent.reset();
    }));
    QCOMPARE(releasesWithSelector, 0); // the selector went first
    QCOMPARE(system->releases.load(), 1);
    QVERIFY(!window);
    QCOMPARE(camera.subscribed(), unbound);
    // Qt goes back to the menu whose entry has opened the selector.
    QCOMPARE(bool(menu), by != "constructor");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!menu);
}

void TestMoxCamConfig::selectingOverlaps()
{
    FakeSystem::current = system.get();
    Camera camera;
    const int releases = own.releases;
    Window window(&camera);
    const auto connect = [&] { trigger(window, "actionConnect"); };
    // Given a device meanwhile: what the user selects comes later.
    QVERIFY(select(connect, [&](QDialog *selector) {
        window.SetDevice(&camera);
        acceptFirst(selector);
    }));
    QCOMPARE(camera.subscribed(), unbound);
    QCOMPARE(own.subscribed(), bound);
    // Another selection, or a disconnection, takes the place of the one under way.
    QVERIFY(select(connect, [&](QDialog *) { QVERIFY(select(connect, acceptFirst)); }));
    QCOMPARE(own.subscribed(), bound);
    QVERIFY(select(connect, [&](QDialog *) { trigger(window, "actionDisconnect"); }));
    QCOMPARE(figures(window), nothing);
    QCOMPARE(own.subscribed(), unbound);
    QCOMPARE(own.releases, releases + 2);
    QCOMPARE(camera.releases, 0);
    QCOMPARE(system->releases.load(), 4);
}

void TestMoxCamConfig::about()
{
    const QVector<QPair<const char *, const char *>> rows{{"lblDeviceManufacturerName", "DeviceVendorName"},
                                                          {"lblDeviceModelName", "DeviceModelName"},
                                                          {"lblDeviceFamilyName", "DeviceFamilyName"},
                                                          {"lblDeviceVersion", "DeviceVersion"},
                                                          {"lblFirmwareVersion", "DeviceFirmwareVersion"},
                                                          {"lblDeviceManufacturerInfo", "DeviceManufacturerInfo"},
                                                          {"lblDeviceSerialNumber", "DeviceSerialNumber"},
                                                          {"lblDeviceUserDefinedName", "DeviceUserID"},
                                                          {"lblRgsID", "RgsID"},
                                                          {"lblFpgaID", "FpgaID"},
                                                          {"lblEpcsID", "EpcsID"},
                                                          {"lblFirmwareImage", "FirmwareImage"},
                                                          {"lblCustomerID", "CustomerID"},
                                                          {"lblFamilyID", "FamilyID"},
                                                          {"lblXmlVersion", "XmlVersion"},
                                                          {"lblSensorType", "SensorType"}};
    FakeDevice full, empty;
    for (int i = 0; i < 8; ++i)
        full.feature<FakeString>(rows[i].second).text = std::string("<b>\u00E4") + rows[i].second;
    for (int i = 8; i < 15; ++i)
        full.feature<FakeInt>(rows[i].second).value = i % 2 ? INT64_MIN + i : i;
    full.setEntries("SensorType", {QStringLiteral("Monochrome")});

    Window window(&full);
    trigger(window, "actionAbout");
    const auto *dialog = child<QDialog>(window, "MoxCamConfigAboutDialog");
    QVERIFY(dialog->isVisible());
    const auto text = [&](const char *label) { return child<QLabel>(*dialog, label)->text(); };
    const auto check = [&](MoxCam::Device *device) {
        window.SetDevice(device);
        for (int i = 0; i < rows.size(); ++i) {
            QString expected = QStringLiteral("N/A");
            if (device == &full)
                expected = i < 8 ? QString::fromUtf8("<b>\u00E4") + QLatin1String(rows[i].second)
                    : i < 15     ? QString::number(i % 2 ? INT64_MIN + i : i)
                                 : QStringLiteral("Monochrome");
            QCOMPARE(text(rows[i].first), expected);
            QCOMPARE(child<QLabel>(*dialog, rows[i].first)->textFormat(), Qt::PlainText);
        }
    };
    for (MoxCam::Device *device : {&full, &empty, &full, static_cast<FakeDevice *>(nullptr)})
        check(device);
    QCOMPARE(text("lblAppName"), QStringLiteral("MoxCameraConfiguration"));
    QCOMPARE(text("lblAppVersion"), QStringLiteral("1.5.0.83"));
    QVERIFY(text("lblCopyright").contains(QStringLiteral("\u00A9 %1 ").arg(QDate::currentDate().year())));
    QTest::keyClick(const_cast<QDialog *>(dialog), Qt::Key_Return);
    QVERIFY(!dialog->isVisible());
}

void TestMoxCamConfig::hosting()
{
    Camera camera, other;
    Window window(&camera);
    window.show();
    WindowPrivate *d = privateOf(window);
    const auto join = [&](WindowPrivate::Function &function) {
        function = d->makeFunction<Hosted>(function.button, function.action);
        return static_cast<Hosted *>(function.dialog);
    };
    // Without a dialog the button has nothing to open.
    for (const WindowPrivate::Function &function : d->functions)
        QVERIFY(function.button->isVisible() && !function.button->isEnabled() && function.button->isCheckable());
    Hosted *frame = join(d->functions.front()), *color = join(d->functions.back());
    d->initButtons();
    for (const auto &function : {d->functions.front(), d->functions.back()}) {
        function.button->click();
        QVERIFY(function.dialog->isVisible());
        function.dialog->close(); // by the user
        QVERIFY(!function.button->isChecked());
        function.button->click();
        function.button->click();
        QVERIFY(!function.dialog->isVisible());
        function.button->click();
        function.action->trigger();
        QVERIFY(!function.button->isVisible() && !function.dialog->isVisible() && !function.button->isChecked());
        function.action->trigger();
        QVERIFY(function.button->isVisible());
        function.button->click();
    }
    // A hidden button stays hidden, a dialog open, whatever becomes of the camera; but the plain camera has no frames.
    d->functions[1].action->trigger();
    camera.pull();
    tick(window);
    camera.raise(connected);
    tick(window);
    QVERIFY(frame->isVisible() && color->isVisible() && !d->functions[1].button->isVisible());
    other.hidden = "FrameAB_Selector";
    window.SetDevice(&other);
    QVERIFY(!frame->isVisible() && !d->functions[0].button->isChecked() && color->isVisible());
    trigger(window, "actionDisconnect");
    QCOMPARE(frame->devices, (QVector<MoxCam::Device *>{&camera, nullptr, &camera, &other, nullptr}));
    QCOMPARE(color->devices, frame->devices);
}

void TestMoxCamConfig::looks()
{
    Camera camera;
    Window window(&camera), maximizable(&camera, nullptr, Qt::WindowMinMaxButtonsHint);
    QVERIFY(!(window.windowFlags() & Qt::WindowMaximizeButtonHint));
    QVERIFY(maximizable.windowFlags() & Qt::WindowMaximizeButtonHint);
    camera.setNumbers({{"CurrentTemperature", -7}});
    window.show();
    QVERIFY(figures(window).endsWith(QStringLiteral("; -7")));
    QCOMPARE(window.minimumSize(), window.maximumSize());
    const QVector<QPair<const char *, const char *>> units{{"lblFrameTime", "\u03BCs"},
                                                           {"lblExposure", "\u03BCs"},
                                                           {"lblTemperature", "\u00B0C"},
                                                           {"label_8", "PxL"},
                                                           {"label_7", "fps"}};
    for (const auto &[label, unit] : units)
        QCOMPARE(child<QLabel>(window, label)->text(), QString::fromUtf8(unit));
    const auto edits = window.findChildren<QLineEdit *>();
    QCOMPARE(edits.size(), 9);
    for (const QLineEdit *edit : edits)
        QVERIFY(edit->isReadOnly() && edit->alignment() & Qt::AlignRight);
    trigger(window, "actionQuit");
    QVERIFY(!window.isVisible());
}

MOX_TEST_MAIN(TestMoxCamConfig)
#include "tst_moxcamconfig.moc"
