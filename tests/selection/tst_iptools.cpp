#include "datarow.h"
#include "selectorscene.h"
#include "testmain.h"

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QSignalSpy>
#include <QTimer>

using namespace MoxTest;
using Change = std::function<void(Scene &)>;
using Addresses = std::vector<std::uint32_t>;
Q_DECLARE_METATYPE(Change)
Q_DECLARE_METATYPE(Addresses)

namespace {

const QString noIp = "Set IP Address|Can't set IP address|OK"_s;
const QString noCamera = "Connect by IP Address|Can't connect by IP address|OK"_s;
const QString warning = "IP Configuration Warning|Specified IP Configuraion is not correct, camera may become "
                        "undiscoverable\nPress OK to skip the IP Configuration, or press Ignore to confirm|OK|Ignore"_s;

QString stored()
{
    return QSettings("Moxara"_s, "MoxCameraGuiApi"_s).value("CameraSelector/IPAddress"_s).toString();
}

bool waiting()
{
    return QGuiApplication::overrideCursor() && QGuiApplication::overrideCursor()->shape() == Qt::WaitCursor;
}

QLineEdit *field(const QWidget *window, const QString &name)
{
    return window->findChild<QLineEdit *>(name + "LineEdit"_s);
}

/**
 * Answers the modal windows and menus that open one after the other, as long as it lives. An answer is
 * "field=text button", either part of it alone, "first" for a menu's first entry, "press" for the same by a screen
 * reader, or nothing to close the window without a button; answers are parted by semicolons. It keeps what the windows
 * said and leaves none open, whatever a comparison in `before` finds.
 */
class ModalUser
{
public:
    explicit ModalUser(const QString &script) : answers(script.split(QLatin1Char(';'), QString::SkipEmptyParts))
    {
        QObject::connect(&timer, &QTimer::timeout, &timer, [this] { look(); });
        timer.start(0);
    }

    QStringList answers; // not given yet
    QStringList seen;
    std::function<void(QWidget *window)> before = [](QWidget *) {};

private:
    static QString wordsOf(QWidget *window)
    {
        if (const auto *menu = qobject_cast<QMenu *>(window))
            return menu->actions().first()->text();
        const auto *box = qobject_cast<QMessageBox *>(window);
        if (!box)
            return window->windowTitle();
        QStringList words{box->windowTitle(), box->text()};
        for (const auto button : {QMessageBox::Ok, QMessageBox::Ignore, QMessageBox::Cancel})
            if (box->standardButtons() & button)
                words << box->button(button)->text().remove(QLatin1Char('&'));
        return (box->icon() == QMessageBox::Critical ? QString() : "not critical: "_s) + words.join(QLatin1Char('|'));
    }
    static void answer(QWidget *window, const QString &text)
    {
        if (text == "first"_s) {
            QTest::keyClick(window, Qt::Key_Down);
            return QTest::keyClick(window, Qt::Key_Return);
        }
        if (text == "press"_s)
            return QAccessible::queryAccessibleInterface(window)->child(0)->actionInterface()->doAction(
                QAccessibleActionInterface::pressAction());
        const QStringList parts = text.split(QLatin1Char(' '));
        for (const QString &part : parts) {
            if (part.contains(QLatin1Char('='))) {
                QLineEdit *edit = field(window, part.section(QLatin1Char('='), 0, 0));
                edit->selectAll();
                QTest::keyClicks(edit, part.section(QLatin1Char('='), 1));
                continue;
            }
            const auto buttons = window->findChildren<QPushButton *>();
            for (QPushButton *button : buttons) {
                if (button->text().remove(QLatin1Char('&')) == part)
                    return button->click();
            }
        }
        if (auto *dialog = qobject_cast<QDialog *>(window))
            dialog->done(QDialog::Rejected);
        else
            window->close();
    }
    void look()
    {
        const QPointer<QWidget> window =
            QApplication::activePopupWidget() ? QApplication::activePopupWidget() : QApplication::activeModalWidget();
        if (!window || !window->isVisible() || window->inherits("MoxGui::MoxCameraSelectorDialog"))
            return;
        timer.stop(); // `before` may let events in
        seen << wordsOf(window);
        before(window);
        timer.start(); // an answer may open the next window
        if (window)
            answer(window, answers.isEmpty() ? QString() : answers.takeFirst());
    }

