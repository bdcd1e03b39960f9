// Sweeps of failures through what users do: nothing crashes, hangs or stays behind, whichever call fails.
//
// MOX_SWEEP=steps lets one call of each function in each step of a scenario fail, and without more it is a fifth of
// these; MOX_SWEEP=fine takes one for each feature, too, MOX_SWEEP=full every call, and MOX_SWEEP=<k> every k-th.
// MOX_SWEEP_AT=<n> with the name of a row repeats one run.
//
// Left out are failures that cannot be: a node throws nothing but what GenICam::GenericException is the base of, and
// what ends the use of an object does not throw, since it is called while others go.
#include "datarow.h"
#include "scenario.h"
#include "testmain.h"

#include <QDebug>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <set>
#include <thread>
#include <unistd.h>

#ifdef __SANITIZE_ADDRESS__
extern "C" void __sanitizer_set_death_callback(void (*callback)());
#endif

using namespace MoxTest;

namespace {

constexpr int hangAfter = 60; // seconds
// For a step, in milliseconds: one that has to come to its end, and one that may not.
constexpr int longPatience = 20000, shortPatience = 200;
// Of the calls that a sample of each step would have, one in so many: sanitizers take their time.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr std::size_t share = 30;
#else
constexpr std::size_t share = 5;
#endif

char runText[256]; // for whoever reports a crash
std::atomic<int> runSeconds{0};

void reportRun()
{
    std::fprintf(stderr, "The sweep was at: %s, call: %s\n", runText, qPrintable(FaultPlan::instance().struckCall()));
}

QStringList *warnings = nullptr;

void keepWarnings(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    // The offscreen platform says so of every window with a minimum size.
    if (type != QtDebugMsg && message != QLatin1String("This plugin does not support propagateSizeHints()"))
        *warnings << message;
}

std::atomic<int> caught{0}; // exceptions, by the application's event loop or the library's caller

/** Has hangs end the program, and crashes tell the run. To be called once, at the start. */
void watch()
{
#ifdef __SANITIZE_ADDRESS__
    __sanitizer_set_death_callback(reportRun);
#else
    for (const int number : {SIGSEGV, SIGABRT, SIGBUS, SIGFPE, SIGILL}) {
        std::signal(number, [](int raised) {
            reportRun();
            std::signal(raised, SIG_DFL);
            std::raise(raised);
        });
    }
#endif
    std::thread([] {
        while (++runSeconds < hangAfter)
            ::sleep(1);
        std::fprintf(stderr, "The sweep hangs.\n");
        reportRun();
        ::_exit(1);
    }).detach();
}

/** Sweeps failures of one kind through a scenario. */
class Sweep
{
public:
    Sweep(QByteArray scenario, Failure kind) : m_scenario(std::move(scenario)), m_kind(kind) { }

    /** Gives what went wrong; what was done goes to the log. */
    QStringList run()
    {
        QElapsedTimer timer;
        timer.start();
        once(0); // what is made for the whole process is there from now on
        const Result untouched = once(0);
        QStringList problems = untouched.problems;
        if (!untouched.succeeded)
            problems << QLatin1String(m_name) + QStringLiteral(" does not succeed without a failure");
        int runs = 0, struck = 0, unharmed = 0;
        const int caughtBefore = caught;
        const auto fail = [&](unsigned n) {
            const Result result = once(n);
            ++runs;
            struck += result.struck;
            unharmed += result.struck && result.succeeded;
            problems << result.problems;
            return result.struck;
        };
        for (const unsigned n : chosen(untouched))
            fail(n);
        // Runs differ a little, and some have more calls than the untouched one.
        if (qgetenv("MOX_SWEEP") == "full") {
            for (unsigned n = untouched.calls + 1; fail(n);)
                ++n;
        }
        if (runs > 0 && struck == 0)
            problems << QLatin1String(m_name) + QStringLiteral(": nothing has failed");
        qInfo("%s: %u calls, %d runs, %d struck and %d of these succeeded, %d exceptions caught, %.1f s",
              m_name.constData(), untouched.calls, runs, struck, unharmed, caught - caughtBefore,
              timer.elapsed() / 1000.0);
        return problems;
    }

private:
    struct Result
    {
        unsigned calls;
        bool succeeded, struck;
        QStringList problems;
        std::vector<FaultPlan::Place> places;
    };

