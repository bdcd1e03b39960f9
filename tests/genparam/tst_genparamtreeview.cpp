// The dialog: its life with models and editors, errors, state text, and the functions that open it.
#include "moxcameraguiapi.h"
#include "testmain.h"
#include "treescene.h"

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

/** Device (Transport (Speed), Größe), Image. */
struct Categories
{
    FakeNodeMap map;
    Categories()
    {
        const auto category = [this](const char *name, const GenApi::FeatureList_t &features) {
            auto &made = map.add<FakeCategory>(name);
            made.features = features;
            return &made;
        };
        auto *transport = category("Transport", {&map.add<FakeInteger>("Speed")});
        category("Root", {category("Device", {transport, category("Größe", {})}), category("Image", {})});
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
        QVERIFY(view.getPollingTime() == 1000 && !view.isPollingEnabled());
        view.enablePolling(true);
        view.setPollingTime(2);
        view.setParams(&scene.map);
        QTRY_VERIFY(polls.size() > 1);
        QCOMPARE(polls.count(2), polls.size());
        view.clearParams();
        polls.clear();
        QSignalSpy ticks(view.findChild<QTimer *>(QString(), Qt::FindDirectChildrenOnly), &QTimer::timeout);
        QTRY_VERIFY(ticks.count() > 1);
        QVERIFY(polls.isEmpty() && view.isPollingEnabled());
    }

    void models()
    {
        Categories categories;
        FeatureScene scene;
        MoxGenParamTreeView view(nullptr);
        view.setVisibility(VisibilityGuru);
        view.setParams(&categories.map);
        const QModelIndex device = view.treeView()->model()->index(0, 0);
        QVERIFY(view.treeView()->isFirstColumnSpanned(1, device));
        QVERIFY(!view.treeView()->isFirstColumnSpanned(0, device.model()->index(0, 0, device)));
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

        // A map that throws shows nothing; the next one is fine.
        scene.map.lookupFault = [] { throw RUNTIME_EXCEPTION("no"); };
        QVERIFY_EXCEPTION_THROWN(view.setParams(&scene.map), GenICam::RuntimeException);
        QVERIFY_EXCEPTION_THROWN(MoxGenParamTreeView(&scene.map, nullptr), GenICam::RuntimeException);
        QCOMPARE(view.treeView()->model(), nullptr);
        view.setParams(&categories.map);
        QCOMPARE(view.treeView()->model()->rowCount(), 2);
    }

    void options()
    {
        FeatureScene scene;
        MoxGenParamTreeView view(&scene.map, nullptr);
        auto *field = part<QLineEdit>(view, "filterLineEdit");
        auto *matchCase = part<QCheckBox>(view, "checkBoxCase");
        const auto isShown = [&](const char *name) { return valueOf(view, name).isValid(); };
        const auto hasIcon = [&](const char *name) { return shows(field->actions().constLast()->icon(), name); };
        field->setText(QStringLiteral("wid"));
        QVERIFY(isShown("Width") && !isShown("Other"));
        matchCase->click();
        QVERIFY(isShown("Width") && hasIcon("options")); // constructed with a node map: nobody listens

        view.setParams(&scene.map);
        QVERIFY(isShown("Other")); // text and options count from their next change
        field->setText(QStringLiteral("wid?h"));
        part<QCheckBox>(view, "checkBoxWhole")->click();
        QVERIFY(isShown("Width") && hasIcon("options-cw"));
        field->setText(QStringLiteral("Wid"));
        QVERIFY(!isShown("Width"));
        part<QCheckBox>(view, "checkBoxWhole")->click();
        QVERIFY(isShown("Width") && hasIcon("options-c"));
        matchCase->click();
        QVERIFY(hasIcon("options"));
        field->actions().constFirst()->trigger();
        QVERIFY(isShown("Other"));
    }

