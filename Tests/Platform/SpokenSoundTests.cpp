// What the voice says, as it comes out of the speaker of a real sound system.

#include "Platform/Linux/FlitePieces.h"
#include "Platform/Linux/FliteSpeechSynthesizer.h"
#include "Platform/Linux/FliteVoice.h"
#include "Platform/Linux/QtAudioOutput.h"
#include "Platform/SoundRecording.h"
#include "Support/PrintQt.h"
#include "Support/WaitForTask.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;
using namespace Testing;

constexpr int recordingRate = 24'000;

/// From the first loud sample to the last, in seconds.
double speechLength(const std::vector<double> &samples, int rate)
{
    const auto isLoud = [](double sample) { return std::abs(sample) > 0.02; };
    const auto first = std::ranges::find_if(samples, isLoud);
    const auto last = std::find_if(samples.rbegin(), std::make_reverse_iterator(first), isLoud).base();
    return double(last - first) / rate;
}

double renderedLength(const QString &text)
{
    QByteArray samples;
    for (const QByteArray &piece : flitePieces(text)) {
        samples += FliteVoice::render(piece).value();
    }
    return speechLength(samplesOf(samples), FliteVoice::format.sampleRate);
}

TEST(SpokenSound, isHeardInFullUnlessItIsStopped)
{
    AudioThread thread;
    QtAudioOutput output(thread);
    FliteSpeechSynthesizer synthesizer(output);
    QList<SpeechEnd> ends;
    const auto speak = [&](const QString &text) {
        synthesizer.speak(text, [&](SpeechEnd end) { ends.append(end); });
    };
    SoundRecording recording;
    ASSERT_TRUE(recording.begin());

    const QString text = u"Exposure is +0.5. Contrast is -10."_s;
    speak(text);
    ASSERT_TRUE(waitUntil([&] { return ends == QList{SpeechEnd::finished}; }));
    const auto heard = [&] { return speechLength(samplesOf(recording.recorded()), recordingRate); };
    EXPECT_NEAR(heard(), renderedLength(text), 0.1);

    recording.forget();
    const QString story =
        u"This would take a while to be read aloud, if nobody interrupted it. "_s.repeated(3);
    speak(story);
    ASSERT_TRUE(waitUntil([&] { return heard() > 0.5; }));
    synthesizer.stopSpeaking();
    ASSERT_TRUE(waitUntil([&] { return ends.size() == 2; }));
    EXPECT_EQ(ends.last(), SpeechEnd::cancelled);
    // This sound system holds up to two seconds that it does not take back.
    const qsizetype later = recording.recorded().size() + qsizetype{3} * recordingRate * 2;
    ASSERT_TRUE(waitUntil([&] { return recording.recorded().size() > later; }));
    EXPECT_LT(heard(), 2.5);
    EXPECT_GT(renderedLength(story), 6);
}

} // namespace

} // namespace KelvaLR
