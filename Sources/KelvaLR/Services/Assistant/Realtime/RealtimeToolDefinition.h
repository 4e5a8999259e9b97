#pragma once

#include "Support/OrderedJsonObject.h"

namespace KelvaLR {

/// The one tool that the realtime service is offered.
[[nodiscard]] OrderedJsonObject computerUseToolDefinition();

} // namespace KelvaLR
