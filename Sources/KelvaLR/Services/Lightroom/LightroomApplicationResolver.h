#pragma once

#include "Services/Lightroom/ResolvedLightroomApplication.h"

#include <QList>

#include <optional>

namespace KelvaLR {

class RunningApplications;

/// Finds the installed Lightroom application that a user means. Main thread.
class LightroomApplicationResolver
{
public:
    /// @param applications outlives this object
    explicit LightroomApplicationResolver(const RunningApplications &applications);

    /// A bare "lightroom" or "adobe lightroom" means Lightroom Classic where it is installed; a request that
    /// says "classic" is only answered by an application whose name does.
    [[nodiscard]] std::optional<ResolvedLightroomApplication> resolve(const QString &name) const;

    /// Every installed application whose file name contains "lightroom", in listing order.
    [[nodiscard]] QList<ResolvedLightroomApplication> installedLightroomApplications() const;

private:
    const RunningApplications &m_applications;
};

} // namespace KelvaLR
