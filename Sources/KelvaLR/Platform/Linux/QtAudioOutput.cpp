#include "Platform/Linux/QtAudioOutput.h"

#include "Platform/Linux/AudioPlayback.h"

namespace KelvaLR {

namespace {

QString noAnswer()
{
    return QStringLiteral("The speaker does not answer.");
}

} // namespace

QtAudioOutput::QtAudioOutput(AudioThread &thread, AudioTiming timing)
    : m_thread(thread)
    , m_timing(timing)
{
    m_opening.setSingleShot(true);
    m_opening.setInterval(timing.answer);
    QObject::connect(&m_opening, &QTimer::timeout, &m_context, [this] {
        const quint64 unanswered = m_turn;
        m_thread.post([playback = m_playback] { playback->clear(); });
        fail(unanswered, noAnswer());
    });
}

QtAudioOutput::~QtAudioOutput() = default;

std::expected<void, QString> QtAudioOutput::start(AudioFormat format, FinishedHandler onFinished,
                                                  FailureHandler onFailure)
{
    using Playback = std::shared_ptr<AudioPlayback>;
    stop();
    m_playback.reset();
    auto answer = m_thread.ask(
        [format, timing = m_timing]() -> std::expected<Playback, QString> {
            const Playback playback(new AudioPlayback(format, timing), LaterDeletion());
            const auto ready = playback->open();
            return ready ? std::expected<Playback, QString>(playback) : std::unexpected(ready.error());
        },
        m_timing.answer);
    if (!answer || !answer->has_value()) {
        return std::unexpected(answer ? answer->error() : noAnswer());
    }
    m_playback = std::move(**answer);
    m_onFinished = std::move(onFinished);
    m_onFailure = std::move(onFailure);
    follow();
    return {};
}

void QtAudioOutput::follow()
{
    const AudioPlayback *playback = m_playback.get();
    QObject::connect(playback, &AudioPlayback::opened, &m_context, [this] { m_opening.stop(); });
    QObject::connect(playback, &AudioPlayback::finished, &m_context, [this](quint64 turn) { finish(turn); });
    QObject::connect(playback, &AudioPlayback::failed, &m_context,
                     [this](quint64 turn, const QString &sentence) { fail(turn, sentence); });
}

void QtAudioOutput::play(QByteArray samples)
{
    if (!m_playback) {
        return;
    }
    ++m_turn;
    if (!m_isPlaying) {
        m_isPlaying = true;
        m_opening.start();
    }
    m_thread.post([playback = m_playback, samples = std::move(samples), turn = m_turn] {
        playback->append(samples, turn);
    });
}

void QtAudioOutput::stop()
{
    ++m_turn;
    m_isPlaying = false;
    m_opening.stop();
    if (m_playback) {
        m_thread.post([playback = m_playback] { playback->clear(); });
    }
}

void QtAudioOutput::finish(quint64 turn)
{
    if (m_isPlaying && turn == m_turn) {
        m_isPlaying = false;
        const FinishedHandler onFinished = m_onFinished; // it may start anew
        onFinished();
    }
}

void QtAudioOutput::fail(quint64 turn, const QString &sentence)
{
    if (m_isPlaying && turn == m_turn) {
        m_isPlaying = false;
        m_opening.stop();
        const FailureHandler onFailure = m_onFailure; // it may start anew
        onFailure(sentence);
    }
}

} // namespace KelvaLR
