#include "Platform/Linux/FliteSpeechSynthesizer.h"

#include "Platform/AudioOutput.h"
#include "Platform/Linux/FlitePieces.h"
#include "Platform/Linux/FliteVoice.h"

#include <algorithm>
#include <chrono>

namespace KelvaLR {

namespace {

/// Queued ahead of what is heard: enough for a busy machine, and little to throw away when it is stopped.
constexpr std::chrono::milliseconds rendersAhead = std::chrono::seconds(5);

std::chrono::milliseconds durationOf(const QByteArray &samples)
{
    const qsizetype frames = samples.size() / bytesPerFrame(FliteVoice::format);
    return std::chrono::milliseconds(frames * 1000 / FliteVoice::format.sampleRate);
}

} // namespace

FliteSpeechSynthesizer::FliteSpeechSynthesizer(AudioOutput &output)
    : m_output(output)
{
    m_renderer.setMaxThreadCount(1);
    m_nextPiece.setSingleShot(true);
    QObject::connect(&m_nextPiece, &QTimer::timeout, &m_context, [this] { renderNext(); });
}

FliteSpeechSynthesizer::~FliteSpeechSynthesizer()
{
    m_output.stop();
    m_renderer.clear();
}

void FliteSpeechSynthesizer::speak(const QString &text, EndHandler onEnd)
{
    stopSpeaking();
    ++m_utterances;
    m_utterance = {.pieces = flitePieces(text), .onEnd = std::move(onEnd)};
    if (m_utterance->pieces.isEmpty()) {
        end(SpeechEnd::finished);
    } else if (!openSpeaker()) {
        end(SpeechEnd::failed);
    } else {
        renderNext();
    }
}

void FliteSpeechSynthesizer::stopSpeaking()
{
    if (m_utterance) {
        m_output.stop();
        end(SpeechEnd::cancelled);
    }
}

/// Once is enough: from then on the speaker opens with what is played.
bool FliteSpeechSynthesizer::openSpeaker()
{
    if (!m_isSpeakerOpen) {
        m_isSpeakerOpen = m_output
                              .start(
                                  FliteVoice::format, [this] { goOnWhenHeard(); },
                                  [this](const QString &) { end(SpeechEnd::failed); })
                              .has_value();
    }
    return m_isSpeakerOpen;
}

void FliteSpeechSynthesizer::renderNext()
{
    m_nextPiece.stop();
    m_utterance->isRendering = true;
    m_renderer.start([this, piece = m_utterance->pieces.takeFirst(), utterance = m_utterances] {
        const auto deliver = [this, utterance, samples = FliteVoice::render(piece)] {
            if (m_utterance && utterance == m_utterances) {
                playRendered(samples);
            }
        };
        QMetaObject::invokeMethod(&m_context, deliver, Qt::QueuedConnection);
    });
}

void FliteSpeechSynthesizer::playRendered(const std::optional<QByteArray> &samples)
{
    m_utterance->isRendering = false;
    if (!samples) {
        m_output.stop();
        return end(SpeechEnd::failed);
    }
    const auto queued = std::chrono::milliseconds(m_utterance->heard.remainingTime()) + durationOf(*samples);
    m_utterance->heard.setRemainingTime(queued);
    m_output.play(*samples);
    if (!m_utterance->pieces.isEmpty()) {
        m_nextPiece.start(std::max(queued - rendersAhead, std::chrono::milliseconds(0)));
    }
}

void FliteSpeechSynthesizer::goOnWhenHeard()
{
    if (!m_utterance || m_utterance->isRendering) {
        return; // the rest comes late, and is heard when it is there
    }
    if (m_utterance->pieces.isEmpty()) {
        end(SpeechEnd::finished);
    } else {
        m_utterance->heard.setRemainingTime(0);
        renderNext();
    }
}

void FliteSpeechSynthesizer::end(SpeechEnd how)
{
    if (!m_utterance) {
        return;
    }
    m_nextPiece.stop();
    m_renderer.clear();
    QTimer::singleShot(0, &m_context, [onEnd = std::move(m_utterance->onEnd), how] { onEnd(how); });
    m_utterance.reset();
}

} // namespace KelvaLR
