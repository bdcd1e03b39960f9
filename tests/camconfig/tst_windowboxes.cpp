#include "configscene.h"
#include "datarow.h"
#include "fakedevice.h"
#include "messagebox.h"
#include "testmain.h"

#include <QCheckBox>

using namespace MoxTest;

namespace {

/** A camera with frames A and B, whose selector can be made to refuse what a dialog writes. */
struct Camera : FakeDevice, MoxGenParam::ParamEventSink
{
    explicit Camera(const char *model)
    {
        feature<FakeString>("DeviceModelName").text = model;
        selector.sinks << this;
        mirror.value = 0;
    }
    /** From the second write on: the first one is the window's own. */
    void OnParameterUpdate(MoxGenParam::Param *) override { selector.refusal = answer; }

    MoxCamErr answer = MoxCamError::Success;
    FakeEnum &selector = setEntries("FrameAB_Selector", {QStringLiteral("FrameA"), QStringLiteral("FrameB")});
    FakeEnum &mode =
        setEntries("FrameMode", {QStringLiteral("FrameA"), QStringLiteral("FrameB"), QStringLiteral("FrameAB")});
    FakeBoolean &mirror = feature<FakeBoolean>("ReverseX"); // in one of the last dialogs to be given a device
};

} // namespace

/** The dialogs of the main window can put up a message box in the middle of what the window does. */
class TestWindowBoxes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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
        Camera other("Other");
        auto camera = std::make_unique<Camera>("Model");
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
};

MOX_TEST_MAIN(TestWindowBoxes)

#include "tst_windowboxes.moc"
