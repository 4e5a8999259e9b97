// speech_models DICTIONARY FOLDER: writes what the recogniser of the wake phrase listens with, from the
// tables of the command language and a pronouncing dictionary of English. In FOLDER/commands.lm are the
// commands, alone and behind the phrase, and words that the phrase could be mistaken for; in
// FOLDER/likenesses.lm the same commands behind words that sound like the phrase, but never the phrase, which
// it is compared with; in FOLDER/commands.dict how all of them are spoken. Run by the build.

#include "CommandSentences.h"
#include "NearWords.h"
#include "TrigramModel.h"

#include "Platform/Linux/Speech/PronouncingDictionary.h"

#include <QDir>
#include <QSaveFile>

#include <cstdio>

using namespace KelvaLR;
using namespace KelvaLR::SpeechModels;
using namespace Qt::StringLiterals;

namespace {

constexpr int sentenceCount = 60'000;
constexpr quint32 seed = 1;

constexpr QStringView greeting = u"hey";
constexpr QStringView name = u"kelva";

// Found on synthetic voices that are not among those of the test. In the language of the commands, nearer
// words cost calls of the right one, farther ones catch no more mistakes; those that the phrase is compared
// with lie around it.
constexpr Nearness mistaken{1.0, 2.2};
constexpr Nearness alike{0.5, 2.4};
constexpr Nearness begins{0, 1.2};

/// What people say before they say the phrase.
constexpr std::array<QStringView, 4> openings{u"okay", u"so", u"um", u"well"};

/// Words in which the greeting could be heard, and short ones that are spoken in one breath with the word
/// before them, as the end of the name: "they kill for", "a shelf of".
constexpr std::array<QStringView, 5> otherGreetings{u"they", u"a", u"okay", u"say", u"may"};
constexpr std::array<QStringView, 9> nameEnds{u"for", u"of",   u"a",  u"the", u"her",
                                              u"are", u"well", u"to", u"if"};

/// Words that the dictionary lacks or knows otherwise, the usual way to say them first. The name and the
/// greeting have more than one, as accents differ: many voices round their L to a vowel, some raise their E.
void addOwnWords(PronouncingDictionary &dictionary)
{
    dictionary.set(name.toString(),
                   {"K EH L V AH", "K EH L V ER", "K AE L V AH", "K EH L W AH", "K EH OW V AH",
                    "K EH OW W AH", "K EH OW W UH", "K IH L V AH", "K IH OW L AH"});
    dictionary.set(greeting.toString(), {"HH EY", "HH AY", "EY"});
    dictionary.set(u"dehaze"_s, {"D IY HH EY Z", "D EH HH EY Z"});
    dictionary.set(u"lightroom"_s, {"L AY T R UW M"});
    dictionary.set(u"prev"_s, {"P R IY V"});
    dictionary.set(u"unflag"_s, {"AH N F L AE G"});
    dictionary.set(u"vibrance"_s, {"V AY B R AH N S"});
    dictionary.set(presetPlaceholder.toString(), {"SIL"});
}

QStringList sentences(const QStringList &mistakes)
{
    CommandSentences commands(seed);
    QStringList all;
    all.reserve(sentenceCount);
    const QString phrase = u"%1 %2"_s.arg(greeting, name);
    while (all.size() < sentenceCount) {
        const double kind = commands.chance();
        if (kind < 0.06) {
            all.append(u"%1 %2"_s.arg(greeting, commands.oneOf(mistakes)));
        } else if (kind < 0.12) {
            all.append(u"%1 %2 %3"_s.arg(greeting, commands.oneOf(mistakes), commands.next()));
        } else if (kind < 0.18) {
            all.append(commands.next());
        } else if (kind < 0.30) {
            all.append(phrase);
        } else if (kind < 0.34) {
            all.append(u"%1 %2 %3"_s.arg(commands.oneOf(openings), phrase, commands.next()));
        } else {
            all.append(u"%1 %2"_s.arg(phrase, commands.next()));
        }
    }
    return all;
}

/// Words that sound like the name without its end, but not like the name.
QStringList nameBeginnings(const QByteArray &spoken, const PronouncingDictionary &dictionary)
{
    const QByteArrayList phones = spoken.split(' ');
    QStringList words = wordsNear(phones.first(phones.size() - 2).join(' '), begins, dictionary) +
                        wordsNear(phones.first(phones.size() - 1).join(' '), begins, dictionary);
    const QStringList same = wordsNear(spoken, {0, alike.nearest}, dictionary);
    words.removeIf([&](const QString &word) { return same.contains(word); });
    return words;
}

/// What sounds like the phrase, before commands.
QStringList likenesses(const QStringList &names, const QStringList &beginnings)
{
    CommandSentences commands(seed);
    QStringList all;
    all.reserve(sentenceCount);
    while (all.size() < sentenceCount) {
        QStringList words;
        if (commands.chance() < 0.05) {
            words.append(commands.oneOf(openings));
        }
        words.append(commands.chance() < 0.3 ? commands.oneOf(otherGreetings) : greeting.toString());
        if (commands.chance() < 0.3) {
            words << commands.oneOf(beginnings) << commands.oneOf(nameEnds);
        } else {
            words << commands.oneOf(names);
        }
        if (commands.chance() < 0.8) {
            words << commands.next();
        }
        all.append(words.join(u' '));
    }
    return all;
}

bool write(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    return file.open(QFile::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

/// False when a word of the language cannot be spoken.
bool isComplete(const QStringList &words, const PronouncingDictionary &dictionary)
{
    bool isComplete = true;
    for (const QString &word : words) {
        if (dictionary.pronunciations(word).isEmpty()) {
            std::fprintf(stderr, "speech_models: the dictionary lacks \"%s\"\n", qPrintable(word));
            isComplete = false;
        }
    }
    return isComplete;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::fputs("Usage: speech_models DICTIONARY FOLDER\n", stderr);
        return 2;
    }
    auto dictionary = PronouncingDictionary::read(QString::fromLocal8Bit(argv[1]));
    if (!dictionary) {
        std::fprintf(stderr, "speech_models: %s\n", qPrintable(dictionary.error()));
        return 1;
    }
    addOwnWords(*dictionary);
    const QByteArray spoken = dictionary->pronunciations(name.toString()).constFirst();
    const QStringList calls = sentences(wordsNear(spoken, mistaken, *dictionary));
    const QStringList others =
        likenesses(wordsNear(spoken, alike, *dictionary), nameBeginnings(spoken, *dictionary));

    QSet<QString> words;
    for (const QString &sentence : calls + others) {
        for (const QString &word : sentence.split(u' ')) {
            words.insert(word);
        }
    }
    const QStringList vocabulary = words.values();
    const QDir folder(QString::fromLocal8Bit(argv[2]));
    const bool isWritten = isComplete(vocabulary, *dictionary) && folder.mkpath(u"."_s) &&
                           write(folder.filePath(u"commands.lm"_s), trigramModel(calls)) &&
                           write(folder.filePath(u"likenesses.lm"_s), trigramModel(others)) &&
                           write(folder.filePath(u"commands.dict"_s), dictionary->lines(vocabulary));
    return isWritten ? 0 : 1;
}
