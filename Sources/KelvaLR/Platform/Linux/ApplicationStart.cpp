#include "Platform/Linux/ApplicationStart.h"

#include "Platform/Linux/ProcessList.h"

#include <QCoroProcess>
#include <QCoroTimer>

#include <QDeadlineTimer>
#include <QProcess>
#include <QStandardPaths>

#include <algorithm>

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr auto poll = 100ms;
constexpr auto endOfWaiter = 1s; ///< it only has to die

std::unexpected<QString> failure(const QString &sentence)
{
    return std::unexpected(sentence);
}

/// The command that starts the application, or the sentence that says why there is none.
std::expected<QStringList, QString> startCommand(const DesktopEntry &entry)
{
    if (entry.needsTerminal) {
        return failure(entry.name + u" runs in a terminal only."_s);
    }
    const auto command = commandLine(entry);
    if (!command) {
        return failure(u"The command of its desktop entry cannot be read."_s);
    }
    if (QStandardPaths::findExecutable(command->first()).isEmpty()) {
        return failure(u"The program "_s + command->first() + u" is missing."_s);
    }
    return *command;
}

/// Our own token must not pass for the application's.
QProcessEnvironment inheritedEnvironment()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(u"DESKTOP_STARTUP_ID"_s);
    environment.remove(u"XDG_ACTIVATION_TOKEN"_s);
    return environment;
}

/// Through setsid(1), which gives the application a session of its own, waits for it and ends with its
/// status. So we hear how it ends, while the application does not end with us.
void start(QProcess &waiter, const DesktopEntry &entry, const QStringList &command)
{
    waiter.setProgram(u"setsid"_s);
    waiter.setArguments(QStringList{u"--fork"_s, u"--wait"_s, u"--"_s} + command);
    waiter.setProcessEnvironment(inheritedEnvironment());
    waiter.setWorkingDirectory(entry.workingFolder);
    waiter.setStandardInputFile(QProcess::nullDevice());
    waiter.setStandardOutputFile(QProcess::nullDevice());
    waiter.setStandardErrorFile(QProcess::nullDevice());
    waiter.start();
}

/// What went wrong with the application so far; nothing while it runs and when it has ended well, as a
/// program that only hands over to another one does.
QString problem(const QProcess &waiter)
{
    if (waiter.state() != QProcess::NotRunning) {
        return {};
    }
    if (waiter.error() == QProcess::FailedToStart) {
        return waiter.errorString() + u'.';
    }
    return waiter.exitCode() == 0 ? QString() : u"It ended at once with status %1."_s.arg(waiter.exitCode());
}

/// Whether the application has a window, which then comes to the front.
bool showsWindow(const X11Windows &windows, const DesktopEntry &entry, qint64 waiterId)
{
    const QList<DesktopEntry> known{entry};
    const QList<X11Window> present = windows.fromTheFront();
    const auto window = std::ranges::find_if(present, [&](const X11Window &candidate) {
        return (waiterId > 0 && descendsFrom(candidate.processId, waiterId)) ||
               entryOfWindows(candidate.windowClass, known) != nullptr;
    });
    return window != present.end() && windows.activate(*window);
}

bool showsWindow(const std::weak_ptr<const X11Windows> &windows, const DesktopEntry &entry, qint64 waiterId)
{
    const auto present = windows.lock();
    return present && showsWindow(*present, entry, waiterId);
}

} // namespace

QCoro::Task<std::expected<void, QString>> startApplication(DesktopEntry entry,
                                                           std::weak_ptr<const X11Windows> windows,
                                                           std::chrono::milliseconds deadline)
{
    constexpr qint64 notStarted = 0;
    if (showsWindow(windows, entry, notStarted)) {
        co_return std::expected<void, QString>();
    }
    const std::expected<QStringList, QString> command = startCommand(entry);
    if (!command) {
        co_return failure(command.error());
    }
    QProcess waiter;
    start(waiter, entry, *command);
    for (const QDeadlineTimer end(deadline); !end.hasExpired() && !windows.expired();) {
        co_await QCoro::sleepFor(poll);
        if (const QString text = problem(waiter); !text.isEmpty()) {
            co_return failure(text);
        }
        if (showsWindow(windows, entry, waiter.processId())) {
            break;
        }
    }
    waiter.kill();
    co_await qCoro(waiter).waitForFinished(endOfWaiter);
    co_return std::expected<void, QString>();
}

} // namespace KelvaLR
