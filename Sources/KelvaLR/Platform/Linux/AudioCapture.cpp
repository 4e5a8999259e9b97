#include "Platform/Linux/AudioCapture.h"

#include "Platform/Linux/QtAudioFormat.h"

#include <QAudioDevice>
#include <QMediaDevices>

namespace KelvaLR {

using namespace Qt::StringLiterals;

std::expected<AudioFormat, QString> AudioCapture::format()
{
    const QAudioDevice microphone = QMediaDevices::defaultAudioInput();
    if (microphone.isNull()) {
        return std::unexpected(u"No microphone was found."_s);
    }
    return fromQt(microphone.preferredFormat());
}

std::expected<AudioCapture::Pointer, QString>
AudioCapture::begun(qsizetype blockFrames, const std::shared_ptr<CaptureHandlers> &handlers,
                    const AudioTiming &timing)
{
    const std::expected<AudioFormat, QString> captured = format();
    if (!captured) {
        return std::unexpected(captured.error());
    }
    Pointer capture(new AudioCapture(*captured, blockFrames, handlers, timing), LaterDeletion());
    if (!capture->begin()) {
        return std::unexpected(u"The microphone could not be opened."_s);
    }
    return capture;
}

AudioCapture::AudioCapture(const AudioFormat &format, qsizetype blockFrames,
                           std::shared_ptr<CaptureHandlers> handlers, const AudioTiming &timing)
    : m_format(format)
    , m_blockFrames(blockFrames)
    , m_handlers(std::move(handlers))
    , m_timing(timing)
    , m_blocks(blockFrames * bytesPerFrame(format),
               [this](QByteArrayView block) {
                   m_nextBlock.setRemainingTime(m_timing.stalled);
                   m_handlers->deliver(block, m_blockFrames, m_format);
               })
    , m_source(QMediaDevices::defaultAudioInput(), toQt(format))
{
    m_source.setBufferSize(blockFrames * bytesPerFrame(format) /
                           2); // a block is whole soon after its last frame
    connect(&m_source, &QAudioSource::stateChanged, this, &AudioCapture::lookAfter);
    // The sound system may take a device away without a word; then nothing comes any more.
    connect(&m_watch, &QTimer::timeout, this, [this] {
        if (m_nextBlock.hasExpired()) {
            end();
        }
    });
}

bool AudioCapture::begin()
{
    m_nextBlock.setRemainingTime(m_timing.stalled);
    m_source.start(&m_blocks);
    m_watch.start(m_timing.stalled / 4);
    return m_source.error() == QAudio::NoError && m_source.state() != QAudio::StoppedState;
}

void AudioCapture::lookAfter(QAudio::State state)
{
    if (state == QAudio::StoppedState && m_source.error() != QAudio::NoError) {
        end();
    }
}

void AudioCapture::end()
{
    m_watch.stop();
    m_handlers->fail(u"The microphone was disconnected."_s);
    m_source.stop();
}

} // namespace KelvaLR
