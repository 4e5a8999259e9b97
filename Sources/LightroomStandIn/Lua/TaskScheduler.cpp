#include "Lua/TaskScheduler.h"

#include <QTimer>

#include <algorithm>
#include <cmath>
#include <utility>

namespace StandIn {

namespace {

using std::chrono::milliseconds;

/// The pause that a yield asks for, in seconds; bounded, so that a wild number does not overflow.
milliseconds pauseIn(const LuaValues &yielded)
{
    constexpr double longest = 24 * 3600;
    const double seconds = std::clamp(argument(yielded, 0).number(0), 0.0, longest);
    return milliseconds(std::llround(seconds * 1000));
}

} // namespace

TaskScheduler::TaskScheduler(LuaState &state)
    : m_state(state)
{
}

TaskScheduler::~TaskScheduler() = default;

void TaskScheduler::start(const LuaFunction &body)
{
    const int task = ++m_lastTask;
    m_tasks.try_emplace(task, m_state, body);
    resumeAfter(task, milliseconds(0));
}

void TaskScheduler::resumeAfter(int task, milliseconds pause)
{
    QTimer::singleShot(pause, Qt::PreciseTimer, this, [this, task] { resume(task); });
}

void TaskScheduler::resume(int task)
{
    const auto found = m_tasks.find(task);
    m_current = task;
    const auto step = found->second.resume();
    m_current.reset();
    if (step && !step->isFinished) {
        resumeAfter(task, pauseIn(step->values));
        return;
    }
    m_tasks.erase(found);
    if (!step) {
        Q_EMIT taskFailed(step.error());
    }
}

} // namespace StandIn
