#pragma once

#include <QString>

namespace KelvaLR {

/// Why a realtime session cannot begin or go on.
enum class RealtimeVoiceError { invalidURL, notConnected, microphoneDenied, audioConversionUnavailable };

[[nodiscard]] inline QString description(RealtimeVoiceError error)
{
    switch (error) {
    case RealtimeVoiceError::invalidURL:
        return QStringLiteral("The Realtime API URL is invalid.");
    case RealtimeVoiceError::notConnected:
        return QStringLiteral("Realtime is not connected.");
    case RealtimeVoiceError::microphoneDenied:
        return QStringLiteral(
            "Microphone access was denied. Enable it in System Settings to test Realtime voice.");
    case RealtimeVoiceError::audioConversionUnavailable:
        return QStringLiteral("Could not prepare microphone audio conversion.");
    }
    return {};
}

} // namespace KelvaLR
