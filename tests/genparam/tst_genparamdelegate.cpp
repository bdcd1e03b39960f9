// Editors in a tree on the screen, with keys and clicks.
#include "genparamdelegate.h"
#include "testmain.h"
#include "treescene.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QStandardItemModel>

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
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("way");
        QTest::addColumn<QString>("expected");
        for (const char *way : {"return", "click", "tab", "filter field"}) {
            const auto row = [way](const char *name, const char *text, const char *expected) {
                QTest::addRow("%s by %s", name, way) << QByteArray(name) << QString::fromUtf8(text)
                                                     << QString::fromUtf8(way) << QString::fromUtf8(expected);
            };
            row("Width", "42", "42");
            row("User", "a b", "a b");
            row("GevSCDA", "10.1.2.3", "10.1.2.3");
            row("GevMACAddress", "171", "00:00:00:00:00:AB");
        }
        QTest::newRow("escape") << QByteArray("User") << QStringLiteral("x") << QStringLiteral("escape") << QString();
        QTest::newRow("no address") << QByteArray("GevSCDA") << QStringLiteral("10.") << QStringLiteral("click")
                                    << QStringLiteral("0.0.0.0");
    }

    void typing()
    {
        QFETCH(QByteArray, name);
        QFETCH(QString, text);
        QFETCH(QString, way);
        auto &node = *dynamic_cast<FakeNode *>(scene->map.GetNode(name.constData()));
        edit(name);
        QWidget *editor = openEditor(*view);
        QMetaObject::invokeMethod(editor, "selectAll");
        QTest::keyClicks(editor, text);
        QCOMPARE(node.accesses[Access::Write], 0);
        if (way == QLatin1String("return"))
            QTest::keyClick(editor, Qt::Key_Return);
        else if (way == QLatin1String("escape"))
            QTest::keyClick(editor, Qt::Key_Escape);
        else if (way == QLatin1String("tab"))
            QTest::keyClick(editor, Qt::Key_Tab);
        else if (way == QLatin1String("click"))
            clickCell(*view, valueOf(*view, "Other").sibling(valueOf(*view, "Other").row(), 0));
        else
            clickAt(view->findChild<QLineEdit *>(QStringLiteral("filterLineEdit")), {60, 10});
        QTRY_VERIFY(openEditor(*view) != editor);
        QTEST(valueText(name), "expected");
        QCOMPARE(node.accesses[Access::Write], way == QLatin1String("escape") || text == QLatin1String("10.") ? 0 : 1);
        // The click that ends the edit still selects.
        if (way == QLatin1String("click"))
            QCOMPARE(view->treeView()->currentIndex().row(), valueOf(*view, "Other").row());
    }

    void clickInside()
    {
        edit("User");
        auto *editor = openEditor<QLineEdit>(*view);
        clickAt(editor, {5, 5});
        clickAt(editor, {9, 5});
        QCOMPARE(openEditor(*view), editor);
        QVERIFY(editor->hasFocus());
        editor->setText(QStringLiteral("a"));
        clickAt(view->treeView()->viewport(), QPoint(5, view->treeView()->viewport()->height() - 5));
        QCOMPARE(scene->user.value, gcstring("a"));
        QVERIFY(!openEditor(*view));
    }

    void choosing_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QString>("expected");
        QTest::newRow("boolean") << QByteArray("Reverse") << QStringLiteral("True");
        QTest::newRow("enumeration") << QByteArray("Mode") << QStringLiteral("On");
        QTest::newRow("list") << QByteArray("Binning") << QStringLiteral("2");
    }

    void choosing()
    {
        QFETCH(QByteArray, name);
        QFETCH(QString, expected);
        auto &node = *dynamic_cast<FakeNode *>(scene->map.GetNode(name.constData()));
        const QString before = valueText(name);
        edit(name);
        auto *combo = openEditor<QComboBox>(*view);
        QCOMPARE(combo->currentText(), before);
        combo->setCurrentIndex(combo->currentIndex()); // no change, no commit
        QCOMPARE(openEditor(*view), combo);
        QTest::keyClick(combo, name == "Reverse" ? Qt::Key_Up : Qt::Key_Down);
        QCOMPARE(node.accesses[Access::Write], 1);
        QVERIFY(!openEditor(*view));
        QCOMPARE(valueText(name), expected);
    }

    void commands()
    {
        edit("Start");
        auto *button = openEditor<QPushButton>(*view);
        for (int clicks : {1, 2}) {
            clickAt(button, {20, 10});
            QCOMPARE(scene->start.executions, clicks);
            QVERIFY(!button->isWindowModified());
            QCOMPARE(openEditor(*view), button);
        }
        clickCell(*view, valueOf(*view, "Other"));
        QCOMPARE(scene->start.executions, 2); // the lost focus commits, but a command takes a click
        QCOMPARE(openEditor<QPushButton>(*view), nullptr);
    }

    void arrivals_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("shown"); // by the editor; of a closed one nothing
        QTest::addColumn<int>("writes"); // that the arrival causes
        QTest::newRow("integer") << QByteArray("Width") << QStringLiteral("7") << QStringLiteral("7") << 0;
        QTest::newRow("string") << QByteArray("User") << QStringLiteral("b") << QStringLiteral("b") << 0;
        QTest::newRow("address") << QByteArray("GevSCDA") << QStringLiteral("16909060") << QStringLiteral("1.2.3.4")
                                 << 0;
        QTest::newRow("MAC address") << QByteArray("GevMACAddress") << QStringLiteral("5") << QStringLiteral("0") << 0;
        // A combo box commits what it is changed to, also when the device changes it.
        QTest::newRow("boolean") << QByteArray("Reverse") << QStringLiteral("true") << QString() << 1;
        QTest::newRow("enumeration") << QByteArray("Mode") << QStringLiteral("On") << QString() << 1;
        QTest::newRow("list") << QByteArray("Binning") << QStringLiteral("4") << QString() << 1;
        QTest::newRow("command") << QByteArray("Start") << QString() << QStringLiteral("Execute") << 0;
    }

    void arrivals()
    {
        QFETCH(QByteArray, name);
        QFETCH(QString, value);
        auto &node = *dynamic_cast<FakeNode *>(scene->map.GetNode(name.constData()));
        edit(name);
        if (name == "Start")
            node.changed();
        else
            node.FromString(value.toUtf8().constData(), true);
        QWidget *editor = openEditor(*view);
        const auto *spinBox = qobject_cast<QAbstractSpinBox *>(editor);
        QTEST(spinBox ? spinBox->text() : editor ? editor->property("text").toString() : QString(), "shown");
        QFETCH(int, writes);
        QCOMPARE(node.accesses[Access::Write], (name == "Start" ? 0 : 1) + writes);
        QCOMPARE(bool(editor), writes == 0);
    }

    void withoutControl()
    {
        edit("Blob"); // a register has no control of its own
        QTest::keyClicks(openEditor(*view), QStringLiteral("1"));
        clickCell(*view, valueOf(*view, "Start"));
        QCOMPARE(scene->blob.accesses[Access::Write], 0);
        QVERIFY(!view->treeView()->model()->setData(valueOf(*view, "Blob"), 1));
        // An entry that is not in the list leaves the box empty, and leaving an empty box writes nothing.
        scene->mode.value = 9;
        edit("Mode");
        QCOMPARE(openEditor<QComboBox>(*view)->currentIndex(), -1);
        clickCell(*view, valueOf(*view, "Other"));
        QCOMPARE(openEditor<QComboBox>(*view), nullptr);
        QCOMPARE(scene->mode.accesses[Access::Write], 0);
    }

    void doubles()
    {
        const GenParamDelegate delegate(nullptr);
        QStandardItemModel items(1, 1);
        const QModelIndex index = items.index(0, 0);
        items.setData(index, 1.5, Qt::EditRole);
        QDoubleSpinBox box;
        delegate.setEditorData(&box, index);
        QCOMPARE(box.value(), 1.5);
        box.setValue(2.25);
        delegate.setModelData(&box, &items, index);
        QCOMPARE(index.data(Qt::EditRole), QVariant(2.25));
    }

private:
    void edit(const char *name)
    {
        view->treeView()->setCurrentIndex(valueOf(*view, name));
        QVERIFY(openEditor(*view));
        QCOMPARE(openEditor(*view)->geometry(), view->treeView()->visualRect(valueOf(*view, name)));
    }
    QString valueText(const char *name) { return valueOf(*view, name).data().toString(); }

    std::unique_ptr<FeatureScene> scene;
    std::unique_ptr<MoxGui::MoxGenParamTreeView> view;
};

MOX_TEST_MAIN(TestGenParamDelegate)
#include "tst_genparamdelegate.moc"
