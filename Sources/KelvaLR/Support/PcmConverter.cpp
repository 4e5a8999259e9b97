#include "Support/PcmConverter.h"

#include <QtEndian>

#include <speex/speex_resampler.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <span>

namespace KelvaLR {

namespace {

constexpr int quality = 5; ///< of 10: aliases stay 80 dB down at a few hundredths of a percent of a core

constexpr float fullScale = 32'768;

float normalised(quint8 sample)
{
    return (static_cast<float>(sample) - 128) / 128;
}

float normalised(qint16 sample)
{
    return static_cast<float>(sample) / fullScale;
}

float normalised(qint32 sample)
{
    return static_cast<float>(sample) / 2'147'483'648.0F;
}

/// A sample that is no number would stay in the resampler's memory.
float normalised(float sample)
{
    return std::isfinite(sample) ? sample : 0;
}

/// The average of each frame's samples.
template <typename Sample>
void mixDown(const char *samples, int channels, std::span<float> mono)
{
    for (float &mixed : mono) {
        float sum = 0;
        for (int channel = 0; channel < channels; ++channel) {
            Sample sample{};
            std::memcpy(&sample, samples, sizeof(sample));
            samples += sizeof(sample);
            sum += normalised(sample);
        }
        mixed = sum / static_cast<float>(channels);
    }
}

void mixDown(const char *samples, const AudioFormat &format, std::span<float> mono)
{
    switch (format.sample) {
    case AudioFormat::SampleType::unsigned8:
        return mixDown<quint8>(samples, format.channels, mono);
    case AudioFormat::SampleType::int16:
        return mixDown<qint16>(samples, format.channels, mono);
    case AudioFormat::SampleType::int32:
        return mixDown<qint32>(samples, format.channels, mono);
    case AudioFormat::SampleType::float32:
        return mixDown<float>(samples, format.channels, mono);
    }
}

QByteArray littleEndian(std::span<const float> samples)
{
    using Limits = std::numeric_limits<qint16>;
    QByteArray bytes(static_cast<qsizetype>(samples.size() * sizeof(qint16)), Qt::Uninitialized);
    char *target = bytes.data();
    for (const float sample : samples) {
        const float scaled =
            std::clamp(std::nearbyint(sample * fullScale), float{Limits::min()}, float{Limits::max()});
        qToLittleEndian(static_cast<qint16>(scaled), target);
        target += sizeof(qint16);
    }
    return bytes;
}

} // namespace

void PcmConverter::Destroy::operator()(SpeexResamplerState_ *resampler) const
{
    speex_resampler_destroy(resampler);
}

PcmConverter::PcmConverter(const AudioFormat &input, int outputRate, Resampler resampler)
    : m_input(input)
    , m_outputRate(outputRate)
    , m_resampler(std::move(resampler))
{
}

std::optional<PcmConverter> PcmConverter::make(const AudioFormat &input, int outputRate)
{
    if (input.sampleRate <= 0 || input.channels <= 0 || outputRate <= 0) {
        return std::nullopt;
    }
    int error = RESAMPLER_ERR_SUCCESS;
    Resampler resampler(speex_resampler_init(1, static_cast<spx_uint32_t>(input.sampleRate),
                                             static_cast<spx_uint32_t>(outputRate), quality, &error));
    if (!resampler || error != RESAMPLER_ERR_SUCCESS) {
        return std::nullopt;
    }
    return PcmConverter(input, outputRate, std::move(resampler));
}

QByteArray PcmConverter::convert(QByteArrayView block, qsizetype frames)
{
    if (frames <= 0 || block.size() / bytesPerFrame(m_input) < frames) {
        return {};
    }
    m_mono.resize(static_cast<std::size_t>(frames));
    mixDown(block.data(), m_input, m_mono);

    // The resampler works through a block in pieces and stops as soon as its output is full, also when the
    // rest of the input would give nothing more: one place beyond the capacity lets it take all of the input.
    const qsizetype capacity = qint64{m_outputRate} * frames / m_input.sampleRate + 1;
    m_resampled.resize(static_cast<std::size_t>(capacity) + 1);
    auto taken = static_cast<spx_uint32_t>(frames);
    auto given = static_cast<spx_uint32_t>(m_resampled.size());
    const int error = speex_resampler_process_float(m_resampler.get(), 0, m_mono.data(), &taken,
                                                    m_resampled.data(), &given);
    return error == RESAMPLER_ERR_SUCCESS ? littleEndian(std::span(m_resampled).first(given)) : QByteArray();
}

} // namespace KelvaLR
