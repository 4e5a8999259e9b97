#pragma once

#include <QString>

namespace KelvaLR {

// The fixed texts that the service is given; they are embedded and arrive byte for byte.

/// Obliges the chat service to answer with one JSON object.
[[nodiscard]] QString chatSystemPrompt();

/// Tells the realtime service what it is for, and when to use its tool.
[[nodiscard]] QString realtimeInstructions();

} // namespace KelvaLR
