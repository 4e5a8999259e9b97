#include "App/WindowMode.h"

#include "App/KelvaLRApp.h"
#include "App/SystemActionNames.h"
#include "App/SystemActionService.h"
#include "AppIntents/AppIntentRouter.h"
#include "Platform/Linux/DesktopAppearance.h"
#include "Platform/Linux/SessionBus.h"
#include "Platform/Linux/X11Connection.h"
#include "Support/TerminationSignals.h"
#include "Views/MainWindowHost.h"

#include <QGuiApplication>
#include <QIcon>
#include <QLoggingCategory>
#include <QQuickWindow>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <optional>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

/// How long a program that the session bus started waits for somebody who wants its window.
constexpr std::chrono::seconds idleTime{30};

/// The toolkit ends the program when it finds no display, or one that is gone, as in a terminal that outlived
/// its desktop; a user is told what to do instead.
bool hasDisplay()
{
    return !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") || X11Connection().isOpen();
}

/// What the toolkit's sound says of itself is no news for the terminal: the window says what is wrong with
/// it.
bool isOfSound(const QString &message)
{
    return message.startsWith(u"PulseAudioService:") || message.startsWith(u"\"Stream error:");
}

void passOnMessage(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (!isOfSound(message)) {
        const QByteArray line = qFormatLogMessage(type, context, message).toLocal8Bit() + '\n';
        std::fputs(line.constData(), stderr);
    }
}

/// The window with all that it stands on, made when it is first asked for.
class Program
{
public:
    explicit Program(AppIntentRouter &router)
        : m_router(router)
    {
    }

    [[nodiscard]] bool isOpen() const { return m_parts.has_value(); }

    /// Opens the window, or brings it to the front; false when it cannot be opened.
    bool present()
    {
        if (isOpen()) {
            m_parts->app.model().bringAppToFront();
            return true;
        }
        m_parts.emplace(m_router);
        if (!m_parts->host.window()) {
            m_parts.reset();
            return false;
        }
        open(*m_parts);
        return true;
    }

private:
    struct Parts
    {
        explicit Parts(AppIntentRouter &router)
            : appearance(existingSessionBus())
            , host({app.model(), router, app.preferences(), app.lightroomService(), appearance})
        {
        }

        KelvaLRApp app{stderr, KelvaLRApp::Speech::on};
        DesktopAppearance appearance;
        MainWindowHost host;
    };

    static void open(Parts &parts)
    {
        QObject::connect(&parts.app.consent(), &ComputerControlConsent::asked, &parts.host.settings(),
                         &SettingsViewModel::askForComputerControl);
        AppModel &model = parts.app.model();
        if (!parts.app.preferences().isOn(Preference::startInQuietMode)) {
            // A session takes a moment to begin, which the window does not wait for.
            QObject::connect(
                parts.host.window(), &QQuickWindow::frameSwapped, &model,
                [&model] { model.setMode(InputMode::voice); }, Qt::SingleShotConnection);
        }
        parts.host.window()->show();
        parts.host.window()->requestActivate();
    }

    AppIntentRouter &m_router;
    std::optional<Parts> m_parts;
};

/// Prints what an action says.
/// @return the exit status
int report(const std::expected<std::optional<QString>, QString> &outcome)
{
    if (!outcome) {
        std::fputs(qPrintable(u"kelvalr: %1\n"_s.arg(outcome.error())), stderr);
        return 1;
    }
    if (*outcome) {
        std::puts(qPrintable(**outcome));
        std::fflush(stdout);
    }
    return 0;
}

/// Publishes the program, or hands its request to the one that is there already.
/// @return the exit status when this one is not needed
std::optional<int> handedOver(SystemActionService &actions, const std::optional<KelvaLRIntent> &intent)
{
    const QDBusConnection bus = existingSessionBus();
    for (int attempt = 1; actions.publish(bus) == SystemActionService::Publication::anotherRuns; ++attempt) {
        const auto outcome = handOver(bus, intent);
        // One that was just ending leaves the name to us.
        if (outcome || attempt == 2 || isAnotherRunning(bus)) {
            return report(outcome);
        }
    }
    return std::nullopt;
}

/// Where there is no display, a program that runs may still have one.
int runWithoutDisplay(const CommandLine &line, int &argumentCount, char **arguments)
{
    const QCoreApplication application(argumentCount, arguments);
    const QDBusConnection bus = existingSessionBus();
    if (isAnotherRunning(bus)) {
        return report(handOver(bus, line.intent));
    }
    std::fputs(
        "kelvalr: There is no display for the window. Use --prompt TEXT or --terminal; --help lists all.\n",
        stderr);
    return 1;
}

} // namespace

int runWindow(const CommandLine &line, int &argumentCount, char **arguments)
{
    if (!hasDisplay()) {
        return runWithoutDisplay(line, argumentCount, arguments);
    }
    // A broken photo shows a placeholder; what its decoder thinks of it is no news for the terminal.
    QLoggingCategory::setFilterRules(u"qt.gui.imageio*.warning=false"_s);
    qInstallMessageHandler(passOnMessage);
    const QGuiApplication application(argumentCount, arguments);
    // By this name a desktop finds the entry of a window; without an entry the window brings its own icon.
    QGuiApplication::setDesktopFileName(SystemActionName::service);
    QGuiApplication::setWindowIcon(QIcon(u":/app/org.kelvalr.KelvaLR.svg"_s));
    const TerminationSignals signals;
    QObject::connect(&signals, &TerminationSignals::terminationRequested, &signals,
                     &TerminationSignals::exitApplication);

    AppIntentRouter router;
    Program program(router);
    SystemActionService actions(router, [&program] { return program.present(); });
    if (const std::optional<int> status = handedOver(actions, line.intent)) {
        return *status;
    }
    if (line.mode == LaunchMode::service) {
        QTimer::singleShot(idleTime, &application, [&program] {
            if (!program.isOpen()) {
                QCoreApplication::quit();
            }
        });
    } else if (line.intent) {
        if (const int status = report(actions.run(*line.intent)); status != 0) {
            return status;
        }
    } else if (!actions.activate()) {
        return 1; // the engine has said why
    }
    return QGuiApplication::exec();
}

} // namespace KelvaLR
