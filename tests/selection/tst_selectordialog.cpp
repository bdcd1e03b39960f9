#include "devicetreemodel.h"
#include "fakesdk.h"
#include "moxcameraselectordialog.h"
#include "moxcameraselectordialog_p.h"
#include "outline.h"
#include "testmain.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>
#include <QTreeView>

#include <random>

using namespace MoxTest;
using MoxGui::MoxCameraSelectorDialog;
using MoxGui::MoxCameraSelectorDialogPrivate;

namespace {

// An explicit instantiation may name a private member: the way to what stands behind the dialog.
template<auto member> struct Reach
{
    friend MoxCameraSelectorDialogPrivate *privateOf(const MoxCameraSelectorDialog &dialog)
    {
        return (dialog.*member).get();
    }
};
MoxCameraSelectorDialogPrivate *privateOf(const MoxCameraSelectorDialog &dialog);
template struct Reach<&MoxCameraSelectorDialog::d>;

/** A dialog over interfaces A (GigE Vision) with cameras a1 and a2, and B (USB3 Vision) with b1. */
struct Scene
{
    explicit Scene(bool poll = false) : dialog(std::make_unique<MoxCameraSelectorDialog>(&system, nullptr, poll)) { }

    FakeSystem system;
    FakeInterface *a = system.add("A");
    FakeInterface *b = system.add("B", "Host", MoxCam::InterfaceUsb3Vision);
    FakeDeviceInfo *a1 = a->add("a1");
    FakeDeviceInfo *a2 = a->add("a2");
    FakeDeviceInfo *b1 = b->add("b1");
    std::unique_ptr<MoxCameraSelectorDialog> dialog;

    MoxCameraSelectorDialogPrivate *d = privateOf(*dialog);
    DeviceTreeModel *model = dialog->findChild<DeviceTreeModel *>();
    QTreeView *tree = dialog->findChild<QTreeView *>(QStringLiteral("cameraTreeView"));
    QCheckBox *box = dialog->findChild<QCheckBox *>(QStringLiteral("chPoll"));
    QPushButton *setIp = dialog->findChild<QPushButton *>(QStringLiteral("setIpBtn"));
    QPushButton *rescan = d->rescanButton;
    QPushButton *ok = dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);

    void select(const char *id) { tree->setCurrentIndex(model->getItemIdx(QString::fromLatin1(id))); }
    QString current() const { return model->getItemID(tree->currentIndex()); }
    /** What the poll thread does in one period, and what the GUI thread makes of it. */
    void poll()
    {
        if (model->checkNew()) {
            d->changed = true;
            Q_EMIT d->forwarder.systemChanged();
        }
        QCoreApplication::processEvents();
    }
    bool allExpanded() const
    {
        for (int row = 0; row < model->rowCount(); ++row) {
            if (!tree->isExpanded(model->index(row, 0)))
                return false;
        }
        return outline(*model) == system.outline();
    }
};

using Change = std::function<void(Scene &)>;

/** Pulls out and puts back interfaces and cameras at random. */
class Storm
{
public:
    explicit Storm(Scene &s) : scene(s) { }

    int below(std::size_t limit) { return std::uniform_int_distribution<>(0, int(limit) - 1)(random); }

    void event()
    {
        const std::vector<FakeInterface *> present = scene.system.plugged();
        const int what = below(8);
        if (what == 0 && !present.empty()) {
            away.push_back(present[below(present.size())]);
            scene.system.unplug(away.back());
        } else if (what == 1 && !away.empty()) {
            scene.system.plug(away.back(), below(present.size() + 1));
            away.pop_back();
        } else {
            cameraEvent(what < 5);
        }
    }

    /** Brings all interfaces back, and one new camera to be seen. */
    void calm()
    {
        for (FakeInterface *iface : away)
            scene.system.plug(iface, 0);
        scene.a->add("last");
    }

private:
    void cameraEvent(bool pull)
    {
        FakeInterface *iface = below(2) ? scene.a : scene.b;
        const std::vector<FakeDeviceInfo *> present = iface->plugged();
        if (pull && !present.empty()) {
            iface->unplug(present[below(present.size())]);
            return;
        }
        FakeDeviceInfo *camera = iface->add("c" + std::to_string(++number));
        iface->unplug(camera);
        iface->plug(camera, below(present.size() + 1));
    }

    Scene &scene;
    std::mt19937 random{20260};
    std::vector<FakeInterface *> away;
    int number = 0;
};

} // namespace

Q_DECLARE_METATYPE(Change)

class TestSelectorDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsOut_data();
    void startsOut();
    void buttonsFollowCurrentItem_data();
    void buttonsFollowCurrentItem();
    void activation_data();
    void activation();
    void changeShown_data();
    void changeShown();
    void everythingGoesAndComesBack();
    void signalsCoalesce();
    void rescan();
    void pollThread();
    void pollThreadOnThrowingSystem();
    void destroyedWhilePolling();
    void storm();
    void stormBesideThread();
};

void TestSelectorDialog::startsOut_data()
{
    QTest::addColumn<bool>("poll");
    QTest::newRow("idle") << false;
    QTest::newRow("polling") << true;
}

void TestSelectorDialog::startsOut()
{
    QFETCH(bool, poll);
    const Scene scene(poll);
    QCOMPARE(scene.dialog->isPollChecked(), poll);
    QCOMPARE(scene.box->isChecked(), poll);
    QCOMPARE(scene.rescan->isEnabled(), !poll);
    QCOMPARE(bool(scene.d->thread), poll);
    QVERIFY(scene.allExpanded());
    QVERIFY(!scene.tree->currentIndex().isValid());
    QVERIFY(scene.ok->isEnabled() && scene.setIp->isEnabled()); // as in the form, until an item is current
    QCOMPARE(scene.dialog->selectedCamera(), nullptr);
    QCOMPARE(scene.dialog->windowModality(), Qt::WindowModal);
    QCOMPARE(scene.dialog->size(), QSize(410, 577));
}

void TestSelectorDialog::buttonsFollowCurrentItem_data()
{
    QTest::addColumn<int>("interfaceType");
    QTest::addColumn<int>("status");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<bool>("setIp");
    QTest::newRow("unknown, GigE") << 2 << 0 << true << true;
    QTest::newRow("read and write, GigE") << 2 << 1 << true << true;
    QTest::newRow("read only, USB3") << 1 << 2 << true << false;
    QTest::newRow("no access, GigE") << 2 << 3 << false << true;
    QTest::newRow("no access, Camera Link") << 3 << 3 << false << false;
    QTest::newRow("wrong subnet, GigE") << 2 << 1001 << false << true;
    QTest::newRow("status without a word") << 0 << 7 << true << false;
}

void TestSelectorDialog::buttonsFollowCurrentItem()
{
    QFETCH(int, interfaceType);
    QFETCH(int, status);
    QFETCH(bool, ok);
    QFETCH(bool, setIp);
    Scene scene;
    scene.b->type = interfaceType;
    scene.b1->accessStatus = status;
    scene.select("b1");
    QCOMPARE(scene.ok->isEnabled(), ok);
    QCOMPARE(scene.setIp->isEnabled(), setIp);
    QCOMPARE(scene.dialog->selectedCamera(), scene.b1);
    scene.dialog->setSelectedCamera(scene.a1);
    QCOMPARE(scene.dialog->selectedCamera(), scene.b1);
    scene.select("B");
    QVERIFY(!scene.ok->isEnabled() && !scene.setIp->isEnabled());
    QCOMPARE(scene.dialog->selectedCamera(), nullptr);
}

void TestSelectorDialog::activation_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<int>("status");
    QTest::addColumn<bool>("accepted");
    for (const int status : {1, 2, 3, 1001, 7})
        QTest::addRow("camera with status %d", status) << "a2" << status << (status != 3 && status != 1001);
    QTest::newRow("interface") << "A" << 1 << false;
}

void TestSelectorDialog::activation()
{
    QFETCH(QString, item);
    QFETCH(int, status);
    QFETCH(bool, accepted);
    for (const bool byMouse : {true, false}) {
        Scene scene;
        scene.a2->accessStatus = status;
        QSignalSpy acceptedSpy(scene.dialog.get(), &QDialog::accepted);
        scene.dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(scene.dialog.get()));
        const QModelIndex index = scene.model->getItemIdx(item);
        const QPoint spot = scene.tree->visualRect(index).center();
        if (byMouse) {
            QTest::mouseClick(scene.tree->viewport(), Qt::LeftButton, {}, spot);
            QTest::mouseDClick(scene.tree->viewport(), Qt::LeftButton, {}, spot);
        } else {
            scene.tree->setCurrentIndex(index);
            QTest::keyClick(scene.tree, Qt::Key_Return);
        }
        QCOMPARE(acceptedSpy.count(), int(accepted));
        QCOMPARE(scene.dialog->isVisible(), !accepted);
        QCOMPARE(scene.dialog->selectedCamera(), item == QLatin1String("a2") ? scene.a2 : nullptr);
    }
}

