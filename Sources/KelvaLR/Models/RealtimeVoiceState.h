#pragma once

#include "Models/RawValue.h"

namespace KelvaLR {

/// Where the realtime speech session stands.
enum class RealtimeVoiceState { idle, connecting, recording, speaking, failed };

template <>
inline constexpr std::array<RawValueRow<RealtimeVoiceState>, 5> rawValueTable<RealtimeVoiceState>{{
    {RealtimeVoiceState::idle, QLatin1StringView("idle")},
    {RealtimeVoiceState::connecting, QLatin1StringView("connecting")},
    {RealtimeVoiceState::recording, QLatin1StringView("recording")},
    {RealtimeVoiceState::speaking, QLatin1StringView("speaking")},
    {RealtimeVoiceState::failed, QLatin1StringView("failed")},
}};

} // namespace KelvaLR