    Result once(unsigned nth) const
    {
        FaultPlan &plan = FaultPlan::instance();
        QStringList problems;
        warnings = &problems;
        std::snprintf(runText, sizeof runText, "%s, n = %u", m_name.constData(), nth);
        runSeconds = 0;
        const QtMessageHandler before = qInstallMessageHandler(keepWarnings);

        std::unique_ptr<Scenario> scenario = makeScenario(m_scenario);
        plan.arm(m_kind, nth, scenario->camera);
        {
            User user(nth == 0 ? longPatience : shortPatience);
            try {
                scenario->play(user);
            } catch (const std::exception &) {
                ++caught;
            }
            if (user.isStuck())
                problems << QStringLiteral("a modal window does not close");
        }
        const unsigned calls = plan.disarm();
        const bool succeeded = scenario->succeeded();
        scenario.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();

        const QWidgetList widgets = QApplication::allWidgets();
        for (QWidget *widget : widgets) {
            problems << QStringLiteral("left behind: ") + QLatin1String(widget->metaObject()->className());
            if (widget->isWindow())
                widget->deleteLater();
        }
        if (QGuiApplication::overrideCursor())
            problems << QStringLiteral("the cursor is left waiting");
        if (!plan.leftOver().isEmpty())
            problems << QStringLiteral("in use:") + plan.leftOver();
        forgetWrapped();
        qInstallMessageHandler(before);
        const QString struck = plan.struckCall();
        for (QString &problem : problems)
            problem = QStringLiteral("%1, call: %2: %3").arg(QString::fromUtf8(runText), struck, problem);
        return {calls, succeeded, !struck.isEmpty(), problems, plan.places};
    }

    std::vector<unsigned> chosen(const Result &untouched) const
    {
        if (const int only = qEnvironmentVariableIntValue("MOX_SWEEP_AT"))
            return {unsigned(only)};
        const QByteArray mode = qgetenv("MOX_SWEEP");
        const unsigned stride = mode == "full" ? 1 : mode.toUInt();
        std::vector<unsigned> numbers;
        std::set<FaultPlan::Place> seen;
        for (unsigned n = 1; n <= untouched.calls; ++n) {
            if (stride > 0 || untouched.places.empty()) {
                if (n % (stride > 0 ? stride : 1 + untouched.calls * share / 50) == 0)
                    numbers.push_back(n);
                continue;
            }
            FaultPlan::Place place = untouched.places[n - 1];
            if (mode != "fine")
                place.subject.clear();
            if (seen.insert(place).second && (!mode.isEmpty() || seen.size() % share == 1))
                numbers.push_back(n);
        }
        return numbers;
    }

    const QByteArray m_name = QTest::currentDataTag();
    const QByteArray m_scenario;
    const Failure m_kind;
};

} // namespace

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
            ++caught;
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
    void sweep_data()
    {
        columns<QByteArray, int>("scenario", "failure");
        const unsigned every = ErrorCode | NullObject | Exception | CameraLost;
        const QPair<const char *, unsigned> scenarios[] = {{"select", every},
                                                           {"address", every},
                                                           {"tree", every | NodeError | PortFailures},
                                                           {"frames", every | PortFailures},
                                                           {"color", every | PortFailures},
                                                           {"action", every}};
        const char *const failures[] = {"error", "null", "exception", "node", "lost", "port", "dead port"};
        for (const auto &[scenario, possible] : scenarios) {
            for (int bit = 0; bit < 7; ++bit) {
                if (possible & (1u << bit))
                    row(QByteArray(scenario).append(", ").append(failures[bit]).constData(), scenario, 1 << bit);
            }
        }
    }
    void sweep()
    {
        QFETCH(QByteArray, scenario);
        QFETCH(int, failure);
        const QStringList problems = Sweep(scenario, Failure(failure)).run();
        QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QLatin1Char('\n'))));
    }
};

int main(int argc, char **argv)
{
    qputenv("QTEST_FUNCTION_TIMEOUT", "2000000000"); // a row may take long, and runs that hang are watched for
    watch();
    return run<TestFaults, CarefulApplication>(argc, argv);
}

#include "tst_faults.moc"
