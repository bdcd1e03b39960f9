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
    void initTestCase();
    void windowOfAnotherProcess();
    void exceptionReleasesWindow();
    void handleOfNothing();
    void cleanupTestCase();

private:
    QProcess other;
    WId handle = 0;
    QStringList deaths;
    FakeSystem system;
    FakeDeviceInfo *camera = system.add("A")->add("a1");
};

namespace {

/** The window around a handle, as Qt sees it; null when there is none any more. */
QWindow *foreignWindow(WId handle)
{
    const QWindowList windows = QGuiApplication::allWindows();
    for (QWindow *window : windows) {
        if (window->type() == Qt::ForeignWindow && window->winId() == handle)
            return window;
    }
    return nullptr;
}

} // namespace

void TestForeignParent::initTestCase()
{
    other.start(QStringLiteral(FOREIGN_WINDOW), QStringList());
    QTRY_VERIFY(other.canReadLine());
    handle = other.readLine().trimmed().toULong();
    QVERIFY(handle != 0);
}

void TestForeignParent::windowOfAnotherProcess()
{
    for (int call = 1; call <= 2; ++call) {
        deaths.clear();
        QWidget *parent = nullptr;
        atNextDialog(system, [&](QDialog *dialog) {
            parent = dialog->parentWidget();
            QWindow *window = foreignWindow(handle);
            QVERIFY(parent && window);
            connect(dialog, &QObject::destroyed, this, [this] { deaths << QStringLiteral("dialog"); });
            connect(window, &QObject::destroyed, this, [this] { deaths << QStringLiteral("window"); });
            connect(parent, &QObject::destroyed, this, [this] { deaths << QStringLiteral("container"); });
            selectCamera(dialog, 0);
            dialog->accept();
        });
        QCOMPARE(SelectCameraA(&system, "over a foreign window", handle, false), camera);
        QCOMPARE(deaths, QStringList({QStringLiteral("dialog"), QStringLiteral("window")}));
        QVERIFY(!foreignWindow(handle));
        // The container stays, one for each call.
        QCOMPARE(QApplication::topLevelWidgets().size(), call);
        QVERIFY(QApplication::topLevelWidgets().contains(parent));
        QVERIFY(parent->inherits("QWindowContainer") && !parent->isVisible() && !parent->parent());
    }
    QCOMPARE(other.state(), QProcess::Running);
}

void TestForeignParent::exceptionReleasesWindow()
{
    const int before = QApplication::topLevelWidgets().size();
    system.interfaceLists = ListAnswer::Throw;
    QVERIFY_EXCEPTION_THROWN(SelectCameraW(&system, nullptr, handle, false), std::runtime_error);
    system.interfaceLists = ListAnswer::List;
    QVERIFY(!foreignWindow(handle));
    QCOMPARE(QApplication::topLevelWidgets().size(), before + 1);
}

void TestForeignParent::handleOfNothing()
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

void TestForeignParent::cleanupTestCase()
{
    other.closeWriteChannel();
    QVERIFY(other.waitForFinished());
    QCOMPARE(other.exitCode(), 0);
    // After the other process: its window sits in a container and would go with it.
    qDeleteAll(QApplication::topLevelWidgets());
}

MOX_TEST_MAIN(TestForeignParent)
#include "tst_foreignparent.moc"
