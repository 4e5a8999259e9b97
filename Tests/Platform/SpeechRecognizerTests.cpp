#include "Platform/Linux/FliteVoice.h"
#include "Platform/Linux/Speech/PocketSphinxRecognizer.h"
#include "Platform/Linux/Speech/PresetVocabulary.h"
#include "Platform/Linux/Speech/SpokenName.h"
#include "Platform/Linux/Speech/UtteranceGate.h"
#include "Support/PrintQt.h"
#include "Support/WaitForTask.h"

#include <gtest/gtest.h>

#include <QMutex>

#include <random>

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;

namespace {

using Step = UtteranceGate::Step;

std::vector<qint16> noise(int milliseconds, double amplitude)
{
    static std::mt19937 random(1);
    std::normal_distribution<double> loudness(0, amplitude);
    std::vector<qint16> samples(static_cast<std::size_t>(milliseconds) * UtteranceGate::sampleRate / 1000);
    std::ranges::generate(samples, [&] { return static_cast<qint16>(loudness(random)); });
    return samples;
}

using Sounds = std::vector<std::pair<int, double>>; ///< milliseconds and loudness of each

/// What the gate says to these sounds, without "none".
std::vector<Step> stepsOf(const Sounds &sounds, std::size_t *length = nullptr)
{
    UtteranceGate gate;
    std::vector<Step> steps;
    for (const auto &[milliseconds, amplitude] : sounds) {
        const std::vector<qint16> samples = noise(milliseconds, amplitude);
        std::span<const qint16> rest(samples);
        for (; rest.size() >= UtteranceGate::frameLength; rest = rest.subspan(UtteranceGate::frameLength)) {
            const Step step = gate.take(rest.first(UtteranceGate::frameLength));
            if (step != Step::none) {
                steps.push_back(step);
            }
            if (step == Step::ended && length != nullptr) {
                *length = gate.utterance().size() * 1000 / UtteranceGate::sampleRate;
            }
        }
    }
    return steps;
}

/// A sentence as flite says it, with silence around it: 16 kHz, one channel.
QByteArray spoken(const char *text)
{
    const QByteArray silence(qsizetype{UtteranceGate::sampleRate} * 2, '\0');
    return silence + FliteVoice::render(text).value() + silence;
}

/// Hears like the program: from another thread, in blocks.
class RecognizerTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(SpeechModelFiles::installed().exist());
        begin();
    }

    void begin()
    {
        recognition =
            recognizer.recognize({.phrases = {}, .presetNames = {u"Portra 400"_s, u"Kodachrome Zlyph"_s}},
                                 [this](const SpeechResult &result) {
                                     const QMutexLocker lock(&mutex);
                                     heard.append(result.text.value_or(u"(none)"_s));
                                 });
    }

    void say(const char *text)
    {
        const AudioFormat format{UtteranceGate::sampleRate, 1, AudioFormat::SampleType::int16};
        const QByteArray samples = spoken(text);
        for (qsizetype at = 0; at < samples.size(); at += 2048) {
            const QByteArray block = samples.mid(at, 2048);
            recognition->append(block, block.size() / 2, format);
        }
    }

    QStringList soFar()
    {
        const QMutexLocker lock(&mutex);
        return heard;
    }

    QMutex mutex;
    QStringList heard;
    PocketSphinxRecognizer recognizer;
    std::unique_ptr<SpeechRecognition> recognition;
};

} // namespace

TEST(UtteranceGate, cutsSpeechAtItsPauses)
{
    constexpr double fan = 60;
    constexpr double voice = 3000;

    const std::tuple<const char *, Sounds, std::vector<Step>> cases[] = {
        {"silence", {{3000, 0}}, {}},
        {"a fan", {{3000, fan}}, {}},
        {"a fan that is switched on", {{1000, 0}, {9000, 4 * fan}}, {Step::paused, Step::ended}},
        {"a click", {{1000, fan}, {20, voice}, {2000, fan}}, {}},
        {"a word", {{1000, fan}, {400, voice}, {2000, fan}}, {Step::paused, Step::ended}},
        {"a comma",
         {{1000, fan}, {400, voice}, {450, fan}, {400, voice}, {2000, fan}},
         {Step::paused, Step::resumed, Step::paused, Step::ended}},
        {"two sentences",
         {{1000, fan}, {400, voice}, {1000, fan}, {400, voice}, {2000, fan}},
         {Step::paused, Step::ended, Step::paused, Step::ended}},
    };

    for (const auto &[name, sounds, steps] : cases) {
        EXPECT_EQ(stepsOf(sounds), steps) << name;
    }
    std::size_t length = 0;
    stepsOf({{2000, fan}, {1000, voice}, {1000, fan}}, &length);
    EXPECT_NEAR(static_cast<double>(length), 300 + 1000 + 600, 120) << "with its lead and its end";
}

