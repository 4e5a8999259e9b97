#pragma once

#include "Platform/Unavailable/UnavailableRunningApplications.h"

#include <QDBusConnection>

#include <chrono>
#include <functional>

namespace KelvaLR {

/// What a freedesktop.org desktop does for our own windows and for folders. It does not list applications
/// yet.
class DesktopApplications final : public UnavailableRunningApplications
{
public:
    /// Called in another thread, since connecting may block.
    using SessionBus = std::function<QDBusConnection()>;

    /// @param deadline for the bus and then for the file manager, which the bus may have to start first
    explicit DesktopApplications(SessionBus sessionBus = &QDBusConnection::sessionBus,
                                 std::chrono::milliseconds deadline = std::chrono::seconds(5));

    void bringOwnWindowsToFront() override;

    /// A folder that does not exist is replaced by its nearest existing parent. Where no file manager
    /// answers, the folder around it opens.
    void reveal(const QString &folder) override;

private:
    SessionBus m_sessionBus;
    std::chrono::milliseconds m_deadline;
};

} // namespace KelvaLR
