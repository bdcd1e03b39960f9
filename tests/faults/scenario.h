// What users do with the library, step by step, whatever fails.
#ifndef MOX_SCENARIO_H
#define MOX_SCENARIO_H

#include "faultycalls.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMessageBox>
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
    void plan(std::vector<Step> steps)
    {
        m_steps = std::move(steps);
        m_next = 0;
    }
    /** Returns when all steps have been taken and no window is modal. */
    void take(std::vector<Step> steps)
    {
        plan(std::move(steps));
        while (!isStuck() && (m_next < m_steps.size() || QApplication::activeModalWidget()))
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    bool isStuck() const { return m_closed > 100; }

private:
    void tick()
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

/** One of "select", "address", "tree", "frames", "color" and "action". */
std::unique_ptr<Scenario> makeScenario(const QByteArray &name);

} // namespace MoxTest

#endif
