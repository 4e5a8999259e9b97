#include "Support/DetachedTask.h"

#include <QDebug>

#include <exception>

namespace KelvaLR {

namespace {

QCoro::Task<> logFailure(QCoro::Task<> task)
{
    try {
        co_await task;
    } catch (const std::exception &error) {
        qCritical("A background task failed: %s", error.what());
    } catch (...) {
        qCritical("A background task failed.");
    }
}

} // namespace

void startDetached(QCoro::Task<> task)
{
    logFailure(std::move(task));
}

} // namespace KelvaLR
