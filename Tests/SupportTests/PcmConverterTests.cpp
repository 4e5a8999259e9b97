#include "Support/PcmConverter.h"

#include <QtEndian>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <numbers>
#include <vector>

namespace KelvaLR {

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

/// The amplitude of a tone in samples at 24 kHz, and the root mean square of all else.
struct ToneFit
{
    double amplitude = 0;
    double residue = 0;
};

ToneFit fit(const std::vector<double> &samples, double frequency)
{
    constexpr std::size_t settled = 1'000; // the start of the tone is a click
    const auto wave = [frequency](std::size_t place, auto function) {
        return function(2 * std::numbers::pi * frequency * static_cast<double>(place) / 24'000);
    };
    const auto sine = [](double angle) { return std::sin(angle); };
    const auto cosine = [](double angle) { return std::cos(angle); };
    double ss = 0, cc = 0, sc = 0, sx = 0, cx = 0;
    for (std::size_t place = settled; place < samples.size(); ++place) {
        const double s = wave(place, sine);
        const double c = wave(place, cosine);
        ss += s * s, cc += c * c, sc += s * c;
        sx += s * samples[place], cx += c * samples[place];
    }
    const double determinant = ss * cc - sc * sc;
    const double a = (sx * cc - cx * sc) / determinant;
    const double b = (cx * ss - sx * sc) / determinant;
    double squares = 0;
    for (std::size_t place = settled; place < samples.size(); ++place) {
        const double rest = samples[place] - a * wave(place, sine) - b * wave(place, cosine);
        squares += rest * rest;
    }
    return {std::hypot(a, b), std::sqrt(squares / static_cast<double>(samples.size() - settled))};
}

double decibels(double ratio)
{
    return 20 * std::log10(ratio);
}

const std::vector<AudioFormat> microphones = {
    {48'000, 2, Sample::float32}, {44'100, 2, Sample::float32}, {48'000, 1, Sample::int16},
    {44'100, 1, Sample::int16},   {48'000, 2, Sample::int32},   {96'000, 2, Sample::int32},
};

TEST(PcmConverter, keepsTonesOfTheVoiceCleanTo80DecibelsBelowFullScale)
{
    for (const AudioFormat &format : microphones) {
        for (const double frequency : {110.0, 440.0, 1'000.0, 2'500.0, 5'000.0, 7'000.0, 9'000.0}) {
            SCOPED_TRACE(testing::Message() << format.sampleRate << " Hz, tone " << frequency);
            const auto samples =
                converted(format, format.sampleRate, {2'048}, tone(frequency, format.sampleRate, 0.9));
            const ToneFit found = fit(samples, frequency);
            EXPECT_NEAR(decibels(found.amplitude / 0.9), 0, 0.1);
            EXPECT_LT(decibels(found.residue), -80);
        }
    }
}

TEST(PcmConverter, suppressesWhatLiesBeyondTheNewRate)
{
    for (const AudioFormat &format : microphones) {
        for (const double frequency : {13'000.0, 15'000.0, 18'000.0, 21'000.0}) {
            SCOPED_TRACE(testing::Message() << format.sampleRate << " Hz, tone " << frequency);
            const auto samples =
                converted(format, format.sampleRate, {2'048}, tone(frequency, format.sampleRate, 0.9));
            EXPECT_LT(decibels(fit(samples, 24'000 - frequency).residue), -80);
            EXPECT_LT(decibels(fit(samples, 24'000 - frequency).amplitude), -78);
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

TEST(PcmConverter, gives1024FramesForABlockAt48KilohertzOnTheLongRun)
{
    const AudioFormat format{48'000, 1, Sample::float32};
    EXPECT_EQ(converted(format, qint64{2'048} * 500, {2'048}, tone(300, 48'000, 0.5)).size(), 1'024U * 500);
}

TEST(PcmConverter, averagesTheChannelsOfAFrame)
{
    for (const Sample type : {Sample::unsigned8, Sample::int16, Sample::int32, Sample::float32}) {
        const AudioFormat format{48'000, 3, type};
        const auto samples = converted(format, 9'600, {2'048},
                                       [](qint64, int channel) { return channel == 0 ? 0.75 : -0.15; });
        EXPECT_NEAR(samples.at(4'000), (0.75 - 0.15 - 0.15) / 3, type == Sample::unsigned8 ? 0.01 : 0.0005);
    }
}

TEST(PcmConverter, saturatesWhatIsTooLoud)
{
    const AudioFormat format{48'000, 2, Sample::float32};
    const auto square = [](qint64 frame, int) { return frame / 4'800 % 2 == 0 ? 3.0 : -3.0; };
    const auto samples = converted(format, 48'000, {2'048}, square);
    EXPECT_EQ(samples.at(1'200), 32'767 / 32'768.0); // in the middle of the first half wave
    EXPECT_EQ(samples.at(3'600), -1);
}

TEST(PcmConverter, forgetsSamplesThatAreNoNumbers)
{
    const AudioFormat format{48'000, 1, Sample::float32};
    const auto signal = [](qint64 frame, int) {
        return frame == 3'000   ? std::numeric_limits<double>::quiet_NaN()
               : frame == 3'001 ? std::numeric_limits<double>::infinity()
                                : 0.25;
    };
    EXPECT_NEAR(converted(format, 9'600, {2'048}, signal).at(4'000), 0.25, 0.0005);
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

} // namespace

} // namespace KelvaLR
