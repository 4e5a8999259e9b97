#pragma once

#include "Models/AudioFormat.h"

#include <QByteArrayView>

#include <chrono>
#include <optional>

namespace KelvaLR {

/// Tells a microphone that is heard from one that delivers nothing but exact zeros, as a muted one does: even
/// a quiet room makes a live microphone rustle. For the audio thread: no locks, no allocation.
class SilenceMeter
{
public:
    enum class Change { fellSilent, wasHeard };

    /// @param limit so much sound of zeros in a row is silence
    explicit SilenceMeter(std::chrono::milliseconds limit)
        : m_limit(limit)
    {
    }

    /// What is new with this block, if anything is; the very first sound is new.
    [[nodiscard]] std::optional<Change> take(QByteArrayView samples, qsizetype frames,
                                             const AudioFormat &format);

private:
    std::chrono::duration<double> m_limit;
    std::chrono::duration<double> m_zeros{0}; ///< how long there have been no others
    std::optional<Change> m_latest;
};

} // namespace KelvaLR
