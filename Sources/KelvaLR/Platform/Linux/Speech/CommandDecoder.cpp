#include "Platform/Linux/Speech/CommandDecoder.h"

#include "Platform/Linux/Speech/Cepstra.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <pocketsphinx.h>
#include <sphinxbase/err.h>
#include <sphinxbase/feat.h>

#include <algorithm>
#include <random>
#include <ranges>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

constexpr const char *commandSearch = "commands";
constexpr const char *likenessSearch = "likenesses";
constexpr const char *phoneSearch = "phones";
constexpr QStringView greeting = u"hey";
constexpr QStringView name = u"kelva";

// Found on synthetic voices that are not among those of the test. What is surely a command needs less of a
// phrase, and the other way about.
constexpr double leastScore = -12; ///< of the phrase, and of the utterance by its weight
constexpr double utteranceWeight = 0.6;
constexpr double leastUtteranceScore = -24;

constexpr int wordsAfterPhrase = 2; ///< as many as the language's memory is long

constexpr double hiss = 40; ///< its standard deviation, 58 dB below full scale

/// The score of the sound of a word carries ten bits more than that of an utterance.
constexpr double wordScoreUnit = 1024;

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

bool write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QFile::WriteOnly) && file.write(bytes) == bytes.size();
}

struct FreeConfiguration
{
    void operator()(cmd_ln_t *configuration) const { cmd_ln_free_r(configuration); }
};

using Configuration = std::unique_ptr<cmd_ln_t, FreeConfiguration>;

/// The models know speech in rooms: perfect silence between words is worse for them than a quiet hiss.
std::vector<qint16> inARoom(std::span<const qint16> samples)
{
    std::minstd_rand random; // the same hiss for the same words
    std::normal_distribution<double> loudness(0, hiss);
    std::vector<qint16> heard(samples.begin(), samples.end());
    for (qint16 &sample : heard) {
        sample = static_cast<qint16>(std::clamp(sample + loudness(random), -32'768.0, 32'767.0));
    }
    return heard;
}

/// The last of the searches: what it is set to, those that are made after it would be, too.
bool listensForPhones(ps_decoder_t &decoder, const QString &phones)
{
    // Narrower, or the phones take longer than the words.
    cmd_ln_t *shared = ps_get_config(&decoder);
    cmd_ln_set_float_r(shared, "-lw", 2.0);
    cmd_ln_set_float_r(shared, "-beam", 1e-20);
    cmd_ln_set_float_r(shared, "-pbeam", 1e-20);
    cmd_ln_set_boolean_r(shared, "-allphone_ci", TRUE);
    return ps_set_allphone_file(&decoder, phoneSearch, QFile::encodeName(phones).constData()) == 0;
}

/// Silence and noise, the beginning and the end of a sentence.
bool isFiller(QStringView word)
{
    return word.startsWith(u'<') || word.startsWith(u'[');
}

/// The word of a segment without the number of its pronunciation: "kelva(2)" is kelva.
QString spokenWord(const char *word)
{
    const QString text = QString::fromUtf8(word);
    return text.left(text.indexOf(u'(', 1));
}

} // namespace

SpeechModelFiles SpeechModelFiles::installed()
{
    const QString english = u"/usr/share/pocketsphinx/model/en-us/"_s;
    const QString own = QCoreApplication::applicationDirPath() + u"/../share/kelvalr/speech/"_s;
    return {english + u"en-us"_s,   english + u"en-us-phone.lm.bin"_s, english + u"cmudict-en-us.dict"_s,
            own + u"commands.lm"_s, own + u"likenesses.lm"_s,          own + u"commands.dict"_s};
}

bool SpeechModelFiles::exist() const
{
    const QStringList files{acoustic, phones, dictionary, commands, likenesses, words};
    return std::ranges::all_of(files, [](const QString &path) { return QFileInfo::exists(path); });
}

void CommandDecoder::Destroy::operator()(ps_decoder_s *decoder) const
{
    ps_free(decoder);
}

CommandDecoder::CommandDecoder(Decoder decoder, PresetVocabulary presets)
    : m_decoder(std::move(decoder))
    , m_presets(std::move(presets))
{
}

CommandDecoder::~CommandDecoder() = default;

