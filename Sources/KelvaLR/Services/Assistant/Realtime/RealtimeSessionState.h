#pragma once

#include "Models/RealtimeVoiceState.h"

#include <array>

namespace KelvaLR {

/// What moves a realtime session from one reported state to another.
enum class RealtimeTransition {
    startBegan,
    voiceSessionRuns,
    audioArrived,
    replyDoneInVoiceSession,
    replyDoneInTextSession,
    localFeedbackEnded,
    voiceEnabled,
    voiceDisabled,
    stopped,
};

struct RealtimeTransitionRow
{
    RealtimeTransition transition;
    RealtimeVoiceState state;
};

/// Every transition leads to one state, from wherever the session is. A text session stays "connecting" until
/// its first reply is done. "failed" is reported and never a state to be in: what failed goes on, or is
/// stopped.
inline constexpr std::array realtimeTransitions{
    RealtimeTransitionRow{RealtimeTransition::startBegan, RealtimeVoiceState::connecting},
    RealtimeTransitionRow{RealtimeTransition::voiceSessionRuns, RealtimeVoiceState::recording},
    RealtimeTransitionRow{RealtimeTransition::audioArrived, RealtimeVoiceState::speaking},
    RealtimeTransitionRow{RealtimeTransition::replyDoneInVoiceSession, RealtimeVoiceState::recording},
    RealtimeTransitionRow{RealtimeTransition::replyDoneInTextSession, RealtimeVoiceState::idle},
    RealtimeTransitionRow{RealtimeTransition::localFeedbackEnded, RealtimeVoiceState::recording},
    RealtimeTransitionRow{RealtimeTransition::voiceEnabled, RealtimeVoiceState::recording},
    RealtimeTransitionRow{RealtimeTransition::voiceDisabled, RealtimeVoiceState::idle},
    RealtimeTransitionRow{RealtimeTransition::stopped, RealtimeVoiceState::idle},
};

[[nodiscard]] constexpr RealtimeVoiceState stateAfter(RealtimeTransition transition)
{
    for (const RealtimeTransitionRow &row : realtimeTransitions) {
        if (row.transition == transition) {
            return row.state;
        }
    }
    return RealtimeVoiceState::idle;
}

} // namespace KelvaLR
