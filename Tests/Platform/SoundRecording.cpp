#include "Platform/SoundRecording.h"

#include "Support/WaitForTask.h"

#include <QDataStream>
#include <QFile>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>

namespace KelvaLR::Testing {

namespace {

using namespace Qt::StringLiterals;

constexpr int rate = 24'000;

/// "Syllables" on a rising voice.
std::vector<double> speech()
{
    std::vector<double> samples;
    for (int frame = 0; frame < 3 * rate; ++frame) {
        const double seconds = double(frame) / rate;
        const double phase = 2 * std::numbers::pi * (300 * seconds + 280 * seconds * seconds); // to 2 kHz
        const double syllable = 0.55 + 0.45 * std::sin(2 * std::numbers::pi * 4 * seconds);
        samples.push_back(0.8 * syllable * std::sin(phase));
    }
    return samples;
}

} // namespace

std::vector<double> samplesOf(const QByteArray &pcm)
{
    std::vector<double> samples;
    for (qsizetype place = 0; place + 1 < pcm.size(); place += 2) {
        samples.push_back(qFromLittleEndian<qint16>(pcm.constData() + place) / 32'768.0);
    }
    return samples;
}

QByteArray noiseLasting(int milliseconds, quint32 seed)
{
    QByteArray pcm;
    for (int frame = 0; frame < rate * milliseconds / 1000; ++frame) {
        seed = seed * 1'664'525 + 1'013'904'223; // Numerical Recipes' generator
        const auto sample = static_cast<qint16>((seed >> 18) | 1);
        pcm.append(reinterpret_cast<const char *>(&sample), sizeof(sample));
    }
    return pcm;
}

void writeSpeech(const QString &file)
{
    const std::vector<double> samples = speech();
    const auto size = static_cast<quint32>(samples.size() * sizeof(qint16));
    QFile wav(file);
    if (!wav.open(QFile::WriteOnly)) {
        qFatal("Cannot write %s", qPrintable(file));
    }
    QDataStream stream(&wav);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.writeRawData("RIFF", 4);
    stream << size + 36;
    stream.writeRawData("WAVEfmt ", 8);
    stream << quint32{16} << quint16{1} << quint16{1} << quint32{rate} << quint32{rate * 2} << quint16{2}
           << quint16{16};
    stream.writeRawData("data", 4);
    stream << size;
    for (const double sample : samples) {
        stream << static_cast<qint16>(std::lround(32'768 * sample));
    }
}

QStringList displacedSpeech(const std::vector<double> &samples)
{
    const std::vector<double> spoken = speech();
    const auto isClose = [](double left, double right) { return std::abs(left - right) < 0.02; };
    const auto begin = std::ranges::search(samples, std::span(spoken).first(rate / 10), isClose).begin();
    const auto end = std::ranges::mismatch(begin, samples.end(), spoken.begin(), spoken.end(), isClose).in2;
    return end == spoken.end() ? QStringList()
                               : QStringList(u"all from sample %1 on"_s.arg(end - spoken.begin()));
}

QByteArray openStreams()
{
    QByteArray streams;
    for (const QString &kind : {u"sink-inputs"_s, u"source-outputs"_s}) {
        QProcess list;
        list.start(u"pactl"_s, {u"list"_s, u"short"_s, kind});
        list.waitForFinished();
        // The remapped microphone itself hears the speaker, as no program's stream does.
        for (const QByteArray &line : list.readAllStandardOutput().split('\n')) {
            streams += line.isEmpty() || line.contains("module-remap-source") ? QByteArray() : line + '\n';
        }
    }
    return streams;
}

SoundRecording::~SoundRecording()
{
    m_recorder.kill();
    m_recorder.waitForFinished();
}

bool SoundRecording::begin()
{
    m_recorder.start(u"parec"_s, {u"--device=speaker.monitor"_s, u"--format=s16le"_s, u"--rate=24000"_s,
                                  u"--channels=1"_s, u"--latency-msec=20"_s, u"--raw"_s});
    return waitUntil([this] { return m_recorder.bytesAvailable() > 0; });
}

qsizetype SoundRecording::soundSize()
{
    return sounds().join().size();
}

QList<QByteArray> SoundRecording::soundsUntil(const QByteArray &last)
{
    static_cast<void>(waitUntil([&] { return sounds().endsWith(last); }, std::chrono::seconds(5)));
    return sounds();
}

QList<QByteArray> SoundRecording::sounds()
{
    m_recorded += m_recorder.readAllStandardOutput();
    QList<QByteArray> result;
    bool wasSilent = true;
    for (qsizetype place = 0; place + 1 < m_recorded.size(); place += 2) {
        const QByteArray sample = m_recorded.mid(place, 2);
        const bool isSilent = sample == QByteArrayView("\0\0", 2);
        if (!isSilent && wasSilent) {
            result.emplace_back();
        }
        if (!isSilent) {
            result.last() += sample;
        }
        wasSilent = isSilent;
    }
    return result;
}

} // namespace KelvaLR::Testing
