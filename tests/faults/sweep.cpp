#include "sweep.h"

#include <QApplication>
#include <QDebug>
#include <QMessageBox>

#include <csignal>
#include <cstdio>
#include <set>
#include <thread>
#include <unistd.h>

#ifdef __SANITIZE_ADDRESS__
extern "C" void __sanitizer_set_death_callback(void (*callback)());
#endif

namespace MoxTest {

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

} // namespace

void User::plan(std::vector<Step> steps)
{
    m_steps = std::move(steps);
    m_next = 0;
}

void User::take(std::vector<Step> steps)
{
    plan(std::move(steps));
    while (!isStuck() && (m_next < m_steps.size() || QApplication::activeModalWidget()))
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void User::tick()
{
    // First, for what follows may open a modal window or throw.
    QTimer::singleShot(0, &context, [this] { tick(); });
    QWidget *modal = QApplication::activeModalWidget();
    if (qobject_cast<QMessageBox *>(modal) || (modal && m_next >= m_steps.size())) {
        ++m_closed;
        modal->close();
    } else if (m_next < m_steps.size()) {
        FaultPlan::instance().step = int(m_next);
        m_closed = 0;
        if (!m_waiting.isValid())
            m_waiting.start();
        const std::size_t step = m_next++;
        if (m_steps[step].take() || m_waiting.elapsed() > m_patience)
            m_waiting.invalidate();
        else
            m_next = step;
    }
}

void Sweep::watch()
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

Sweep::Result Sweep::once(unsigned nth) const
{
    FaultPlan &plan = FaultPlan::instance();
    QStringList problems;
    warnings = &problems;
    std::snprintf(runText, sizeof runText, "%s, n = %u", m_name.constData(), nth);
    runSeconds = 0;
    const QtMessageHandler before = qInstallMessageHandler(keepWarnings);

    std::unique_ptr<Scenario> scenario = m_make();
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

std::vector<unsigned> Sweep::chosen(const Result &untouched) const
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
        if (seen.insert(place).second && (!mode.isEmpty() || seen.size() % share == 0))
            numbers.push_back(n);
    }
    return numbers;
}

QStringList Sweep::run()
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
    qInfo("%s: %u calls, %d runs, %d struck and %d of these succeeded, %d exceptions caught, %.1f s",
          m_name.constData(), untouched.calls, runs, struck, unharmed, caught - caughtBefore, timer.elapsed() / 1000.0);
    return problems;
}

} // namespace MoxTest