void TestSelectorDialog::changeShown_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("current");
    QTest::addColumn<bool>("ok");
    const auto row = [](const char *name, const char *current, bool ok, Change change) {
        QTest::newRow(name) << std::move(change) << QString::fromLatin1(current) << ok;
    };
    row("another camera comes", "a2", true, [](Scene &s) { s.a->plug(s.a->add("a0"), 0); });
    row("another camera goes", "a2", true, [](Scene &s) { s.a->unplug(s.a1); });
    row("another interface goes", "a2", true, [](Scene &s) { s.system.unplug(s.b); });
    row("current camera moves", "a2", true, [](Scene &s) {
        s.a->unplug(s.a2);
        s.b->plug(s.a2, 0);
    });
    row("current camera was taken meanwhile", "a2", false, [](Scene &s) {
        s.a->unplug(s.a1);
        s.a2->accessStatus = MoxCam::AccessNoAccess;
    });
    row("current camera goes", "A", false, [](Scene &s) { s.a->unplug(s.a2); });
    row("its interface goes", "B", false, [](Scene &s) { s.system.unplug(s.a); });
}

void TestSelectorDialog::changeShown()
{
    QFETCH(Change, change);
    QFETCH(QString, current);
    QFETCH(bool, ok);
    Scene scene;
    scene.select("a2");
    QSignalSpy currentChanged(scene.tree->selectionModel(), &QItemSelectionModel::currentChanged);
    change(scene);
    scene.poll();
    QVERIFY(scene.allExpanded());
    QCOMPARE(currentChanged.count(), 1);
    QCOMPARE(scene.current(), current);
    QCOMPARE(scene.d->lastItemId, current);
    QCOMPARE(scene.tree->selectionModel()->selectedIndexes(), QModelIndexList{scene.tree->currentIndex()});
    QCOMPARE(scene.ok->isEnabled(), ok);
    QCOMPARE(scene.dialog->selectedCamera(), current == QLatin1String("a2") ? scene.a2 : nullptr);
}

void TestSelectorDialog::everythingGoesAndComesBack()
{
    Scene scene;
    scene.select("a2");
    scene.system.interfaceLists = ListAnswer::Null;
    scene.poll();
    QCOMPARE(scene.model->rowCount(), 0);
    QVERIFY(!scene.tree->currentIndex().isValid());
    QVERIFY(scene.ok->isEnabled()); // nothing became current, so nothing was told
    QCOMPARE(scene.dialog->selectedCamera(), nullptr);
    scene.system.interfaceLists = ListAnswer::List;
    scene.poll();
    QCOMPARE(scene.current(), QStringLiteral("a2"));
    QCOMPARE(scene.dialog->selectedCamera(), scene.a2);
}

void TestSelectorDialog::signalsCoalesce()
{
    Scene scene;
    QSignalSpy reset(scene.model, &QAbstractItemModel::modelReset);
    Q_EMIT scene.d->forwarder.systemChanged(); // without a change there is nothing to show
    QCoreApplication::processEvents();
    QCOMPARE(reset.count(), 0);
    for (int i = 0; i < 3; ++i) {
        scene.a->add("new" + std::to_string(i));
        QVERIFY(scene.model->checkNew());
        scene.d->changed = true;
        Q_EMIT scene.d->forwarder.systemChanged();
    }
    QCOMPARE(reset.count(), 0);
    QCoreApplication::processEvents();
    QCOMPARE(reset.count(), 1);
    QVERIFY(scene.allExpanded());

    scene.d->changed = true;
    Q_EMIT scene.d->forwarder.systemChanged();
    scene.dialog.reset(); // with the change still queued
    QCoreApplication::processEvents();
}

void TestSelectorDialog::rescan()
{
    Scene scene;
    scene.select("a1");
    QVERIFY(scene.ok->isEnabled() && scene.setIp->isEnabled());
    scene.b->add("b2");
    scene.rescan->click();
    QVERIFY(scene.allExpanded());
    QVERIFY(!scene.tree->currentIndex().isValid());
    QVERIFY(!scene.ok->isEnabled() && !scene.setIp->isEnabled());
    QCOMPARE(scene.dialog->selectedCamera(), nullptr);
    QVERIFY(scene.d->lastItemId.isNull());
}

