#include "selectorscene.h"
#include "testmain.h"

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>

using namespace MoxTest;
using Change = std::function<void(Scene &)>;
using Addresses = std::vector<std::uint32_t>;
Q_DECLARE_METATYPE(Change)
Q_DECLARE_METATYPE(Addresses)

namespace {

const QString noIp = "Set IP Address|Can't set IP address|Ok"_s;
const QString noCamera = "Connect by IP Address|Can't connect by IP address|Ok"_s;
const QString warning = "IP Configuration Warning|Specified IP Configuraion is not correct, camera may become "
                        "undiscoverable\nPress OK to skip the IP Configuration, or press Ignore to confirm|Ok Ignore"_s;

/**
 * Answers the modal windows and menus that open one after the other. An answer is "field=text button", either part of
 * it alone, or nothing to close the window without a button. Keeps what the windows said.
 */
class User
{
public:
    explicit User(const QString &script) : answers(script.split(QLatin1Char(';'), Qt::SkipEmptyParts))
    {
        QObject::connect(&timer, &QTimer::timeout, &timer, [this] { look(); });
        timer.start(0);
    }

    QStringList answers; // not given yet
    QStringList seen;
    std::function<void(QWidget *window)> before = [](QWidget *) {};

private:
    void look()
    {
        QWidget *window = QApplication::activePopupWidget();
        if (!window)
            window = QApplication::activeModalWidget();
        if (!window || !window->isVisible() || window->inherits("MoxGui::MoxCameraSelectorDialog"))
            return;
        auto *dialog = qobject_cast<QDialog *>(window);
        if (const auto *menu = qobject_cast<QMenu *>(window)) {
            seen << menu->actions().first()->text();
        } else if (const auto *box = qobject_cast<QMessageBox *>(window)) {
            QCOMPARE(box->icon(), QMessageBox::Critical);
            seen << box->windowTitle() + QLatin1Char('|') + box->text() + "|Ok"_s
                    + (box->standardButtons() == QMessageBox::Ok ? QString() : " Ignore"_s);
        } else {
            seen << window->windowTitle();
        }
        before(window);
        const QStringList answer = answers.isEmpty() ? QStringList() : answers.takeFirst().split(QLatin1Char(' '));
        for (const QString &part : answer) {
            if (part.contains(QLatin1Char('='))) {
                auto *edit = window->findChild<QLineEdit *>(part.section(QLatin1Char('='), 0, 0) + "LineEdit"_s);
                edit->selectAll();
                QTest::keyClicks(edit, part.section(QLatin1Char('='), 1));
            } else if (!part.isEmpty()) {
                for (QPushButton *button : window->findChildren<QPushButton *>()) {
                    if (button->text().remove(QLatin1Char('&')) == part)
                        return button->click();
                }
            }
        }
        dialog ? dialog->done(QDialog::Rejected) : static_cast<void>(window->close());
    }

    QTimer timer;
};

} // namespace

class TestIpTools : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir home;

    static QString stored()
    {
        return QSettings("Moxara"_s, "MoxCameraGuiApi"_s).value("CameraSelector/IPAddress"_s).toString();
    }

