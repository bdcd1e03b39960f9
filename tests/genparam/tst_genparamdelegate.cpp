// Editors in a tree on the screen, with keys and clicks.
#include "datarow.h"
#include "testmain.h"
#include "treescene.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>

using namespace GenApi;
using namespace MoxTest;

class TestGenParamDelegate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { view.reset(); }

    void init()
    {
        scene = std::make_unique<FeatureScene>();
        view = std::make_unique<MoxGui::MoxGenParamTreeView>(&scene->map, nullptr);
        view->show();
        QVERIFY(QTest::qWaitForWindowActive(view.get()));
    }

    void typing_data()
    {
        columns<QByteArray, QByteArray, QByteArray, QByteArray>("name", "text", "way", "expected");
        const auto add = [](const char *name, const char *text, const char *way, const char *expected) {
            row(QByteArray(name) + " by " + way, name, text, way, expected);
        };
        for (const char *way : {"return", "click", "tab", "filter field"}) {
            add("Width", "42", way, "42");
            add("User", "a b", way, "a b");
            add("GevSCDA", "10.1.2.3", way, "10.1.2.3");
            add("GevMACAddress", "171", way, "00:00:00:00:00:AB");
        }
        add("User", "x", "escape", "");
        add("GevSCDA", "10.", "click away", "0.0.0.0");
    }

    void typing()
    {
        QFETCH(QByteArray, name);
        QFETCH(QByteArray, text);
        QFETCH(QByteArray, way);
        edit(name);
        QWidget *editor = openEditor(*view);
        clickAt(editor, {5, 5}); // inside it does no harm
        QMetaObject::invokeMethod(editor, "selectAll");
        QTest::keyClicks(editor, QLatin1String(text));
        QCOMPARE(writesTo(name), 0);
        const QMap<QByteArray, Qt::Key> keys{
            {"return", Qt::Key_Return}, {"escape", Qt::Key_Escape}, {"tab", Qt::Key_Tab}};
        if (keys.contains(way))
            QTest::keyClick(editor, keys[way]);
        else if (way == "filter field")
            clickAt(view->findChild<QLineEdit *>(QStringLiteral("filterLineEdit")), {60, 10});
        else
            clickCell(*view, valueOf(*view, "Other").siblingAtColumn(0));
        QTRY_VERIFY(openEditor(*view) != editor);
        QTEST(valueText(name).toLatin1(), "expected");
        QCOMPARE(writesTo(name), way == "escape" || way == "click away" ? 0 : 1);
        // The click that ends the edit still selects.
        if (way == "click")
            QCOMPARE(view->treeView()->currentIndex().row(), valueOf(*view, "Other").row());
    }

    /** Which is a window of its own, beside the editor. */
    void editorsMenu()
    {
        edit("User");
        auto *editor = openEditor<QLineEdit>(*view);
        editor->setText(QStringLiteral("a b"));
        for (const char *missing : {"raise()", "grabbing the keyboard"})
            QTest::ignoreMessage(QtWarningMsg, QByteArray("This plugin does not support ").append(missing));
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {});
        QCoreApplication::sendEvent(editor, &event);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions().constLast()).center());
        QCOMPARE(openEditor(*view), editor);
        QCOMPARE(editor->selectedText(), QStringLiteral("a b"));
        QCOMPARE(writesTo("User"), 0);
    }

    void choosing()
    {
        for (const auto &[name, expected] : {std::make_pair("Reverse", "False"), {"Mode", "On"}, {"Binning", "2"}}) {
            if (name == QByteArray("Reverse"))
                scene->reverse.value = true;
            edit(name);
            auto *combo = openEditor<QComboBox>(*view);
            combo->setCurrentIndex(combo->currentIndex()); // no change, no commit
            QCOMPARE(openEditor(*view), combo);
            QTest::keyClick(combo, Qt::Key_Down);
            QCOMPARE(writesTo(name), 1);
            QVERIFY(!openEditor(*view));
            QCOMPARE(valueText(name), QLatin1String(expected));
        }
    }

    void commands()
    {
        edit("Start");
        auto *button = openEditor<QPushButton>(*view);
        for (int clicks : {1, 2}) {
            clickAt(button, {20, 10});
            QCOMPARE(scene->start.executions, clicks);
            QCOMPARE(openEditor(*view), button);
        }
        clickCell(*view, valueOf(*view, "Other"));
        QCOMPARE(scene->start.executions, 2); // the lost focus commits, but a command takes a click
        QCOMPARE(openEditor<QPushButton>(*view), nullptr);
    }

    void arrivals()
    {
        struct Arrival
        {
            const char *name, *value, *shown; // by the editor; null where the arrival ends the edit
        };
        // A combo box commits what it is changed to, also when the device changes it.
        for (const Arrival &arrival : {Arrival{"Width", "7", "7"},
                                       {"User", "b", "b"},
                                       {"GevSCDA", "16909060", "1.2.3.4"},
                                       {"GevMACAddress", "5", "0"},
                                       {"Reverse", "true", nullptr},
                                       {"Mode", "On", nullptr},
                                       {"Binning", "4", nullptr}}) {
            edit(arrival.name);
            const int before = writesTo(arrival.name);
            node(arrival.name).FromString(arrival.value, true);
            QWidget *editor = openEditor(*view);
            QCOMPARE(bool(editor), bool(arrival.shown));
            const auto *spinBox = qobject_cast<QAbstractSpinBox *>(editor);
            if (editor)
                QCOMPARE(spinBox ? spinBox->text() : editor->property("text").toString(), QLatin1String(arrival.shown));
            QCOMPARE(writesTo(arrival.name), before + (editor ? 1 : 2));
        }
    }

    void withoutControl()
    {
        edit("Blob"); // a register has no control of its own
        QTest::keyClicks(openEditor(*view), QStringLiteral("1"));
        clickCell(*view, valueOf(*view, "Start"));
        QCOMPARE(writesTo("Blob"), 0);
        // An entry that is not in the list leaves the box empty, and leaving an empty box writes nothing.
        scene->mode.value = 9;
        edit("Mode");
        QCOMPARE(openEditor<QComboBox>(*view)->currentIndex(), -1);
        clickCell(*view, valueOf(*view, "Other"));
        QCOMPARE(openEditor<QComboBox>(*view), nullptr);
        QCOMPARE(writesTo("Mode"), 0);
    }

private:
    void edit(const char *name)
    {
        view->treeView()->setCurrentIndex(valueOf(*view, name));
        QVERIFY(openEditor(*view));
        QCOMPARE(openEditor(*view)->geometry(), view->treeView()->visualRect(valueOf(*view, name)));
    }
    FakeNode &node(const char *name) { return *dynamic_cast<FakeNode *>(scene->map.GetNode(name)); }
    int writesTo(const char *name) { return node(name).accesses[Access::Write]; }
    QString valueText(const char *name) { return valueOf(*view, name).data().toString(); }

    std::unique_ptr<FeatureScene> scene;
    std::unique_ptr<MoxGui::MoxGenParamTreeView> view;
};

MOX_TEST_MAIN(TestGenParamDelegate)
#include "tst_genparamdelegate.moc"
