#pragma once

#include "Platform/AudioFormat.h"

#include <QByteArray>
#include <QByteArrayView>

#include <memory>
#include <optional>
#include <vector>

struct SpeexResamplerState_;

namespace KelvaLR {

/// Turns what a microphone captures into what a realtime session takes: signed 16-bit little-endian samples,
/// one channel, 24,000 Hz; the channels of a frame are averaged. One converter serves a whole capture, since
/// each block goes on where the one before ended. Any one thread; a block of the usual length costs one
/// allocation, that of its result.
class PcmConverter
{
public:
    static constexpr int sampleRate = 24'000;

    /// None for a format without channels or with a rate that cannot be converted.
    [[nodiscard]] static std::optional<PcmConverter> make(const AudioFormat &input);

    /// The samples that this block completes: at most the integer part of 24,000 * frames / input rate, and
    /// one. Empty when there are none, or when the block is shorter than its frames: it is dropped.
    [[nodiscard]] QByteArray convert(QByteArrayView block, qsizetype frames);

private:
    struct Destroy
    {
        void operator()(SpeexResamplerState_ *resampler) const;
    };

    using Resampler = std::unique_ptr<SpeexResamplerState_, Destroy>;

    PcmConverter(const AudioFormat &input, Resampler resampler);

    AudioFormat m_input;
    Resampler m_resampler;
    std::vector<float> m_mono;      ///< one block, full scale is 1
    std::vector<float> m_resampled; ///< what it gives
};

} // namespace KelvaLR
