// The address tools from end to end, on the open SDK's simulated cameras.
#include "livecamera.h"
#include "modaluser.h"
#include "testmain.h"

#include <moxcameraselectordialog.h>

#include <QDialogButtonBox>
#include <QTreeView>

#include <algorithm>

Q_DECLARE_METATYPE(MoxSim::Reach)

class TestRepair : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void reaches_data()
    {
        QTest::addColumn<int>("row"); // in the tree; -1 for the interface
        QTest::addColumn<MoxSim::Reach>("reach");
        QTest::addColumn<QString>("action");
        QTest::newRow("wrong subnet") << 2 << MoxSim::Reach::WrongSubnet << QStringLiteral("Set IP Address");
        QTest::newRow("undiscovered") << -1 << MoxSim::Reach::Undiscovered << QStringLiteral("Connect by IP Address");
    }

    // From a camera that cannot be chosen to the opened camera.
    void reaches()
    {
        QFETCH(int, row);
        QFETCH(MoxSim::Reach, reach);
        QFETCH(QString, action);
        MoxSim::resetWorld();
        MoxSim::setWorlds(MoxSim::SimulatedWorld);
        const MoxTest::SdkPointer<MoxCam::System> system(MoxCam_GetSystem());
        const std::vector<std::string> cameras = MoxSim::cameras(MoxSim::interfaces().front());
        const std::string id = *std::find_if(cameras.begin(), cameras.end(),
                                             [=](const std::string &camera) { return MoxSim::reach(camera) == reach; });
        const std::string address = MoxSim::ipAddress(id);

        MoxGui::MoxCameraSelectorDialog selector(system.get(), nullptr, false);
        auto *tree = selector.findChild<QTreeView *>(QStringLiteral("cameraTreeView"));
        const QModelIndex adapter = tree->model()->index(0, 0);
        tree->setCurrentIndex(row < 0 ? adapter : tree->model()->index(row, 0, adapter));
        auto *ok = selector.findChild<QDialogButtonBox *>(QStringLiteral("buttonBox"))->button(QDialogButtonBox::Ok);
        QVERIFY(!ok->isEnabled());
        const auto told = [&](const QString &caption) {
            const auto *model = selector.findChild<QTreeView *>(QStringLiteral("deviceInfoTreeView"))->model();
            const QModelIndexList found = model->match(model->index(0, 0), Qt::DisplayRole, caption);
            return found.value(0).sibling(found.value(0).row(), 1).data().toString();
        };

        QString typed = QString::fromStdString(address);
        MoxTest::ModalUser user(QStringLiteral("OK"));
        user.before = [&](QWidget *window) {
            auto *edit = window->findChild<QLineEdit *>(QStringLiteral("ipAddressLineEdit"));
            row < 0 ? edit->setText(typed) : static_cast<void>(typed = edit->text());
        };
        if (row >= 0) {
            QCOMPARE(told(QStringLiteral("Access status")), QStringLiteral("IP Subnet Mismatch"));
            QCOMPARE(told(QStringLiteral("IP Address")).toStdString(), address);
            QCOMPARE(MoxCam_CreateDevice(selector.selectedCamera(), 2, 0), nullptr);
        }
        const auto actions = selector.findChildren<QAction *>();
        for (QAction *candidate : actions) {
            if (candidate->text() == action)
                candidate->trigger();
        }
        QCOMPARE(user.seen, QStringList{action});
        if (row >= 0) {
            QCOMPARE(told(QStringLiteral("Access status")), QStringLiteral("ReadWrite"));
            QCOMPARE(told(QStringLiteral("IP Address")), typed);
            QCOMPARE(MoxSim::reach(id), MoxSim::Reach::Open);
            QVERIFY(typed.toStdString() != address);
            QVERIFY(ok->isEnabled());
            ok->click();
        }
        QCOMPARE(MoxSim::ipAddress(id), typed.toStdString());
        QCOMPARE(selector.result(), int(QDialog::Accepted));
        QVERIFY(selector.selectedCamera());
        QCOMPARE(selector.selectedCamera()->GetID(), id.c_str());
        const MoxTest::SdkPointer<MoxCam::Device> device(MoxCam_CreateDevice(selector.selectedCamera(), 2, 0));
        QVERIFY(device);
    }
};

MOX_TEST_MAIN(TestRepair)
#include "tst_repair.moc"
