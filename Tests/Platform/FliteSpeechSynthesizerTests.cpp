// The real voice, with a speaker that writes down what it is given.

#include "Platform/Linux/FlitePieces.h"
#include "Platform/Linux/FliteSpeechSynthesizer.h"
#include "Platform/Linux/FliteVoice.h"
#include "Support/FakeAudio.h"
#include "Support/PrintQt.h"
#include "Support/WaitForTask.h"

#include <QElapsedTimer>
#include <QtEndian>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <numeric>
#include <vector>

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;

namespace {

QByteArray rendered(const QString &text)
{
    QByteArray samples;
    for (const QByteArray &piece : flitePieces(text)) {
        samples += FliteVoice::render(piece).value();
    }
    return samples;
}

constexpr auto bytesPerSecond = qsizetype{16'000} * 2;

/// How loud each twentieth of a second is; no two renderings of a text are alike in every sample.
std::vector<double> envelope(const QByteArray &samples)
{
    std::vector<double> loudness(samples.size() * 20 / bytesPerSecond + 1);
    for (qsizetype place = 0; place + 1 < samples.size(); place += 2) {
        loudness[place * 20 / bytesPerSecond] +=
            std::abs(double(qFromLittleEndian<qint16>(samples.constData() + place)));
    }
    return loudness;
}

/// Whether both are the same words in the same order.
bool soundsLike(const QByteArray &heard, const QByteArray &expected)
{
    const auto left = envelope(heard);
    const auto right = envelope(expected);
    const double both = std::inner_product(left.begin(), left.end(), right.begin(), 0.0);
    const double squares = std::inner_product(left.begin(), left.end(), left.begin(), 0.0) *
                           std::inner_product(right.begin(), right.end(), right.begin(), 0.0);
    return heard.size() == expected.size() && both > 0.99 * std::sqrt(squares);
}

class FliteSpeechSynthesizerTest : public testing::Test
{
protected:
    void speak(const QString &text)
    {
        output.played.clear();
        clock.start();
        synthesizer->speak(text, [this](SpeechEnd end) { ends.append(end); });
    }

    /// Speaks a text, which is heard whole.
    void hear(const QString &text)
    {
        ends.clear();
        const QByteArray samples = rendered(text);
        speak(text);
        EXPECT_TRUE(synthesizer->isSpeaking());
        EXPECT_TRUE(output.played.isEmpty()) << "rendering holds up the main thread";
        ASSERT_TRUE(waitUntil([&] { return output.played.size() >= samples.size(); }));
        EXPECT_TRUE(soundsLike(output.played, samples));
        output.finish();
        ASSERT_TRUE(waitUntil([&] { return !ends.isEmpty(); }));
        EXPECT_EQ(ends, QList{SpeechEnd::finished});
        EXPECT_FALSE(synthesizer->isSpeaking());
    }

    const QString sentence = u"This sentence takes some three seconds to be read aloud. "_s;
    FakeAudioOutput output;
    QElapsedTimer clock;
    QList<SpeechEnd> ends;
    std::unique_ptr<FliteSpeechSynthesizer> synthesizer = std::make_unique<FliteSpeechSynthesizer>(output);
};

TEST_F(FliteSpeechSynthesizerTest, speaksEverySentenceInItsPlaceAndEndsOnceItHasBeenHeard)
{
    hear(u"Adjusted Exposure to +0.5. Contrast is -10.\nTemperature: 5500."_s);
    EXPECT_EQ(output.format, FliteVoice::format);
}

TEST_F(FliteSpeechSynthesizerTest, aSpeakerThatRunsDryIsNotTakenForTheEnd)
{
    speak(sentence.repeated(4));
    while (ends.isEmpty()) {
        const qsizetype before = output.played.size();
        ASSERT_TRUE(waitUntil([&] { return output.played.size() > before || !ends.isEmpty(); }));
        output.finish();
    }
    EXPECT_TRUE(soundsLike(output.played, rendered(sentence.repeated(4))));
    EXPECT_EQ(ends, QList{SpeechEnd::finished});
}

TEST_F(FliteSpeechSynthesizerTest, rendersOnlyAFewSecondsAhead)
{
    hear(sentence.repeated(3));
    const qsizetype early = output.played.size() * 2 / 3 - 5 * bytesPerSecond;
    ASSERT_GT(early, 0);
    EXPECT_GE(clock.elapsed(), early * 1000 / bytesPerSecond);
}

TEST_F(FliteSpeechSynthesizerTest, fallsSilentWhenItIsStoppedAndDropsWhatIsStillRendered)
{
    speak(u"First this. Then that. And so on for a while."_s);
    ASSERT_TRUE(waitUntil([&] { return !output.played.isEmpty(); }));
    synthesizer->stopSpeaking();
    synthesizer->stopSpeaking();
    EXPECT_EQ(output.stops, 1);
    EXPECT_FALSE(synthesizer->isSpeaking());
    EXPECT_TRUE(ends.isEmpty()) << "reported from within the call";
    ASSERT_TRUE(waitUntil([&] { return !ends.isEmpty(); }));
    EXPECT_EQ(ends, QList{SpeechEnd::cancelled});

    // Of many that follow each other quickly, only the last is heard, and soon.
    ends.clear();
    constexpr int replaced = 200;
    for (int turn = 0; turn < replaced; ++turn) {
        speak(u"Nobody hears this sentence, which was replaced before it was said."_s);
    }
    speak(u"Last."_s);
    ASSERT_TRUE(waitUntil([&] { return !output.played.isEmpty(); }));
    EXPECT_TRUE(soundsLike(output.played, rendered(u"Last."_s)));
    EXPECT_EQ(ends, QList<SpeechEnd>(replaced, SpeechEnd::cancelled));
}

TEST_F(FliteSpeechSynthesizerTest, aSpeakerThatIsMissingOrGoesAwayFailsTheText)
{
    output.startError = u"No speaker was found."_s;
    speak(u"Unheard."_s);
    EXPECT_TRUE(ends.isEmpty()) << "reported from within the call";
    ASSERT_TRUE(waitUntil([&] { return !ends.isEmpty(); }));

    output.startError.reset();
    speak(u"Cut off."_s);
    ASSERT_TRUE(waitUntil([&] { return !output.played.isEmpty(); }));
    output.fail(u"The speaker was disconnected."_s);
    ASSERT_TRUE(waitUntil([&] { return ends.size() == 2; }));
    EXPECT_EQ(ends, (QList{SpeechEnd::failed, SpeechEnd::failed}));

    hear(u"Heard."_s);
}

TEST_F(FliteSpeechSynthesizerTest, whatCannotBeSaidIsOverAtOnce)
{
    const QStringList texts{u""_s, u" \n"_s, u"\u0001\u007f\u0000"_s, u"😀 日本語"_s, u"---"_s};
    for (const QString &text : texts) {
        speak(text);
        ASSERT_TRUE(waitUntil([&] { return !synthesizer->isSpeaking(); }));
    }
    ASSERT_TRUE(waitUntil([&] { return ends.size() == texts.size(); }));
    EXPECT_EQ(ends.count(SpeechEnd::finished), texts.size());
    EXPECT_TRUE(output.played.isEmpty());
}

TEST_F(FliteSpeechSynthesizerTest, oddTextsBeginSoonAndMayEndWithTheProgram)
{
    const QString word = u"x7%$&#<_"_s;
    for (const QString &text :
         {u"word "_s.repeated(20'000), word.repeated(12'500), QString(100'000, u'9'), QString(100'000, u'.'),
          u"$1.2.3,4-5/6:7'8 Mr. St. XIV 0x1F 1e9 12:99 -.5 +- ''s"_s,
          u"a\U0001F600b\xD800"
          u"c\u0007d\uFFFF"_s,
          u"/home/someone/Pictures/2024/IMG_0001.CR2"_s}) {
        speak(text);
        ASSERT_TRUE(waitUntil([&] { return !output.played.isEmpty() || !synthesizer->isSpeaking(); }));
        synthesizer->stopSpeaking();
    }
    speak(u"The program ends before this is said."_s);
    synthesizer.reset();
    QCoreApplication::processEvents();
}

TEST(FlitePieces, areSentencesInTheLettersOfTheVoice)
{
    const std::pair<QString, QList<QByteArray>> rows[] = {
        {u""_s, {}},
        {u" ... \n\t?! "_s, {}},
        {u"Adjusted Exposure on 1 photo to 0.5"_s, {"Adjusted Exposure on 1 photo to 0.5"}},
        {u"Done. Contrast is +0.5!  And?\nYes"_s, {"Done.", "Contrast is +0.5!", "And?", "Yes"}},
        {u"Use e.g. f/2.8, 1/250 s."_s, {"Use e.g. f/2.8, 1/250 s."}},
        {u"Größe, naïve Æon: “it’s” −10 – 2½×"_s, {"Grosse, naive aeon: \"it's\" -10 - 2 1/2 times"}},
        {u"5500 K, 20 °C 😀日本"_s, {"5500 K, 20 degrees C"}},
        {u"a\u0000b\u0007c\u007f"_s, {"a b c"}},
        {u"IMG_0001.CR2"_s, {"IMG_0001.CR2"}},
    };

    for (const auto &[text, pieces] : rows) {
        EXPECT_EQ(flitePieces(text), pieces) << text.toStdString();
    }
}

TEST(FlitePieces, areShortAndLoseNoWord)
{
    const QList<QByteArray> prose = flitePieces(u"one two three four, five six seven "_s.repeated(50));
    EXPECT_EQ(prose.join(' '), QByteArray("one two three four, five six seven ").repeated(50).trimmed());
    EXPECT_TRUE(prose.first().endsWith(','));
    const QList<QByteArray> endless = flitePieces(QString(1'000, u'x'));
    EXPECT_EQ(endless.join().count('x'), 1'000);
    for (const QByteArray &piece : prose + endless) {
        EXPECT_LE(piece.size(), 160);
        EXPECT_TRUE(
            std::ranges::all_of(piece.split(' '), [](const auto &word) { return word.size() <= 40; }));
    }
}

} // namespace
