#pragma once

#include "Platform/RunningApplications.h"

namespace KelvaLR {

/// For a system whose applications this build cannot list: none runs, none is installed.
class UnavailableRunningApplications final : public RunningApplications
{
public:
    std::optional<RunningApplication> frontmostApplication() const override;
    QList<RunningApplication> runningApplications() const override;
    bool activate(const RunningApplication &application) override;
    void bringOwnWindowsToFront() override;
    std::optional<InstalledApplication> applicationWithIdentifier(const QString &identifier) const override;
    QList<InstalledApplication> installedApplications() const override;
    QCoro::Task<std::expected<void, QString>> open(QUrl application) override;
    void reveal(const QString &folder) override;
};

} // namespace KelvaLR
