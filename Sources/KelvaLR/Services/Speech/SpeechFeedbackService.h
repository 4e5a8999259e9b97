#pragma once

#include "Services/Speech/SpokenFeedback.h"

#include <memory>

namespace KelvaLR {

class SpeechSynthesizer;

/// Reads texts aloud with the system's voice.
class SpeechFeedbackService final : public SpokenFeedback
{
public:
    /// @param synthesizer outlives this object, which alone speaks with it
    explicit SpeechFeedbackService(SpeechSynthesizer &synthesizer);
    ~SpeechFeedbackService() override;
    Q_DISABLE_COPY_MOVE(SpeechFeedbackService)

    void speak(const QString &text, std::function<void()> completion) override;
    void stop() override;

private:
    using Completion = std::function<void()>;

    SpeechSynthesizer &m_synthesizer;
    std::shared_ptr<Completion> m_completion; ///< that of the latest utterance, until its end
};

} // namespace KelvaLR
