#pragma once

#include <QString>

namespace KelvaLR {

// What the user says inside a voice session and what is no request. An empty transcript says nothing.

/// A transcript as it is compared with the phrases.
[[nodiscard]] QString normalizedComputerUseText(const QString &transcript);

/// Whether the user has called KelvaLR by name, in one of the ways in which that is transcribed.
[[nodiscard]] bool containsWakePhrase(const QString &transcript);

/// Whether the user wants the session to end: the whole transcript says so, or one of its words does.
[[nodiscard]] bool isVoiceSessionStopCommand(const QString &transcript);

} // namespace KelvaLR
