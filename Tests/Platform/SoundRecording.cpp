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
constexpr double speechSeconds = 3;

double speech(double seconds)
{
    const double phase = 2 * std::numbers::pi * (300 * seconds + 280 * seconds * seconds); // to 2 kHz
    const double syllable = 0.55 + 0.45 * std::sin(2 * std::numbers::pi * 4 * seconds);
    return 0.8 * syllable * std::sin(phase);
}

/// How alike two stretches are: 1 when they differ in loudness only.
double likeness(std::span<const double> left, std::span<const double> right)
{
    double product = 0, leftSquares = 0, rightSquares = 0;
    for (std::size_t place = 0; place < left.size(); ++place) {
        product += left[place] * right[place];
        leftSquares += left[place] * left[place];
        rightSquares += right[place] * right[place];
    }
    const double squares = leftSquares * rightSquares;
    return squares > 0 ? product / std::sqrt(squares) : 0;
}

struct Match
{
    std::ptrdiff_t place = -1;
    double likeness = 0;
};

/// Where a part is found best, from one place to another.
Match bestMatch(std::span<const double> part, std::span<const double> whole, std::ptrdiff_t first,
                std::ptrdiff_t last)
{
    Match best;
    last = std::min(last, std::ssize(whole) - std::ssize(part));
    for (std::ptrdiff_t place = std::max<std::ptrdiff_t>(first, 0); place <= last; ++place) {
        const double found = likeness(part, whole.subspan(static_cast<std::size_t>(place), part.size()));
        if (found > best.likeness) {
            best = {place, found};
        }
    }
    return best;
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
    constexpr int fileRate = 48'000;
    constexpr quint32 bytes = fileRate * 4 * static_cast<quint32>(speechSeconds);
    QFile wav(file);
    if (!wav.open(QFile::WriteOnly)) {
        qFatal("Cannot write %s", qPrintable(file));
    }
    QDataStream stream(&wav);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.writeRawData("RIFF", 4);
    stream << bytes + 36;
    stream.writeRawData("WAVEfmt ", 8);
    stream << quint32{16} << quint16{1} << quint16{2} << quint32{fileRate} << quint32{fileRate * 4}
           << quint16{4} << quint16{16};
    stream.writeRawData("data", 4);
    stream << bytes;
    for (int frame = 0; frame < fileRate * speechSeconds; ++frame) {
        const auto sample = static_cast<qint16>(std::lround(32'000 * speech(double(frame) / fileRate)));
        stream << sample << sample;
    }
}

QStringList displacedSpeech(const std::vector<double> &samples)
{
    constexpr std::size_t partLength = rate / 10;
    std::vector<double> spoken;
    spoken.reserve(static_cast<std::size_t>(rate * speechSeconds));
    for (int frame = 0; frame < rate * speechSeconds; ++frame) {
        spoken.push_back(speech(double(frame) / rate));
    }
    const auto part = [&](std::size_t index) {
        return std::span(spoken).subspan(index * partLength, partLength);
    };
    const Match beginning = bestMatch(part(0), samples, 0, std::ssize(samples));
    QStringList displaced;
    for (std::size_t index = 0; index < spoken.size() / partLength; ++index) {
        const auto expected = beginning.place + static_cast<std::ptrdiff_t>(index * partLength);
        const Match found = bestMatch(part(index), samples, expected - 50, expected + 50);
        if (std::abs(found.place - expected) > 1 || found.likeness < 0.95) {
            displaced.append(
                u"part %1 by %2, likeness %3"_s.arg(index).arg(found.place - expected).arg(found.likeness));
        }
    }
    return displaced;
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

bool SoundRecording::hasSound()
{
    return !sounds().isEmpty();
}

QList<QByteArray> SoundRecording::soundsUntil(const QByteArray &last)
{
    static_cast<void>(waitUntil([&] { return sounds().endsWith(last); }, std::chrono::seconds(5)));
    return sounds();
}

const QByteArray &SoundRecording::recorded()
{
    m_recorded += m_recorder.readAllStandardOutput();
    return m_recorded;
}

void SoundRecording::forget()
{
    m_recorder.readAllStandardOutput();
    m_recorded.clear();
}

QList<QByteArray> SoundRecording::sounds()
{
    const QByteArray &samples = recorded();
    QList<QByteArray> result;
    bool wasSilent = true;
    for (qsizetype place = 0; place + 1 < samples.size(); place += 2) {
        const QByteArray sample = samples.mid(place, 2);
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
