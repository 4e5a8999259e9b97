// Scoring, search and listing over the elements of a window that was recorded (Data/interface.tsv: parent,
// role, title, description, text value, pressable, with a centre), repeated up to 50,000 elements.

#include "Services/Automation/UIElementSearch.h"
#include "Support/NormalizedWords.h"

#include <benchmark/benchmark.h>

#include <QFile>

#include <stdexcept>

using namespace KelvaLR;
using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype elementCount = 50'000;

AccessibilityElement recordedElement(const QStringList &fields)
{
    AccessibilityElement element;
    element.role = fields.at(1);
    element.title = fields.at(2);
    element.description = fields.at(3);
    if (!fields.at(4).isEmpty()) {
        element.value = fields.at(4);
    }
    if (fields.at(5) == "1"_L1) {
        element.actions = {u"AXPress"_s};
    }
    if (fields.at(6) == "1"_L1) {
        element.center = QPointF(1, 1);
    }
    return element;
}

AccessibilityTree recordedWindows()
{
    QFile file(QStringLiteral(KELVALR_BENCHMARK_DATA "/interface.tsv"));
    if (!file.open(QFile::ReadOnly)) {
        throw std::runtime_error("the recorded window is missing");
    }
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    AccessibilityTree tree{{.role = u"AXApplication"_s}};
    while (tree.size() < elementCount) {
        const qsizetype first = tree.size();
        for (const QString &line : lines) {
            const QStringList fields = line.split(u'\t');
            const qsizetype parent = fields.at(0) == "-1"_L1 ? 0 : first + fields.at(0).toLongLong();
            tree[parent].children.append(tree.size());
            tree.append(recordedElement(fields));
            tree.last().parent = parent;
        }
    }
    return tree;
}

const AccessibilityTree &tree()
{
    static const AccessibilityTree recorded = recordedWindows();
    return recorded;
}

void scoreOneElement(benchmark::State &state)
{
    const QString target = normalizedWords(u"Exposure"_s);
    qsizetype next = 0;
    while (state.KeepRunning()) {
        benchmark::DoNotOptimize(elementScore(tree().at(next), target, ElementPurpose::click));
        next = (next + 1) % tree().size();
    }
}

BENCHMARK(scoreOneElement);

void search(benchmark::State &state, const QString &name, ElementPurpose purpose)
{
    while (state.KeepRunning()) {
        benchmark::DoNotOptimize(findElement(tree(), name, purpose));
    }
    state.counters["elements"] = double(tree().size());
}

BENCHMARK_CAPTURE(search, button, u"Plug-in Manager"_s, ElementPurpose::click)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, field, u"Keyword"_s, ElementPurpose::field)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, nothing, u"Unsharp Mask"_s, ElementPurpose::click)->Unit(benchmark::kMillisecond);

void listTheFirst(benchmark::State &state)
{
    while (state.KeepRunning()) {
        benchmark::DoNotOptimize(visibleElements(tree()));
    }
}

BENCHMARK(listTheFirst)->Unit(benchmark::kMillisecond);

} // namespace
