#include "Platform/Linux/QtAudioFormat.h"

#include <algorithm>
#include <array>
#include <utility>

namespace KelvaLR {

namespace {

using Sample = AudioFormat::SampleType;

constexpr std::array sampleTypes = {
    std::pair(Sample::int16, QAudioFormat::Int16), // also for what is in no other row
    std::pair(Sample::unsigned8, QAudioFormat::UInt8),
    std::pair(Sample::int32, QAudioFormat::Int32),
    std::pair(Sample::float32, QAudioFormat::Float),
};

template <typename Member, typename Value>
auto rowWith(Member member, Value value)
{
    const auto row = std::ranges::find(sampleTypes, value, member);
    return row == sampleTypes.end() ? sampleTypes.front() : *row;
}

} // namespace

QAudioFormat toQt(const AudioFormat &format)
{
    QAudioFormat result;
    result.setSampleRate(format.sampleRate);
    result.setChannelCount(format.channels);
    result.setSampleFormat(rowWith(&decltype(sampleTypes)::value_type::first, format.sample).second);
    return result;
}

AudioFormat fromQt(const QAudioFormat &format)
{
    return {format.sampleRate(), format.channelCount(),
            rowWith(&decltype(sampleTypes)::value_type::second, format.sampleFormat()).first};
}

} // namespace KelvaLR
