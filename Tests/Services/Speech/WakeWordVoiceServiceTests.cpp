#include "Services/Speech/WakeWordVoiceService.h"

#include "Support/FakeAudio.h"
#include "Support/PrintQt.h"
#include "Support/ScriptedSpeechRecognizer.h"
#include "Support/WaitForTask.h"

#include <QCoroTimer>

#include <gtest/gtest.h>

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QString muted = u"error: The microphone delivers only silence. It may be muted."_s;
const QString unplugged = u"error: The microphone was disconnected."_s;

/// Waits that end soon, but for those that would make a test a race.
constexpr WakeWordTiming timing{.restart = 10ms,
                                .sameUtterance = 1h,
                                .firstRetry = 10ms,
                                .longestRetry = 20ms,
                                .mutedAfter = 40ms, // two blocks at 48 kHz
                                .presetNames = 20s};

class WakeWordVoiceServiceTest : public testing::Test
{
protected:
    WakeWordVoiceServiceTest() { listen(timing); }

    void listen(WakeWordTiming waits)
    {
        service =
            std::make_unique<WakeWordVoiceService>(input, recognizer, [this] { return presetNames; }, waits);
        service->onListeningStateChange = [this](bool on) { journal.append(on ? u"on"_s : u"off"_s); };
        service->onWake = [this](const std::optional<QString> &command) {
            journal.append(u"wake: "_s + command.value_or(u"(nothing)"_s));
        };
        service->onError = [this](const QString &sentence) { journal.append(u"error: "_s + sentence); };
    }

    /// Whether the callbacks come to be exactly these since the last call.
    [[nodiscard]] bool reported(const QStringList &expected)
    {
        (void)waitUntil([&] { return journal.size() >= expected.size(); }, 5s);
        turn();
        EXPECT_EQ(journal, expected);
        return std::exchange(journal, {}) == expected;
    }

    /// Lets what has been posted come about.
    static void turn()
    {
        for (int i = 0; i < 5; ++i) {
            QCoreApplication::processEvents();
        }
    }

    /// A timer of this length that is running now has fired before this returns.
    static void outlast(std::chrono::milliseconds timer) { waitForTask(QCoro::sleepFor(2 * timer + 1ms)); }

    void startListening()
    {
        service->start();
        ASSERT_TRUE(reported({u"on"_s}));
    }

    void deliver(char byte, int blocks = 1)
    {
        for (int i = 0; i < blocks; ++i) {
            input.deliver(QByteArray(input.blockFrames * bytesPerFrame(input.microphone), byte));
        }
    }

    FakeAudioInput input;
    ScriptedSpeechRecognizer recognizer;
    QFuture<QStringList> presetNames = QtFuture::makeReadyFuture(QStringList{u"Soft Matte"_s});
    QStringList journal;
    std::unique_ptr<WakeWordVoiceService> service;
};

} // namespace

TEST_F(WakeWordVoiceServiceTest, theWakePhraseEndsListeningAndItsCommandIsHandedOver)
{
    const std::pair<QString, QString> cases[] = {
        {u"Hey Kelva, darker please"_s, u"darker please"_s},
        {u"Hey, Kelva!"_s, u"(nothing)"_s},
        {u"hey kelvie set exposure to plus one"_s, u"set exposure to plus one"_s},
        {u"okay hey kelva darker"_s, u"darker"_s},
        {u"hey  melvy \n next\tphoto\n"_s, u"next\tphoto"_s},
        {u"hey kelp hey kelva darker"_s, u"darker"_s}, // the first phrase of the list, not of the text
        {u"hey belwa hey kelva"_s, u"(nothing)"_s},
        {u"Hey Kelva, apply preset B&W - Film (2) in Lightroom"_s,
         u"apply preset B&W - Film (2) in lightroom"_s},
        {u"hey kelva apply preset Soft Matte"_s, u"apply preset soft matte"_s},
        {u"hey kelva use preset bw film 2"_s, u"use preset B&W - Film (2)"_s},
        {u"hey kelva bw film 23"_s, u"bw film 23"_s},
    };
    presetNames = QtFuture::makeReadyFuture(QStringList{u"Soft Matte"_s, u"B&W - Film (2)"_s});
    WakeWordTiming waits = timing;
    waits.sameUtterance = 0ms;
    listen(waits);
    for (const auto &[transcript, command] : cases) {
        startListening();
        recognizer.hear(u"hello kelva hey you"_s);
        recognizer.report({.text = transcript, .isFinal = true});
        EXPECT_TRUE(reported({u"off"_s, u"wake: "_s + command})) << transcript.toStdString();
        EXPECT_FALSE(input.isCapturing() || recognizer.isRecognizing());
    }
    EXPECT_EQ(recognizer.recognitions, std::ssize(cases)) << "after a wake nothing begins by itself";
}

TEST_F(WakeWordVoiceServiceTest, theRecogniserIsFedAndGivenItsHintsWithoutAWaitForSlowPresetNames)
{
    QPromise<QStringList> slow;
    slow.start();
    presetNames = slow.future();
    WakeWordTiming waits = timing;
    waits.presetNames = 5ms;
    listen(waits);
    startListening();
    SpeechHints hints{.phrases = {u"Hey Kelva"_s, u"Kelva"_s, u"KelvaLR"_s}, .presetNames = {}};
    EXPECT_EQ(recognizer.hints, hints);
    EXPECT_EQ(input.blockFrames, 1024);
    deliver('\1', 2);
    EXPECT_EQ(recognizer.frames, 2048);

    slow.addResult(QStringList{u"Late"_s});
    slow.finish();
    service->stop();
    service->start();
    ASSERT_TRUE(reported({u"off"_s, u"on"_s}));
    hints.presetNames = {u"Late"_s};
    EXPECT_EQ(recognizer.hints, hints);
}