private Q_SLOTS:
    // Nobody's own settings are touched.
    void init()
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home.path());
        QSettings settings("Moxara"_s, "MoxCameraGuiApi"_s);
        QCOMPARE(settings.fileName(), home.filePath("Moxara/MoxCameraGuiApi.conf"_s));
        settings.clear();
    }

    void forceIp_data()
    {
        QTest::addColumn<Change>("change");
        QTest::addColumn<QString>("script");
        QTest::addColumn<QStringList>("windows");
        QTest::addColumn<Addresses>("forced");
        const QStringList dialog = {"Set IP Address"_s};
        const QStringList warned = dialog + QStringList{warning};
        const auto row = [](const QString &name, const Change &change, const char *script, const QStringList &windows,
                            Addresses forced = {}) {
            QTest::newRow(qPrintable(name)) << change << QString::fromLatin1(script) << windows << forced;
        };
        const auto fails = [&](const QString &name, const Change &change) { row(name, change, "OK", {noIp}); };
        fails("nothing is current"_s, [](Scene &s) { s.select({}); });
        fails("an interface"_s, [](Scene &s) { s.select("G"_s); });
        fails("not GigE Vision"_s, [](Scene &s) { s.select("u1"_s); });
        fails("no parameters"_s, [](Scene &s) { s.gige->parametersError = -1; });
        fails("null parameters"_s, [](Scene &s) { s.gige->parameters = nullptr; });
        fails("camera not selected"_s, [](Scene &s) { s.gigeParams.refused = "DeviceSelector"; });
        for (int read = 1; read <= 7; ++read)
            fails("read %1"_s.arg(read), [read](Scene &s) {
                s.gigeParams.failingRead = 4 + read; // four filled the panels
            });
        row("camera refuses"_s, [](Scene &s) { s.g1->forceIpResult = -1; }, "OK;OK", dialog + QStringList{noIp},
            {0xC0A80181, 0xFFFFFF00, 0});
        const std::pair<unsigned, unsigned> proposals[] = {{0, 1},     {1, 2},     {127, 128}, {128, 129},
                                                           {129, 128}, {130, 129}, {254, 253}, {255, 254}};
        for (const auto &[adapter, camera] : proposals) {
            const std::int64_t address = 0xC0A80100 + adapter;
            row("adapter %1"_s.arg(adapter),
                [address](Scene &s) { s.gigeParams.numbers["GevInterfaceSubnetIPAddress"] = {address}; }, "OK", dialog,
                {0xC0A80100 + camera, 0xFFFFFF00, 0});
        }
        const auto answers = [&](const char *name, const char *script, const QStringList &windows,
                                 const Addresses &forced = {}) {
            row(
                QString::fromLatin1(name), [](Scene &) {}, script, windows, forced);
        };
        answers("cancel", "Cancel", dialog);
        answers("cancel a wrong one", "ipAddress=10.0.0.1 Cancel", dialog);
        answers("OK abandons", "ipAddress=10.0.0.1 OK;OK", warned);
        answers("Ignore confirms", "ipAddress=10.0.0.1 OK;Ignore", warned, {0x0A000001, 0xFFFFFF00, 0});
        answers("no answer confirms nothing", "ipAddress=10.0.0.1 OK; ", warned);
        answers("mask", "subnetMask=255.255.0.0 OK;Ignore", warned, {0xC0A80181, 0xFFFF0000, 0});
        answers("any gateway", "defaultGateway=8.8.8.8 OK", dialog, {0xC0A80181, 0xFFFFFF00, 0x08080808});
    }

    void forceIp()
    {
        Scene scene;
        scene.select("g1"_s);
        QFETCH(Change, change);
        QFETCH(QString, script);
        change(scene);
        User user(script);
        scene.d->deviceMenu->actions().first()->trigger();
        QTEST(user.seen, "windows");
        QVERIFY(user.answers.isEmpty());
        QTEST(scene.g1->forcedAddresses, "forced");
        QVERIFY(scene.dialog->isVisible());
    }

    void forceIpFromStartToEnd()
    {
        Scene scene;
        scene.select("g2"_s);
        scene.gigeParams.calls.clear();
        User user("OK"_s);
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

    // The poll thread's find is shown while the dialog is open: the tree is a new one then.
    void treeRebuiltMeanwhile()
    {
        for (const bool gone : {false, true}) {
            Scene scene;
            scene.select("g2"_s);
            User user("OK"_s);
            user.before = [&](QWidget *) {
                scene.gige->unplug(gone ? scene.g2 : scene.g1);
                QVERIFY(scene.d->model->checkNew());
                scene.d->changed = true;
                scene.d->forwarder.onSystemChanged();
                scene.g2->userName = "moved";
            };
            scene.setIp->click();
            QCOMPARE(scene.g2->forcedAddresses, Addresses({0xC0A80181, 0xFFFFFF00, 0xC0A80101}));
            QVERIFY(scene.g1->forcedAddresses.empty());
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QCOMPARE(Scene::texts(scene.devicePanel).value(5), gone ? QString() : "User name: moved"_s);
            QCOMPARE(Scene::texts(scene.interfacePanel).value(0), "Description: Adapter"_s);
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
            User user(QString::fromLatin1(script));
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
        scene.gige->atConnect = [&] { storedBefore = stored(); };
        QCOMPARE(run("G", "ipAddress=10.0.0.9 OK", dialog), ", asked 10.0.0.9, stored 10.0.0.9"_s);
        QCOMPARE(storedBefore, "10.0.0.9"_s);
        QVERIFY(!scene.dialog->isVisible());
        QCOMPARE(scene.dialog->result(), int(QDialog::Accepted));
        scene.select("g1"_s);
        QCOMPARE(scene.dialog->selectedCamera(), scene.g2); // it wins over the tree

        QCOMPARE(run("G", "ipAddress=10.0.0.8 Cancel", dialog), "10.0.0.9, asked unasked, stored 10.0.0.9"_s);
        QCOMPARE(scene.dialog->selectedCamera(), scene.g2);
        scene.gige->answersByIp = nullptr;
        QCOMPARE(run("G", "ipAddress=10.0.0.7 OK;OK", failed), "10.0.0.9, asked 10.0.0.7, stored 10.0.0.7"_s);
        QVERIFY(scene.dialog->isVisible());
        QVERIFY(!scene.dialog->selectedCamera()); // the failed attempt takes back the camera found before
    }

    void contextMenu()
    {
        Scene scene;
        const std::pair<const char *, QString> table[] = {
            {"G", "Connect by IP Address"_s}, {"g1", "Set IP Address"_s}, {"U", {}}, {"u1", {}}, {"", {}}};
        for (const auto &[id, action] : table) {
            const QModelIndex index = scene.d->model->getItemIdx(QString::fromLatin1(id));
            const QPoint pos =
                index.isValid() ? scene.tree->visualRect(index).center() : scene.tree->viewport()->rect().bottomLeft();
            User user({});
            user.before = [&](QWidget *menu) { QCOMPARE(menu->pos(), scene.tree->mapToGlobal(pos)); };
            for (const char *noise :
                 {"This plugin does not support raise()", "This plugin does not support grabbing the keyboard"}) {
                if (!action.isEmpty())
                    QTest::ignoreMessage(QtWarningMsg, noise);
            }
            Q_EMIT scene.tree->customContextMenuRequested(pos);
            QCOMPARE(user.seen.join(QString()), action);
        }
    }
};

MOX_TEST_MAIN(TestIpTools)
#include "tst_iptools.moc"
