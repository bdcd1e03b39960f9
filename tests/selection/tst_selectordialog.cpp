#include "datarow.h"
#include "selectorscene.h"
#include "testmain.h"

#include <QCheckBox>
#include <QSignalSpy>
#include <QTimer>

#include <random>

using namespace MoxTest;
using Change = std::function<void(Scene &)>;
Q_DECLARE_METATYPE(Change)

namespace {

/** Pulls out and puts back interfaces and cameras at random. */
class Storm
{
public:
    explicit Storm(Scene &s) : scene(s)
    {
        scene.gige->parameters = scene.usb->parameters = nullptr; // the panels are told of elsewhere
    }

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
        scene.gige->add("last");
    }

private:
    void cameraEvent(bool pull)
    {
        FakeInterface *iface = below(2) ? scene.gige : scene.usb;
        const std::vector<FakeDeviceInfo *> present = iface->plugged();
        if (pull && !present.empty())
            return iface->unplug(present[below(present.size())]);
        FakeDeviceInfo *camera = iface->add("c" + std::to_string(++number));
        iface->unplug(camera);
        iface->plug(camera, below(present.size() + 1));
    }

    Scene &scene;
    std::mt19937 random{20260};
    std::vector<FakeInterface *> away;
    int number = 0;
};

QCheckBox *pollBox(const Scene &scene)
{
    return scene.dialog->findChild<QCheckBox *>("chPoll"_s);
}

} // namespace

class TestSelectorDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsOut()
    {
        for (const bool poll : {false, true}) {
            const Scene scene(poll);
            QCOMPARE(scene.dialog->isPollChecked(), poll);
            QCOMPARE(pollBox(scene)->isChecked(), poll);
            QCOMPARE(scene.d->rescanButton->isEnabled(), !poll);
            QCOMPARE(bool(scene.d->thread), poll);
            QVERIFY(scene.allExpanded());
            QVERIFY(!scene.tree->currentIndex().isValid());
            QVERIFY(scene.ok->isEnabled() && scene.setIp->isEnabled()); // as in the form, until an item is current
            QCOMPARE(scene.dialog->selectedCamera(), nullptr);
            QCOMPARE(scene.dialog->windowModality(), Qt::WindowModal);
        }
    }

    // Activating an item accepts when Ok would.
    void activation()
    {
        for (const int status : {2, 3, 1001}) {
            for (const bool byMouse : {true, false}) {
                Scene scene;
                scene.g2->accessStatus = status;
                const bool ok = status == 2;
                QSignalSpy accepted(scene.dialog.get(), &QDialog::accepted);
                const auto activate = [&](const QModelIndex &index) {
                    const QPoint spot = scene.tree->visualRect(index).center();
                    if (byMouse) {
                        QTest::mouseClick(scene.tree->viewport(), Qt::LeftButton, {}, spot);
                        QTest::mouseDClick(scene.tree->viewport(), Qt::LeftButton, {}, spot);
                    } else {
                        scene.tree->setCurrentIndex(index);
                        QTest::keyClick(scene.tree, Qt::Key_Return);
                    }
                };
                activate(scene.model->getItemIdx("U"_s));
                QCOMPARE(accepted.count(), 0);
                activate(scene.model->getItemIdx("g2"_s));
                QCOMPARE(accepted.count(), int(ok));
                QCOMPARE(scene.dialog->isVisible(), !ok);
                scene.dialog->setSelectedCamera(scene.g1);
                QCOMPARE(scene.dialog->selectedCamera(), scene.g2);
            }
        }
    }

    void changeShown_data()
    {
        columns<Change, QString, bool>("change", "current", "ok");
        const auto row = [](const char *name, const char *current, bool ok, const Change &change) {
            MoxTest::row(name, change, QString::fromLatin1(current), ok);
        };
        row("another camera goes", "g2", true, [](Scene &s) { s.gige->unplug(s.g1); });
        row("current camera moves", "g2", true, [](Scene &s) {
            s.gige->unplug(s.g2);
            s.usb->plug(s.g2, 0);
        });
        row("current camera was taken meanwhile", "g2", false, [](Scene &s) {
            s.gige->unplug(s.g1);
            s.g2->accessStatus = MoxCam::AccessNoAccess;
        });
        row("current camera goes", "G", false, [](Scene &s) { s.gige->unplug(s.g2); });
        row("its interface goes", "U", false, [](Scene &s) { s.system.unplug(s.gige); });
    }

    void changeShown()
    {
        QFETCH(Change, change);
        QFETCH(QString, current);
        QFETCH(bool, ok);
        Scene scene;
        scene.select("g2"_s);
        QSignalSpy currentChanged(scene.tree->selectionModel(), &QItemSelectionModel::currentChanged);
        change(scene);
        scene.poll();
        QVERIFY(scene.allExpanded());
        QCOMPARE(currentChanged.count(), 1);
        QCOMPARE(scene.current(), current);
        QCOMPARE(scene.d->lastItemId, current);
        QCOMPARE(scene.tree->selectionModel()->selectedIndexes(), QModelIndexList{scene.tree->currentIndex()});
        QCOMPARE(scene.ok->isEnabled(), ok);
        QCOMPARE(scene.dialog->selectedCamera(), current == "g2"_s ? scene.g2 : nullptr);
    }

    void everythingGoesAndComesBack()
    {
        Scene scene;
        scene.select("g2"_s);
        const QStringList told = Scene::texts(scene.devicePanel);
        scene.system.interfaceLists = ListAnswer::Null;
        scene.poll();
        QCOMPARE(scene.model->rowCount(), 0);
        QVERIFY(!scene.tree->currentIndex().isValid());
        QVERIFY(scene.ok->isEnabled()); // nothing became current, so nothing was told
        QCOMPARE(Scene::texts(scene.devicePanel), told);
        QCOMPARE(scene.dialog->selectedCamera(), nullptr);
        scene.system.interfaceLists = ListAnswer::List;
        scene.poll();
        QCOMPARE(scene.current(), "g2"_s);
        QCOMPARE(scene.dialog->selectedCamera(), scene.g2);
    }

    void signalsCoalesce()
    {
        Scene scene;
        QSignalSpy reset(scene.model, &QAbstractItemModel::modelReset);
        Q_EMIT scene.d->forwarder.systemChanged(); // without a change there is nothing to show
        QCoreApplication::processEvents();
        QCOMPARE(reset.count(), 0);
        for (int i = 0; i < 3; ++i) {
            scene.gige->add("new" + std::to_string(i));
            scene.find();
        }
        QCOMPARE(reset.count(), 0);
        QCoreApplication::processEvents();
        QCOMPARE(reset.count(), 1);
        QVERIFY(scene.allExpanded());

        scene.gige->unplug(scene.g1);
        scene.find();
        scene.dialog.reset(); // with the change still queued
        QCoreApplication::processEvents();
    }

    void rescan()
    {
        Scene scene;
        scene.select("g1"_s);
        QVERIFY(scene.ok->isEnabled() && scene.setIp->isEnabled());
        scene.usb->add("u3");
        scene.d->rescanButton->click();
        QVERIFY(scene.allExpanded());
        QVERIFY(!scene.tree->currentIndex().isValid());
        QVERIFY(!scene.ok->isEnabled() && !scene.setIp->isEnabled());
        QCOMPARE(scene.dialog->selectedCamera(), nullptr);
        QVERIFY(scene.d->lastItemId.isNull());
    }

    void pollThread()
    {
        Scene scene;
        scene.select("g2"_s);
        pollBox(scene)->click();
        QVERIFY(scene.dialog->isPollChecked() && !scene.d->rescanButton->isEnabled());
        QSignalSpy reset(scene.model, &QAbstractItemModel::modelReset);
        scene.gige->unplug(scene.g1);
        QTRY_COMPARE(reset.count(), 1);
        QVERIFY(scene.allExpanded());
        QCOMPARE(scene.current(), "g2"_s);

        pollBox(scene)->click();
        QVERIFY(!scene.d->thread); // ended and waited for
        QVERIFY(!scene.dialog->isPollChecked() && scene.d->rescanButton->isEnabled());
        int enumerations = scene.system.interfaceListCalls;
        scene.gige->unplug(scene.g2);
        QCoreApplication::processEvents();
        QCOMPARE(scene.system.interfaceListCalls.load(), enumerations);
        QCOMPARE(reset.count(), 1);

        // And once more: the thread outlives an enumeration that fails.
        scene.system.interfaceLists = ListAnswer::Throw;
        pollBox(scene)->click();
        QTRY_VERIFY(scene.system.interfaceListCalls >= enumerations + 2);
        QCOMPARE(reset.count(), 1);
        QCOMPARE(outline(*scene.model), std::string("G[g2 ]U[u1 u2 ]"));
        QCOMPARE(scene.dialog->selectedCamera(), scene.g2);
        scene.system.interfaceLists = ListAnswer::List;
        QTRY_COMPARE(reset.count(), 2);
        QCOMPARE(scene.current(), "G"_s);

        // It is destroyed in the enumeration that finds a camera.
        scene.system.discoveryTime = 100;
        enumerations = scene.system.interfaceListCalls;
        scene.usb->add("u3");
        QTRY_VERIFY(scene.system.interfaceListCalls > enumerations);
        scene.dialog.reset();
        QCOMPARE(scene.system.openLists.load(), 0);
        QCoreApplication::processEvents();
    }

    // Beside the thread, and with the user choosing something now and then.
    void storm()
    {
        constexpr int eventsEach = 400;
        Scene scene(true);
        scene.dialog->hide(); // nothing is painted, for speed
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
            if (scene.model->rowCount() > 0) {
                const QModelIndex iface = scene.model->index(storm.below(scene.model->rowCount()), 0);
                const int cameras = scene.model->rowCount(iface);
                scene.tree->setCurrentIndex(cameras ? scene.model->index(storm.below(cameras), 0, iface) : iface);
            }
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
        QVERIFY(scene.tree->currentIndex().isValid());
        QCOMPARE(scene.d->lastItemId, scene.current());
    }
};

MOX_TEST_MAIN(TestSelectorDialog)
#include "tst_selectordialog.moc"
