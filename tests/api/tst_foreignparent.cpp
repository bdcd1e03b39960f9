#include "drive.h"
#include "moxcameraguiapi.h"
#include "testmain.h"

#include <QLoggingCategory>
#include <QProcess>
#include <QWindow>

using namespace MoxTest;

/** Parents given by native handle, with real windows. */
class TestForeignParent : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        other.start(QStringLiteral(FOREIGN_WINDOW), QStringList());
        QTRY_VERIFY(other.canReadLine());
        handle = other.readLine().trimmed().toULong();
        QVERIFY(handle != 0);
    }

    void windowOfAnotherProcess()
    {
        for (int call = 1; call <= 2; ++call) {
            QStringList deaths;
            QWidget *parent = nullptr;
            atNextDialog(system, [&](QDialog *dialog) {
                parent = dialog->parentWidget();
                QVERIFY(parent && foreignWindow());
                connect(dialog, &QObject::destroyed, this, [&] { deaths << QStringLiteral("dialog"); });
                connect(foreignWindow(), &QObject::destroyed, this, [&] { deaths << QStringLiteral("window"); });
                selectCamera(dialog, 0);
                dialog->accept();
            });
            QCOMPARE(SelectCameraA(&system, "over a foreign window", handle, false), camera);
            QCOMPARE(deaths, QStringList({QStringLiteral("dialog"), QStringLiteral("window")}));
            QVERIFY(!foreignWindow());
            // The container stays, one for each call.
            QCOMPARE(QApplication::topLevelWidgets().size(), call);
            QVERIFY(QApplication::topLevelWidgets().contains(parent));
            QVERIFY(parent->inherits("QWindowContainer") && !parent->isVisible() && !parent->parent());
        }
        QCOMPARE(other.state(), QProcess::Running);
    }

    void exceptionReleasesWindow_data()
    {
        QTest::addColumn<bool>("isConsole");
        QTest::newRow("selector") << false;
        QTest::newRow("console") << true; // there is none yet
    }

    void exceptionReleasesWindow()
    {
        QFETCH(bool, isConsole);
        const int before = QApplication::topLevelWidgets().size();
        system.interfaceLists = ListAnswer::Throw;
        if (isConsole)
            QVERIFY_EXCEPTION_THROWN(ActionCameraW(&system, nullptr, handle), std::runtime_error);
        else
            QVERIFY_EXCEPTION_THROWN(SelectCameraW(&system, nullptr, handle, false), std::runtime_error);
        system.interfaceLists = ListAnswer::List;
        QVERIFY(!foreignWindow());
        QCOMPARE(QApplication::topLevelWidgets().size(), before + 1);
    }

    /** The one console of the process. */
    void actionConsole()
    {
        const int before = QApplication::topLevelWidgets().size();
        bool held = false;
        system.atNextEnumeration = [&] { held = foreignWindow(); };
        ActionCameraA(&system, "Größe", handle);
        QVERIFY(held && !foreignWindow());
        QDialog *dialog = nullptr;
        const QWidgetList widgets = QApplication::topLevelWidgets();
        for (QWidget *widget : widgets)
            dialog = dialog ? dialog : qobject_cast<QDialog *>(widget);
        QVERIFY(dialog->isVisible() && !dialog->isModal());
        QVERIFY(dialog->parentWidget()->inherits("QWindowContainer") && !dialog->parentWidget()->isVisible());
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Größe"));

        dialog->close();
        ActionCameraW(nullptr, L"\U0001f4f7", handle);
        QVERIFY(dialog->isVisible() && QApplication::topLevelWidgets().size() == before + 2);
        QCOMPARE(dialog->windowTitle(), QString::fromUtf16(u"\xd83d\xdcf7"));
    }

    void handleOfNothing()
    {
        // X11 gives a window around any number; the server's refusals arrive as warnings, some of them late.
        QLoggingCategory::setFilterRules(QStringLiteral("qt.qpa.xcb.warning=false"));
        atNextDialog(system, [&](QDialog *dialog) {
            QVERIFY(dialog->parentWidget()->inherits("QWindowContainer"));
            selectCamera(dialog, 0);
            dialog->accept();
        });
        QCOMPARE(SelectCameraA(&system, nullptr, 0x7ffffff1, false), camera);
        QCOMPARE(other.state(), QProcess::Running);
    }

    void cleanupTestCase()
    {
        other.closeWriteChannel();
        QVERIFY(other.waitForFinished());
        QCOMPARE(other.exitCode(), 0);
        // After the other process: its window sits in a container and would go with it.
        while (!QApplication::topLevelWidgets().isEmpty())
            delete QApplication::topLevelWidgets().constFirst();
    }

private:
    /** The window around the handle, as Qt sees it; null when there is none any more. */
    QWindow *foreignWindow() const
    {
        const QWindowList windows = QGuiApplication::allWindows();
        for (QWindow *window : windows) {
            if (window->type() == Qt::ForeignWindow && window->winId() == handle)
                return window;
        }
        return nullptr;
    }

    QProcess other;
    WId handle = 0;
    FakeSystem system;
    FakeDeviceInfo *camera = system.add("A")->add("a1");
};

MOX_TEST_MAIN(TestForeignParent)
#include "tst_foreignparent.moc"
