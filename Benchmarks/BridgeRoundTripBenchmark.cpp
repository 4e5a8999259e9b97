// Talks to the plug-in that listens on the bridge port and prints what a command costs: the time of a round
// trip, and what many commands in a row leave behind.
//
//     bridge_round_trip_benchmark [pings [commands]]

#include "ResidentMemory.h"

#include "Platform/Unavailable/UnavailableAccessibility.h"
#include "Platform/Unavailable/UnavailableInputEvents.h"
#include "Platform/Unavailable/UnavailableLightroomMenus.h"
#include "Platform/Unavailable/UnavailableRunningApplications.h"
#include "Services/Automation/UIAutomationService.h"
#include "Services/Lightroom/LightroomService.h"
#include "Support/DetachedTask.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>

namespace {

using namespace KelvaLR;
using namespace Qt::StringLiterals;

/// A service that finds nothing but the bridge, and installs its plug-in out of the way.
struct BridgeOnly
{
    UnavailableRunningApplications applications;
    UnavailableAccessibility accessibility;
    UnavailableInputEvents inputEvents;
    UnavailableLightroomMenus menus;
    UIAutomationService automation{accessibility, inputEvents, applications};
    QTemporaryDir modules;
    LightroomService service{applications,
                             accessibility,
                             menus,
                             automation,
                             LightroomPluginInstaller(modules.path()),
                             DebugLog(modules.filePath(QStringLiteral("app_debug.log")))};
};

qsizetype repliesLeft()
{
    return QDir(BridgeEndpoint().replyDirectory).entryList({u"kelvalr-lightroom-*.json"_s}).size();
}

void printRoundTrips(QList<double> milliseconds)
{
    std::ranges::sort(milliseconds);
    const auto quantile = [&](double share) {
        return milliseconds.at(
            std::min(qsizetype(share * double(milliseconds.size())), milliseconds.size() - 1));
    };
    std::printf("%lld pings: median %.2f ms, p99 %.2f ms, max %.2f ms\n",
                static_cast<long long>(milliseconds.size()), quantile(0.5), quantile(0.99),
                milliseconds.back());
}

QCoro::Task<bool> measureRoundTrips(LightroomService &service, int pings)
{
    QList<double> milliseconds;
    for (int i = 0; i < pings; ++i) {
        QElapsedTimer clock;
        clock.start();
        if (!co_await service.ping(AutoStart::no)) {
            std::printf("No plug-in answers on port %d.\n", BridgeEndpoint().port);
            co_return false;
        }
        milliseconds.append(double(clock.nsecsElapsed()) / 1e6);
    }
    printRoundTrips(milliseconds);
    co_return true;
}

QCoro::Task<bool> measureWhatIsLeft(LightroomService &service, int commands)
{
    const qsizetype repliesBefore = repliesLeft();
    const double memoryBefore = allocatedMegabytes();
    int unanswered = 0;
    for (int i = 0; i < commands; ++i) {
        if (!co_await service.sendPluginCommand({.action = LightroomPluginAction::getStatus})) {
            ++unanswered;
        }
    }
    const qsizetype replies = repliesLeft() - repliesBefore;
    std::printf(
        "%d commands in a row: %d unanswered, %lld reply files left behind, memory %.1f MB before and "
        "%.1f MB after, a command is %s in flight\n",
        commands, unanswered, static_cast<long long>(replies), memoryBefore, allocatedMegabytes(),
        service.isCommandInFlight() ? "stuck" : "no longer");
    co_return unanswered == 0 && replies == 0 && !service.isCommandInFlight();
}

QCoro::Task<> measure(LightroomService &service, int pings, int commands)
{
    const bool isGood =
        co_await measureRoundTrips(service, pings) && co_await measureWhatIsLeft(service, commands);
    QCoreApplication::exit(isGood ? 0 : 1);
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const int pings = arguments.value(1, u"500"_s).toInt();
    const int commands = arguments.value(2, u"1000"_s).toInt();
    if (pings < 1 || commands < 0) {
        std::fputs("usage: bridge_round_trip_benchmark [pings [commands]]\n", stderr);
        return 2;
    }
    BridgeOnly bridge;
    QTimer::singleShot(0, &bridge.service, [&] { startDetached(measure(bridge.service, pings, commands)); });
    return QCoreApplication::exec();
}
