#pragma once

#include <QByteArray>
#include <QList>
#include <QProcess>
#include <QString>
#include <QStringList>

#include <vector>

// What the sound tests play and how they know it again. Samples are signed 16-bit integers, one channel, 24
// kHz.

namespace KelvaLR::Testing {

[[nodiscard]] std::vector<double> samplesOf(const QByteArray &pcm);

/// Noise in which no sample is zero, different for each seed.
[[nodiscard]] QByteArray noiseLasting(int milliseconds, quint32 seed);

/// Three seconds of what stands for speech, as a WAV file.
void writeSpeech(const QString &file);

/// What of that speech does not stand where it belongs in these samples; nothing when all is there, in order
/// and without a gap.
[[nodiscard]] QStringList displacedSpeech(const std::vector<double> &samples);

/// What programs have open on the sound system, as it lists it.
[[nodiscard]] QByteArray openStreams();

/// Records what comes out of the speaker.
class SoundRecording
{
public:
    SoundRecording() = default;
    ~SoundRecording();
    Q_DISABLE_COPY_MOVE(SoundRecording)

    /// False when it did not begin.
    [[nodiscard]] bool begin();

    /// How many bytes have been heard, without the silences.
    [[nodiscard]] qsizetype soundSize();

    /// What has been heard, cut at the silences, once this has been heard to its end; or after a while.
    [[nodiscard]] QList<QByteArray> soundsUntil(const QByteArray &last);

private:
    [[nodiscard]] QList<QByteArray> sounds();

    QProcess m_recorder;
    QByteArray m_recorded;
};

} // namespace KelvaLR::Testing
