#include "Stores/AppModelFixture.h"

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;

namespace {

class AppModelVoiceTest : public AppModelTest
{
protected:
    /// Lets the callbacks that were posted reach the model.
    static void turn() { waitForTask(QCoro::sleepFor(std::chrono::milliseconds(10))); }
};

} // namespace

TEST_F(AppModelVoiceTest, theListenerAndTheSessionShareOneMicrophone)
{
    for (const auto state :
         {RealtimeVoiceState::connecting, RealtimeVoiceState::recording, RealtimeVoiceState::speaking}) {
        enter(state);
        model->startWakeWordListening();
        EXPECT_EQ(wakePhrase.starts, 1);
    }
    realtime.isMicrophoneHeld = true;
    enter(RealtimeVoiceState::failed);
    EXPECT_EQ(wakePhrase.starts, 1) << "the session that failed is not closed yet";
}

TEST_F(AppModelVoiceTest, theWakePhraseAloneOpensASessionAndTheControlClosesIt)
{
    for (const std::optional<QString> &suffix : {std::optional<QString>(), {u""_s}, {u"how are you"_s}}) {
        realtime.calls.clear();
        wakePhrase.onWake(suffix);
        EXPECT_TRUE(waitUntil([&] { return realtime.calls == QStringList{u"start voice"_s}; }));
    }
    EXPECT_TRUE(model->messages().isEmpty());
    EXPECT_TRUE(waitUntil([&] { return lightroom.journal.count(u"own windows"_s) == 6; }));

    realtime.isSessionActive = true;
    realtime.calls.clear();
    model->startComputerUseVoiceMode();
    model->setMode(InputMode::quiet);
    EXPECT_TRUE(waitUntil([&] { return realtime.calls == QStringList({u"stop"_s, u"text mode"_s}); }));
    EXPECT_EQ(model->inputMode(), InputMode::quiet);
}

TEST_F(AppModelVoiceTest, aSessionKeepsTheAnswerBeforeItAndIsStoppedBeforeItHearsInQuiet)
{
    wakePhrase.onWake(u"next photo in lightroom"_s);
    ASSERT_TRUE(waitUntil([&] { return answers().size() == 1; }));
    enter(RealtimeVoiceState::connecting);
    realtime.calls.clear();
    model->setMode(InputMode::quiet);
    EXPECT_TRUE(waitUntil([&] { return realtime.calls == QStringList{u"stop"_s}; }));
    realtime.onAssistantTranscript(u"Hello."_s);
    turn();
    EXPECT_EQ(answers().size(), 2);
}

TEST_F(AppModelVoiceTest, aTranscriptGrowsInOneMessageUntilTheResponseIsDone)
{
    for (const QString &transcript : {u"  "_s, u" Raising"_s, u"Raising the exposure "_s}) {
        std::jthread([&] { realtime.onAssistantTranscript(transcript); });
    }
    turn();
    EXPECT_EQ(answers(), QStringList{u"Raising the exposure"_s});
    realtime.onResponseDone();
    realtime.onAssistantTranscript(u"Next."_s);
    turn();
    EXPECT_EQ(answers(), (QStringList{u"Raising the exposure"_s, u"Next."_s}));
}

TEST_F(AppModelVoiceTest, aToolResultIsRecordedOnlyWithoutAnActiveSessionAndNeverSpoken)
{
    const ComputerUseResult result{
        u"Done"_s, Artifact::make(ArtifactKind::markdown, u"Card"_s, ArtifactStatus::ready, {})};
    realtime.isSessionActive = true;
    realtime.onComputerUseResult(result);
    turn();
    EXPECT_TRUE(answers().isEmpty());
    EXPECT_EQ(model->selectedArtifact(), result.artifact);

    realtime.isSessionActive = false;
    realtime.onComputerUseResult(result);
    turn();
    EXPECT_EQ(answers(), QStringList{u"Done"_s});
    EXPECT_TRUE(speech.texts.isEmpty());
}

TEST_F(AppModelVoiceTest, failuresAreSentences)
{
    realtime.onError(u"HTTP 401"_s);
    turn();
    EXPECT_EQ(wakePhrase.stops, 0);
    EXPECT_EQ(model->realtimeVoiceState(), RealtimeVoiceState::idle);
    wakePhrase.onListeningStateChange(true);
    wakePhrase.onError(u"No microphone."_s);
    turn();
    EXPECT_FALSE(model->isWakeWordListening());
    EXPECT_EQ(realtime.log, QStringList{u"System error encountered: HTTP 401"_s});
    EXPECT_EQ(answers(),
              (QStringList{u"I'm having trouble connecting to my service right now. I've logged the "
                           "issue for my administrator to look into. Please try again in a few moments."_s,
                           u"Wake phrase failed: No microphone."_s}));
    EXPECT_EQ(model->messages().constLast().mode, InputMode::voice);
}

TEST_F(AppModelVoiceTest, callbacksOfAModelThatIsGoneDoNothing)
{
    model.reset();
    realtime.onStateChange(RealtimeVoiceState::idle);
    realtime.onError(u"late"_s);
    wakePhrase.onWake(u"set exposure to 1"_s);
    EXPECT_EQ(waitForTask(realtime.importedPhotoTargetPathsProvider({.action = u"lr_set_rating"_s})),
              std::nullopt);
    turn();
    EXPECT_EQ(wakePhrase.starts, 1);
    EXPECT_TRUE(realtime.log.isEmpty());
}
