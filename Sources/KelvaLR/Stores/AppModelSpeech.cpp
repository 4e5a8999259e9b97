// The road of what is read aloud by our own voice, which the wake phrase listener must not hear.
#include "Platform/Preferences.h"
#include "Services/Assistant/RealtimeVoiceService.h"
#include "Services/Speech/SpeakableText.h"
#include "Services/Speech/SpokenFeedback.h"
#include "Services/Speech/WakePhraseListener.h"
#include "Stores/AppModel.h"

#include <QPointer>

#include <utility>

namespace KelvaLR {

void AppModel::answer(const QString &content)
{
    appendAssistantMessage(content);
    readResponse(content);
}

void AppModel::readResponse(const QString &text)
{
    if (const QString spoken = speakableText(text); !spoken.isEmpty() && readsResponses()) {
        readAloud(spoken);
    }
}

/// A session with an open microphone would take what we say for the user's words.
bool AppModel::readsResponses() const
{
    return m_services.preferences.isOn(Preference::readResponsesAloud) &&
           !m_services.realtimeVoiceService.holdsMicrophone();
}

void AppModel::readAloud(const QString &text)
{
    m_isSpeaking = true;
    if (isRealtimeSessionBusy()) {
        m_services.realtimeVoiceService.beginLocalFeedback();
    }
    m_services.wakeWordVoiceService.stop();
    setWakeWordListening(false);
    m_services.speechFeedbackService.speak(text, [self = QPointer<AppModel>(this)] {
        if (self) {
            self->finishSpeaking();
        }
    });
}

void AppModel::finishSpeaking()
{
    m_isSpeaking = false;
    if (isRealtimeSessionBusy()) {
        m_services.realtimeVoiceService.finishLocalFeedbackAndScheduleIdleDisconnect();
        return;
    }
    m_realtimeTranscriptMessageID.reset();
    startWakeWordListening();
}

/// What was spoken ends without `finishSpeaking`.
void AppModel::stopSpeaking()
{
    m_services.speechFeedbackService.stop();
    if (std::exchange(m_isSpeaking, false) && isRealtimeSessionBusy()) {
        m_services.realtimeVoiceService.finishLocalFeedbackAndScheduleIdleDisconnect();
    }
}

} // namespace KelvaLR
