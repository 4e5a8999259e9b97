#pragma once

#include "Platform/Linux/X11Windows.h"
#include "Platform/RunningApplications.h"

#include <QDBusConnection>

#include <chrono>
#include <functional>
#include <memory>

namespace KelvaLR {

/// The applications of a freedesktop.org desktop: windows are listed by the X server, applications by
/// desktop entries. Where there is no X server none runs, and those that are installed can be opened.
class DesktopApplications final : public RunningApplications
{
public:
    /// Called in another thread, since connecting may block.
    using SessionBus = std::function<QDBusConnection()>;

    /// @param x11 outlives this object
    /// @param deadline for the bus and then for the file manager, which the bus may have to start first
    /// @param startDeadline for the first window of an application that is opened
    explicit DesktopApplications(const X11Connection &x11,
                                 SessionBus sessionBus = &QDBusConnection::sessionBus,
                                 std::chrono::milliseconds deadline = std::chrono::seconds(5),
                                 std::chrono::milliseconds startDeadline = std::chrono::seconds(10));

    std::optional<RunningApplication> frontmostApplication() const override;

    /// One for each process that has a window.
    QList<RunningApplication> runningApplications() const override;

    /// By its window that was in front last.
    bool activate(const RunningApplication &application) override;

    void bringOwnWindowsToFront() override;

    /// @param identifier the id of a desktop entry, as "org.gnome.gedit"
    std::optional<InstalledApplication> applicationWithIdentifier(const QString &identifier) const override;

    QList<InstalledApplication> installedApplications() const override;

    /// @param application the file of a desktop entry
    QCoro::Task<std::expected<void, QString>> open(QUrl application) override;

    /// A folder that does not exist is replaced by its nearest existing parent. Where no file manager
    /// answers, the folder around it opens.
    void reveal(const QString &folder) override;

private:
    std::shared_ptr<const X11Windows> m_windows;
    SessionBus m_sessionBus;
    std::chrono::milliseconds m_deadline;
    std::chrono::milliseconds m_startDeadline;
};

} // namespace KelvaLR
