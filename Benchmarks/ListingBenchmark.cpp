// listing_benchmark PROGRAM [ELEMENTS]: lists and searches the window of a Qt program with so many controls,
// and prints how long that takes. Runs on a desktop: Scripts/desktop-session listing_benchmark PROGRAM.

#include "Platform/Linux/AtSpiAccessibility.h"
#include "Services/Automation/ElementReading.h"
#include "Support/WaitForTask.h"

#include <QElapsedTimer>
#include <QProcess>

#include <algorithm>
#include <cstdio>
#include <stdexcept>

using namespace KelvaLR;
using namespace Qt::StringLiterals;

namespace {

constexpr int runs = 11;

template <typename Run>
void measure(const char *name, Run run)
{
    QList<double> times;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer clock;
        clock.start();
        run();
        times.append(double(clock.nsecsElapsed()) / 1e6);
    }
    std::ranges::sort(times);
    std::printf("%s: median %.0f ms, %.0f to %.0f ms\n", name, times.at(runs / 2), times.constFirst(),
                times.constLast());
}

void measureListing(AtSpiAccessibility &accessibility, qint64 processId)
{
    qsizetype elements = 0;
    qsizetype listed = 0;
    measure("roles", [&] {
        elements = Testing::waitForTask(accessibility.tree(processId, listedElementLimit)).size();
    });
    measure("listing", [&] {
        listed = visibleElements(Testing::waitForTask(treeToList(&accessibility, processId))).size();
    });
    std::printf("    %lld elements, %lld of them listed\n", static_cast<long long>(elements),
                static_cast<long long>(listed));
    measure("search for a button", [&] {
        Testing::waitForTask(
            treeToSearch(&accessibility, processId, u"Control 1200"_s, ElementPurpose::click));
    });
    measure("search for a field", [&] {
        Testing::waitForTask(treeToSearch(&accessibility, processId, u"Keyword"_s, ElementPurpose::field));
    });
}

void measureWindow(qint64 processId)
{
    AccessibilityBus bus;
    AtSpiAccessibility accessibility(bus, [](TrustPrompt) { return true; });
    const bool isShown = Testing::waitUntil([&] {
        return Testing::waitForTask(accessibility.tree(processId, Accessibility::unlimited)).size() > 20;
    });
    if (!isShown) {
        throw std::runtime_error("the program shows no window");
    }
    measureListing(accessibility, processId);
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QProcess gallery;
    gallery.start(QCoreApplication::arguments().value(1),
                  {QCoreApplication::arguments().value(2, u"1400"_s)});
    if (!gallery.waitForReadyRead()) {
        std::fputs("usage: listing_benchmark PROGRAM [ELEMENTS]\n", stderr);
        return 2;
    }
    int status = 0;
    try {
        measureWindow(gallery.processId());
    } catch (const std::exception &error) {
        std::fprintf(stderr, "listing_benchmark: %s\n", error.what());
        status = 1;
    }
    gallery.kill();
    gallery.waitForFinished();
    return status;
}
