// The dialog: its life with models and editors, errors, state text, and the functions that open it.
#include "moxcameraguiapi.h"
#include "testmain.h"
#include "treescene.h"

#include <MoxCameraApi/MoxCam.h>
#include <MoxCameraApi/MoxGenParam.h>
#include <MoxCameraApi/MoxSimulation.h>

#include <QAbstractProxyModel>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPointer>
#include <QSignalSpy>
#include <QSplitter>
#include <QTextBrowser>
#include <QTimer>
#include <QToolButton>

#include <random>

using namespace GenApi;
using namespace MoxGui;
using namespace MoxTest;

namespace {

template<class T> T *part(const QDialog &dialog, const char *name)
{
    return dialog.findChild<T *>(QLatin1String(name));
}

bool shows(const QIcon &icon, const char *name)
{
    const QIcon expected(QStringLiteral(":/images/%1.png").arg(QLatin1String(name)));
    return icon.pixmap(32).toImage() == expected.pixmap(32).toImage();
}

/** Runs with the modal dialog that is opened next. */
void atNextDialog(std::function<void(QDialog *)> user)
{
    QTimer::singleShot(0, qApp,
                       [user = std::move(user)] { user(qobject_cast<QDialog *>(QApplication::activeModalWidget())); });
}

QString cells(const QAbstractItemModel *model, const QModelIndex &parent = QModelIndex())
{
    QString text;
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex index = model->index(row, 0, parent);
        if (index.data().toString() == QLatin1String("Timestamp"))
            continue; // runs
        text += index.data().toString() + QLatin1Char('=') + index.sibling(row, 1).data().toString() + QLatin1Char('\n')
            + cells(model, index);
    }
    return text;
}

/** Device (Transport (Speed), Größe (Level)), Image, each category with a feature Id. */
struct Categories
{
    FakeNodeMap map;
    Categories()
    {
        const auto category = [this](const char *name, const char *display, const GenApi::FeatureList_t &features) {
            auto &made = map.add<FakeCategory>(name);
            made.displayName = display;
            made.features = features;
            return &made;
        };
        auto *id = &map.add<FakeInteger>("Id");
        auto *transport = category("T", "Transport", {&map.add<FakeInteger>("Speed")});
        auto *size = category("G", "Größe", {&map.add<FakeInteger>("Level")});
        category("Root", "Root", {category("D", "Device", {transport, size, id}), category("I", "Image", {})});
    }
};

} // namespace

