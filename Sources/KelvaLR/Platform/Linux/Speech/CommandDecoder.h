#pragma once

#include "Platform/Linux/Speech/PresetVocabulary.h"

#include <QString>

#include <QStringList>

#include <expected>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

struct ps_decoder_s;

namespace KelvaLR {

/// Where the files lie that speech is recognised with.
struct SpeechModelFiles
{
    QString acoustic;   ///< folder of the acoustic model of English
    QString phones;     ///< language model of its phones
    QString dictionary; ///< pronouncing dictionary of English
    QString commands;   ///< language model of the commands, with "[preset]" for any preset
    QString likenesses; ///< the same behind words that sound like the phrase
    QString words;      ///< dictionary of their words

    bool operator==(const SpeechModelFiles &) const = default;

    /// Debian's models, and what the build has put beside the program.
    [[nodiscard]] static SpeechModelFiles installed();

    [[nodiscard]] bool exist() const;
};

/// How an utterance was understood.
struct DecodedUtterance
{
    QString text; ///< lower case, in words
    /// How much better something is explained than by something else, in logarithmic score for each frame of
    /// 10 ms: by the wake phrase than by words that sound like it, where that was heard, and by all words
    /// than by bare sounds, which are free to be anything.
    double phraseScore = 0;
    double utteranceScore = 0;

    bool operator==(const DecodedUtterance &) const = default;
};

/// Understands whole utterances as commands behind the wake phrase, by PocketSphinx. The same sound is
/// decoded with the language of the commands and what they could be mistaken for, and, where the phrase seems
/// to be in it, twice more: the phrase with words that sound like it in its place, which show whether it was
/// that phrase, and the whole as bare sounds, which show whether it was a command. What an utterance is
/// scored does not depend on earlier ones. Any one thread; a command is decoded in a tenth of the time in
/// which it was spoken, long speech without a pause in a quarter.
class CommandDecoder
{
public:
    [[nodiscard]] static std::expected<std::unique_ptr<CommandDecoder>, QString>
    make(const SpeechModelFiles &files, const QStringList &presetNames);

    ~CommandDecoder();
    Q_DISABLE_COPY_MOVE(CommandDecoder)

    /// None when the wake phrase is not in it, or when somebody lost interest.
    /// @param utterance signed 16-bit integers, one channel, 16 kHz
    /// @param isWanted asked between the decodings
    [[nodiscard]] std::optional<DecodedUtterance> decode(std::span<const qint16> utterance,
                                                         const std::function<bool()> &isWanted);

    /// Whether what was decoded is good enough to be acted on.
    [[nodiscard]] static bool isConvincing(const DecodedUtterance &utterance);

private:
    struct Destroy
    {
        void operator()(ps_decoder_s *decoder) const;
    };

    struct Segment
    {
        QString word;
        int first = 0;    ///< frame
        int last = 0;     ///< frame
        double score = 0; ///< of its sound
    };

    using Decoder = std::unique_ptr<ps_decoder_s, Destroy>;

    CommandDecoder(Decoder decoder, PresetVocabulary presets);

    struct Pass
    {
        QString text;
        double score = 0;
        int frames = 0;
        std::vector<Segment> segments;
    };

    /// The frames of the wake phrase.
    struct Phrase
    {
        int first = 0;
        int last = 0;
    };

    [[nodiscard]] Pass pass(const char *search, std::span<float *> cepstra);
    [[nodiscard]] static std::optional<Phrase> phraseIn(const std::vector<Segment> &segments);
    [[nodiscard]] static std::size_t framesAround(Phrase phrase, const std::vector<Segment> &segments);
    [[nodiscard]] static double scoreOf(Phrase phrase, const std::vector<Segment> &segments);

    Decoder m_decoder;
    PresetVocabulary m_presets;
};

} // namespace KelvaLR
