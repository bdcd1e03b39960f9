// The main function of a test.
#ifndef MOX_TESTMAIN_H
#define MOX_TESTMAIN_H

#include <QApplication>
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

template<class Test>
int run(int argc, char **argv)
{
    QApplication app(argc, argv);
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
