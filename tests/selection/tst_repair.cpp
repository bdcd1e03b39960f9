// The address tools from end to end, on the open SDK's simulated cameras.
#include "testmain.h"

#include <MoxCameraApi/MoxCam.h>
#include <MoxCameraApi/MoxSimulation.h>
#include <moxcameraselectordialog.h>

#include <QAction>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeView>

#include <functional>

class TestRepair : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void wrongSubnet();
    void undiscovered();

private:
    MoxCam::System *system = nullptr;
};

namespace {

struct ReleaseDevice
{
    void operator()(MoxCam::Device *device) const { device->Release(); }
};

std::string cameraAt(MoxSim::Reach reach)
{
    for (const std::string &camera : MoxSim::cameras(MoxSim::interfaces().front())) {
        if (MoxSim::reach(camera) == reach)
            return camera;
    }
    return {};
}

void setCurrent(const QDialog &selector, int row)
{
    auto *tree = selector.findChild<QTreeView *>(QStringLiteral("cameraTreeView"));
    const QModelIndex interface = tree->model()->index(0, 0);
    tree->setCurrentIndex(row < 0 ? interface : tree->model()->index(row, 0, interface));
}

/** The value beside a caption of the device panel. */
QString told(const QDialog &selector, const QString &caption)
{
    const auto *model = selector.findChild<QTreeView *>(QStringLiteral("deviceInfoTreeView"))->model();
    for (int row = 0; row < model->rowCount(); ++row) {
        if (model->index(row, 0).data().toString() == caption)
            return model->index(row, 1).data().toString();
    }
    return QStringLiteral("no such row");
}

QPushButton *okButton(const QDialog &selector)
{
    return selector.findChild<QDialogButtonBox *>(QStringLiteral("buttonBox"))->button(QDialogButtonBox::Ok);
}

void inNextDialog(std::function<void(QDialog &)> user)
{
    QTimer::singleShot(0, qApp, [user] {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        user(*dialog);
    });
}

} // namespace

void TestRepair::init()
{
    MoxSim::resetWorld();
    MoxSim::setWorlds(MoxSim::SimulatedWorld);
    system = MoxCam_GetSystem();
    QVERIFY(system);
}

void TestRepair::cleanup()
{
    system->Release();
}

void TestRepair::wrongSubnet()
{
    const std::string id = cameraAt(MoxSim::Reach::WrongSubnet);
    MoxGui::MoxCameraSelectorDialog selector(system, nullptr, false);
    setCurrent(selector, 2);
    MoxCam::DeviceInfo *camera = selector.selectedCamera();
    QVERIFY(camera);
    QCOMPARE(std::string(camera->GetID()), id);
    QCOMPARE(told(selector, QStringLiteral("Access status")), QStringLiteral("IP Subnet Mismatch"));
    QVERIFY(!okButton(selector)->isEnabled());
    QCOMPARE(MoxCam_CreateDevice(camera, 2, 0), nullptr);

    QString address;
    inNextDialog([&](QDialog &dialog) {
        address = dialog.findChild<QLineEdit *>(QStringLiteral("ipAddressLineEdit"))->text();
        dialog.accept();
    });
    selector.findChild<QPushButton *>(QStringLiteral("setIpBtn"))->click();

    QCOMPARE(told(selector, QStringLiteral("Access status")), QStringLiteral("ReadWrite"));
    QCOMPARE(told(selector, QStringLiteral("IP Address")), address);
    QVERIFY(okButton(selector)->isEnabled());
    QCOMPARE(MoxSim::reach(id), MoxSim::Reach::Open);
    okButton(selector)->click();
    QCOMPARE(selector.result(), int(QDialog::Accepted));
    QCOMPARE(selector.selectedCamera(), camera);
    const std::unique_ptr<MoxCam::Device, ReleaseDevice> device(MoxCam_CreateDevice(camera, 2, 0));
    QVERIFY(device);
}

void TestRepair::undiscovered()
{
    const std::string id = cameraAt(MoxSim::Reach::Undiscovered);
    MoxGui::MoxCameraSelectorDialog selector(system, nullptr, false);
    QAbstractButton *rescan = nullptr;
    const auto buttons = selector.findChild<QDialogButtonBox *>(QStringLiteral("buttonBox"))->buttons();
    for (QAbstractButton *button : buttons) {
        if (button->text() == QLatin1String("&Rescan"))
            rescan = button;
    }
    QVERIFY(rescan);
    MoxSim::setReach(id, MoxSim::Reach::Open);
    rescan->click();
    setCurrent(selector, 3);
    const QString address = QString::fromUtf8(selector.selectedCamera()->GetIPAddress(nullptr));
    MoxSim::setReach(id, MoxSim::Reach::Undiscovered);
    rescan->click();

    setCurrent(selector, -1);
    QCOMPARE(selector.selectedCamera(), nullptr);
    inNextDialog([&](QDialog &dialog) {
        dialog.findChild<QLineEdit *>(QStringLiteral("ipAddressLineEdit"))->setText(address);
        dialog.accept();
    });
    const auto actions = selector.findChildren<QAction *>();
    for (QAction *action : actions) {
        if (action->text() == QLatin1String("Connect by IP Address"))
            action->trigger();
    }
    MoxCam::DeviceInfo *camera = selector.selectedCamera();
    QVERIFY(camera);
    QCOMPARE(std::string(camera->GetID()), id);
    QCOMPARE(selector.result(), int(QDialog::Accepted));
    const std::unique_ptr<MoxCam::Device, ReleaseDevice> device(MoxCam_CreateDevice(camera, 2, 0));
    QVERIFY(device);
}

MOX_TEST_MAIN(TestRepair)
#include "tst_repair.moc"