TEST_F(WakeWordVoiceServiceTest, anUtteranceWakesOnlyOnce)
{
    startListening();
    recognizer.hear(u"hey kelva"_s);
    recognizer.hear(u"hey kelva darker"_s); // reported before the first one was handled
    ASSERT_TRUE(reported({u"off"_s, u"wake: (nothing)"_s}));
    startListening();
    recognizer.hear(u"hey kelva darker"_s);
    EXPECT_TRUE(reported({}));
    EXPECT_TRUE(recognizer.isRecognizing());
}

TEST_F(WakeWordVoiceServiceTest, aRecognitionThatEndsIsFollowedByAnother)
{
    startListening();
    for (const auto &text : {std::optional(u"nothing of interest"_s), {}}) {
        recognizer.report({.text = text, .isFinal = true});
        EXPECT_TRUE(reported({u"off"_s, u"on"_s}));
    }
    EXPECT_EQ(recognizer.recognitions, 3);
    service->onListeningStateChange = [this](bool on) {
        journal.append(on ? u"on"_s : u"off"_s);
        service->stop(); // before the next one
    };
    recognizer.report({.text = u"nothing of interest"_s, .isFinal = true});
    EXPECT_TRUE(reported({u"off"_s}));
    outlast(timing.restart);
    EXPECT_EQ(recognizer.recognitions, 3);
}

TEST_F(WakeWordVoiceServiceTest, theLastStartOrStopCounts)
{
    service->stop();
    EXPECT_TRUE(reported({}));

    recognizer.isAskingHeld = true;
    service->start();
    service->stop();
    recognizer.answer(true);
    EXPECT_TRUE(reported({}));
    EXPECT_EQ(input.starts, 0);

    service->start();
    service->start();
    recognizer.answer(true);
    EXPECT_TRUE(reported({u"on"_s}));
    service->start();
    EXPECT_EQ(input.starts, 1);

    recognizer.hear(u"hey kelva"_s);
    service->stop(); // before the wake is handled
    EXPECT_TRUE(reported({u"off"_s}));

    service->start();
    service.reset();
    recognizer.answer(true);
    EXPECT_TRUE(reported({}));
    EXPECT_FALSE(input.isCapturing());

    recognizer.isAskingHeld = false;
    listen(timing);
    startListening();
    recognizer.hear(u"hey kelva"_s);
    service.reset();
    EXPECT_TRUE(reported({}));
    EXPECT_FALSE(input.isCapturing() || recognizer.isRecognizing());
}

TEST_F(WakeWordVoiceServiceTest, aDeniedPermissionIsASentence)
{
    recognizer.isAccessGranted = false;
    service->start();
    EXPECT_TRUE(reported({u"error: Speech recognition permission is required for wake phrase listening."_s}));
    recognizer.isAccessGranted = true;
    input.isAccessGranted = false;
    service->start();
    EXPECT_TRUE(reported({u"error: Microphone permission is required for wake phrase listening."_s}));
    EXPECT_EQ(input.starts, 0);
    input.isAccessGranted = true;
    startListening();
}

TEST_F(WakeWordVoiceServiceTest, withoutARecogniserNothingIsDetected)
{
    recognizer.isAvailable = false;
    startListening();
    deliver('\1');
    EXPECT_TRUE(input.isCapturing());
    service->stop();
    EXPECT_TRUE(reported({u"off"_s}));
    EXPECT_FALSE(input.isCapturing());
}

TEST_F(WakeWordVoiceServiceTest, aMicrophoneThatDoesNotWorkIsReportedOnceAndTriedAgain)
{
    input.startError = u"No microphone was found."_s;
    service->start();
    EXPECT_TRUE(reported({u"error: No microphone was found."_s}));
    EXPECT_EQ(recognizer.recognitions, 0);
    service->stop();
    service->start();
    EXPECT_TRUE(reported({})) << "the same trouble";
    input.startError.reset();
    EXPECT_TRUE(reported({u"on"_s}));

    input.fail(u"The microphone was disconnected."_s);
    EXPECT_TRUE(reported({u"off"_s, u"on"_s})) << "nothing has been heard between these troubles";
    deliver('\1');
    turn();
    input.startError = u"No microphone was found."_s;
    input.fail(u"The microphone was disconnected."_s);
    EXPECT_TRUE(reported({unplugged, u"off"_s}));
    service->stop();
    input.startError.reset();
    outlast(timing.longestRetry);
    EXPECT_TRUE(reported({})) << "stopped, it tries no more";
}

TEST_F(WakeWordVoiceServiceTest, aMutedMicrophoneIsReportedOnceAndHeardAgain)
{
    startListening();
    deliver('\0', 2);
    EXPECT_TRUE(reported({muted, u"off"_s}));
    EXPECT_TRUE(recognizer.isRecognizing());

    service->stop();
    service->start();
    EXPECT_TRUE(waitUntil([&] { return input.isCapturing(); }));
    deliver('\0', 2);
    EXPECT_TRUE(reported({})) << "still muted";

    deliver('\1');
    EXPECT_TRUE(reported({u"on"_s}));
    deliver('\0', 2);
    EXPECT_TRUE(reported({u"off"_s})) << "a noise gate would have this said in every pause";
    input.fail(u"The microphone was disconnected."_s);
    EXPECT_TRUE(reported({unplugged, u"on"_s}));
}
