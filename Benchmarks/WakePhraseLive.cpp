// wake_phrase_live < manifest.tsv: lets the recogniser hear at the speed of life, as a microphone delivers
// it, and prints what that costs and how soon it answers: half a minute of silence, as much of a quiet room,
// and twenty commands of the corpus of Benchmarks/WakePhrase.

#include "Platform/Linux/Speech/PocketSphinxRecognizer.h"

#include <QCoreApplication>
#include <QFile>

#include <sys/resource.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <random>
#include <thread>

using namespace KelvaLR;
using namespace Qt::StringLiterals;

namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

constexpr AudioFormat format{16'000, 1, AudioFormat::SampleType::int16};
constexpr qsizetype waveHeader = 44;
constexpr qsizetype blockBytes = 2048;
constexpr double bytesPerSecond = 32'000;
constexpr int commandCount = 20;

double secondsOf(qsizetype bytes)
{
    return static_cast<double>(bytes) / bytesPerSecond;
}

double processorSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// Where the speech of a file ends, in seconds: synthesisers leave some silence of their own.
double endOfSpeech(const QByteArray &pcm)
{
    const auto *samples = reinterpret_cast<const qint16 *>(pcm.constData());
    qsizetype last = pcm.size() / 2;
    while (last > 0 && std::abs(samples[last - 1]) < 500) {
        --last;
    }
    return secondsOf(last * 2);
}

class Room
{
public:
    /// Delivers this as it would be heard; how long after `end` something was reported, if anything.
    std::optional<double> hear(const QByteArray &pcm, double end)
    {
        m_heard = Clock::time_point();
        const auto begin = Clock::now();
        for (qsizetype at = 0; at < pcm.size(); at += blockBytes) {
            const QByteArray block = pcm.mid(at, blockBytes);
            std::this_thread::sleep_until(
                begin + std::chrono::duration_cast<Clock::duration>(Seconds(secondsOf(at + block.size()))));
            m_recognition->append(block, block.size() / 2, format);
        }
        std::this_thread::sleep_for(Seconds(1));
        const Clock::time_point heard = m_heard;
        return heard == Clock::time_point() ? std::nullopt
                                            : std::optional(Seconds(heard - begin).count() - end);
    }

private:
    std::atomic<Clock::time_point> m_heard;
    PocketSphinxRecognizer m_recognizer;
    std::unique_ptr<SpeechRecognition> m_recognition =
        m_recognizer.recognize({.phrases = {}, .presetNames = {u"Warm Fade"_s}},
                               [this](const SpeechResult &) { m_heard = Clock::now(); });
};

void measure(Room &room, const char *name, double amplitude)
{
    std::mt19937 random(1);
    std::normal_distribution<double> loudness(0, amplitude);
    QByteArray pcm(static_cast<qsizetype>(30 * bytesPerSecond), '\0');
    auto *samples = reinterpret_cast<qint16 *>(pcm.data());
    if (amplitude > 0) {
        std::generate_n(samples, pcm.size() / 2, [&] { return static_cast<qint16>(loudness(random)); });
    }
    const double before = processorSeconds();
    (void)room.hear(pcm, 0);
    std::printf("%s: %.2f %% of a core\n", name, 100 * (processorSeconds() - before) / 31);
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    Room room;
    (void)room.hear(QByteArray(static_cast<qsizetype>(3 * bytesPerSecond), '\0'), 0); // loads the models
    measure(room, "silence", 0);
    measure(room, "a quiet room", 30);

    QFile input;
    [[maybe_unused]] const bool isOpen = input.open(stdin, QFile::ReadOnly);
    std::vector<double> latencies;
    double spoken = 0;
    int count = 0;
    const double before = processorSeconds();
    while (!input.atEnd() && count < commandCount) {
        const QStringList fields = QString::fromUtf8(input.readLine()).chopped(1).split(u'\t');
        QFile file(fields.value(4));
        if (fields.value(0) != u"test" || fields.value(3) != u"command" || !file.open(QFile::ReadOnly)) {
            continue;
        }
        const QByteArray pcm = file.readAll().mid(waveHeader);
        spoken += secondsOf(pcm.size()) + 1;
        ++count;
        if (const auto latency = room.hear(pcm, endOfSpeech(pcm))) {
            latencies.push_back(*latency);
        }
    }
    std::printf("commands, one after the other: %.1f %% of a core\n",
                100 * (processorSeconds() - before) / spoken);
    if (latencies.empty()) {
        std::puts("no command was heard");
        return 1;
    }
    std::ranges::sort(latencies);
    std::printf("from the end of speech to the answer: median %.2f s, longest %.2f s (%zu of %d heard)\n",
                latencies[latencies.size() / 2], latencies.back(), latencies.size(), count);
    return 0;
}
