#include "App/AssumedFrontmostApplication.h"
#include "App/CommandLine.h"
#include "App/ConversationPrinter.h"
#include "App/ExplainMode.h"
#include "App/KelvaLRApp.h"
#include "App/PromptSession.h"
#include "App/StandardInputLines.h"
#include "App/WindowMode.h"
#include "Platform/Linux/SettingsPreferences.h"
#include "Services/Lightroom/LightroomPluginInstaller.h"
#include "Support/DetachedTask.h"
#include "Support/TerminationSignals.h"

#include <QCoreApplication>
#include <QCoroTimer>
#include <QFile>

#include <optional>

#include <fcntl.h>
#include <unistd.h>

using namespace KelvaLR;
using namespace Qt::StringLiterals;

namespace {

void print(std::FILE *file, const QString &text)
{
    std::fputs(text.toUtf8().constData(), file);
}

int runExplain(const CommandLine &line)
{
    const AssumedFrontmostApplication frontmost(
        line.isLightroomAssumedFrontmost
            ? std::optional(RunningApplication{u"Adobe Lightroom Classic"_s, {}, 0})
            : std::nullopt);
    QFile input;
    QFile output;
    if (!input.open(STDIN_FILENO, QIODevice::ReadOnly) ||
        !output.open(STDOUT_FILENO, QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        print(stderr, u"kelvalr: Standard input or output is closed.\n"_s);
        return 1;
    }
    return explainRequests(input, output, frontmost);
}

int runInstallPlugin()
{
    const LightroomPluginInstaller installer(LightroomPluginInstaller::defaultModulesFolder());
    if (const auto installed = installer.install(); !installed) {
        print(stderr, u"kelvalr: %1\n"_s.arg(installed.error()));
        return 1;
    }
    print(stdout, installer.pluginFolder() + u'\n');
    return 0;
}

/// False when the answer cannot be kept, which is said.
bool keepConsent(bool isAllowed)
{
    if (SettingsPreferences().setOn(Preference::allowComputerControl, isAllowed)) {
        return true;
    }
    print(stderr, u"kelvalr: The settings cannot be written, so whether KelvaLR may press keys and click in "
                  "other programs stays as it was.\n"_s);
    return false;
}

int runConsent(const CommandLine &line)
{
    print(stdout, *line.allowsComputerControl
                      ? u"KelvaLR may press keys and click in other programs from now on.\n"_s
                      : u"KelvaLR does not press keys or click in other programs any more.\n"_s);
    return 0;
}

/// A standard descriptor that is closed would be given to the next file or socket that is opened.
void fillStandardDescriptors()
{
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(descriptor, F_GETFD) < 0) {
            ::open("/dev/null", O_RDWR); // takes the lowest that is free
        }
    }
}

QCoro::Task<> exitWithStatusOf(QCoro::Task<int> session)
{
    co_await QCoro::sleepFor(
        std::chrono::milliseconds(0)); // an exit before the event loop runs would be lost
    QCoreApplication::exit(co_await session);
}

int runConversation(const CommandLine &line)
{
    const TerminationSignals signals;
    QObject::connect(&signals, &TerminationSignals::terminationRequested, &signals,
                     &TerminationSignals::exitApplication);
    KelvaLRApp app(stderr, KelvaLRApp::Speech::off);
    const bool isTerminal = line.mode == LaunchMode::terminal;
    const bool isTyped = isTerminal && line.format == OutputFormat::text && isatty(STDIN_FILENO) != 0 &&
                         isatty(STDOUT_FILENO) != 0;
    const ConversationPrinter printer(
        app.model(), line.format, isTyped ? ConversationPrinter::Echo::off : ConversationPrinter::Echo::on,
        stdout);

    std::optional<StandardInputLines> lines;
    if (isTerminal) {
        lines.emplace(STDIN_FILENO);
        startDetached(exitWithStatusOf(
            answerLines(app.model(), *lines, isTyped ? LinePrompt::shown : LinePrompt::hidden)));
    } else {
        startDetached(exitWithStatusOf(answerPrompts(app.model(), line.prompts)));
    }
    const int status = QCoreApplication::exec();
    return app.lightroomService().isPluginInstalled() ? status : 1;
}

int runWithoutWindow(const CommandLine &line)
{
    switch (line.mode) {
    case LaunchMode::help:
        print(stdout, CommandLine::helpText());
        return 0;
    case LaunchMode::version:
        print(stdout, u"kelvalr %1\n"_s.arg(QCoreApplication::applicationVersion()));
        return 0;
    case LaunchMode::explain:
        return runExplain(line);
    case LaunchMode::installPlugin:
        return runInstallPlugin();
    case LaunchMode::consent:
        return runConsent(line);
    case LaunchMode::prompts:
    case LaunchMode::terminal:
        return runConversation(line);
    case LaunchMode::window:
    case LaunchMode::service:
        break;
    }
    return 1;
}

QStringList decoded(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        arguments.append(QString::fromLocal8Bit(argv[i]));
    }
    return arguments;
}

} // namespace

int main(int argc, char **argv)
{
    fillStandardDescriptors();
    QCoreApplication::setApplicationName(u"KelvaLR"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(KELVALR_VERSION));

    // Which kind of application object is made depends on the arguments.
    const auto line = CommandLine::parse(decoded(argc, argv));
    if (!line) {
        print(stderr, u"kelvalr: %1\n"_s.arg(line.error()));
        return 2;
    }
    if (line->mode == LaunchMode::window || line->mode == LaunchMode::service) {
        return runWindow(*line, argc, argv);
    }
    const QCoreApplication application(argc, argv);
    const bool asksForHelp = line->mode == LaunchMode::help || line->mode == LaunchMode::version;
    if (line->allowsComputerControl && !asksForHelp && !keepConsent(*line->allowsComputerControl)) {
        return 1;
    }
    return runWithoutWindow(*line);
}
