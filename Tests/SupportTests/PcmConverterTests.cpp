#include "Support/PcmConverter.h"

#include <QtEndian>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <numbers>
#include <vector>

using namespace KelvaLR;

namespace {

using Sample = AudioFormat::SampleType;
using Signal = std::function<double(qint64 frame, int channel)>; ///< full scale is 1

void append(QByteArray &bytes, Sample type, double value)
{
    const auto put = [&bytes](auto sample) {
        bytes.append(reinterpret_cast<const char *>(&sample), sizeof(sample));
    };
    switch (type) {
    case Sample::unsigned8:
        return put(static_cast<quint8>(std::lround(value * 127) + 128));
    case Sample::int16:
        return put(static_cast<qint16>(std::lround(value * 32'767)));
    case Sample::int32:
        return put(static_cast<qint32>(std::lround(value * 2'147'483'647.0)));
    case Sample::float32:
        return put(static_cast<float>(value));
    }
}

QByteArray recorded(const AudioFormat &format, qint64 first, qint64 frames, const Signal &signal)
{
    QByteArray bytes;
    for (qint64 frame = first; frame < first + frames; ++frame) {
        for (int channel = 0; channel < format.channels; ++channel) {
            append(bytes, format.sample, signal(frame, channel));
        }
    }
    return bytes;
}

/// Feeds this many frames to one converter, in blocks of these sizes in turn.
std::vector<double> converted(const AudioFormat &format, qint64 frames, const std::vector<qint64> &sizes,
                              const Signal &signal)
{
    auto converter = PcmConverter::make(format, 24'000).value();
    QByteArray pcm;
    for (qint64 done = 0, block = 0; done < frames; ++block) {
        const qint64 size = std::min(frames - done, sizes[static_cast<std::size_t>(block) % sizes.size()]);
        const QByteArray part = converter.convert(recorded(format, done, size, signal), size);
        EXPECT_LE(part.size() / 2, 24'000 * size / format.sampleRate + 1);
        pcm += part;
        done += size;
    }
    std::vector<double> samples;
    for (qsizetype place = 0; place < pcm.size(); place += 2) {
        samples.push_back(qFromLittleEndian<qint16>(pcm.constData() + place) / 32'768.0);
    }
    return samples;
}

Signal tone(double frequency, int rate, double amplitude)
{
    return [=](qint64 frame, int) {
        return amplitude * std::sin(2 * std::numbers::pi * frequency * static_cast<double>(frame) / rate);
    };
}

struct ToneFit
{
    double amplitude = 0;
    double residue = 0; ///< the root mean square of all else
};

/// How much of a tone there is in a second of samples at 24 kHz, which holds a whole number of its waves.
ToneFit fit(const std::vector<double> &samples, double frequency)
{
    constexpr std::size_t settled = 1'000; // the start of the tone is a click
    double sine = 0;
    double cosine = 0;
    double squares = 0;
    for (std::size_t place = settled; place < settled + 24'000; ++place) {
        const double angle = 2 * std::numbers::pi * frequency * static_cast<double>(place) / 24'000;
        const double sample = samples.at(place);
        sine += sample * std::sin(angle);
        cosine += sample * std::cos(angle);
        squares += sample * sample;
    }
    const double amplitude = std::hypot(sine, cosine) / 12'000;
    return {amplitude, std::sqrt(squares / 24'000 - amplitude * amplitude / 2)};
}

double decibels(double ratio)
{
    return 20 * std::log10(ratio);
}

} // namespace

TEST(PcmConverter, keepsTonesOfTheVoiceAndSuppressesWhatLiesBeyondTheNewRate)
{
    const AudioFormat microphones[] = {
        {48'000, 2, Sample::float32}, {44'100, 2, Sample::float32}, {48'000, 1, Sample::int16},
        {44'100, 1, Sample::int16},   {48'000, 2, Sample::int32},   {96'000, 2, Sample::int32},
    };
    for (const AudioFormat &format : microphones) {
        SCOPED_TRACE(format.sampleRate);
        const auto heard = [&](double frequency, double foundAt) {
            const auto signal = tone(frequency, format.sampleRate, 0.9);
            return fit(converted(format, qint64{format.sampleRate} * 11 / 10, {2'048}, signal), foundAt);
        };
        for (const double frequency : {110.0, 440.0, 1'000.0, 2'500.0, 5'000.0, 7'000.0, 9'000.0}) {
            const ToneFit found = heard(frequency, frequency);
            EXPECT_NEAR(decibels(found.amplitude / 0.9), 0, 0.1) << frequency;
            EXPECT_LT(decibels(found.residue), -80) << frequency;
        }
        for (const double frequency : {13'000.0, 15'000.0, 18'000.0, 21'000.0}) {
            const ToneFit alias = heard(frequency, 24'000 - frequency);
            EXPECT_LT(decibels(alias.amplitude), -78) << frequency;
            EXPECT_LT(decibels(alias.residue), -80) << frequency;
        }
    }
}

TEST(PcmConverter, givesTheSameSamplesHoweverTheInputIsCut)
{
    for (const int rate :
         {8'000, 11'025, 16'000, 22'050, 24'000, 32'000, 44'100, 48'000, 96'000, 192'000, 11'111}) {
        SCOPED_TRACE(rate);
        const AudioFormat format{rate, 1, Sample::float32};
        const auto signal = tone(700, rate, 0.7);
        const auto whole = converted(format, rate, {rate}, signal);
        EXPECT_NEAR(static_cast<double>(whole.size()), 24'000, 1);
        EXPECT_EQ(converted(format, rate, {2'048}, signal), whole);
        EXPECT_EQ(converted(format, rate, {1, 161, 2, 160, 481, 3, 1'023, 7}, signal), whole);
    }
}

TEST(PcmConverter, makesOneSampleWithinTheScaleOfEachFrame)
{
    const Signal uneven = [](qint64, int channel) { return channel == 0 ? 0.75 : -0.15; };
    const Signal tooHigh = [](qint64, int) { return 3.0; };
    const Signal tooLow = [](qint64, int) { return -3.0; };
    // Shortly before the sample that is looked at, so that it would still be in the resampler's memory.
    const Signal notAlwaysANumber = [](qint64 frame, int) {
        return frame == 7'900   ? std::numeric_limits<double>::quiet_NaN()
               : frame == 7'901 ? std::numeric_limits<double>::infinity()
                                : 0.25;
    };

    const struct
    {
        AudioFormat format;
        Signal signal;
        double sample;
        double tolerance;
    } cases[] = {
        {{48'000, 3, Sample::unsigned8}, uneven, 0.15, 0.01},
        {{48'000, 3, Sample::int16}, uneven, 0.15, 0.0005},
        {{48'000, 3, Sample::int32}, uneven, 0.15, 0.0005},
        {{48'000, 3, Sample::float32}, uneven, 0.15, 0.0005},
        {{48'000, 2, Sample::float32}, tooHigh, 32'767 / 32'768.0, 0},
        {{48'000, 2, Sample::float32}, tooLow, -1, 0},
        {{48'000, 1, Sample::float32}, notAlwaysANumber, 0.25, 0.02},
    };

    for (const auto &c : cases) {
        EXPECT_NEAR(converted(c.format, 9'600, {2'048}, c.signal).at(4'000), c.sample, c.tolerance)
            << &c - cases;
    }
}

TEST(PcmConverter, dropsABlockThatIsShorterThanItsFrames)
{
    const AudioFormat format{48'000, 2, Sample::int16};
    auto converter = PcmConverter::make(format, 24'000).value();
    EXPECT_TRUE(converter.convert(QByteArray(qsizetype{4} * 2'048 - 1, '\0'), 2'048).isEmpty());
    EXPECT_TRUE(converter.convert({}, 0).isEmpty());
    EXPECT_TRUE(converter.convert({}, -1).isEmpty());
    EXPECT_EQ(converter.convert(QByteArray(qsizetype{4} * 2'048, '\0'), 2'048).size(), 2 * 1'024);
}

TEST(PcmConverter, isNotMadeForFormatsWithoutSound)
{
    EXPECT_FALSE(PcmConverter::make({0, 1, Sample::int16}, 24'000));
    EXPECT_FALSE(PcmConverter::make({-48'000, 1, Sample::int16}, 24'000));
    EXPECT_FALSE(PcmConverter::make({48'000, 0, Sample::int16}, 24'000));
}
