#pragma once

#include "Models/RealtimeVoiceState.h"

#include <QString>

// What the window says about the voice session.
namespace KelvaLR {

[[nodiscard]] QString statusTitle(RealtimeVoiceState state);
[[nodiscard]] QString statusSubtitle(RealtimeVoiceState state, bool isWakeWordListening);
/// The help text of the microphone control.
[[nodiscard]] QString microphoneHelp(RealtimeVoiceState state);

} // namespace KelvaLR
