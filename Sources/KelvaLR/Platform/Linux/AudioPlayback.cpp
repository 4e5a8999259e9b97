#include "Platform/Linux/AudioPlayback.h"

#include "Platform/Linux/QtAudioFormat.h"

#include <QAudioDevice>
#include <QMediaDevices>

#include <algorithm>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

/// What the sound system holds in advance: enough for a busy machine, and soon heard.
constexpr std::chrono::milliseconds latency(200);
/// The sound system asks for so much at a time, and may have asked for one more.
constexpr std::chrono::milliseconds period(20);

char silenceOf(const AudioFormat &format)
{
    return format.sample == AudioFormat::SampleType::unsigned8 ? '\x80' : '\0';
}

} // namespace

AudioPlayback::AudioPlayback(const AudioFormat &format, const AudioTiming &timing)
    : m_format(format)
    , m_timing(timing)
    , m_queue(silenceOf(format))
{
    m_watch.setInterval(period);
    connect(&m_watch, &QTimer::timeout, this, &AudioPlayback::look);
}

AudioPlayback::~AudioPlayback()
{
    close();
}

std::expected<void, QString> AudioPlayback::open()
{
    const QAudioDevice device = QMediaDevices::defaultAudioOutput();
    if (device.isNull()) {
        return std::unexpected(u"No speaker was found."_s);
    }
    m_speaker.reset(new QAudioSink(device, toQt(m_format)));
    m_speaker->setBufferSize(bytesLasting(latency));
    m_speaker->start(&m_queue);
    if (m_speaker->error() != QAudio::NoError || m_speaker->state() == QAudio::StoppedState) {
        close();
        return std::unexpected(u"The speaker could not be opened."_s);
    }
    connect(m_speaker.get(), &QAudioSink::stateChanged, this, &AudioPlayback::lookAfter);
    m_nextRead.setRemainingTime(m_timing.stalled);
    m_watch.start();
    return {};
}

void AudioPlayback::append(const QByteArray &samples, quint64 turn)
{
    m_turn = turn;
    m_queue.append(samples);
    if (!m_speaker) {
        if (const auto ready = open(); !ready) {
            return lose(ready.error());
        }
    }
    Q_EMIT opened(m_turn);
}

void AudioPlayback::clear()
{
    m_queue.clear();
    close();
}

qint64 AudioPlayback::bytesLasting(std::chrono::milliseconds time) const
{
    return m_format.sampleRate * time.count() / 1000 * bytesPerFrame(m_format);
}

/// Once as much silence has been read as the sound system can hold, no sample is left in it.
bool AudioPlayback::hasBeenHeard() const
{
    const qint64 held = std::max<qint64>(m_speaker->bufferSize(), bytesLasting(latency));
    return m_queue.silenceRead() > held + bytesLasting(2 * period);
}

void AudioPlayback::look()
{
    if (hasBeenHeard()) {
        close();
        Q_EMIT finished(m_turn);
    } else if (m_queue.totalRead() != m_lastRead) {
        m_lastRead = m_queue.totalRead();
        m_nextRead.setRemainingTime(m_timing.stalled);
    } else if (m_nextRead.hasExpired()) {
        lose(u"The speaker was disconnected."_s);
    }
}

void AudioPlayback::lookAfter(QAudio::State state)
{
    if (state == QAudio::StoppedState && m_speaker && m_speaker->error() != QAudio::NoError) {
        lose(u"The speaker was disconnected."_s);
    }
}

void AudioPlayback::lose(const QString &sentence)
{
    clear();
    Q_EMIT failed(m_turn, sentence);
}

void AudioPlayback::close()
{
    m_watch.stop();
    if (m_speaker) {
        m_speaker->disconnect(this);
        m_speaker->stop();
        m_speaker.reset();
    }
}

} // namespace KelvaLR