void TestSelectorDialog::pollThread()
{
    Scene scene;
    scene.select("a2");
    scene.box->click();
    QVERIFY(scene.dialog->isPollChecked() && !scene.rescan->isEnabled());
    QSignalSpy reset(scene.model, &QAbstractItemModel::modelReset);
    scene.a->unplug(scene.a1);
    QTRY_COMPARE(reset.count(), 1);
    QVERIFY(scene.allExpanded());
    QCOMPARE(scene.current(), QStringLiteral("a2"));

    scene.box->click();
    QVERIFY(!scene.d->thread); // ended and waited for
    QVERIFY(!scene.dialog->isPollChecked() && scene.rescan->isEnabled());
    const int enumerations = scene.system.interfaceListCalls;
    scene.a->unplug(scene.a2);
    QVERIFY(!QTest::qWaitFor([&] { return scene.system.interfaceListCalls != enumerations; }, 1300));
    QCOMPARE(reset.count(), 1);

    scene.box->click(); // and once more
    QTRY_COMPARE(reset.count(), 2);
    QCOMPARE(scene.current(), QStringLiteral("A"));
}

void TestSelectorDialog::pollThreadOnThrowingSystem()
{
    Scene scene;
    scene.select("a2");
    QSignalSpy reset(scene.model, &QAbstractItemModel::modelReset);
    const std::string before = scene.system.outline();
    const int enumerations = scene.system.interfaceListCalls;
    scene.system.interfaceLists = ListAnswer::Throw;
    scene.a->unplug(scene.a1);
    scene.box->click();
    QTRY_VERIFY(scene.system.interfaceListCalls >= enumerations + 2); // the thread outlives the first failure
    QCOMPARE(reset.count(), 0);
    QCOMPARE(outline(*scene.model), before);
    QCOMPARE(scene.dialog->selectedCamera(), scene.a2);

    scene.system.interfaceLists = ListAnswer::List;
    QTRY_COMPARE(reset.count(), 1);
    QVERIFY(scene.allExpanded());
    QCOMPARE(scene.dialog->selectedCamera(), scene.a2);
}

void TestSelectorDialog::destroyedWhilePolling()
{
    Scene scene(true);
    scene.system.discoveryTime = 100;
    const int enumerations = scene.system.interfaceListCalls;
    scene.b->add("b2"); // found by the enumeration that the dialog is destroyed in
    QTRY_VERIFY(scene.system.interfaceListCalls > enumerations);
    scene.dialog.reset();
    const int discoveries = scene.system.discoveries;
    QCOMPARE(scene.system.openLists.load(), 0);
    QCoreApplication::processEvents();
    QVERIFY(!QTest::qWaitFor([&] { return scene.system.discoveries != discoveries; }, 1300));
}

void TestSelectorDialog::storm()
{
    Scene scene;
    Storm storm(scene);
    for (int i = 0; i < 2000; ++i) {
        storm.event();
        if (storm.below(2) == 0)
            scene.poll();
        if (storm.below(4) == 0 && scene.model->rowCount() > 0) {
            const QModelIndex iface = scene.model->index(storm.below(scene.model->rowCount()), 0);
            const int cameras = scene.model->rowCount(iface);
            scene.tree->setCurrentIndex(cameras ? scene.model->index(storm.below(cameras), 0, iface) : iface);
        }
        if (i % 50 == 0) {
            scene.poll();
            QVERIFY2(scene.allExpanded(), qPrintable(QStringLiteral("after event %1").arg(i)));
        }
    }
    storm.calm();
    scene.poll();
    QVERIFY(scene.allExpanded());
    QCOMPARE(scene.system.openLists.load(), 0);
    QVERIFY(scene.tree->currentIndex().isValid());
    QCOMPARE(scene.d->lastItemId, scene.current());
}

void TestSelectorDialog::stormBesideThread()
{
    constexpr int eventsEach = 400;
    Scene scene(true);
    scene.dialog->show();
    scene.system.discoveryTime = 100;
    Storm storm(scene);
    int events = 0;
    QTimer gusts;
    connect(&gusts, &QTimer::timeout, this, [&] {
        for (int i = 0; i < 10; ++i)
            storm.event();
        events += 10;
        if (events % eventsEach == 0)
            gusts.stop();
    });
    for (int enumeration = 1; enumeration <= 5; ++enumeration) {
        const int before = scene.system.interfaceListCalls;
        QTRY_VERIFY(scene.system.interfaceListCalls > before);
        gusts.start(1); // while it is still discovering
        QTRY_COMPARE(events, eventsEach * enumeration);
    }
    storm.calm();
    QTRY_COMPARE(outline(*scene.model), scene.system.outline());
    QVERIFY(scene.allExpanded());
    QCOMPARE(scene.system.openLists.load(), 0);
}

MOX_TEST_MAIN(TestSelectorDialog)
#include "tst_selectordialog.moc"
