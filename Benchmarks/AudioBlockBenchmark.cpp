// The work of the audio thread for one captured block: 2,048 frames to 16-bit samples at 24 kHz. Each block
// is timed by itself: the counters are the median, the 99th percentile and the maximum of single blocks, in
// microseconds. At 48 kHz a block comes every 42,667 microseconds.

#include "Support/PcmConverter.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <vector>

namespace KelvaLR {

namespace {

constexpr qsizetype blockFrames = 2'048;

/// Something between speech and noise, at full scale.
QByteArray soundOf(const AudioFormat &format)
{
    QByteArray bytes(blockFrames * bytesPerFrame(format), '\0');
    quint32 noise = 1;
    for (qsizetype place = 0; place < blockFrames * format.channels; ++place) {
        noise = noise * 1'664'525 + 1'013'904'223; // Numerical Recipes' generator
        const float sample = static_cast<float>(noise >> 8) / 0x1p23F - 1;
        std::copy_n(reinterpret_cast<const char *>(&sample), sizeof(sample),
                    bytes.data() + place * qsizetype{sizeof(sample)});
    }
    return bytes;
}

void convertBlock(benchmark::State &state)
{
    const AudioFormat format{static_cast<int>(state.range(0)), static_cast<int>(state.range(1)),
                             AudioFormat::SampleType::float32};
    const QByteArray block = soundOf(format);
    auto converter = PcmConverter::make(format, 24'000).value();
    std::vector<double> microseconds;
    while (state.KeepRunning()) {
        const auto start = std::chrono::steady_clock::now();
        benchmark::DoNotOptimize(converter.convert(block, blockFrames));
        const std::chrono::duration<double, std::micro> taken = std::chrono::steady_clock::now() - start;
        microseconds.push_back(taken.count());
    }
    std::ranges::sort(microseconds);
    const auto percentile = [&](std::size_t percent) {
        return microseconds.at((microseconds.size() - 1) * percent / 100);
    };
    state.counters["median_us"] = percentile(50);
    state.counters["p99_us"] = percentile(99);
    state.counters["max_us"] = percentile(100);
}

BENCHMARK(convertBlock)
    ->ArgNames({"rate", "channels"})
    ->Args({48'000, 2})
    ->Args({48'000, 1})
    ->Args({44'100, 2})
    ->MinTime(2)
    ->Unit(benchmark::kMicrosecond);

} // namespace

} // namespace KelvaLR
