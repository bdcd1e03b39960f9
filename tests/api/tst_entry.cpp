#include "datarow.h"
#include "drive.h"
#include "moxcameraguiapi.h"
#include "moxcameraselectordialog.h"
#include "testmain.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

using namespace MoxTest;

int qInitResources_moxcameraguiapi();
int qCleanupResources_moxcameraguiapi();

/** Starts without an application object. */
class TestEntry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(runtimeDir.isValid());
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtimeDir.path()));
        dropPlatformNoise();
    }

    void makesOneApplication()
    {
        QVERIFY(!QCoreApplication::instance());
        const QCoreApplication *made = nullptr;
        for (int call = 0; call < 2; ++call) {
            bool seen = false;
            atNextDialog(system, [&seen](QDialog *dialog) {
                seen = true;
                dialog->reject();
            });
            QCOMPARE(SelectCameraA(&system, nullptr, 0, false), nullptr);
            QVERIFY(seen);
            made = made ? made : QCoreApplication::instance();
            QVERIFY(qobject_cast<const QApplication *>(made) && made == QCoreApplication::instance());
        }
        QCOMPARE(made->thread(), QThread::currentThread());
    }

    void leavesOtherApplicationAlone()
    {
        QCOMPARE(QProcess::execute(QStringLiteral("/proc/self/exe"), {QStringLiteral("--core-application")}), 42);
    }

    void titles_data()
    {
        columns<QByteArray, QVector<uint>, QString>("narrow", "wide", "expected");
        row("null", QByteArray(), QVector<uint>(), QString());
        row("beyond 16 bits", "\xf0\x9f\x93\xb7ß", QVector<uint>{0x1f4f7, 0xdf, 0},
            QString::fromUtf16(u"\xd83d\xdcf7\u00df"));
        row("ends at zero", QByteArray("a\0b", 3), QVector<uint>{'a', 0, 'b', 0}, QStringLiteral("a"));
    }

    void titles()
    {
        QFETCH(QByteArray, narrow);
        QFETCH(QVector<uint>, wide);
        QStringList seen;
        const auto user = [&](QDialog *dialog) {
            seen << dialog->windowTitle();
            dialog->reject();
        };
        atNextDialog(system, user);
        SelectCameraA(&system, narrow.isNull() ? nullptr : narrow.constData(), 0, false);
        QTEST(seen.takeFirst(), "expected");
        atNextDialog(system, user);
        SelectCameraW(&system, wide.isEmpty() ? nullptr : reinterpret_cast<const wchar_t *>(wide.constData()), 0,
                      false);
        QTEST(seen.takeFirst(), "expected");
    }

    void results_data()
    {
        columns<bool, int, bool>("selects", "result", "given"); // the result -1 closes the window
        row("accepted", true, QDialog::Accepted, true);
        row("accepted with nothing current", false, QDialog::Accepted, false);
        row("rejected", true, QDialog::Rejected, false);
        row("closed", true, -1, false);
    }

    void results()
    {
        QFETCH(bool, selects);
        QFETCH(int, result);
        QFETCH(bool, given);
        const auto user = [&](QDialog *dialog) {
            QVERIFY(dialog->isModal() && !dialog->parent());
            if (selects)
                selectCamera(dialog, 0);
            else
                cameraTree(dialog)->setCurrentIndex({});
            if (result < 0)
                dialog->close();
            else
                dialog->done(result);
        };
        atNextDialog(system, user);
        QCOMPARE(SelectCameraA(&system, nullptr, 0, false), given ? camera : nullptr);
        atNextDialog(system, user);
        QCOMPARE(SelectCameraW(&system, nullptr, 0, false), given ? camera : nullptr);
        QCOMPARE(system.releases.load(), 0);
    }

    void pollTakesLowByte()
    {
        // As a caller without a bool type declares it.
        using Select = MoxCam::DeviceInfo *(*)(MoxCam::System *, const char *, unsigned long, unsigned);
        const auto select = reinterpret_cast<Select>(reinterpret_cast<void *>(&SelectCameraA));
        for (const unsigned poll : {0xffffff00u, 0xffffff01u}) {
            bool polling = !(poll & 1);
            atNextDialog(system, [&polling](QDialog *dialog) {
                polling = qobject_cast<MoxGui::MoxCameraSelectorDialog *>(dialog)->isPollChecked();
                dialog->reject();
            });
            select(&system, nullptr, 0, poll);
            QCOMPARE(polling, bool(poll & 1));
        }
    }

    void unusableHandle()
    {
        // This platform has no foreign windows; the dialog opens over a container without one.
        QTest::ignoreMessage(QtWarningMsg, "QWindow::fromWinId(): platform plugin does not support foreign windows.");
        QTest::ignoreMessage(QtWarningMsg, "QWindowContainer: embedded window cannot be null");
        QPointer<QWidget> container;
        atNextDialog(system, [&](QDialog *dialog) {
            container = dialog->parentWidget();
            selectCamera(dialog, 0);
            dialog->accept();
        });
        QCOMPARE(SelectCameraA(&system, nullptr, 1, false), camera);
        QVERIFY(container && !container->isVisible() && !container->parent());
        delete container;
    }

    /** Both while the dialog is made and while it lists an interface. */
    void exceptionPassesThrough()
    {
        for (const bool inside : {false, true}) {
            system.interfaceLists = inside ? ListAnswer::List : ListAnswer::Throw;
            iface->deviceLists = inside ? ListAnswer::Throw : ListAnswer::List;
            QVERIFY_EXCEPTION_THROWN(SelectCameraA(&system, "title", 0, true), std::runtime_error);
            QVERIFY_EXCEPTION_THROWN(SelectCameraW(&system, L"title", 0, false), std::runtime_error);
            QCOMPARE(QApplication::topLevelWidgets().size(), 0);
            QCOMPARE(system.openLists.load(), 0);
        }
        iface->deviceLists = ListAnswer::List;
    }

    void resources()
    {
        QVERIFY(QFile::exists(QStringLiteral(":/icons/moxicon.ico")));
        QCOMPARE(qCleanupResources_moxcameraguiapi(), 1);
        QVERIFY(!QFile::exists(QStringLiteral(":/icons/moxicon.ico")));
        QCOMPARE(qInitResources_moxcameraguiapi(), 1);
        QVERIFY(QFile::exists(QStringLiteral(":/images/wdr.bmp")));
    }

    void cleanup() { QCOMPARE(QApplication::topLevelWidgets().size(), 0); }

private:
    QTemporaryDir runtimeDir; // the first call makes the application amid a test, where its complaints count
    FakeSystem system;
    FakeInterface *iface = system.add("A");
    FakeDeviceInfo *camera = iface->add("a1");
};

/** What the child process of leavesOtherApplicationAlone() does: widgets complain fatally about the application that they find. */
int runOverCoreApplication(int argc, char **argv)
{
    static QCoreApplication *application = nullptr;
    QCoreApplication app(argc, argv);
    application = &app;
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &message) {
        if (type == QtFatalMsg && message.contains(QLatin1String("without QApplication")))
            std::_Exit(QCoreApplication::instance() == application ? 42 : 43);
    });
    FakeSystem empty;
    SelectCameraA(&empty, nullptr, 0, false);
    return 0;
}

int main(int argc, char **argv)
{
    if (argc > 1 && qstrcmp(argv[1], "--core-application") == 0)
        return runOverCoreApplication(argc, argv);
    TestEntry test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_entry.moc"
