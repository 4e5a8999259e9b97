#pragma once

#include "Platform/AudioOutput.h"
#include "Platform/Linux/AudioThread.h"

#include <QObject>
#include <QTimer>

#include <memory>

namespace KelvaLR {

class AudioPlayback;

/// The default speaker of the desktop's sound system, by Qt Multimedia.
class QtAudioOutput final : public AudioOutput
{
public:
    explicit QtAudioOutput(AudioThread &thread, AudioTiming timing = {});
    ~QtAudioOutput() override;
    Q_DISABLE_COPY_MOVE(QtAudioOutput)

    std::expected<void, QString> start(AudioFormat format, FinishedHandler onFinished,
                                       FailureHandler onFailure) override;
    void play(QByteArray samples) override;
    void stop() override;

    bool isPlaying() const override { return m_isPlaying; }

private:
    void follow();
    void finish(quint64 turn);
    void fail(quint64 turn, const QString &sentence);

    AudioThread &m_thread;
    AudioTiming m_timing;
    FinishedHandler m_onFinished;
    FailureHandler m_onFailure;
    std::shared_ptr<AudioPlayback> m_playback; ///< let go, it ends on its own thread
    bool m_isPlaying = false;
    quint64 m_turn = 0; ///< the latest play or stop; what is reported of an earlier one is old
    QTimer m_opening;   ///< until the speaker has answered a play
    QObject m_context;  ///< ends the reports with us
};

} // namespace KelvaLR
