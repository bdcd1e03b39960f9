// Runs a scenario again and again, each time with another failure, and looks after it.
#ifndef MOX_SWEEP_H
#define MOX_SWEEP_H

#include "faultycalls.h"

#include <QElapsedTimer>
#include <QTimer>

#include <functional>

namespace MoxTest {

/**
 * Takes one step after the other in events of their own, also inside modal windows that a step opens. Message boxes are
 * dismissed; in the end so is what is still modal.
 */
class User
{
public:
    struct Step
    {
        /** An action that gives a bool is tried again for a while as long as it gives false. */
        template<class Action>
        Step(Action action)
            : take([action] {
                  if constexpr (std::is_same_v<decltype(action()), bool>)
                      return action();
                  else
                      action();
                  return true;
              })
        { }
        std::function<bool()> take;
    };

    /** @p patience in milliseconds for each step. */
    explicit User(int patience) : m_patience(patience)
    {
        QTimer::singleShot(0, &context, [this] { tick(); });
    }
    Q_DISABLE_COPY(User)

    /** For steps inside a modal window that is to be opened. */
    void plan(std::vector<Step> steps);
    /** Returns when all steps have been taken and no window is modal. */
    void take(std::vector<Step> steps);
    bool isStuck() const { return m_closed > 100; }

private:
    void tick();

    const int m_patience;
    QObject context; // the ticks end with it
    std::vector<Step> m_steps;
    std::size_t m_next = 0;
    QElapsedTimer m_waiting;
    int m_closed = 0;
};

/** A use of the library. Its making is untouched by failures, and so is its end. */
struct Scenario
{
    virtual ~Scenario() = default;
    /** What it throws counts as handled. */
    virtual void play(User &user) = 0;
    /** Whether all came as it does without a failure. */
    virtual bool succeeded() = 0;

    std::string camera; // that is lost, and whose port fails
};

using MakeScenario = std::unique_ptr<Scenario> (*)();
std::unique_ptr<Scenario> selecting(), forcingAddress(), editingTree(), configuringFrames(), configuringColor(),
    sendingAction();

/** Sweeps failures of one kind through a scenario. */
class Sweep
{
public:
    Sweep(QByteArray name, MakeScenario make, Failure kind) : m_name(std::move(name)), m_make(make), m_kind(kind) { }

    /** Gives what went wrong; what was done goes to the log. */
    QStringList run();

    /** Has hangs end the program, and crashes tell the run. To be called once, at the start. */
    static void watch();
    static inline std::atomic<int> caught{0}; // exceptions, by the application's event loop or the library's caller

private:
    struct Result
    {
        unsigned calls;
        bool succeeded, struck;
        QStringList problems;
        std::vector<FaultPlan::Place> places;
    };
    Result once(unsigned nth) const;
    std::vector<unsigned> chosen(const Result &untouched) const;

    const QByteArray m_name;
    const MakeScenario m_make;
    const Failure m_kind;
};

} // namespace MoxTest

#endif
