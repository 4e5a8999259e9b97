#include "App/WindowedMode.h"

#include "App/CommandLine.h"
#include "App/Session.h"
#include "Support/TerminationSignals.h"
#include "Window/MainWindow.h"
#include "Window/Theme.h"

#include <QApplication>
#include <QLoggingCategory>

using namespace Qt::StringLiterals;

namespace StandIn {

namespace {

/// The toolkit ends the program when it finds no display; a user is told what to do instead.
bool hasDisplay()
{
    for (const char *variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        if (!qEnvironmentVariableIsEmpty(variable)) {
            return true;
        }
    }
    return false;
}

/// Also without the plug-in the window serves: as Lightroom does before one is installed.
void loadPlugin(PluginHost &host, MainWindow &window, const CommandLine &line)
{
    const auto start =
        line.isPluginStartedLater ? PluginStart::whenFirstUsed : PluginStart::asItsManifestSays;
    const auto loaded = host.load(start);
    if (loaded) {
        return;
    }
    say(stderr, loaded.error());
    if (host.isInstalled()) {
        window.showFailure(loaded.error());
    }
}

} // namespace

int runWindowed(const CommandLine &line, int &argumentCount, char **arguments)
{
    if (!hasDisplay()) {
        return fail(u"There is no display for the window; run with --headless."_s);
    }
    // A photo that is none shows a sentence; what its decoder thinks of it is no news for the terminal.
    QLoggingCategory::setFilterRules(u"qt.gui.imageio*.warning=false"_s);
    // No display name: the toolkit would add it to the title of every dialog.
    QCoreApplication::setApplicationName(u"Lightroom Stand-in"_s);
    QApplication application(argumentCount, arguments);
    Theme::apply(application);
    const auto session = Session::open(line);
    if (!session) {
        return fail(session.error());
    }
    const KelvaLR::TerminationSignals signals;
    QObject::connect(&signals, &KelvaLR::TerminationSignals::terminationRequested, qApp,
                     &QCoreApplication::quit);
    PluginHost &host = (*session)->host();
    MainWindow window((*session)->catalog(), host);
    QObject::connect(&window, &MainWindow::shown, &window, [] { say(stdout, u"window"_s); });
    QObject::connect(&host, &PluginHost::listenFailed, &window, [&](quint16 port, const QString &error) {
        window.showFailure(listenFailure(port, error));
    });
    window.show();
    loadPlugin(host, window, line);
    return QApplication::exec();
}

} // namespace StandIn
