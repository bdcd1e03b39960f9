// The main window from end to end, on the open SDK's simulated cameras.
#include "configscene.h"
#include "testmain.h"

#include <MoxCameraApi/MoxSimulation.h>

using namespace MoxTest;

class TestLiveCamera : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void walk();
};

void TestLiveCamera::walk()
{
    MoxSim::setWorlds(MoxSim::SimulatedWorld);
    MoxSim::clearWorld();
    const std::string adapter = MoxSim::addInterface(MoxCam::InterfaceGigEVision, "Adapter");
    MoxSim::CameraSetup setup;
    setup.model = MoxSim::Model::FrameAB;
    const std::string camera = MoxSim::addCamera(adapter, setup);
    std::unique_ptr<Window> window;
    QVERIFY(select([&] { window = std::make_unique<Window>(nullptr); }, [](QDialog *selector) { selector->reject(); }));
    window->show();
    const QString nothing = figures(*window);
    QCOMPARE(nothing, QStringLiteral("Disconnected; ; ; "));

    QVERIFY(select([&] { trigger(*window, "actionConnect"); }, acceptFirst));
    MoxCam::Device *device = privateOf(*window)->device;
    MoxGenParam::Array *params = device->GetCameraParameters(nullptr);
    const auto number = [&](const char *name) {
        return QString::number(params->GetInt(name, nullptr)->GetValue(nullptr));
    };
    const auto edit = [&](const char *name) { return child<QLineEdit>(*window, name)->text(); };
    const QString name = QString::fromUtf8(params->GetString("DeviceModelName", nullptr)->GetValue(nullptr));
    QVERIFY(!name.isEmpty() && figures(*window).startsWith(name + QStringLiteral("; ")));
    QCOMPARE(edit("lineEditSizeFrameA"), number("Width") + QLatin1Char('x') + number("Height"));
    QCOMPARE(edit("lineEditExpFrameA"), number("CurrentExposureTime"));
    QCOMPARE(edit("lineEditFtmFrameA"), number("CurrentFrameTime"));

    // With alternating frames both show, and frame B gets an exposure of its own; the selector stays where it was.
    QCOMPARE(params->GetEnum("FrameMode", nullptr)->SetValueStr("FrameAB"), MoxCamError::Success);
    MoxGenParam::Enum *selector = params->GetEnum("FrameAB_Selector", nullptr);
    QCOMPARE(selector->SetValueStr("FrameB"), MoxCamError::Success);
    MoxGenParam::Int *lines = params->GetInt("Frame_ExposureLines", nullptr);
    QCOMPARE(lines->SetValue(lines->GetMin(nullptr) + 100), MoxCamError::Success);
    const QString exposureOfB = number("CurrentExposureTime");
    QTRY_COMPARE(edit("lineEditExpFrameB"), exposureOfB);
    QCOMPARE(selector->GetValue(nullptr), 1);
    QVERIFY(edit("lineEditExpFrameA") != exposureOfB);
    const QString live = figures(*window).section(QLatin1Char(';'), 0, 2); // all but the temperature

    for (int round = 0; round < 2; ++round) {
        MoxSim::setPlugged(camera, false);
        QTRY_COMPARE(figures(*window), nothing);
        MoxSim::setPlugged(camera, true);
        QTRY_COMPARE(figures(*window).section(QLatin1Char(';'), 0, 2), live);
    }
    trigger(*window, "actionDisconnect");
    QCOMPARE(figures(*window), nothing);
    // The camera is free again.
    QVERIFY(select([&] { trigger(*window, "actionConnect"); }, acceptFirst));
    QVERIFY(figures(*window).startsWith(name));
    MoxSim::setPlugged(camera, false); // and goes while the window does
}

MOX_TEST_MAIN(TestLiveCamera)
#include "tst_livecamera.moc"
