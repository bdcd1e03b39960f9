#include "console.h"
#include "datarow.h"
#include "fakeparams.h"
#include "fakesdk.h"
#include "testmain.h"

#include <QLineEdit>
#include <QPointer>
#include <QSettings>
#include <QTimer>

#include <thread>

using namespace MoxTest;

enum { Short = -1, Null = -2 }; // broken events; others are the last number of an address

struct World
{
    World()
    {
        system.add("U", "USB", MoxCam::InterfaceUsb3Vision);
        for (int i = 0; i < 2; ++i) {
            ifaces[i] = system.add("G", "Größe");
            ifaces[i]->parameters = &params[i];
            params[i].commands["GevAction"] = [] {};
        }
    }
    /** What the SDK does with acknowledgements of the first interface. */
    void answer(const QVector<int> &events)
    {
        for (const int event : events) {
            const uchar data[] = {254, 0, 10, uchar(event), 0};
            ifaces[0]->subscriptions.find(1005)->second(event == Null ? nullptr : data, event == Short ? 4 : 5);
        }
    }

    FakeSystem system;
    FakeParams params[2];
    FakeInterface *ifaces[2];
};

class TestActionDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void countsOverAllSends() // first: the count begins with the process
    {
        enum Answers { AtOnce, WhileItWaits, Afterwards };
        const struct
        {
            int cntWait;
            Answers answers;
            QVector<int> events;
            const char *log;
        } sends[] = {
            {2, AtOnce, {Short, Null, 1}, "[OK] 254.0.10.1\n..."},
            {2, WhileItWaits, {2}, "[OK] 254.0.10.2\n"},
            {2, Afterwards, {255}, ""}, // that many have come before: no waiting
            {4, AtOnce, {5, 5}, "[OK] 254.0.10.5\n[OK] 254.0.10.5\n"}, // one more than awaited
            {6, Afterwards, {1}, "..."}, // too late for this one, and counts for the next
            {6, AtOnce, {}, ""},
        };
        World world;
        for (const auto &send : sends) {
            std::thread sdk;
            world.params[0].commands["GevAction"] = [&] {
                if (send.answers == WhileItWaits)
                    sdk = std::thread([&] {
                        std::this_thread::sleep_for(std::chrono::milliseconds(250));
                        world.answer(send.events);
                    });
                else if (send.answers == AtOnce)
                    world.answer(send.events);
            };
            const QString log = Console(&world.system, 1).send(send.cntWait); // a new dialog each time
            if (sdk.joinable())
                sdk.join();
            if (send.answers == Afterwards)
                world.answer(send.events);
            QCOMPARE(log, QLatin1String(send.log));
        }
        QCOMPARE(world.ifaces[0]->subscriptions.count(1005), 6u);
        for (const int i : {0, 1}) // one after the other
            world.params[i].commands["GevAction"] = [&world, i] { world.answer({i}); };
        QCOMPARE(Console(&world.system, 2).send(1), QStringLiteral("[OK] 254.0.10.0\n[OK] 254.0.10.1\n"));
    }

    void settings_data()
    {
        columns<QByteArray, QByteArray>("stored", "sent"); // in the order of the keys and of the calls in settings()
        row("nothing", "", "0 5 7 4294967295 0 0 1");
        row("all", "0xffffffff 0x8 0x1 1 1 3 4294967296", "129 4294967295 8 1 1 0 3");
        row("empty", "0x 0x 0x 1 0 1 ", "1 0 0 0 0 0 1");
        row("unused time", "0x0 0x0 0x0 0 0 2 4294967295", "0 0 0 0 0 4294967295 2");
    }

    void settings()
    {
        QFETCH(QByteArray, stored);
        QFETCH(QByteArray, sent);
        QStringList keys;
        for (const char *key : {"devKey", "groupKey", "groupMask", "reqAck", "scheduled", "cntWaitAck", "sTime"})
            keys << QStringLiteral("MoxCameraActionDialog/") + QLatin1String(key);
        const QTemporaryDir dir;
        QSettings settings(dir.filePath(QStringLiteral("s.ini")), QSettings::IniFormat);
        for (int i = 0; !stored.isEmpty() && i < keys.size(); ++i)
            settings.setValue(keys[i], stored.split(' ')[i]);
        World world;
        auto console = std::make_unique<Console>(&world.system, 1, &settings);
        console->findChild<QPushButton *>()->click();
        QString calls =
            QStringLiteral("ActionFlags=%1 ActionDevKey=%2 ActionGroupKey=%3 ActionGroupMask=%4 ActionTimeHi=%5 "
                           "ActionTimeLo=%6 CntWaitActionAcks=%7 GevAction()"); // though each write was refused
        for (const QByteArray &value : sent.split(' '))
            calls = calls.arg(QLatin1String(value));
        QCOMPARE(world.params[0].calls.join(QLatin1Char(' ')), calls);
        QVERIFY(world.params[1].calls.isEmpty());
        settings.clear();
        console.reset();
        QByteArrayList saved;
        for (const QString &key : keys)
            saved << settings.value(key).toByteArray();
        QCOMPARE(saved.join(' '), stored.isEmpty() ? QByteArray("0x5 0x7 0xFFFFFFFF 0 0 1 0") : stored);
    }

    void listsAndPassesOver()
    {
        World world;
        Console console(&world.system, 2);
        QVERIFY(!console.LoadStateFromGlobalSettings() && !console.SaveStateToGlobalSettings());
        QCOMPARE(console.findChild<QLineEdit *>(QStringLiteral("leScheduledTime"))->text(), QString());
        QVERIFY(console.rows->count() == 2 && console.rows->item(1)->text() == QStringLiteral("Größe"));
        world.params[0].commands.clear(); // written to, but there is nothing to execute
        world.ifaces[1]->parametersError = MoxCamError::GenTLNotAvailable;
        console.log->setPlainText(QStringLiteral("old"));
        QCOMPARE(console.send(1), QString());
        world.ifaces[1]->parametersError = MoxCamError::Success; // with null
        world.ifaces[1]->parameters = nullptr;
        console.send(1);
        QCOMPARE(world.params[0].calls.size(), 14);
        QVERIFY(world.ifaces[0]->subscriptions.empty() && world.ifaces[1]->subscriptions.empty());
        world.system.interfaceLists = ListAnswer::Null;
        QVERIFY(Console(&world.system, 0).rows->count() == 0 && world.system.openLists == 0);
    }

    void deletedWhileSending()
    {
        World world;
        const QPointer<Console> console = new Console(&world.system, 2);
        QTimer::singleShot(0, console, [=] { delete console; });
        console->findChild<QPushButton *>()->click();
        QVERIFY(!console);
        QVERIFY(!world.params[0].calls.isEmpty());
        QVERIFY(world.params[1].calls.isEmpty());
        world.answer({1}); // to nobody
    }
};

MOX_TEST_MAIN(TestActionDialog)
#include "tst_actiondialog.moc"
