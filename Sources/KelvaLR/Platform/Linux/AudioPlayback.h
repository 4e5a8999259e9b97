#pragma once

#include "Platform/Linux/AudioThread.h"
#include "Platform/Linux/PlaybackQueue.h"

#include "Models/AudioFormat.h"

#include <QAudioSink>
#include <QDeadlineTimer>
#include <QObject>
#include <QString>
#include <QTimer>

#include <expected>
#include <memory>

namespace KelvaLR {

/// Plays into the default speaker, which is open only while there is something to hear. Audio thread only;
/// the signals name the turn in which the last samples came.
class AudioPlayback final : public QObject
{
    Q_OBJECT

public:
    AudioPlayback(const AudioFormat &format, const AudioTiming &timing);
    ~AudioPlayback() override;

    /// Opens the default speaker; the error is a finished sentence.
    std::expected<void, QString> open();

    /// @param turn grows with each call
    void append(const QByteArray &samples, quint64 turn);
    void clear();

Q_SIGNALS:
    void opened(quint64 turn);
    void finished(quint64 turn);
    void failed(quint64 turn, const QString &sentence);

private:
    [[nodiscard]] qint64 bytesLasting(std::chrono::milliseconds time) const;
    [[nodiscard]] bool hasBeenHeard() const;
    void look();
    void lookAfter(QAudio::State state);
    void lose(const QString &sentence);
    void close();

    AudioFormat m_format;
    AudioTiming m_timing;
    PlaybackQueue m_queue;
    std::unique_ptr<QAudioSink, LaterDeletion> m_speaker; ///< none while it rests
    quint64 m_turn = 0;
    qint64 m_lastRead = 0;
    QDeadlineTimer m_nextRead; ///< until then the speaker must have read on
    QTimer m_watch;            ///< while it is open
};

} // namespace KelvaLR
