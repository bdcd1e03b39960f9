// Sweeps of failures through what users do: nothing crashes, hangs or stays behind, whichever call fails.
//
// MOX_SWEEP=steps lets one call of each function in each step of a scenario fail, and without more it is a fifth of
// these; MOX_SWEEP=fine takes one for each feature, too, MOX_SWEEP=full every call, and MOX_SWEEP=<k> every k-th.
// MOX_SWEEP_AT=<n> with the name of a row repeats one run.
//
// Left out are failures that cannot be: a node throws nothing but what GenICam::GenericException is the base of, and
// what ends the use of an object does not throw, since it is called while others go.
#include "datarow.h"
#include "sweep.h"
#include "testmain.h"

#include <cerrno>
#include <ctime>

using namespace MoxTest;

/** An application that cares: Qt's event loop is not to see an exception. */
class CarefulApplication : public Application
{
public:
    using Application::Application;

    bool notify(QObject *receiver, QEvent *event) override
    {
        try {
            return Application::notify(receiver, event);
        } catch (const std::exception &) {
            ++Sweep::caught;
            return true;
        }
    }
};

/** The selector's polls follow each other more quickly here, and so does whatever else sleeps for exactly a second. */
extern "C" int nanosleep(const timespec *requested, timespec *remaining)
{
    constexpr timespec shortly{0, 20'000'000};
    const bool isSecond = requested->tv_sec == 1 && requested->tv_nsec == 0;
    const int error = ::clock_nanosleep(CLOCK_REALTIME, 0, isSecond ? &shortly : requested, remaining);
    if (error == 0)
        return 0;
    errno = error;
    return -1;
}

#ifdef __SANITIZE_ADDRESS__
/** Qt's widgets are built without exceptions: one that comes through them leaves the guards on their stack behind. */
extern "C" Q_DECL_EXPORT const char *__lsan_default_suppressions()
{
    return "leak:QtSharedPointer::ExternalRefCountData::getAndRef\n";
}
#endif

class TestFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sweep_data();
    void sweep();
};

void TestFaults::sweep_data()
{
    columns<int, int>("scenario", "failure");
    constexpr unsigned sdkFailures = ErrorCode | NullObject | Exception | CameraLost;
    const QPair<const char *, unsigned> scenarios[] = {{"select", sdkFailures},
                                                       {"address", sdkFailures},
                                                       {"tree", sdkFailures | NodeError | PortFailures},
                                                       {"frames", sdkFailures | PortFailures},
                                                       {"color", sdkFailures | PortFailures},
                                                       {"action", sdkFailures}};
    const char *const failures[] = {"error", "null", "exception", "node", "lost", "port", "dead port"};
    for (int scenario = 0; scenario < 6; ++scenario) {
        for (int bit = 0; bit < 7; ++bit) {
            if (scenarios[scenario].second & (1u << bit))
                row(QByteArray(scenarios[scenario].first).append(", ").append(failures[bit]).constData(), scenario,
                    1 << bit);
        }
    }
}

void TestFaults::sweep()
{
    QFETCH(int, scenario);
    QFETCH(int, failure);
    constexpr MakeScenario scenarios[] = {selecting,         forcingAddress,   editingTree,
                                          configuringFrames, configuringColor, sendingAction};
    const QStringList problems = Sweep(QTest::currentDataTag(), scenarios[scenario], Failure(failure)).run();
    QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QLatin1Char('\n'))));
}

int main(int argc, char **argv)
{
    qputenv("QTEST_FUNCTION_TIMEOUT", "2000000000"); // a row may take long, and runs that hang are watched for
    CarefulApplication app(argc, argv);
    Sweep::watch();
    TestFaults test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_faults.moc"
