#pragma once

#include "Platform/RunningApplications.h"

namespace KelvaLR {

/// The first running application that calls itself Lightroom; "Lightroom" is written so in all of their
/// names.
[[nodiscard]] inline std::optional<RunningApplication> runningLightroom(const RunningApplications &desktop)
{
    for (const RunningApplication &application : desktop.runningApplications()) {
        if (application.name.contains(QLatin1StringView("Lightroom"))) {
            return application;
        }
    }
    return std::nullopt;
}

} // namespace KelvaLR
