#include "Views/ViewModels/VoiceStatus.h"

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

struct StatusRow
{
    RealtimeVoiceState state;
    QLatin1StringView title;
    QLatin1StringView subtitle;
};

constexpr std::array statuses{
    StatusRow{RealtimeVoiceState::idle, "Ready"_L1, "Use voice or type a prompt."_L1},
    StatusRow{RealtimeVoiceState::connecting, "Connecting"_L1, "Starting GPT Realtime 2."_L1},
    StatusRow{RealtimeVoiceState::recording, "Listening"_L1, "Speak naturally. KelvaLR is listening."_L1},
    StatusRow{RealtimeVoiceState::speaking, "Responding"_L1,
              "Response is playing and updating the artifact."_L1},
    StatusRow{RealtimeVoiceState::failed, "Voice Failed"_L1, "Check configuration and try again."_L1},
};

const StatusRow &row(RealtimeVoiceState state)
{
    for (const StatusRow &candidate : statuses) {
        if (candidate.state == state) {
            return candidate;
        }
    }
    return statuses.front();
}

} // namespace

QString statusTitle(RealtimeVoiceState state)
{
    return row(state).title;
}

QString statusSubtitle(RealtimeVoiceState state, bool isWakeWordListening)
{
    if (state == RealtimeVoiceState::idle && isWakeWordListening) {
        return u"Say \"Hey Kelva\" or type a prompt."_s;
    }
    return row(state).subtitle;
}

QString microphoneHelp(RealtimeVoiceState state)
{
    return state == RealtimeVoiceState::idle ? u"Start Computer Use Voice"_s : u"Stop Computer Use Voice"_s;
}

} // namespace KelvaLR
