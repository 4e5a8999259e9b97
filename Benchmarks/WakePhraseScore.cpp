// wake_phrase_score PART < manifest.tsv: lets the recogniser of the wake phrase hear the corpus of
// Benchmarks/WakePhrase, faster than it was spoken, and prints how often it was right: the tuning or the test
// voices (PART), or, with PART "stream", prose without the phrase. With "explain" behind PART, every mistake
// as well.

#include "ResidentMemory.h"

#include "Platform/FrontmostApplication.h"
#include "Platform/Linux/Speech/RecognitionWorker.h"
#include "Services/Lightroom/Language/LightroomCommandParser.h"
#include "Services/Lightroom/Language/SpokenNumbers.h"

#include <QCoreApplication>
#include <QFile>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <map>

using namespace KelvaLR;
using namespace Qt::StringLiterals;

namespace {

using Clock = std::chrono::steady_clock;

constexpr qsizetype waveHeader = 44;
constexpr qsizetype bytesPerSecond = 32'000;
constexpr QStringView phrase = u"hey kelva";

struct Utterance
{
    QString part;
    QString voice;
    QString condition;
    QString kind;
    QString path;
    QString words;
};

/// Lightroom is not in front.
class NoFrontmostApplication final : public FrontmostApplication
{
public:
    std::optional<RunningApplication> frontmostApplication() const override { return std::nullopt; }
};

/// Whether both are carried out alike: "set the exposure to one" and "set exposure to one" are.
bool areTheSameCommand(const QString &words, const QString &others)
{
    const NoFrontmostApplication nothing;
    const auto command = LightroomCommandParser::parse(withSpokenNumbersRead(words), nothing);
    return words == others ||
           (command && command == LightroomCommandParser::parse(withSpokenNumbersRead(others), nothing));
}

struct Score
{
    int spoken = 0;
    int woken = 0;
    int exact = 0;
};

/// The recogniser without its thread.
class Listener
{
public:
    /// Listens anew: what has been heard of the room is forgotten.
    void begin() { m_worker.begin(m_channel, {u"Warm Fade"_s, u"Cool Matte"_s, u"Portra 400"_s}); }

    /// What is reported while this is heard, in the pieces in which a microphone delivers it.
    QStringList hear(const QByteArray &pcm)
    {
        constexpr qsizetype piece = 2048;
        m_heard.clear();
        const auto begin = Clock::now();
        for (qsizetype at = 0; at < pcm.size(); at += piece) {
            const QByteArray part = pcm.mid(at, piece);
            m_channel->waiting += part.size();
            m_worker.take(m_channel, part);
        }
        m_worked += Clock::now() - begin;
        m_seconds += static_cast<double>(pcm.size()) / bytesPerSecond;
        return m_heard;
    }

    [[nodiscard]] double seconds() const { return m_seconds; }

    [[nodiscard]] double realTimeFactor() const
    {
        return std::chrono::duration<double>(m_worked).count() / m_seconds;
    }

private:
    QStringList m_heard;
    std::shared_ptr<RecognitionChannel> m_channel = std::make_shared<RecognitionChannel>(
        [this](const SpeechResult &result) { m_heard.append(result.text.value_or(QString())); });
    RecognitionWorker m_worker{SpeechModelFiles::installed()};
    Clock::duration m_worked{};
    double m_seconds = 0;
};

std::vector<Utterance> readManifest(const QString &part)
{
    QFile input;
    [[maybe_unused]] const bool isOpen = input.open(stdin, QFile::ReadOnly);
    std::vector<Utterance> utterances;
    while (!input.atEnd()) {
        const QStringList fields = QString::fromUtf8(input.readLine()).chopped(1).split(u'\t');
        if (fields.size() != 6) {
            continue;
        }
        const bool isStream = fields.at(3) == u"stream";
        if (isStream ? part == u"stream" : part == fields.at(0)) {
            utterances.push_back(
                {fields.at(0), fields.at(1), fields.at(2), fields.at(3), fields.at(4), fields.at(5)});
        }
    }
    return utterances;
}

QByteArray samples(const QString &path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll().mid(waveHeader) : QByteArray();
}

QString percent(int part, int whole)
{
    return whole == 0 ? u"-"_s : u"%1 %"_s.arg(100.0 * part / whole, 0, 'f', 1);
}

void count(Score &score, const Utterance &utterance, const QStringList &heard, bool explains)
{
    const auto call = std::ranges::find_if(heard, [](const QString &text) { return text.contains(phrase); });
    const bool isWoken = call != heard.end();
    const QString words =
        isWoken ? call->mid(call->indexOf(phrase) + phrase.size()).trimmed().toLower() : QString();
    const bool isCall = utterance.kind == u"command" || utterance.kind == u"phrase alone";
    const bool isExact = isWoken && areTheSameCommand(words, utterance.words);
    ++score.spoken;
    score.woken += isWoken ? 1 : 0;
    score.exact += isExact ? 1 : 0;
    if (explains && (isCall ? !isExact : isWoken)) {
        std::printf("%s, %s, \"%s\": %s\n", qPrintable(utterance.voice), qPrintable(utterance.condition),
                    qPrintable(isCall ? u"Hey Kelva "_s + utterance.words : utterance.path),
                    isWoken ? qPrintable(*call) : "nothing");
    }
}

void print(const QString &title, const std::map<QStringList, Score> &scores)
{
    std::printf("\n%s\n", qPrintable(title));
    for (const auto &[names, score] : scores) {
        std::printf("  %-42s %4d spoken, woken %7s, exact %7s\n", qPrintable(names.join(u", ")), score.spoken,
                    qPrintable(percent(score.woken, score.spoken)),
                    qPrintable(percent(score.exact, score.spoken)));
    }
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QString part = QCoreApplication::arguments().value(1, u"test"_s);
    const bool explains = QCoreApplication::arguments().contains(u"explain");
    if (!SpeechModelFiles::installed().exist()) {
        std::fputs("wake_phrase_score: the models are not there\n", stderr);
        return 1;
    }
    Listener listener;
    listener.begin();
    std::map<QStringList, Score> byKind;
    std::map<QStringList, Score> byVoice;
    for (const Utterance &utterance : readManifest(part)) {
        if (utterance.kind != u"stream") {
            listener.begin();
        }
        const QStringList heard = listener.hear(samples(utterance.path));
        count(byKind[{utterance.kind, utterance.condition}], utterance, heard, explains);
        count(byVoice[{utterance.voice, utterance.condition, utterance.kind}], utterance, heard, false);
    }
    print(u"All voices"_s, byKind);
    print(u"Each voice"_s, byVoice);
    std::printf("\n%.1f minutes heard, real-time factor %.3f, memory %.1f MB\n", listener.seconds() / 60,
                listener.realTimeFactor(), residentMegabytes());
    return 0;
}
