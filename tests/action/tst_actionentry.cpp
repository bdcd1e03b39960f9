#include "fakesdk.h"
#include "moxcameraguiapi.h"
#include "testmain.h"

#include <QDialog>
#include <QProcess>
#include <QWindow>

/** The one console of the process, over a window of another one. */
class TestActionEntry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneConsole();
};

static bool holdsForeignWindow()
{
    const QWindowList windows = QGuiApplication::allWindows();
    return std::any_of(windows.begin(), windows.end(), [](QWindow *each) { return each->type() == Qt::ForeignWindow; });
}

void TestActionEntry::oneConsole()
{
    QProcess other;
    other.start(QStringLiteral(FOREIGN_WINDOW), QStringList());
    QTRY_VERIFY(other.canReadLine());
    const WId handle = other.readLine().trimmed().toULong();
    MoxTest::FakeSystem system;
    system.interfaceLists = MoxTest::ListAnswer::Throw;
    QVERIFY_EXCEPTION_THROWN(ActionCameraW(&system, L"thrown", handle), std::runtime_error);
    QVERIFY(!holdsForeignWindow());
    delete QApplication::topLevelWidgets().value(0); // the container stays, one for each attempt

    system.interfaceLists = MoxTest::ListAnswer::List;
    bool held = false;
    system.atNextEnumeration = [&held] { held = holdsForeignWindow(); };
    ActionCameraA(&system, "Größe", handle);
    QVERIFY(held && !holdsForeignWindow());
    QDialog *dialog = nullptr;
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets)
        dialog = dialog ? dialog : qobject_cast<QDialog *>(widget);
    QVERIFY(dialog->isVisible() && !dialog->isModal());
    QVERIFY(dialog->parentWidget()->inherits("QWindowContainer") && !dialog->parentWidget()->isVisible());
    QCOMPARE(dialog->windowTitle(), QStringLiteral("Größe"));

    dialog->close();
    ActionCameraW(nullptr, L"\U0001f4f7", handle);
    QVERIFY(dialog->isVisible() && QApplication::topLevelWidgets().size() == 2);
    QCOMPARE(dialog->windowTitle(), QString::fromUtf16(u"\xd83d\xdcf7"));

    other.closeWriteChannel();
    QVERIFY(other.waitForFinished());
    delete dialog->parentWidget(); // the dialog with it
}

MOX_TEST_MAIN(TestActionEntry)
#include "tst_actionentry.moc"
