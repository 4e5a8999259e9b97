#include "Platform/Unavailable/UnavailableRunningApplications.h"

namespace KelvaLR {

std::optional<RunningApplication> UnavailableRunningApplications::frontmostApplication() const
{
    return std::nullopt;
}

QList<RunningApplication> UnavailableRunningApplications::runningApplications() const
{
    return {};
}

bool UnavailableRunningApplications::activate(const RunningApplication &)
{
    return false;
}

void UnavailableRunningApplications::bringOwnWindowsToFront() {}

std::optional<InstalledApplication>
UnavailableRunningApplications::applicationWithIdentifier(const QString &) const
{
    return std::nullopt;
}

QList<InstalledApplication> UnavailableRunningApplications::installedApplications() const
{
    return {};
}

QCoro::Task<std::expected<void, QString>> UnavailableRunningApplications::open(QUrl)
{
    co_return std::unexpected(QStringLiteral("Applications cannot be opened on this system."));
}

void UnavailableRunningApplications::reveal(const QString &) {}

} // namespace KelvaLR
