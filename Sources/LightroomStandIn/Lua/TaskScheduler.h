#pragma once

#include "Lua/LuaState.h"

#include <QObject>

#include <chrono>
#include <map>
#include <optional>

namespace StandIn {

/// Runs Lightroom tasks: each is a Lua thread that the event loop of the main thread drives. A task that
/// yields nothing is resumed in the next turn of the loop; one that yields a number is resumed after so many
/// seconds.
class TaskScheduler : public QObject
{
    Q_OBJECT

public:
    explicit TaskScheduler(LuaState &state);
    ~TaskScheduler() override;

    /// The task begins in the next turn of the event loop.
    void start(const LuaFunction &body);

    /// The task that runs now; none when Lua was called otherwise.
    [[nodiscard]] std::optional<int> currentTask() const { return m_current; }

Q_SIGNALS:
    void taskFailed(const QString &error);

private:
    void resume(int task);
    void resumeAfter(int task, std::chrono::milliseconds pause);

    LuaState &m_state;
    std::map<int, LuaThread> m_tasks;
    std::optional<int> m_current;
    int m_lastTask = 0;
};

} // namespace StandIn
