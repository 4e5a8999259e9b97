#pragma once

#include "Models/AudioFormat.h"

#include <QByteArray>
#include <QString>

#include <expected>
#include <functional>

namespace KelvaLR {

/// Port: the speaker, for one voice. Main thread, which it holds for a moment at most, also when the sound
/// system hangs; errors are finished sentences. Its end stops it.
class AudioOutput
{
public:
    /// Called on the main thread, on a later turn of the event loop than the call that led to it.
    using FinishedHandler = std::function<void()>;
    using FailureHandler = std::function<void(QString sentence)>;

    AudioOutput() = default;
    virtual ~AudioOutput() = default;
    Q_DISABLE_COPY_MOVE(AudioOutput)

    /// Opens the speaker for samples of this format; drops what an earlier start has left.
    /// @param onFinished everything that was given to `play` so far has been heard to its end
    /// @param onFailure the speaker went away or could not be opened again; what was queued is lost. A later
    ///        `play` tries anew.
    virtual std::expected<void, QString> start(AudioFormat format, FinishedHandler onFinished,
                                               FailureHandler onFailure) = 0;

    /// Queues whole frames behind what is queued, without a gap; starts the speaker where it rests. Nothing
    /// without an earlier `start`.
    virtual void play(QByteArray samples) = 0;

    /// Drops what is queued and falls silent. Nothing of it is reported as finished or failed.
    virtual void stop() = 0;

    /// From a `play` until its end is reported, or until `stop`.
    [[nodiscard]] virtual bool isPlaying() const = 0;
};

} // namespace KelvaLR
