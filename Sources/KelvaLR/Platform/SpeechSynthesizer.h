#pragma once

#include <QString>

#include <functional>

namespace KelvaLR {

/// How an utterance came to its end.
enum class SpeechEnd {
    finished,  ///< heard to its end
    cancelled, ///< cut off by `stopSpeaking`
    failed,    ///< there is no voice or no speaker, or it went away
};

/// Port: a voice that reads text, one utterance at a time. Main thread, which it never holds up.
class SpeechSynthesizer
{
public:
    /// Called once for each utterance, on the main thread, on a later turn of the event loop than the call
    /// that led to it.
    using EndHandler = std::function<void(SpeechEnd end)>;

    SpeechSynthesizer() = default;
    virtual ~SpeechSynthesizer() = default;
    Q_DISABLE_COPY_MOVE(SpeechSynthesizer)

    /// Speaks with the system's voice at its usual rate. One that is still being spoken is cut off.
    virtual void speak(const QString &text, EndHandler onEnd) = 0;

    /// Falls silent at once, not at the end of a word.
    virtual void stopSpeaking() = 0;

    /// From `speak` until its end.
    [[nodiscard]] virtual bool isSpeaking() const = 0;
};

} // namespace KelvaLR
