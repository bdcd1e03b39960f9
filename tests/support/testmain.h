// The main function of a test.
#ifndef MOX_TESTMAIN_H
#define MOX_TESTMAIN_H

#include <QApplication>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>

#include <cstdio>

namespace MoxTest {

/** Fails a test program that leaves a top-level widget behind. */
inline int leftOverWidgets()
{
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (const QWidget *widget : widgets)
        std::fprintf(stderr, "left behind: %s \"%s\"\n", widget->metaObject()->className(),
                     qUtf8Printable(widget->objectName()));
    return widgets.isEmpty() ? 0 : 1;
}

/**
 * Drops a warning that the offscreen platform gives for every window with a minimum size. To be called while a test
 * runs: QtTest's own message handler is in place only then.
 */
inline void dropPlatformNoise()
{
    static QtMessageHandler next = nullptr;
    next = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &context, const QString &message) {
        if (message != QLatin1String("This plugin does not support propagateSizeHints()"))
            next(type, context, message);
    });
}

/** Calls dropPlatformNoise() before the first window can be shown. */
class Application : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject *receiver, QEvent *event) override
    {
        if (!noiseDropped && QTest::currentTestFunction()) {
            noiseDropped = true;
            dropPlatformNoise();
        }
        return QApplication::notify(receiver, event);
    }

private:
    bool noiseDropped = false;
};

template<class Test, class App = Application> int run(int argc, char **argv)
{
    App app(argc, argv);
    // Nobody's own settings are read or changed, neither by the test nor by programs that it starts.
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    QSettings::setPath(QSettings::NativeFormat, QSettings::SystemScope, settings.filePath(QStringLiteral("system")));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(settings.path()));
    int result = 0;
    {
        Test test;
        result = QTest::qExec(&test, argc, argv);
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const int leftOver = leftOverWidgets();
    return result ? result : leftOver;
}

} // namespace MoxTest

/** Runs a test class with a QApplication; fails on top-level widgets that outlive it. */
#define MOX_TEST_MAIN(TestClass)                                                                                       \
    int main(int argc, char **argv)                                                                                    \
    {                                                                                                                  \
        return MoxTest::run<TestClass>(argc, argv);                                                                    \
    }

#endif
