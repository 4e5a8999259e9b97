#pragma once

#include "Services/Lightroom/Language/PromptRouter.h"

#include <QByteArray>

namespace KelvaLR {

/// One JSON object on one line that says how a request would be routed: "text" (the line, unchanged), "route"
/// and what the route carries. No line feed at its end.
[[nodiscard]] QByteArray explainedRoute(const QString &line, const PromptRoute &route);

} // namespace KelvaLR
