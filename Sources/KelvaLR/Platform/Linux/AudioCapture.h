#pragma once

#include "Platform/Linux/AudioThread.h"
#include "Platform/Linux/BlockCutter.h"
#include "Platform/Linux/CaptureHandlers.h"

#include <QAudioSource>
#include <QDeadlineTimer>
#include <QObject>
#include <QTimer>

#include <memory>

namespace KelvaLR {

/// One capture from the default microphone, from its creation to its end. Audio thread only.
class AudioCapture final : public QObject
{
    Q_OBJECT

public:
    using Pointer = std::shared_ptr<AudioCapture>; ///< may be dropped on any thread

    /// The default microphone's format, or the sentence that says why there is none.
    [[nodiscard]] static std::expected<AudioFormat, QString> format();

    /// The capture under way, or the sentence that says why there is none.
    [[nodiscard]] static std::expected<Pointer, QString>
    begun(qsizetype blockFrames, const std::shared_ptr<CaptureHandlers> &handlers, const AudioTiming &timing);

private:
    AudioCapture(const AudioFormat &format, qsizetype blockFrames, std::shared_ptr<CaptureHandlers> handlers,
                 const AudioTiming &timing);

    bool begin();
    void lookAfter(QAudio::State state);
    void end();

    AudioFormat m_format;
    qsizetype m_blockFrames;
    std::shared_ptr<CaptureHandlers> m_handlers;
    AudioTiming m_timing;
    BlockCutter m_blocks;
    QAudioSource m_source;
    QDeadlineTimer m_nextBlock; ///< until then a block must have come
    QTimer m_watch;
};

} // namespace KelvaLR
