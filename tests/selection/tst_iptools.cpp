#include "modaluser.h"
#include "selectorscene.h"
#include "testmain.h"

#include <QLabel>
#include <QSignalSpy>

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

} // namespace

class TestIpTools : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QSettings("Moxara"_s, "MoxCameraGuiApi"_s).clear(); }

    void forceIp_data()
    {
        QTest::addColumn<Change>("change");
        QTest::addColumn<QString>("script");
        QTest::addColumn<QStringList>("windows");
        QTest::addColumn<Addresses>("forced");
        const QStringList dialog = {"Set IP Address"_s};
        const QStringList warned = dialog + QStringList{warning};
        const auto row = [](const QString &name, const Change &change, const char *script, const QStringList &windows,
                            const Addresses &forced = {}) {
            QTest::newRow(qPrintable(name)) << change << QString::fromLatin1(script) << windows << forced;
        };
        const auto fails = [&](const QString &name, const Change &change) { row(name, change, "OK", {noIp}); };
        fails("nothing is current"_s, [](Scene &s) { s.select({}); });
        fails("an interface"_s, [](Scene &s) { s.select("G"_s); });
        fails("not GigE Vision"_s, [](Scene &s) { s.select("u1"_s); });
        fails("no parameters"_s, [](Scene &s) { s.gige->parametersError = -1; });
        fails("null parameters"_s, [](Scene &s) { s.gige->parameters = nullptr; });
        fails("camera not selected"_s, [](Scene &s) { s.gigeParams.refused = "DeviceSelector"; });
        for (int read = 1; read <= 7; ++read) // after the four that filled the panels
            fails("read %1"_s.arg(read), [read](Scene &s) { s.gigeParams.failingRead = 4 + read; });
        const Change refuses = [](Scene &s) { s.g1->forceIpResult = -1; };
        row("camera refuses"_s, refuses, "OK;OK", dialog + QStringList{noIp}, {0xC0A80181, 0xFFFFFF00, 0});
        const std::pair<unsigned, unsigned> proposals[] = {{0, 1},     {1, 2},     {127, 128}, {128, 129},
                                                           {129, 128}, {130, 129}, {254, 253}, {255, 254}};
        for (const auto &[adapter, camera] : proposals) {
            const std::int64_t address = 0xC0A80100 + adapter;
            row("adapter %1"_s.arg(adapter),
                [address](Scene &s) { s.gigeParams.numbers["GevInterfaceSubnetIPAddress"] = {address}; }, "OK", dialog,
                {0xC0A80100 + camera, 0xFFFFFF00, 0});
        }
        const Change none = [](Scene &) {};
        row("cancel"_s, none, "Cancel", dialog);
        row("cancel a wrong one"_s, none, "ipAddress=10.0.0.1 Cancel", dialog);
        row("OK abandons"_s, none, "ipAddress=10.0.0.1 OK;OK", warned);
        row("Ignore confirms"_s, none, "ipAddress=10.0.0.1 OK;Ignore", warned, {0x0A000001, 0xFFFFFF00, 0});
        row("no answer confirms nothing"_s, none, "ipAddress=10.0.0.1 OK; ", warned);
        row("mask"_s, none, "subnetMask=255.255.0.0 OK;Ignore", warned, {0xC0A80181, 0xFFFF0000, 0});
        row("any gateway"_s, none, "defaultGateway=8.8.8.8 OK", dialog, {0xC0A80181, 0xFFFFFF00, 0x08080808});
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
        QVERIFY(scene.dialog->isVisible());
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
                texts << window->findChild<QLineEdit *>(QLatin1String(name) + "LineEdit"_s)->text();
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
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("script"); // the selector goes with the last window
        QTest::newRow("Set IP dialog") << "g1"
                                       << "OK";
        QTest::newRow("warning") << "g1"
                                 << "ipAddress=10.0.0.1 OK;Ignore";
        QTest::newRow("refusal") << "g1"
                                 << "OK;OK";
        QTest::newRow("Connect dialog") << "G"
                                        << "OK";
        QTest::newRow("no camera") << "G"
                                   << "OK;OK";
    }

    void selectorDeletedMeanwhile()
    {
        QFETCH(QString, item);
        QFETCH(QString, script);
        for (const bool fromMenu : {false, true}) {
            Scene scene;
            scene.select(item);
            scene.g1->forceIpResult = -1;
            ModalUser user(fromMenu ? "first;"_s + script : script);
            user.before = [&](QWidget *) {
                if (user.answers.size() == 1)
                    scene.dialog.reset();
            };
            if (fromMenu)
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
