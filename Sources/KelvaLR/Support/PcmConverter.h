#pragma once

#include "Models/AudioFormat.h"

#include <QByteArray>
#include <QByteArrayView>

#include <memory>
#include <optional>
#include <vector>

struct SpeexResamplerState_;

namespace KelvaLR {

/// Turns what a microphone captures into what speech services take: signed 16-bit little-endian samples, one
/// channel, at the rate that they want; the channels of a frame are averaged. One converter serves a whole
/// capture, since each block goes on where the one before ended. Any one thread; a block of the usual length
/// costs one allocation, that of its result.
class PcmConverter
{
public:
    /// None for a format without channels or with a rate that cannot be converted.
    /// @param outputRate samples a second
    [[nodiscard]] static std::optional<PcmConverter> make(const AudioFormat &input, int outputRate);

    /// The samples that this block completes: at most the integer part of output rate * frames / input rate,
    /// and one. Empty when there are none, or when the block is shorter than its frames: it is dropped.
    [[nodiscard]] QByteArray convert(QByteArrayView block, qsizetype frames);

private:
    struct Destroy
    {
        void operator()(SpeexResamplerState_ *resampler) const;
    };

    using Resampler = std::unique_ptr<SpeexResamplerState_, Destroy>;

    PcmConverter(const AudioFormat &input, int outputRate, Resampler resampler);

    AudioFormat m_input;
    int m_outputRate;
    Resampler m_resampler;
    std::vector<float> m_mono;      ///< one block, full scale is 1
    std::vector<float> m_resampled; ///< what it gives
};

} // namespace KelvaLR