    void columnWidth()
    {
        FeatureScene scene;
        for (const bool restored : {false, true}) {
            MoxGenParamTreeView view(&scene.map, nullptr);
            view.loadState(restored ? "&amp;W77" : "&amp;W0&amp;Wx");
            view.show();
            QTreeView *tree = view.treeView();
            const int width = restored ? 77 : tree->viewport()->width() / 2;
            QVERIFY2(qAbs(tree->columnWidth(0) - width) <= (restored ? 0 : 20), qPrintable(QString::number(width)));
            tree->setColumnWidth(0, 50);
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
                dialog->reject();
            });
            status->click();
            return text;
        };
        QCOMPARE(report(), QStringLiteral("No Errors"));

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
        scene.width.fault = nullptr;
        QCOMPARE(valueOf(view, "Width").data().toString(), QStringLiteral("0"));
        QVERIFY(shows(status->icon(), "err"));
        QVERIFY(view.treeView()->model()->setData(valueOf(view, "Width"), 100));
        QVERIFY(shows(status->icon(), "ok"));

        // What is left of an earlier model stays for good.
        QVERIFY(!view.treeView()->model()->setData(valueOf(view, "Width"), 101));
        view.setParams(&second.map);
        QVERIFY(!view.treeView()->model()->setData(valueOf(view, "Other"), 101));
        QVERIFY(view.treeView()->model()->setData(valueOf(view, "Other"), 1));
        QVERIFY(shows(status->icon(), "err"));
        QCOMPARE(report(), QStringLiteral("{Width}{id:256}: Width cannot be 101 \n"));

        // The view goes while its report is open.
        QPointer<MoxGenParamTreeView> other = new MoxGenParamTreeView(nullptr);
        other->setParams(&scene.map);
        atNextDialog([&](QDialog *) { delete other; });
        part<QToolButton>(*other, "pbStatus")->click();
        QVERIFY(!other);
    }

    void savedState()
    {
        Categories categories;
        MoxGenParamTreeView view(&categories.map, nullptr);
        QTreeView *tree = view.treeView();
        tree->setColumnWidth(0, 120);
        view.setVisibility(VisibilityExpert);
        const QByteArray tail = "&amp;W120&amp;V1&amp;S" + view.findChild<QSplitter *>()->saveState().toHex();
        const QModelIndex device = tree->model()->index(0, 0);
        tree->expand(device);
        tree->expand(tree->model()->index(0, 0, device));
        QCOMPARE(view.saveState(), ("Device&lt;Device/Transport&lt;" + tail).constData());
        tree->collapse(device);
        tree->expand(tree->model()->index(1, 0, device));
        const QByteArray state = view.saveState();
        QCOMPARE(state, "Device/Transport&lt;Device/Größe&lt;" + tail);
        tree->collapseAll();
        view.loadState(nullptr);
        view.loadState("");
        QCOMPARE(view.saveState(), tail.constData());
        view.loadState(state);
        view.loadState(view.saveState()); // its own text
        QCOMPARE(view.saveState(), ("Device&lt;" + state).constData()); // the shorter path is a part of the longer
        view.clearParams();
        view.loadState("&amp;V2");
        QCOMPARE(view.visibility(), VisibilityExpert);
        QCOMPARE(view.saveState(), "");
    }

    void loadedState()
    {
        Categories categories;
        for (const auto &[text, expected] :
             {std::make_pair("aImages", "Image&lt;&amp;W90&amp;V2"), // a part of any word
              {"&amp;Wx&amp;Vy&amp;Szz", "&amp;W90&amp;V0"}, // no numbers
              {"&amp;V1&amp;W 40px&amp;W50&amp;S", "&amp;W40&amp;V1"}, // another order; the first one counts
              {"Device&amp;V7", "&amp;W90&amp;V-1"}, // no such level, which hides all rows
              {"&amp;W99999999999&amp;V99999999999", "&amp;W90&amp;V0"}, // no int
              {"&amp;W-5", "&amp;W90&amp;V2"}}) {
            MoxGenParamTreeView view(&categories.map, nullptr);
            view.treeView()->expandAll();
            view.treeView()->setColumnWidth(0, 90);
            view.setVisibility(VisibilityGuru);
            const QByteArray place = "&amp;S" + view.findChild<QSplitter *>()->saveState().toHex();
            view.loadState(text);
            QCOMPARE(QByteArray(view.saveState()), expected + place);
        }
    }

    void endsWithEditor_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QByteArray>("end");
        for (const char *name : {"Width", "User", "GevSCDA", "Mode", "Start", "Blob"}) {
            for (const char *end : {"destroyed", "cleared", "replaced", "feature gone", "camera gone"})
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
        const bool takesText = name == "Width" || name == "User";
        if (takesText) {
            QMetaObject::invokeMethod(openEditor(*view), "selectAll");
            QTest::keyClicks(openEditor(*view), QStringLiteral("7"));
        }
        QVERIFY(openEditor(*view));
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
        } else if (end == "camera gone") {
            for (IValue *feature : scene.root.features)
                dynamic_cast<FakeNode *>(feature)->fault = [](Access) { throw TIMEOUT_EXCEPTION("gone"); };
            QTest::keyClick(openEditor(*view), Qt::Key_Up);
            for (IValue *feature : scene.root.features)
                dynamic_cast<FakeNode *>(feature)->changed();
            QCOMPARE(view->treeView()->model()->rowCount(), 0);
            QVERIFY(!openEditor(*view));
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

    void entries()
    {
        FeatureScene scene;
        QWidget parent;
        parent.winId();
        DestroyGenParamTreeView(nullptr);
        for (IMoxGenParamTreeView *view :
             {CreateGenParamTreeViewForNodemapA(&scene.map, "Größe \xF0\x9F\x93\xB7", parent.winId()),
              CreateGenParamTreeViewForNodemapW(&scene.map, L"Gr\u00F6\u00DFe \U0001F4F7", parent.winId())}) {
            const QPointer<MoxGenParamTreeView> dialog = dynamic_cast<MoxGenParamTreeView *>(view);
            QVERIFY(dialog->isVisible() && !dialog->isModal() && dialog->parent() == &parent);
            QCOMPARE(dialog->windowTitle(), QString::fromUcs4(U"Größe \x1F4F7"));
            DestroyGenParamTreeView(view);
            QVERIFY(!dialog);
        }
    }
};

MOX_TEST_MAIN(TestGenParamTreeView)
#include "tst_genparamtreeview.moc"
