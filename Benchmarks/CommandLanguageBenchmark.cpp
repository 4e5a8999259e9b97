// How long one request takes, over the 200 mixed requests of Data/requests.txt. Each call is timed by itself:
// the counters are the median, the 99th percentile and the maximum of single requests, in microseconds.

#include "Platform/FrontmostApplication.h"
#include "Services/Lightroom/Language/LightroomCommandParser.h"
#include "Services/Lightroom/Language/RouteExplanation.h"

#include <QFile>
#include <QStringList>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <vector>

namespace KelvaLR {

namespace {

class NoFrontmostApplication final : public FrontmostApplication
{
public:
    std::optional<RunningApplication> frontmostApplication() const override { return std::nullopt; }
};

const QStringList &requests()
{
    static const QStringList lines = [] {
        QFile file(QLatin1StringView(KELVALR_BENCHMARK_DATA "/requests.txt"));
        if (!file.open(QFile::ReadOnly)) {
            qFatal("Cannot read %s", qPrintable(file.fileName()));
        }
        return QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    }();
    return lines;
}

/// Gives every request to `handle` in each iteration and reports how long single requests took.
template <typename Handle>
void measureSingleRequests(benchmark::State &state, Handle handle)
{
    std::vector<double> microseconds;
    for (auto iteration : state) {
        for (const QString &request : requests()) {
            const auto start = std::chrono::steady_clock::now();
            benchmark::DoNotOptimize(handle(request));
            const std::chrono::duration<double, std::micro> taken = std::chrono::steady_clock::now() - start;
            microseconds.push_back(taken.count());
        }
    }
    std::ranges::sort(microseconds);
    const auto percentile = [&](std::size_t percent) {
        return microseconds.at((microseconds.size() - 1) * percent / 100);
    };
    state.counters["median_us"] = percentile(50);
    state.counters["p99_us"] = percentile(99);
    state.counters["max_us"] = percentile(100);
    state.SetItemsProcessed(static_cast<std::int64_t>(microseconds.size()));
}

const NoFrontmostApplication frontmost;

void parseCommand(benchmark::State &state)
{
    measureSingleRequests(
        state, [](const QString &request) { return LightroomCommandParser::parse(request, frontmost); });
}

void route(benchmark::State &state)
{
    measureSingleRequests(state, [](const QString &request) { return routePrompt(request, frontmost); });
}

void routeAndExplain(benchmark::State &state)
{
    measureSingleRequests(state, [](const QString &request) {
        return explainedRoute(request, routePrompt(request, frontmost));
    });
}

BENCHMARK(parseCommand)->MinTime(2)->Unit(benchmark::kMicrosecond);
BENCHMARK(route)->MinTime(2)->Unit(benchmark::kMicrosecond);
BENCHMARK(routeAndExplain)->MinTime(2)->Unit(benchmark::kMicrosecond);

} // namespace

} // namespace KelvaLR
