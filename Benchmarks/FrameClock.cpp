#include "FrameClock.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>

#include <ctime>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

double workOfThisThread()
{
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

} // namespace

FrameClock::FrameClock(QQuickWindow &window)
    : m_window(window)
{
}

FrameCost FrameClock::show(const std::function<void()> &change)
{
    QEventLoop loop;
    QObject::connect(&m_window, &QQuickWindow::frameSwapped, &loop, &QEventLoop::quit);
    QTimer::singleShot(std::chrono::minutes(1), &loop, [] { qFatal("No frame came within a minute."); });
    QElapsedTimer clock;
    clock.start();
    const double before = workOfThisThread();
    change();
    m_window.update();
    loop.exec();
    return {double(clock.nsecsElapsed()) / 1e6, workOfThisThread() - before};
}

double FrameClock::pause(std::chrono::milliseconds duration)
{
    const double before = workOfThisThread();
    QEventLoop loop;
    QTimer::singleShot(duration, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
    return workOfThisThread() - before;
}

QString summary(QList<double> milliseconds)
{
    std::ranges::sort(milliseconds);
    const auto quantile = [&](double share) {
        return milliseconds.at(qsizetype(share * double(milliseconds.size() - 1)));
    };
    return u"median %1 ms, 95th percentile %2 ms, largest %3 ms"_s.arg(quantile(0.5), 0, 'f', 1)
        .arg(quantile(0.95), 0, 'f', 1)
        .arg(quantile(1), 0, 'f', 1);
}

} // namespace KelvaLR
