#pragma once

#include <QtGlobal>

namespace KelvaLR {

/// How sound is written down: interleaved samples in the byte order of this machine.
struct AudioFormat
{
    enum class SampleType { unsigned8, int16, int32, float32 };

    int sampleRate = 0; ///< frames a second
    int channels = 0;   ///< samples a frame
    SampleType sample = SampleType::int16;

    bool operator==(const AudioFormat &) const = default;
};

[[nodiscard]] constexpr qsizetype bytesPerFrame(const AudioFormat &format)
{
    switch (format.sample) {
    case AudioFormat::SampleType::unsigned8:
        return format.channels;
    case AudioFormat::SampleType::int16:
        return qsizetype{2} * format.channels;
    case AudioFormat::SampleType::int32:
    case AudioFormat::SampleType::float32:
        break;
    }
    return qsizetype{4} * format.channels;
}

} // namespace KelvaLR
