#include "App/WindowMode.h"

#include "App/KelvaLRApp.h"
#include "Platform/Linux/DesktopAppearance.h"
#include "Platform/Linux/SessionBus.h"
#include "Support/TerminationSignals.h"
#include "Views/MainWindowHost.h"

#include <QGuiApplication>
#include <QIcon>
#include <QLoggingCategory>
#include <QQuickWindow>

#include <cstdio>

namespace KelvaLR {

using namespace Qt::StringLiterals;

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

} // namespace

int runWindow(int &argumentCount, char **arguments)
{
    if (!hasDisplay()) {
        std::fputs(
            "kelvalr: There is no display for the window. Use --prompt TEXT or --terminal; --help lists "
            "all.\n",
            stderr);
        return 1;
    }
    // A broken photo shows a placeholder; what its decoder thinks of it is no news for the terminal.
    QLoggingCategory::setFilterRules(u"qt.gui.imageio*.warning=false"_s);
    qInstallMessageHandler(passOnMessage);
    const QGuiApplication application(argumentCount, arguments);
    // By this name a desktop finds the entry of a window; without an entry the window brings its own icon.
    QGuiApplication::setDesktopFileName(u"org.kelvalr.KelvaLR"_s);
    QGuiApplication::setWindowIcon(QIcon(u":/app/org.kelvalr.KelvaLR.svg"_s));
    const TerminationSignals signals;
    QObject::connect(&signals, &TerminationSignals::terminationRequested, &signals,
                     &TerminationSignals::exitApplication);
    KelvaLRApp app(stderr, KelvaLRApp::Speech::on);
    DesktopAppearance appearance(existingSessionBus());
    MainWindowHost host(
        {app.model(), app.intentRouter(), app.preferences(), app.lightroomService(), appearance});
    if (!host.window()) {
        return 1;
    }
    QObject::connect(&app.consent(), &ComputerControlConsent::asked, &host.settings(),
                     &SettingsViewModel::askForComputerControl);
    if (!app.preferences().isOn(Preference::startInQuietMode)) {
        // A session takes a moment to begin, which the window does not wait for.
        QObject::connect(
            host.window(), &QQuickWindow::frameSwapped, &app.model(),
            [&app] { app.model().setMode(InputMode::voice); }, Qt::SingleShotConnection);
    }
    host.window()->show();
    host.window()->requestActivate();
    return QGuiApplication::exec();
}

} // namespace KelvaLR
