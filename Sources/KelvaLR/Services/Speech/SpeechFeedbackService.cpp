#include "Services/Speech/SpeechFeedbackService.h"

#include "Platform/SpeechSynthesizer.h"
#include "Support/TextTrimming.h"

namespace KelvaLR {

SpeechFeedbackService::SpeechFeedbackService(SpeechSynthesizer &synthesizer)
    : m_synthesizer(synthesizer)
{
}

SpeechFeedbackService::~SpeechFeedbackService() = default;

void SpeechFeedbackService::speak(const QString &text, std::function<void()> completion)
{
    const QString spoken = trimmedWhitespace(text);
    if (spoken.isEmpty()) {
        if (completion) {
            completion();
        }
        return;
    }
    stop();
    m_completion = std::make_shared<Completion>(std::move(completion));
    // The end of a text that was replaced, or of one that outlives us, finds its completion gone.
    m_synthesizer.speak(spoken, [this, pending = std::weak_ptr(m_completion)](SpeechEnd) {
        if (const auto own = pending.lock()) {
            m_completion.reset();
            if (*own) {
                (*own)();
            }
        }
    });
}

void SpeechFeedbackService::stop()
{
    m_completion.reset();
    if (m_synthesizer.isSpeaking()) {
        m_synthesizer.stopSpeaking();
    }
}

} // namespace KelvaLR