class TestGenParamTreeView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void polling()
    {
        FeatureScene scene;
        QVector<qint64> polls;
        scene.map.onPoll = [&](std::int64_t elapsed) { polls << elapsed; };
        MoxGenParamTreeView view(nullptr);
        QCOMPARE(view.getPollingTime(), 1000ul);
        QVERIFY(!view.isPollingEnabled());
        view.loadState("&amp;V2"); // not without a model
        QCOMPARE(view.visibility(), VisibilityBasic);
        QCOMPARE(view.saveState(), "");
        part<QToolButton>(view, "pbStatus")->click(); // nobody listens yet
        view.enablePolling(true);
        view.setPollingTime(2);
        QVERIFY(view.isPollingEnabled());
        QCOMPARE(view.getPollingTime(), 2ul);
        QTest::qWait(10);
        view.setParams(&scene.map);
        QTRY_VERIFY(polls.size() > 1);
        // Also while the report is open.
        atNextDialog([&](QDialog *dialog) {
            polls.clear();
            QTRY_VERIFY(polls.size() > 1);
            dialog->reject();
        });
        part<QToolButton>(view, "pbStatus")->click();
        QCOMPARE(polls.count(2), polls.size());
        view.clearParams();
        polls.clear();
        QTest::qWait(10);
        QCOMPARE(polls.size(), 0);
        view.enablePolling(false);
        QVERIFY(!view.isPollingEnabled());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void models()
    {
        Categories categories;
        FeatureScene scene;
        MoxGenParamTreeView view(nullptr);
        view.setVisibility(VisibilityGuru);
        view.setParams(&categories.map);
        const QAbstractItemModel *model = view.treeView()->model();
        QVERIFY(view.treeView()->isFirstColumnSpanned(0, {}));
        QVERIFY(view.treeView()->isFirstColumnSpanned(1, model->index(0, 0)));
        QVERIFY(!view.treeView()->isFirstColumnSpanned(2, model->index(0, 0)));
        view.treeView()->setCurrentIndex(valueOf(view, "Speed"));
        QVERIFY(part<QTextBrowser>(view, "whatsThisLabel")->toPlainText().startsWith(QLatin1String("Name: Speed\n")));

        // The callbacks of a model end with the event loop's next turn, and the map may go then.
        auto &speed = *dynamic_cast<FakeNode *>(categories.map.GetNode("Speed"));
        view.setParams(&scene.map);
        QCOMPARE(part<QTextBrowser>(view, "whatsThisLabel")->toPlainText(), QString());
        QCOMPARE(speed.callbackCount(), 1u);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(speed.callbackCount(), 0u);
        QCOMPARE(view.findChildren<QAbstractProxyModel *>().size(), 1);
        QCOMPARE(view.visibility(), VisibilityGuru);

        // A map that throws shows nothing and is not polled; the next one is fine.
        scene.map.lookupFault = [] { throw RUNTIME_EXCEPTION("no"); };
        scene.map.onPoll = [](std::int64_t) { QFAIL("polled"); };
        view.setPollingTime(1);
        view.enablePolling(true);
        QVERIFY_EXCEPTION_THROWN(view.setParams(&scene.map), GenICam::RuntimeException);
        QVERIFY_EXCEPTION_THROWN(MoxGenParamTreeView(&scene.map, nullptr), GenICam::RuntimeException);
        QCOMPARE(view.treeView()->model(), nullptr);
        QTest::qWait(5);
        view.setParams(&categories.map);
        QCOMPARE(view.treeView()->model()->rowCount(), 2);
    }

    void options()
    {
        FeatureScene scene;
        MoxGenParamTreeView view(&scene.map, nullptr);
        auto *field = part<QLineEdit>(view, "filterLineEdit");
        QAction *icon = field->actions().constLast();
        field->setText(QStringLiteral("wid"));
        QVERIFY(valueOf(view, "Width").isValid() && !valueOf(view, "Other").isValid());
        auto *matchCase = part<QCheckBox>(view, "checkBoxCase");
        auto *whole = part<QCheckBox>(view, "checkBoxWhole");
        for (QCheckBox *box : {matchCase, whole})
            box->click();
        QVERIFY(valueOf(view, "Width").isValid()); // constructed with a node map: nobody listens
        QVERIFY(shows(icon->icon(), "options"));

        view.setParams(&scene.map);
        QVERIFY(valueOf(view, "Other").isValid()); // text and options count from their next change
        field->setText(QStringLiteral("wid?h"));
        QVERIFY(valueOf(view, "Width").isValid());
        matchCase->click();
        QVERIFY(shows(icon->icon(), "options-w"));
        matchCase->click();
        QVERIFY(shows(icon->icon(), "options-cw"));
        QVERIFY(!valueOf(view, "Width").isValid());
        whole->click();
        whole->click();
        field->setText(QStringLiteral("Wid"));
        QVERIFY(!valueOf(view, "Width").isValid());
        whole->click();
        QVERIFY(shows(icon->icon(), "options-c"));
        QVERIFY(valueOf(view, "Width").isValid());
        field->actions().constFirst()->trigger();
        QCOMPARE(field->text(), QString());
        QVERIFY(valueOf(view, "Other").isValid());

        view.show();
        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support raise()");
        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support grabbing the keyboard");
        icon->trigger();
        auto *popup = part<QWidget>(view, "FilterOptions");
        QVERIFY(popup->isVisible());
        // This platform puts frames of two pixels even around pop-ups.
        QCOMPARE(popup->pos() - QPoint(2, 2), field->mapToGlobal(QPoint(0, field->height() - 1)));
    }

    void columnWidth()
    {
        FeatureScene scene;
        for (const bool restored : {false, true}) {
            MoxGenParamTreeView view(&scene.map, nullptr);
            view.loadState(restored ? "&amp;W77" : "&amp;W0&amp;Wx");
            view.show();
            const QTreeView *tree = view.treeView();
            const int width = restored ? 77 : tree->viewport()->width() / 2;
            QVERIFY2(qAbs(tree->columnWidth(0) - width) <= (restored ? 0 : 20), qPrintable(QString::number(width)));
            view.treeView()->setColumnWidth(0, 50);
            view.hide();
            view.show();
            QCOMPARE(tree->columnWidth(0), 50);
        }
    }

    void errors()
    {
        FeatureScene scene;
        FeatureScene second;
        MoxGenParamTreeView view(nullptr);
        view.setParams(&scene.map);
        auto *status = part<QToolButton>(view, "pbStatus");
        const auto report = [&] {
            QString text;
            atNextDialog([&](QDialog *dialog) {
                text = part<QTextBrowser>(*dialog, "textErrors")->toPlainText();
                QCOMPARE(dialog->windowTitle(), QStringLiteral("Gen<i>Cam errors"));
                QVERIFY(dialog->isModal() && dialog->parent() == status);
                dialog->reject();
            });
            status->click();
            return text;
        };
        QCOMPARE(report(), QStringLiteral("No Errors"));
        QVERIFY(shows(status->icon(), "ok"));

        // On the screen: the view is told with the model's index while it paints.
        scene.width.fault = [](Access access) {
            if (access == Access::Read)
                throw TIMEOUT_EXCEPTION("lost <b>");
        };
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        QTRY_VERIFY(shows(status->icon(), "err"));
        QVERIFY(!view.treeView()->model()->setData(valueOf(view, "Width"), 101));
        QCOMPARE(report(), QStringLiteral("{Width}{id:0}: lost <b> \n{Width}{id:256}: Width cannot be 101 \n"));
        QCOMPARE(valueOf(view, "Width").sibling(0, 0).data(Qt::ForegroundRole).value<QBrush>().color(),
                 QColor(Qt::red));
        scene.width.fault = nullptr;
        QCOMPARE(valueOf(view, "Width").data().toString(), QStringLiteral("0"));
        QVERIFY(shows(status->icon(), "err"));
        QVERIFY(view.treeView()->model()->setData(valueOf(view, "Width"), 100));
        QVERIFY(shows(status->icon(), "ok"));

        // What is left of an earlier model stays for good.
        QVERIFY(!view.treeView()->model()->setData(valueOf(view, "Width"), 101));
        view.setParams(&second.map);
        view.clearParams();
        view.setParams(&second.map);
        QVERIFY(view.treeView()->model()->setData(valueOf(view, "Other"), 1));
        QVERIFY(!view.treeView()->model()->setData(valueOf(view, "Other"), 101));
        QVERIFY(view.treeView()->model()->setData(valueOf(view, "Other"), 1));
        QVERIFY(shows(status->icon(), "err"));
        QCOMPARE(report(), QStringLiteral("{Width}{id:256}: Width cannot be 101 \n"));
        QCOMPARE(view.findChildren<QDialog *>().size(), 0);
        view.clearParams();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void report()
    {
        // The view goes while its report is open.
        FeatureScene scene;
        QPointer<MoxGenParamTreeView> view = new MoxGenParamTreeView(nullptr);
        view->setParams(&scene.map);
        atNextDialog([&](QDialog *) { delete view; });
        part<QToolButton>(*view, "pbStatus")->click();
        QVERIFY(!view);
    }

    void savedState()
    {
        Categories categories;
        MoxGenParamTreeView view(&categories.map, nullptr);
        QTreeView *tree = view.treeView();
        tree->setColumnWidth(0, 120);
        view.setVisibility(VisibilityExpert);
        const QByteArray tail = "&amp;W120&amp;V1&amp;S" + view.findChild<QSplitter *>()->saveState().toHex();
        QCOMPARE(view.saveState(), tail.constData());
        const QModelIndex device = tree->model()->index(0, 0);
        tree->expand(device);
        tree->expand(tree->model()->index(0, 0, device));
        QCOMPARE(view.saveState(), ("Device&lt;Device/Transport&lt;" + tail).constData());
        tree->collapse(device);
        tree->expand(tree->model()->index(1, 0, device));
        const QByteArray state = view.saveState();
        QCOMPARE(state, "Device/Transport&lt;Device/Größe&lt;" + tail);

        tree->collapseAll();
        tree->setColumnWidth(0, 60);
        view.setVisibility(VisibilityBasic);
        view.saveState();
        view.loadState(nullptr);
        view.loadState("");
        QCOMPARE(view.visibility(), VisibilityBasic);
        view.loadState(state);
        QCOMPARE(view.saveState(), ("Device&lt;" + state).constData()); // the shorter path is a part of the longer
        view.loadState(view.saveState()); // its own text
        QCOMPARE(view.saveState(), ("Device&lt;" + state).constData());
    }

    void loadedState_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("expected"); // without the splitter
        const auto row = [](const char *name, const char *text, const char *expected) {
            QTest::newRow(name) << QByteArray(text) << QByteArray(expected);
        };
        row("no marker", "nonsense", "&amp;W90&amp;V2");
        row("part of a word", "aImages", "Image&lt;&amp;W90&amp;V2");
        row("child's name alone", "Transport", "&amp;W90&amp;V2");
        row("markers without numbers", "&amp;Wx&amp;Vy&amp;Szz", "&amp;W90&amp;V0");
        row("markers at the end", "&amp;S", "&amp;W90&amp;V2");
        row("level at the end", "&amp;W12&amp;V", "&amp;W12&amp;V2");
        row("other order", "&amp;V1&amp;W33", "&amp;W33&amp;V1");
        row("first counts", "&amp;W 40px&amp;W50", "&amp;W40&amp;V2");
        row("no such level", "Device&amp;V7", "&amp;W90&amp;V-1"); // all rows are hidden then
        row("beyond int", "&amp;W99999999999&amp;V99999999999", "&amp;W90&amp;V0");
        row("negative width", "&amp;W-5", "&amp;W90&amp;V2");
    }

    void loadedState()
    {
        Categories categories;
        MoxGenParamTreeView view(&categories.map, nullptr);
        view.treeView()->expandAll();
        view.treeView()->setColumnWidth(0, 90);
        view.setVisibility(VisibilityGuru);
        QFETCH(QByteArray, text);
        const QByteArray place = view.findChild<QSplitter *>()->saveState().toHex();
        view.loadState(text);
        QFETCH(QByteArray, expected);
        QCOMPARE(QByteArray(view.saveState()), expected + "&amp;S" + place);
    }

    void endsWithEditor_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QByteArray>("end");
        for (const char *name : {"Width", "User", "Mode", "Start", "Blob"}) {
            for (const char *end : {"destroyed", "cleared", "replaced", "feature gone"})
                QTest::addRow("%s, %s", name, end) << QByteArray(name) << QByteArray(end);
        }
    }

    void endsWithEditor()
    {
        QFETCH(QByteArray, name);
        QFETCH(QByteArray, end);
        FeatureScene scene;
        FeatureScene second;
        auto &node = *dynamic_cast<FakeNode *>(scene.map.GetNode(name.constData()));
        auto view = std::make_unique<MoxGenParamTreeView>(&scene.map, nullptr);
        view->show();
        QVERIFY(QTest::qWaitForWindowActive(view.get()));
        view->treeView()->setCurrentIndex(valueOf(*view, name));
        QVERIFY(openEditor(*view));
        const bool takesText = name == "Width" || name == "User";
        if (takesText) {
            QMetaObject::invokeMethod(openEditor(*view), "selectAll");
            QTest::keyClicks(openEditor(*view), QStringLiteral("7"));
        }
        if (end == "destroyed") {
            view.reset();
            // The edit ends as any that loses the focus: typed text is written, a command does not run.
            if (takesText)
                QCOMPARE(node.ToString(false, false), gcstring("7"));
        } else if (end == "feature gone") {
            node.accessMode = NI;
            node.changed();
            QVERIFY(!openEditor(*view)); // the neighbour is current now, but nobody wanted to edit it
            QCOMPARE(node.accesses[Access::Write], 0);
        } else {
            if (end == "replaced")
                view->setParams(&second.map);
            else
                view->clearParams();
            node.changed();
            clickAt(view.get(), {2, 2});
            QVERIFY(!openEditor(*view));
            QCOMPARE(node.accesses[Access::Write], 0); // dropped
        }
        QCOMPARE(scene.start.executions, 0);
        if (view)
            view->clearParams();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void filterTyping()
    {
        FeatureScene scene;
        MoxGenParamTreeView view(&scene.map, nullptr);
        view.show();
        QVERIFY(QTest::qWaitForWindowActive(&view));
        view.treeView()->setCurrentIndex(valueOf(view, "Binning"));
        auto *field = part<QLineEdit>(view, "filterLineEdit");
        clickAt(field, {60, 10});
        const int writes = scene.binning.accesses[Access::Write]; // of the edit that the click ended
        QTest::keyClicks(field, QStringLiteral("user"));
        QCOMPARE(field->text(), QStringLiteral("user"));
        QVERIFY(field->hasFocus() && !openEditor(view));
        QCOMPARE(scene.binning.accesses[Access::Write], writes);
        QCOMPARE(scene.user.accesses[Access::Write] + scene.other.accesses[Access::Write], 0);
        QVERIFY(view.treeView()->editTriggers().testFlag(QAbstractItemView::CurrentChanged));
    }

    void camera_data()
    {
        QTest::addColumn<int>("failing"); // every n-th access; 0 pulls the camera out instead
        for (int n : {0, 1, 2, 3, 7, 31})
            QTest::addRow("%d", n) << n;
    }

    void camera()
    {
        QFETCH(int, failing);
        MoxSim::setWorlds(MoxSim::SimulatedWorld);
        MoxSim::clearWorld();
        const std::string id = MoxSim::addCamera(MoxSim::addInterface(MoxCam::InterfaceGigEVision, "Net"), {});
        MoxCam::System *system = MoxCam_GetSystem();
        MoxCam::InterfaceList *interfaces = system->GetInterfaceList(~0u);
        interfaces->GetFirst()->ReDiscoverDevices(nullptr, 100);
        MoxCam::DeviceInfoList *infos = interfaces->GetFirst()->GetDeviceInfoList();
        MoxCam::Device *device = MoxCam_CreateDevice(infos->GetFirst(), 2, 0);
        QVERIFY(device);
        {
            MoxGenParamTreeView view(device->GetCameraParameters(nullptr), nullptr);
            view.setVisibility(VisibilityGuru);
            view.show();
            view.treeView()->expandAll();
            QVERIFY(QTest::qWaitForWindowActive(&view));
            view.treeView()->setCurrentIndex(valueOf(view, "Width"));
            QVERIFY(openEditor(view));
            if (failing)
                MoxSim::failAccess(id, unsigned(failing), true);
            else
                MoxSim::setPlugged(id, false);
            std::mt19937 random(unsigned(failing) + 1);
            INodeMap *map = device->GetCameraParameters(nullptr)->GetNodeMap(nullptr);
            for (int step = 0; step < 150; ++step) {
                const QTreeView *tree = view.treeView();
                switch (random() % 8) {
                case 0:
                    part<QLineEdit>(view, "filterLineEdit")->setText(QLatin1String(random() % 2 ? "" : "e*i"));
                    break;
                case 1:
                    view.setVisibility(Visibility(random() % 3));
                    break;
                case 2:
                    map->Poll(1000);
                    break;
                case 3:
                    view.loadState(QByteArray(view.saveState()).replace("e", random() % 2 ? "" : "e"));
                    break;
                case 4:
                    view.treeView()->expandAll();
                    break;
                default:
                    clickCell(view, tree->indexAt({tree->columnWidth(0) + 9, int(random() % 300)}));
                    if (QWidget *editor = openEditor(view))
                        QTest::keyClick(editor, random() % 2 ? Qt::Key_Up : Qt::Key_Return);
                }
                QCoreApplication::processEvents();
            }
            MoxSim::failAccess(id, 0);
            MoxSim::setPlugged(id, true);
            view.treeView()->setCurrentIndex({});
            part<QLineEdit>(view, "filterLineEdit")->clear();
            view.setVisibility(VisibilityGuru);
            map->InvalidateNodes();
            QCoreApplication::processEvents();
            if (failing) { // a camera that was pulled out has to be opened again
                MoxGenParamTreeView fresh(nullptr);
                fresh.setVisibility(VisibilityGuru);
                fresh.setParams(map);
                QCOMPARE(cells(view.treeView()->model()), cells(fresh.treeView()->model()));
            }
        }
        device->Release();
        infos->Release();
        interfaces->Release();
        system->Release();
    }

    void entries()
    {
        FeatureScene scene;
        QWidget parent;
        parent.winId();
        DestroyGenParamTreeView(nullptr);
        IMoxGenParamTreeView *view = CreateGenParamTreeViewForNodemapA(&scene.map, "Größe", parent.winId());
        auto *dialog = dynamic_cast<MoxGenParamTreeView *>(view);
        QVERIFY(dialog->isVisible() && !dialog->isModal());
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Größe"));
        QCOMPARE(dialog->parent(), &parent);
        QVERIFY(valueOf(*dialog, "Width").isValid());
        QPointer<QDialog> alive = dialog;
        DestroyGenParamTreeView(view);
        QVERIFY(!alive);
        view = CreateGenParamTreeViewForNodemapW(nullptr, L"\x1F4F7", 0);
        dialog = dynamic_cast<MoxGenParamTreeView *>(view);
        QCOMPARE(dialog->windowTitle(), QString::fromUcs4(U"\x1F4F7"));
        QCOMPARE(dialog->parent(), nullptr);
        DestroyGenParamTreeView(view);
    }
};

MOX_TEST_MAIN(TestGenParamTreeView)
#include "tst_genparamtreeview.moc"
