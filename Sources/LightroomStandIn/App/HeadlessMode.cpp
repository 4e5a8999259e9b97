#include "App/HeadlessMode.h"

#include "App/CommandLine.h"
#include "App/Session.h"
#include "Support/TerminationSignals.h"

#include <QCoreApplication>

#include <cstdlib>

namespace StandIn {

int runHeadless(const CommandLine &line, int &argumentCount, char **arguments)
{
    const QCoreApplication application(argumentCount, arguments);
    const auto session = Session::open(line);
    if (!session) {
        return fail(session.error());
    }
    const KelvaLR::TerminationSignals signals;
    QObject::connect(&signals, &KelvaLR::TerminationSignals::terminationRequested, qApp,
                     &QCoreApplication::quit);
    PluginHost &host = (*session)->host();
    QObject::connect(&host, &PluginHost::listenFailed, &host, [] { QCoreApplication::exit(EXIT_FAILURE); });
    if (const auto loaded = host.load(); !loaded) {
        return fail(loaded.error());
    }
    return QCoreApplication::exec();
}

} // namespace StandIn