std::expected<std::unique_ptr<CommandDecoder>, QString> CommandDecoder::make(const SpeechModelFiles &files,
                                                                             const QStringList &presetNames)
{
    const std::unexpected unusable(u"The models of the wake phrase cannot be used."_s);
    auto english =
        presetNames.isEmpty() ? PronouncingDictionary() : PronouncingDictionary::read(files.dictionary);
    if (!english) {
        return std::unexpected(english.error());
    }
    PresetVocabulary presets(presetNames, *english);
    const QTemporaryDir folder;
    const QString words = folder.filePath(u"dict"_s);
    if (!write(words, contents(files.words) + presets.dictionaryLines())) {
        return unusable;
    }

    err_set_logfp(nullptr);
    const Configuration configuration(
        cmd_ln_init(nullptr, ps_args(), TRUE, "-hmm", QFile::encodeName(files.acoustic).constData(), "-dict",
                    QFile::encodeName(words).constData(), "-logfn", "/dev/null", nullptr));
    Decoder decoder(configuration ? ps_init(configuration.get()) : nullptr);
    if (!decoder) {
        return unusable;
    }
    ps_get_feat(decoder.get())->cmn = CMN_NONE; // Cepstra does that
    const auto listensFor = [&](const QString &language, const char *search) {
        const QString model = folder.filePath(u"lm"_s);
        return write(model, modelWithWords(contents(language), "[preset]", presets.words())) &&
               ps_set_lm_file(decoder.get(), search, QFile::encodeName(model).constData()) == 0;
    };
    if (!listensFor(files.commands, commandSearch) || !listensFor(files.likenesses, likenessSearch) ||
        !listensForPhones(*decoder, files.phones)) {
        return unusable;
    }
    return std::unique_ptr<CommandDecoder>(new CommandDecoder(std::move(decoder), std::move(presets)));
}

std::optional<DecodedUtterance> CommandDecoder::decode(std::span<const qint16> utterance,
                                                       const std::function<bool()> &isWanted)
{
    ps_start_stream(m_decoder.get()); // what is known of the noise of earlier ones is forgotten
    Cepstra cepstra(*ps_get_fe(m_decoder.get()), inARoom(utterance));
    const std::span<float *> rows = cepstra.rows();
    const Pass words = pass(commandSearch, rows);
    const std::optional<Phrase> phrase = phraseIn(words.segments);
    if (!phrase || !isWanted()) {
        return std::nullopt;
    }
    const std::size_t near = std::min(rows.size(), framesAround(*phrase, words.segments));
    const Pass likenesses = pass(likenessSearch, rows.first(near));
    if (!isWanted()) {
        return std::nullopt;
    }
    const Pass sounds = pass(phoneSearch, rows);
    const double lead = scoreOf(*phrase, words.segments) - scoreOf(*phrase, likenesses.segments);
    return DecodedUtterance{m_presets.withNames(words.text),
                            lead / wordScoreUnit / (phrase->last - phrase->first + 1),
                            (words.score - sounds.score) / std::max(1, words.frames)};
}

bool CommandDecoder::isConvincing(const DecodedUtterance &utterance)
{
    return utterance.phraseScore + utteranceWeight * utterance.utteranceScore >= leastScore &&
           utterance.utteranceScore >= leastUtteranceScore;
}

CommandDecoder::Pass CommandDecoder::pass(const char *search, std::span<float *> cepstra)
{
    ps_decoder_t *decoder = m_decoder.get();
    ps_set_search(decoder, search);
    if (ps_start_utt(decoder) != 0) {
        return {};
    }
    constexpr int searchNow = FALSE;
    constexpr int isWhole = TRUE;
    ps_process_cep(decoder, cepstra.data(), static_cast<int>(cepstra.size()), searchNow, isWhole);
    ps_end_utt(decoder);

    Pass pass;
    int32 score = 0;
    pass.text = QString::fromUtf8(ps_get_hyp(decoder, &score));
    pass.score = score;
    pass.frames = ps_get_n_frames(decoder);
    for (ps_seg_t *segment = ps_seg_iter(decoder); segment != nullptr; segment = ps_seg_next(segment)) {
        Segment found{.word = spokenWord(ps_seg_word(segment))};
        ps_seg_frames(segment, &found.first, &found.last);
        int32 sound = 0;
        ps_seg_prob(segment, &sound, nullptr, nullptr);
        found.score = sound;
        pass.segments.push_back(std::move(found));
    }
    return pass;
}

std::optional<CommandDecoder::Phrase> CommandDecoder::phraseIn(const std::vector<Segment> &segments)
{
    const auto called = std::ranges::find(segments, name, &Segment::word);
    const auto before =
        std::ranges::find(std::make_reverse_iterator(called), segments.rend(), greeting, &Segment::word);
    if (called == segments.end() || before == segments.rend()) {
        return std::nullopt;
    }
    return Phrase{before->first, called->last};
}

/// Up to the end of some words after the phrase: what comes then tells nothing of it.
std::size_t CommandDecoder::framesAround(Phrase phrase, const std::vector<Segment> &segments)
{
    int last = phrase.last;
    int words = 0;
    for (const Segment &segment : segments) {
        if (segment.first > phrase.last && words < wordsAfterPhrase) {
            last = segment.last;
            words += isFiller(segment.word) ? 0 : 1;
        }
    }
    return static_cast<std::size_t>(last) + 1;
}

/// A segment that is only partly within the phrase counts by that part.
double CommandDecoder::scoreOf(Phrase phrase, const std::vector<Segment> &segments)
{
    double score = 0;
    for (const Segment &segment : segments) {
        const int common = std::min(phrase.last, segment.last) - std::max(phrase.first, segment.first) + 1;
        if (common > 0) {
            score += segment.score * common / (segment.last - segment.first + 1);
        }
    }
    return score;
}

} // namespace KelvaLR
