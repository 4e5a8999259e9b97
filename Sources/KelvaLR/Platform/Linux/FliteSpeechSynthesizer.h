#pragma once

#include "Platform/SpeechSynthesizer.h"

#include <QByteArray>
#include <QDeadlineTimer>
#include <QList>
#include <QObject>
#include <QThreadPool>
#include <QTimer>

#include <optional>

namespace KelvaLR {

class AudioOutput;

/// Speaks with flite, whose samples it renders on a thread of its own and plays through the speaker. A text
/// is rendered a few seconds ahead of what is heard, so that a long one begins as soon as a short one and
/// takes no more room.
class FliteSpeechSynthesizer final : public SpeechSynthesizer
{
public:
    /// @param output outlives this object, which alone plays through it
    explicit FliteSpeechSynthesizer(AudioOutput &output);
    ~FliteSpeechSynthesizer() override; ///< waits for the sentence that is being rendered
    Q_DISABLE_COPY_MOVE(FliteSpeechSynthesizer)

    void speak(const QString &text, EndHandler onEnd) override;
    void stopSpeaking() override;

    bool isSpeaking() const override { return m_utterance.has_value(); }

private:
    struct Utterance
    {
        QList<QByteArray> pieces; ///< not rendered yet
        EndHandler onEnd;
        bool isRendering = false;
        QDeadlineTimer heard{0}; ///< when about what is queued has been heard
    };

    [[nodiscard]] bool openSpeaker();
    void renderNext();
    void playRendered(const std::optional<QByteArray> &samples);
    void goOnWhenHeard();
    void end(SpeechEnd how);

    AudioOutput &m_output;
    bool m_isSpeakerOpen = false;
    std::optional<Utterance> m_utterance;
    quint64 m_utterances = 0; ///< how many there have been; what is rendered for an earlier one is dropped
    QTimer m_nextPiece;       ///< runs while the next piece can wait
    QObject m_context;        ///< ends the reports with us
    QThreadPool m_renderer;   ///< last: what it still renders reports to the above
};

} // namespace KelvaLR
