// The selector over the real world: a camera on the loopback adapter is switched on and off while it watches.
#include "cameraprogram.h"
#include "livecamera.h"
#include "moxcameraselectordialog.h"
#include "testmain.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QTreeView>

class TestRealCamera : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void comesAndGoes()
    {
        if (!MoxTest::CameraProgram::isInstalled())
            QSKIP("The camera program of aravis-tools is not installed");
        constexpr int patience = 15000;
        MoxSim::setWorlds(MoxSim::RealWorld);
        const MoxTest::SdkPointer<MoxCam::System> system(MoxCam_GetSystem());
        MoxTest::CameraProgram camera(QStringLiteral("MOX-TEST-2"));
        MoxGui::MoxCameraSelectorDialog dialog(system.get(), nullptr, true);
        dialog.show();
        auto *tree = dialog.findChild<QTreeView *>(QStringLiteral("cameraTreeView"));
        const QAbstractItemModel &model = *tree->model();
        const QPushButton &ok = *dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
        // Everywhere, by name: other cameras may be connected to this computer.
        const auto found = [&] {
            return model.match(model.index(0, 0), Qt::DisplayRole, QStringLiteral("Aravis Fake (MOX-TEST-2)"), -1,
                               Qt::MatchExactly | Qt::MatchRecursive);
        };
        const MoxCam::DeviceInfo *info = nullptr;
        for (int time = 0; time < 2; ++time) {
            QVERIFY(camera.start());
            QTRY_COMPARE_WITH_TIMEOUT(found().size(), 1, patience);
            QCOMPARE(found().first().parent().data().toString(), QStringLiteral("lo (127.0.0.1)"));
            tree->setCurrentIndex(found().first());
            QVERIFY(ok.isEnabled() && (!info || dialog.selectedCamera() == info)); // the same object again
            info = dialog.selectedCamera();
            camera.stop();
            QTRY_COMPARE_WITH_TIMEOUT(found(), QModelIndexList(), patience);
            QCOMPARE(tree->currentIndex(), model.index(0, 0));
            QVERIFY(!ok.isEnabled() && !dialog.selectedCamera());
        }
    }
};

MOX_TEST_MAIN(TestRealCamera)
#include "tst_realcamera.moc"
