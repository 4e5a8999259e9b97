#include "Services/Assistant/Realtime/RealtimeAudio.h"

#include "Platform/AudioInput.h"
#include "Platform/AudioOutput.h"
#include "Services/Assistant/Realtime/RealtimeVoiceError.h"
#include "Support/PcmConverter.h"
#include "Support/Posted.h"

namespace KelvaLR {

namespace {

/// About 43 ms at 48 kHz, which makes some 23 events a second.
constexpr qsizetype blockFrames = 2048;

constexpr AudioFormat wireFormat{
    .sampleRate = 24'000, .channels = 1, .sample = AudioFormat::SampleType::int16};

} // namespace

RealtimeAudio::RealtimeAudio(AudioInput &input, AudioOutput &output, ChunkHandler onChunk,
                             FailureHandler onFailure)
    : m_input(input)
    , m_output(output)
    , m_onChunk(std::move(onChunk))
    , m_onFailure(std::move(onFailure))
{
}

RealtimeAudio::~RealtimeAudio()
{
    tearDown();
}

std::expected<void, QString> RealtimeAudio::configurePlayback()
{
    return m_output.start(wireFormat, [] {}, m_onFailure);
}

std::expected<void, QString> RealtimeAudio::startMicrophone()
{
    const auto format = m_input.format();
    if (!format) {
        return std::unexpected(format.error());
    }
    auto made = PcmConverter::make(*format, wireFormat.sampleRate);
    if (!made) {
        return std::unexpected(description(RealtimeVoiceError::audioConversionUnavailable));
    }
    const auto converter = std::make_shared<PcmConverter>(*std::move(made));
    const auto onBlock = [this, gate = m_gate, converter](QByteArrayView samples, qsizetype frames,
                                                          const AudioFormat &) {
        if (!gate->isOpen()) {
            return;
        }
        QByteArray pcm = converter->convert(samples, frames);
        if (pcm.isEmpty()) {
            return;
        }
        auto handOver = [this, pcm = std::move(pcm)] {
            if (m_gate->isOpen()) {
                m_onChunk(pcm);
            }
        };
        // The input stops before this object ends, and what is posted to it goes with it.
        QMetaObject::invokeMethod(this, Posted(std::move(handOver)));
    };
    if (const auto started = m_input.start(blockFrames, onBlock, m_onFailure); !started) {
        return started;
    }
    m_isMicrophoneActive = true;
    return {};
}

void RealtimeAudio::tearDown()
{
    if (m_isMicrophoneActive) {
        m_isMicrophoneActive = false;
        m_input.stop();
        m_output.stop();
    }
}

void RealtimeAudio::play(QByteArray pcm)
{
    const qsizetype frameSize = bytesPerFrame(wireFormat);
    pcm.truncate(pcm.size() / frameSize * frameSize);
    if (!pcm.isEmpty()) {
        m_output.play(std::move(pcm));
    }
}

bool RealtimeAudio::isPlaying() const
{
    return m_output.isPlaying();
}

void RealtimeAudio::restartPlayback()
{
    m_output.stop();
}

} // namespace KelvaLR
