#include "Services/Speech/SilenceMeter.h"

#include <QByteArray>

#include <gtest/gtest.h>

using namespace KelvaLR;
using Change = SilenceMeter::Change;
using SampleType = AudioFormat::SampleType;

TEST(SilenceMeter, tellsOnceOfEachChange)
{
    const AudioFormat format{.sampleRate = 1'000, .channels = 2, .sample = SampleType::int16};
    const QByteArray zeros(400, '\0');
    QByteArray sound = zeros;
    sound[399] = 1;
    SilenceMeter meter(std::chrono::milliseconds(200));
    const std::pair<QByteArray, std::optional<Change>> blocks[] = {
        {zeros, std::nullopt},       {sound, Change::wasHeard},   {sound, std::nullopt},
        {zeros, std::nullopt},       {sound, std::nullopt},       {zeros, std::nullopt},
        {zeros, Change::fellSilent}, {zeros, std::nullopt},       {sound, Change::wasHeard},
        {zeros, std::nullopt},       {zeros, Change::fellSilent},
    };
    for (const auto &block : blocks) {
        EXPECT_EQ(meter.take(block.first, 100, format), block.second) << &block - blocks;
    }
}

TEST(SilenceMeter, knowsTheZeroOfUnsignedSamples)
{
    const AudioFormat format{.sampleRate = 1'000, .channels = 1, .sample = SampleType::unsigned8};
    SilenceMeter meter(std::chrono::milliseconds(100));
    EXPECT_EQ(meter.take(QByteArray(100, '\0'), 100, format), Change::wasHeard);
    EXPECT_EQ(meter.take(QByteArray(100, '\x80'), 100, format), Change::fellSilent);
}
