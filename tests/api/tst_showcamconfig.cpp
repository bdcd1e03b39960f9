#include "drive.h"
#include "fakedevice.h"
#include "moxcameraguiapi.h"
#include "testmain.h"

using namespace MoxTest;

namespace {

constexpr struct
{
    void (*show)(MoxCam::Device *device, unsigned long parent);
    const char *made;
} functions[] = {
    {ShowCamConfigDialog, "MoxGui::MoxCamConfig"},          {ShowColorDialog, "MoxGui::MoxCamConfigColorDialog"},
    {ShowFrameABDialog, "MoxGui::MoxCamConfigColorDialog"}, // on purpose
    {ShowOutputDialog, "MoxGui::MoxCamConfigOutputDialog"}, {ShowPulseDialog, "MoxGui::MoxCamConfigPulseDialog"},
    {ShowStrobeDialog, "MoxGui::MoxCamConfigStrobeDialog"}, {ShowTriggerDialog, "MoxGui::MoxCamConfigTriggerDialog"}};

/** Notes the windows that are shown, with the name of their parent. */
class Watcher : public QObject
{
public:
    Watcher() { qApp->installEventFilter(this); }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *widget = qobject_cast<QWidget *>(watched);
        if (event->type() == QEvent::Show && widget && widget->isWindow()) {
            shown << QString::fromLatin1(widget->metaObject()->className()) + QLatin1Char(widget->isModal() ? '!' : ' ')
                    + (widget->parent() ? widget->parent()->objectName() : QString());
        }
        return false;
    }
    QStringList shown;
};

} // namespace

/** Starts without an application object. */
class TestShowCamConfig : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtimeDir.path()));
        dropPlatformNoise();
        ShowPulseDialog(nullptr, 0);
        QVERIFY(qobject_cast<QApplication *>(QCoreApplication::instance()));
    }

    void leavesNothing()
    {
        for (const auto &function : functions) {
            FakeDevice device;
            device.setEntries("TriggerMode", {QStringLiteral("Off"), QStringLiteral("On")});
            QWidget owner;
            owner.setObjectName(QStringLiteral("owner"));
            const Watcher watcher;
            QStringList expected;
            for (MoxCam::Device *given :
                 {static_cast<MoxCam::Device *>(&device), static_cast<MoxCam::Device *>(nullptr)}) {
                for (const unsigned long parent : {0ul, ~0ul, static_cast<unsigned long>(owner.winId())}) {
                    function.show(given, parent);
                    expected << QLatin1String(function.made) + QLatin1String(parent == owner.winId() ? " owner" : " ");
                }
            }
            QCOMPARE(watcher.shown, expected);
            QVERIFY(owner.children().isEmpty());
            QCOMPARE(device.releases, 0);
        }
    }

    /** The main window takes the camera that the user selects, and releases it; the parent may go meanwhile. */
    void selects()
    {
        FakeDevice device;
        FakeSystem system;
        system.add("A")->add("a1")->device = &device;
        FakeSystem::current = &system;
        auto owner = std::make_unique<QWidget>();
        atNextDialog(system, [](QDialog *dialog) {
            selectCamera(dialog, 0);
            dialog->accept();
        });
        ShowCamConfigDialog(nullptr, owner->winId());
        QCOMPARE(device.releases, 1);
        atNextDialog(system, [&](QDialog *) { owner.reset(); });
        ShowCamConfigDialog(nullptr, owner->winId());
        QVERIFY(!owner);
        FakeSystem::current = nullptr;
        QCOMPARE(system.releases.load(), 2);
    }

    void cleanup() { QCOMPARE(QApplication::topLevelWidgets().size(), 0); }

private:
    QTemporaryDir runtimeDir; // the first call makes the application
};

QTEST_APPLESS_MAIN(TestShowCamConfig)
#include "tst_showcamconfig.moc"
