#include "Platform/Linux/DesktopApplications.h"

#include "Platform/Linux/ApplicationStart.h"
#include "Platform/Linux/ProcessList.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QWindow>

#include <algorithm>

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;

/// For a window without a desktop entry. Wine gives windows the name of a program file; there the title is
/// what its user knows.
QString nameOf(const X11Window &window)
{
    const QString &className = window.windowClass.name;
    const QString program = programName(window.processId);
    const bool isProgramFile = className.endsWith(".exe"_L1, Qt::CaseInsensitive);
    const QStringList names = isProgramFile ? QStringList{window.title, program, className}
                                            : QStringList{className, program, window.title};
    const auto name = std::ranges::find_if_not(names, &QString::isEmpty);
    return name == names.end() ? QString() : *name;
}

RunningApplication applicationOf(const X11Window &window, const QList<DesktopEntry> &entries)
{
    const DesktopEntry *entry = entryOfWindows(window.windowClass, entries);
    return {.name = entry ? entry->name : nameOf(window),
            .identifier = entry ? entry->id : window.windowClass.name,
            .processId = window.processId};
}

/// A process is one application, whatever its other windows are named.
bool isSame(const RunningApplication &left, const RunningApplication &right)
{
    return left.processId != 0 ? left.processId == right.processId : left == right;
}

InstalledApplication installed(const DesktopEntry &entry)
{
    return {.displayName = entry.name,
            .fileName = QFileInfo(entry.path).fileName(),
            .url = QUrl::fromLocalFile(entry.path)};
}

/// Menus and tool tips come and go with their window.
bool standsOnItsOwn(const QWindow &window)
{
    return window.type() == Qt::Window || window.type() == Qt::Dialog;
}

} // namespace

DesktopApplications::DesktopApplications(const X11Connection &x11, SessionBus sessionBus,
                                         std::chrono::milliseconds deadline,
                                         std::chrono::milliseconds startDeadline)
    : m_windows(std::make_shared<const X11Windows>(x11))
    , m_sessionBus(std::move(sessionBus))
    , m_deadline(deadline)
    , m_startDeadline(startDeadline)
{
}

std::optional<RunningApplication> DesktopApplications::frontmostApplication() const
{
    const std::optional<X11Window> window = m_windows->active();
    return window ? std::optional(applicationOf(*window, installedDesktopEntries(applicationFolders())))
                  : std::nullopt;
}

QList<RunningApplication> DesktopApplications::runningApplications() const
{
    const QList<DesktopEntry> entries = installedDesktopEntries(applicationFolders());
    QList<RunningApplication> running;
    for (const X11Window &window : m_windows->all()) {
        const RunningApplication application = applicationOf(window, entries);
        const bool isListed = std::ranges::any_of(
            running, [&](const RunningApplication &listed) { return isSame(listed, application); });
        if (!isListed) {
            running.append(application);
        }
    }
    return running;
}

bool DesktopApplications::activate(const RunningApplication &application)
{
    const QList<DesktopEntry> entries = installedDesktopEntries(applicationFolders());
    const QList<X11Window> windows = m_windows->fromTheFront();
    const auto window = std::ranges::find_if(windows, [&](const X11Window &candidate) {
        return isSame(application, applicationOf(candidate, entries));
    });
    return window != windows.end() && m_windows->activate(*window);
}

void DesktopApplications::bringOwnWindowsToFront()
{
    for (QWindow *window : QGuiApplication::topLevelWindows()) { // none in a program without a window system
        if (window->isVisible() && standsOnItsOwn(*window)) {
            window->setWindowStates(window->windowStates() & ~Qt::WindowMinimized);
            window->raise();
            if (!window->transientParent()) { // the keyboard is for the main window, not for its dialogs
                window->requestActivate();
            }
        }
    }
}

std::optional<InstalledApplication>
DesktopApplications::applicationWithIdentifier(const QString &identifier) const
{
    const QList<DesktopEntry> entries = installedDesktopEntries(applicationFolders());
    const auto entry = std::ranges::find(entries, identifier, &DesktopEntry::id);
    return entry == entries.end() ? std::nullopt : std::optional(installed(*entry));
}

QList<InstalledApplication> DesktopApplications::installedApplications() const
{
    const QStringList desktopNames =
        qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':', Qt::SkipEmptyParts);
    QList<InstalledApplication> applications;
    for (const DesktopEntry &entry : installedDesktopEntries(applicationFolders())) {
        if (isListed(entry, desktopNames)) {
            applications.append(installed(entry));
        }
    }
    return applications;
}

QCoro::Task<std::expected<void, QString>> DesktopApplications::open(QUrl application)
{
    std::optional<DesktopEntry> entry = readDesktopEntry(application.toLocalFile());
    if (!entry) {
        co_return std::unexpected("Its desktop entry "_L1 + application.fileName() + " cannot be read."_L1);
    }
    co_return co_await startApplication(*std::move(entry), m_windows, m_startDeadline);
}

} // namespace KelvaLR