    QTimer timer;
};

} // namespace

class TestIpTools : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QSettings("Moxara"_s, "MoxCameraGuiApi"_s).clear(); }

    void forceIp_data()
    {
        columns<Change, QString, QStringList, Addresses>("change", "script", "windows", "forced");
        const QStringList dialog{"Set IP Address"_s};
        const auto fails = [&](const char *name, const Change &change) {
            row(name, change, "OK"_s, QStringList{noIp}, Addresses());
        };
        fails("nothing is current", [](Scene &s) { s.select({}); });
        fails("an interface", [](Scene &s) { s.select("G"_s); });
        fails("not GigE Vision", [](Scene &s) { s.select("u1"_s); });
        fails("no parameters", [](Scene &s) { s.gige->parametersError = -1; });
        fails("null parameters", [](Scene &s) { s.gige->parameters = nullptr; });
        fails("camera not selected", [](Scene &s) { s.gigeParams.refused = "DeviceSelector"; });
        for (int read = 1; read <= 7; ++read) // after the four that filled the panels
            fails(qPrintable("read %1"_s.arg(read)), [read](Scene &s) { s.gigeParams.failingRead = 4 + read; });
        const Change refuses = [](Scene &s) { s.g1->forceIpResult = -1; };
        row("camera refuses", refuses, "OK;OK"_s, dialog + QStringList{noIp}, Addresses{0xC0A80181, 0xFFFFFF00, 0});
        const Change above = [](Scene &s) { s.gigeParams.numbers["GevInterfaceSubnetIPAddress"] = {0xC0A80181}; };
        row("adapter 129", above, "OK"_s, dialog, Addresses{0xC0A80180, 0xFFFFFF00, 0}); // 128 is the scene's own
        const auto user = [&](const char *name, const QString &script, const QStringList &more, const Addresses &got) {
            row(name, Change([](Scene &) {}), script, dialog + more, got);
        };
        user("cancel a wrong one", "ipAddress=10.0.0.1 Cancel"_s, {}, {});
        user("OK abandons", "ipAddress=10.0.0.1 OK;OK"_s, {warning}, {});
        user("Ignore confirms", "ipAddress=10.0.0.1 OK;Ignore"_s, {warning}, {0x0A000001, 0xFFFFFF00, 0});
        user("no answer confirms nothing", "ipAddress=10.0.0.1 OK; "_s, {warning}, {});
        user("any gateway", "defaultGateway=8.8.8.8 OK"_s, {}, {0xC0A80181, 0xFFFFFF00, 0x08080808});
    }

    void forceIp()
    {
        Scene scene;
        scene.select("g1"_s);
        QFETCH(Change, change);
        QFETCH(QString, script);
        change(scene);
        bool waited = true;
        scene.g1->atForceIp = [&] { waited = waiting(); };
        ModalUser user(script);
        scene.d->deviceMenu->actions().first()->trigger();
        QTEST(user.seen, "windows");
        QVERIFY(user.answers.isEmpty());
        QTEST(scene.g1->forcedAddresses, "forced");
        QVERIFY(scene.dialog->isVisible() && scene.dialog->findChildren<QDialog *>().isEmpty());
        QVERIFY(waited && !QGuiApplication::overrideCursor());
    }

    void forceIpFromStartToEnd()
    {
        Scene scene;
        scene.select("g2"_s);
        scene.gigeParams.calls.clear();
        ModalUser user("OK"_s);
        user.before = [&](QWidget *window) {
            QStringList texts;
            for (const char *name :
                 {"nicMac", "nicIp", "nicSubnetMask", "macAddress", "ipAddress", "subnetMask", "defaultGateway"})
                texts << field(window, QLatin1String(name))->text();
            QCOMPARE(texts.join(QLatin1Char(' ')),
                     "00:1A:2B:3C:4D:5E 192.168.1.128 255.255.255.0 0A:00:00:00:00:FF 192.168.1.129 255.255.255.0 "
                     "192.168.1.1"_s);
            QCOMPARE(window->findChild<QLabel *>("ipStatusLabel"_s)->text(), "IP Configuration OK"_s);
            QCOMPARE(scene.gigeParams.calls.join(QLatin1Char(' ')),
                     "DeviceSelector=1 GevInterfaceMACAddress GevInterfaceSubnetIPAddress GevInterfaceSubnetMask "
                     "GevDeviceMACAddress GevInterfaceSubnetIPAddress GevInterfaceSubnetMask GevDeviceForceGateway"_s);
            QTest::keyClicks(window->focusWidget(), "77"_s); // replaces the host part
            scene.g2->ipAddress = "192.168.1.77";
            scene.g2->accessStatus = MoxCam::AccessSubnetMismatch;
        };
        scene.setIp->click();
        QCOMPARE(scene.g2->forcedAddresses, Addresses({0xC0A8014D, 0xFFFFFF00, 0xC0A80101}));
        QCOMPARE(Scene::value(scene.devicePanel, "IP Address"_s).data().toString(), "192.168.1.77"_s);
        QVERIFY(scene.ok->isEnabled()); // whatever the status reads now
    }

    // What the poll thread finds is shown while a dialog is open: the tree is a new one then.
    void treeRebuiltMeanwhile()
    {
        for (const bool gone : {false, true}) {
            Scene scene(true);
            scene.select("g2"_s);
            QSignalSpy reset(scene.model, &QAbstractItemModel::modelReset);
            ModalUser user("OK"_s);
            user.before = [&](QWidget *) {
                scene.gige->unplug(gone ? scene.g2 : scene.g1);
                QTRY_COMPARE(reset.count(), 1);
                scene.g2->userName = "moved";
            };
            scene.setIp->click();
            QCOMPARE(scene.g2->forcedAddresses, Addresses({0xC0A80181, 0xFFFFFF00, 0xC0A80101}));
            QVERIFY(scene.g1->forcedAddresses.empty());
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QCOMPARE(Scene::texts(scene.devicePanel).value(5), gone ? QString() : "User name: moved"_s);
            QCOMPARE(Scene::texts(scene.interfacePanel).value(0), "Description: Adapter"_s);
        }
        Scene scene(true);
        scene.select("G"_s);
        scene.gige->answersByIp = scene.g2;
        QSignalSpy reset(scene.model, &QAbstractItemModel::modelReset);
        ModalUser user("ipAddress=10.0.0.9 OK"_s);
        user.before = [&](QWidget *) {
            scene.system.unplug(scene.gige);
            QTRY_COMPARE(reset.count(), 1);
        };
        scene.d->interfaceMenu->actions().first()->trigger();
        QCOMPARE(scene.gige->askedIp, "10.0.0.9");
        QCOMPARE(scene.dialog->selectedCamera(), scene.g2);
        QCOMPARE(scene.dialog->result(), int(QDialog::Accepted));
    }

    void selectorDeletedMeanwhile_data()
    {
        columns<QString, QString>("item", "script"); // the selector goes with the last window
        row("Set IP dialog", "g1"_s, "OK"_s);
        row("warning", "g1"_s, "ipAddress=10.0.0.1 OK;Ignore"_s);
        row("refusal", "g1"_s, "OK;OK"_s);
        row("Connect dialog", "G"_s, "OK"_s);
        row("no camera", "G"_s, "OK;OK"_s);
    }

    void selectorDeletedMeanwhile()
    {
        QFETCH(QString, item);
        QFETCH(QString, script);
        for (const QString &entry : {QString(), "first;"_s, "press;"_s}) {
            Scene scene;
            scene.select(item);
            scene.g1->forceIpResult = -1;
            ModalUser user(entry + script);
            user.before = [&](QWidget *) {
                if (user.answers.size() == 1)
                    scene.dialog.reset();
            };
            if (!entry.isEmpty())
                openMenu(scene, scene.tree->visualRect(scene.tree->currentIndex()).center());
            else if (item == "G"_s)
                scene.d->interfaceMenu->actions().first()->trigger();
            else
                scene.setIp->click();
            QVERIFY(!scene.dialog);
            QCOMPARE(user.answers.size(), 1);
            QVERIFY(scene.g1->forcedAddresses.size() == (script == "OK;OK"_s && item == "g1"_s ? 3u : 0u));
        }
    }

    // One selector through all that can happen to it.
    void connectByIp()
    {
        Scene scene;
        const auto run = [&](const char *id, const char *script, const QStringList &windows) {
            scene.dialog->show();
            scene.select(QString::fromLatin1(id));
            scene.gige->askedIp = "unasked";
            ModalUser user(QString::fromLatin1(script));
            QString offered;
            user.before = [&](QWidget *window) {
                if (const auto *edit = window->findChild<QLineEdit *>())
                    offered = edit->text();
            };
            scene.d->interfaceMenu->actions().first()->trigger();
            if (user.seen != windows || !user.answers.isEmpty())
                return user.seen.join(QLatin1Char(';'));
            return "%1, asked %2, stored %3"_s.arg(offered, QString::fromStdString(scene.gige->askedIp), stored());
        };
        const QStringList dialog = {"Connect by IP Address"_s};
        const QStringList failed = dialog + QStringList{noCamera};
        for (const char *wrong : {"", "g1", "U"})
            QCOMPARE(run(wrong, "OK", {noCamera}), ", asked unasked, stored "_s);
        QCOMPARE(run("G", "OK;OK", failed), ", asked , stored "_s); // nothing in the field is passed on

        scene.gige->answersByIp = scene.g2;
        QString storedBefore;
        bool waited = false;
        scene.gige->atConnect = [&] {
            storedBefore = stored();
            waited = waiting();
        };
        QCOMPARE(run("G", "ipAddress=10.0.0.9 OK", dialog), ", asked 10.0.0.9, stored 10.0.0.9"_s);
        QCOMPARE(storedBefore, "10.0.0.9"_s);
        QVERIFY(waited && !QGuiApplication::overrideCursor());
        QVERIFY(!scene.dialog->isVisible());
        QCOMPARE(scene.dialog->result(), int(QDialog::Accepted));
        scene.select("g1"_s);
        QCOMPARE(scene.dialog->selectedCamera(), scene.g2); // it wins over the tree

        QCOMPARE(run("G", "ipAddress=10.0.0.8 Cancel", dialog), "10.0.0.9, asked unasked, stored 10.0.0.9"_s);
        QCOMPARE(scene.dialog->selectedCamera(), scene.g2);
        scene.gige->answersByIp = nullptr;
        QCOMPARE(run("G", "ipAddress=10.0.0.007 OK;OK", failed), "10.0.0.9, asked 10.0.0.007, stored 10.0.0.007"_s);
        QVERIFY(scene.dialog->isVisible());
        QVERIFY(!scene.dialog->selectedCamera()); // the failed attempt takes back the camera found before
    }

    void contextMenu()
    {
        Scene scene;
        const std::pair<const char *, QString> table[] = {
            {"G", "Connect by IP Address"_s}, {"g1", "Set IP Address"_s}, {"U", {}}, {"u1", {}}, {"", {}}};
        for (const auto &[id, action] : table) {
            const QModelIndex index = scene.model->getItemIdx(QString::fromLatin1(id));
            const QPoint pos =
                index.isValid() ? scene.tree->visualRect(index).center() : scene.tree->viewport()->rect().bottomLeft();
            ModalUser user({});
            user.before = [&](QWidget *menu) { QCOMPARE(menu->pos(), scene.tree->mapToGlobal(pos)); };
            if (action.isEmpty())
                Q_EMIT scene.tree->customContextMenuRequested(pos);
            else
                openMenu(scene, pos);
            QCOMPARE(user.seen.join(QString()), action);
        }
        ModalUser user({});
        user.before = [&](QWidget *) { scene.dialog.reset(); };
        openMenu(scene, scene.tree->visualRect(scene.model->getItemIdx("g1"_s)).center());
        QVERIFY(!scene.dialog);
    }

private:
    static void openMenu(const Scene &scene, const QPoint &pos)
    {
        for (const char *noise :
             {"This plugin does not support raise()", "This plugin does not support grabbing the keyboard"})
            QTest::ignoreMessage(QtWarningMsg, noise);
        Q_EMIT scene.tree->customContextMenuRequested(pos);
    }
};

MOX_TEST_MAIN(TestIpTools)
#include "tst_iptools.moc"
