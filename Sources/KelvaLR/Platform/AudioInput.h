#pragma once

#include "Models/AudioFormat.h"

#include <QCoroTask>

#include <QByteArrayView>
#include <QString>

#include <expected>
#include <functional>

namespace KelvaLR {

/// Port: the microphone. Its operations belong to the main thread and hold it for a moment at most, also when
/// the sound system hangs; errors are finished sentences. Its end stops it.
class AudioInput
{
public:
    /// Takes one block of interleaved samples and its number of frames, on the audio thread: it must neither
    /// wait nor allocate unduly. The samples are gone when it returns.
    using BlockHandler =
        std::function<void(QByteArrayView samples, qsizetype frames, const AudioFormat &format)>;
    /// Takes the sentence that says why a capture ended by itself, on the main thread.
    using FailureHandler = std::function<void(QString sentence)>;

    AudioInput() = default;
    virtual ~AudioInput() = default;
    Q_DISABLE_COPY_MOVE(AudioInput)

    /// Asks the user where the system wants that; false when capture is denied. Whether there is a microphone
    /// is the business of `start`.
    virtual QCoro::Task<bool> requestAccess() = 0;

    /// What the microphone would deliver now; an error when there is none.
    [[nodiscard]] virtual std::expected<AudioFormat, QString> format() = 0;

    /// Captures until `stop`, in blocks of exactly this many frames, in order and without a gap. Ends a
    /// capture under way. When the microphone goes away, the failure is reported once and the capture has
    /// ended.
    virtual std::expected<void, QString> start(qsizetype blockFrames, BlockHandler onBlock,
                                               FailureHandler onFailure) = 0;

    /// Once this has returned, neither handler is called any more; what does not fill a block is dropped.
    virtual void stop() = 0;
};

} // namespace KelvaLR
