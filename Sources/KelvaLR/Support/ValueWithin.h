#pragma once

#include <QCoroSignal>
#include <QCoroTask>

#include <QFuture>
#include <QFutureWatcher>

#include <chrono>
#include <optional>

namespace KelvaLR {

/// The future's value, if it is there within the time. The work itself goes on. Main thread.
template <typename Value>
QCoro::Task<std::optional<Value>> valueWithin(QFuture<Value> future, std::chrono::milliseconds time)
{
    if (!future.isFinished()) {
        QFutureWatcher<Value> watcher;
        watcher.setFuture(future);
        co_await qCoro(&watcher, &QFutureWatcherBase::finished, time);
    }
    co_return future.isFinished() && future.resultCount() > 0 ? std::optional(future.result()) : std::nullopt;
}

} // namespace KelvaLR
