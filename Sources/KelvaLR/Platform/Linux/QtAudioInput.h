#pragma once

#include "Platform/AudioInput.h"
#include "Platform/Linux/AudioThread.h"

#include <memory>

namespace KelvaLR {

class AudioCapture;
class CaptureHandlers;

/// The default microphone of the desktop's sound system, by Qt Multimedia.
class QtAudioInput final : public AudioInput
{
public:
    explicit QtAudioInput(AudioThread &thread, AudioTiming timing = {});
    ~QtAudioInput() override;
    Q_DISABLE_COPY_MOVE(QtAudioInput)

    /// Nobody is asked: the sound system here leaves it to the desktop's own privacy settings.
    QCoro::Task<bool> requestAccess() override;
    std::expected<AudioFormat, QString> format() override;
    std::expected<void, QString> start(qsizetype blockFrames, BlockHandler onBlock,
                                       FailureHandler onFailure) override;
    void stop() override;

private:
    AudioThread &m_thread;
    AudioTiming m_timing;
    std::shared_ptr<CaptureHandlers> m_handlers;
    std::shared_ptr<AudioCapture> m_capture; ///< let go, it ends on its own thread
};

} // namespace KelvaLR
