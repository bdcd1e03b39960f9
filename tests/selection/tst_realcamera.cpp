// The selector over the real world: a camera on the loopback adapter is switched on and off while it watches.
#include "cameraprogram.h"
#include "moxcameraselectordialog.h"
#include "testmain.h"

#include <MoxCameraApi/MoxCam.h>
#include <MoxCameraApi/MoxSimulation.h>

#include <QDialogButtonBox>
#include <QPushButton>
#include <QScopeGuard>
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
        MoxCam::System *system = MoxCam_GetSystem();
        const auto release = qScopeGuard([&] { system->Release(); });
        MoxTest::CameraProgram camera(QStringLiteral("MOX-TEST-2"));
        const QString name = QStringLiteral("Aravis Fake (MOX-TEST-2)");

        MoxGui::MoxCameraSelectorDialog dialog(system, nullptr, true);
        dialog.show();
        auto *tree = dialog.findChild<QTreeView *>(QStringLiteral("cameraTreeView"));
        const QAbstractItemModel &model = *tree->model();
        const QPushButton &ok = *dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
        // Everywhere, by name: other cameras may be connected to this computer.
        const auto found = [&] {
            return model.match(model.index(0, 0), Qt::DisplayRole, name, -1, Qt::MatchExactly | Qt::MatchRecursive);
        };
        QCOMPARE(found(), QModelIndexList());

        QVERIFY(camera.start());
        QTRY_COMPARE_WITH_TIMEOUT(found().size(), 1, patience);
        QCOMPARE(found().first().parent().data().toString(), QStringLiteral("lo (127.0.0.1)"));
        tree->setCurrentIndex(found().first());
        QVERIFY(ok.isEnabled());
        MoxCam::DeviceInfo *const info = dialog.selectedCamera();
        QCOMPARE(info->GetSerialNumber(), "MOX-TEST-2");

        camera.stop();
        QTRY_COMPARE_WITH_TIMEOUT(found(), QModelIndexList(), patience);
        QCOMPARE(tree->currentIndex(), model.index(0, 0));
        QVERIFY(!tree->currentIndex().parent().isValid());
        QVERIFY(!ok.isEnabled());
        QCOMPARE(dialog.selectedCamera(), nullptr);

        QVERIFY(camera.start());
        QTRY_COMPARE_WITH_TIMEOUT(found().size(), 1, patience);
        QCOMPARE(tree->currentIndex(), model.index(0, 0));
        QVERIFY(!ok.isEnabled());
        tree->setCurrentIndex(found().first());
        QCOMPARE(dialog.selectedCamera(), info);
        QVERIFY(ok.isEnabled());
    }
};

MOX_TEST_MAIN(TestRealCamera)
#include "tst_realcamera.moc"