TEST(PresetVocabulary, spellsNamesAsTheyAreSaid)
{
    const std::pair<QString, QStringList> cases[] = {
        {u"Warm Fade"_s, {u"warm"_s, u"fade"_s}},
        {u"Portra 400"_s, {u"portra"_s, u"four"_s, u"hundred"_s}},
        {u"B&W-High_Contrast (v2)"_s, {u"b"_s, u"and"_s, u"w"_s, u"high"_s, u"contrast"_s, u"v"_s, u"two"_s}},
        {u"2024 Don't"_s, {u"two"_s, u"thousand"_s, u"twenty"_s, u"four"_s, u"don't"_s}},
        {u"007"_s, {u"zero"_s, u"zero"_s, u"seven"_s}},
        {u"'"_s, {}},
        {u""_s, {}},
    };

    for (const auto &[name, words] : cases) {
        EXPECT_EQ(spokenWords(name), words) << name.toStdString();
    }
    EXPECT_EQ(FliteVoice::pronounce("portra"), "P AO R T R AH");
    for (const char *odd : {"", "東京", "é", "a b", "%s"}) {
        EXPECT_TRUE(FliteVoice::pronounce(odd).isEmpty()) << odd;
    }
}

TEST(PresetVocabulary, putsNamesInTheirPlaceInTheModelAndInTheText)
{
    PronouncingDictionary dictionary;
    dictionary.set(u"warm"_s, {"W AO R M"});
    dictionary.set(u"fade"_s, {"F EY D"});
    const PresetVocabulary presets({u"Warm Fade"_s, u"東京"_s, u"warm fade"_s, u"Fade"_s}, dictionary);
    EXPECT_EQ(presets.words(), (QStringList{u"warm_fade"_s, u"fade"_s}));
    EXPECT_EQ(presets.dictionaryLines(), "fade F EY D\nwarm_fade W AO R M F EY D\n");
    EXPECT_EQ(presets.withNames(u"apply preset warm_fade in lightroom"_s),
              u"apply preset Warm Fade in lightroom"_s);

    const QByteArray model = "\\data\\\nngram 1=2\nngram 2=2\n\n"
                             "\\1-grams:\n-1.0000 [x] -0.5000\n-2.0000 </s> 0.0000\n\n"
                             "\\2-grams:\n-0.3000 </s> [x]\n-0.2000 [x] </s>\n\n\\end\\\n";
    EXPECT_EQ(modelWithWords(model, "[x]", {u"a"_s, u"b"_s}),
              "\\data\\\nngram 1=3\nngram 2=4\n\n"
              "\\1-grams:\n-1.3010 a -0.5000\n-1.3010 b -0.5000\n-2.0000 </s> 0.0000\n\n"
              "\\2-grams:\n-0.6010 </s> a\n-0.6010 </s> b\n-0.2000 a </s>\n-0.2000 b </s>\n\n\\end\\\n");
    EXPECT_EQ(modelWithWords(model, "[x]", {}), model);
}

TEST_F(RecognizerTest, hearsTheCommandBehindThePhraseOnceItIsWholeUntilTheRecognitionIsOver)
{
    say("Hey Kelva, next photo in lightroom.");
    recognition.reset();
    begin();
    say("The light was much better this morning.");
    say("Hey Kelva, set exposure to plus one.");
    say("Hey Kelva, apply preset Portra four hundred in lightroom.");
    ASSERT_TRUE(waitUntil([&] { return soFar().size() >= 2; }, std::chrono::seconds(60)));
    EXPECT_EQ(soFar(), (QStringList{u"hey kelva set exposure to plus one"_s,
                                    u"hey kelva apply preset Portra 400 in lightroom"_s}));
}

TEST(CommandDecoder, scoresAlikeWhateverCameBeforeAndStopsWhenNotWanted)
{
    const auto decoder = CommandDecoder::make(SpeechModelFiles::installed(), {});
    ASSERT_TRUE(decoder.has_value()) << qPrintable(decoder.error());
    const QByteArray call = spoken("Hey Kelva, flag this photo in lightroom.");
    const std::span samples(reinterpret_cast<const qint16 *>(call.constData()),
                            static_cast<std::size_t>(call.size()) / sizeof(qint16));
    const auto always = [] { return true; };
    const auto first = (*decoder)->decode(samples, always);
    ASSERT_TRUE(first.has_value());
    (void)(*decoder)->decode(noise(3000, 4000), always);
    int questions = 0;
    EXPECT_EQ((*decoder)->decode(samples, [&] { return ++questions == 0; }), std::nullopt);
    EXPECT_EQ(questions, 1) << "it has stopped when it was told to";
    EXPECT_EQ((*decoder)->decode(samples, always), first);
}

TEST(PocketSphinxRecognizer, isNoneWithoutItsModels)
{
    PocketSphinxRecognizer recognizer(SpeechModelFiles{u"/none"_s, {}, {}, {}, {}, {}});
    EXPECT_EQ(recognizer.recognize({}, [](const SpeechResult &) {}), nullptr);
}
