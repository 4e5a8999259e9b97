#pragma once

#include "Platform/AudioInput.h"

#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>

namespace KelvaLR {

/// Whom one capture reports to. The audio thread reports, the main thread closes.
class CaptureHandlers : public std::enable_shared_from_this<CaptureHandlers>
{
public:
    CaptureHandlers(AudioInput::BlockHandler onBlock, AudioInput::FailureHandler onFailure);

    /// Audio thread. Never waits: a block that comes while the main thread closes is dropped.
    void deliver(QByteArrayView samples, qsizetype frames, const AudioFormat &format);

    /// Any thread. The handler is called on the main thread, for the first failure only.
    void fail(const QString &sentence);

    /// Main thread. Nothing is reported from now on; the block that is being handled is waited for.
    void close(std::chrono::milliseconds limit);

private:
    AudioInput::BlockHandler m_onBlock;
    AudioInput::FailureHandler m_onFailure;
    std::timed_mutex m_delivery; ///< held by the audio thread during a block
    std::atomic<bool> m_isOpen = true;
};

} // namespace KelvaLR
