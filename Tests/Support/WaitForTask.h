#pragma once

#include <QCoroTask>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

#include <chrono>
#include <exception>
#include <memory>
#include <optional>
#include <stdexcept>

namespace KelvaLR::Testing {

/// Turns the event loop until the condition holds; false when it did not within the time.
template <typename Condition>
[[nodiscard]] bool waitUntil(const Condition &condition,
                             std::chrono::milliseconds timeout = std::chrono::seconds(20))
{
    const QDeadlineTimer deadline(timeout);
    // For what no event announces. To look without a pause would hide races from the thread sanitizer, which
    // then forgets where we looked.
    QTimer looks;
    looks.start(std::chrono::milliseconds(2));
    while (!condition()) {
        if (deadline.hasExpired()) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20); // and what follows from it
    }
    return true;
}

namespace detail {

/// What a watched task left behind. Shared with the task, which may outlive a wait that gave up.
template <typename T>
struct Outcome
{
    std::optional<T> value;
    std::exception_ptr error;
};

template <typename T>
QCoro::Task<> store(QCoro::Task<T> task, std::shared_ptr<Outcome<T>> outcome)
{
    try {
        outcome->value = co_await task;
    } catch (...) {
        outcome->error = std::current_exception();
    }
}

inline QCoro::Task<bool> trueWhenDone(QCoro::Task<> task)
{
    co_await task;
    co_return true;
}

} // namespace detail

/// Turns the event loop until the task has ended and gives its value. Rethrows what the task threw; throws
/// when it takes too long, so a hung task fails its test instead of hanging it.
template <typename T>
T waitForTask(QCoro::Task<T> task, std::chrono::milliseconds timeout = std::chrono::seconds(20))
{
    const auto outcome = std::make_shared<detail::Outcome<T>>();
    detail::store(std::move(task), outcome);
    if (!waitUntil([&] { return outcome->value.has_value() || outcome->error; }, timeout)) {
        throw std::runtime_error("the task did not end in time");
    }
    if (outcome->error) {
        std::rethrow_exception(outcome->error);
    }
    return std::move(*outcome->value);
}

inline void waitForTask(QCoro::Task<> task, std::chrono::milliseconds timeout = std::chrono::seconds(20))
{
    waitForTask(detail::trueWhenDone(std::move(task)), timeout);
}

} // namespace KelvaLR::Testing
