// The model with the real wake phrase listener, whose microphone and recogniser answer late.
#include "Services/Assistant/Realtime/OpenAIRealtimeVoiceService.h"
#include "Services/Speech/WakeWordVoiceService.h"
#include "Stores/AppModelFixture.h"
#include "Support/FakeAudio.h"
#include "Support/ScriptedRealtimeServer.h"
#include "Support/ScriptedSpeechRecognizer.h"

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// A listener that never waits long, and hears the same words again at once.
class ListeningTest : public AppModelTest
{
protected:
    ListeningTest() { makeModel(assistant, realtime, listener); }

    void TearDown() override
    {
        model.reset();
        AppModelTest::TearDown();
    }

    [[nodiscard]] bool isListening() const
    {
        return model->isWakeWordListening() && input.isCapturing() && recognizer.isRecognizing();
    }

    [[nodiscard]] bool isDeaf() const
    {
        return !model->isWakeWordListening() && !input.isCapturing() && !recognizer.isRecognizing();
    }

    void say(const QString &words)
    {
        ASSERT_TRUE(waitUntil([&] { return isListening(); }));
        recognizer.report({.text = words, .isFinal = true});
    }

    /// Does this in the middle of a command.
    void whenLightroomIsAsked(const std::function<void()> &happening)
    {
        lightroom.plugin.setHandler([happening](const QJsonObject &command) {
            if (command.value(u"action"_s) == u"ping"_s) {
                return ScriptedPlugin::successReply(u"pong"_s);
            }
            happening();
            return ScriptedPlugin::successReply(u"Done"_s);
        });
    }

    FakeAudioInput input;
    ScriptedSpeechRecognizer recognizer;
    WakeWordVoiceService listener{
        input,
        recognizer,
        [] { return QtFuture::makeReadyFuture(QStringList()); },
        {.restart = 1ms, .sameUtterance = 0ms, .firstRetry = 1ms, .longestRetry = 1ms, .mutedAfter = 1h}};
};

} // namespace

TEST_F(ListeningTest, followsTheSessionFromEveryStateToEveryOther)
{
    using enum RealtimeVoiceState;
    for (const auto from : {idle, connecting, recording, speaking, failed}) {
        for (const auto to : {idle, connecting, recording, speaking, failed}) {
            realtime.onStateChange(from);
            enter(to);
            EXPECT_TRUE(waitUntil([&] { return to == idle || to == failed ? isListening() : isDeaf(); }))
                << rawValue(from).data() << " to " << rawValue(to).data();
        }
    }
}

TEST_F(ListeningTest, aSessionThatStartsWhileTheListenerStartsFindsTheMicrophoneFree)
{
    listener.stop();
    recognizer.isAskingHeld = true;
    model->startWakeWordListening(); // its question stays open
    model->startComputerUseVoiceMode();
    recognizer.answer(true);
    enter(RealtimeVoiceState::connecting);
    EXPECT_EQ(input.starts, 0);

    recognizer.isAskingHeld = false;
    enter(RealtimeVoiceState::failed);
    EXPECT_TRUE(waitUntil([&] { return isListening(); }));
    EXPECT_EQ(input.starts, 1);
}

TEST_F(ListeningTest, aSpokenCommandIsShownAsSpokenAndCarriedOutWithItsNumbers)
{
    const std::pair<QString, double> cases[] = {
        {u"set exposure to 1"_s, 1},
        {u"set exposure to minus zero point seven five"_s, -0.75},
        {u"set temperature to fifty five hundred"_s, 5500},
        {u"increase contrast by ten"_s, 10},
    };
    for (const auto &[words, value] : cases) {
        const auto spoken = speech.texts.size() + 1;
        say(u"Hey Kelva, "_s + words);
        ASSERT_TRUE(waitUntil([&] { return speech.texts.size() == spoken; })) << words.toStdString();
        const ConversationMessage &request = model->messages().at(model->messages().size() - 2);
        EXPECT_EQ(request.content, words);
        EXPECT_EQ(request.mode, InputMode::voice);
        EXPECT_EQ(answers(), speech.texts);
        EXPECT_EQ(lastCommand().value(u"value"_s).toDouble(), value) << words.toStdString();
        EXPECT_TRUE(isDeaf()) << "it would hear the answer";
        speech.finish();
    }
    submit(u"set contrast to 1"_s);
    EXPECT_EQ(answers(), speech.texts) << "a typed command is spoken too now";
    speech.finish();
    EXPECT_TRUE(waitUntil([&] { return isListening(); }));
    EXPECT_TRUE(realtime.calls.isEmpty());
}

TEST_F(ListeningTest, listensAgainWhenTheAnswerIsNotReadAloud)
{
    whenLightroomIsAsked([&] { model->setMode(InputMode::quiet); });
    say(u"hey kelva set exposure to one"_s);
    EXPECT_TRUE(waitUntil([&] { return !answers().isEmpty() && isListening(); }));
    EXPECT_TRUE(speech.texts.isEmpty());
}

TEST_F(ListeningTest, aModelThatIsGoneDoesNotSpeakTheAnswer)
{
    whenLightroomIsAsked([&] { model.reset(); });
    say(u"hey kelva set exposure to two"_s);
    ASSERT_TRUE(waitUntil([&] { return !model; }));
    EXPECT_TRUE(waitUntil([&] { return lightroom.plugin.repliesLeft().isEmpty(); }));
    EXPECT_TRUE(speech.texts.isEmpty());
}

TEST_F(ListeningTest, handsOneMicrophoneToARealSessionAndBack)
{
    constexpr qsizetype ofTheListener = 1024;
    constexpr qsizetype ofTheSession = 2048;
    ScriptedRealtimeServer server;
    FakeAudioOutput output;
    OpenAIRealtimeVoiceService session(
        OpenAIAccess(u"KELVALR_OPENAI_API_KEY"_s, server.baseUrl(), [](const QString &) { return u"key"_s; }),
        input, output, RealtimeToolRunner(*lightroom.service, computerUse), lightroom.log);
    model.reset();
    listener.stop();
    makeModel(assistant, session, listener);

    say(u"hey kelva"_s);
    EXPECT_TRUE(waitUntil([&] { return model->realtimeVoiceState() == RealtimeVoiceState::recording; }));
    EXPECT_EQ(input.blockFrames, ofTheSession);
    EXPECT_FALSE(model->isWakeWordListening());
    model->startComputerUseVoiceMode();
    EXPECT_TRUE(waitUntil([&] { return isListening(); }));
    EXPECT_EQ(input.blockFrames, ofTheListener);

    say(u"hey kelva"_s);
    EXPECT_TRUE(waitUntil([&] { return input.blockFrames == ofTheSession && input.isCapturing(); }));
    server.client()->close();
    EXPECT_TRUE(waitUntil([&] { return model->realtimeVoiceState() == RealtimeVoiceState::failed; }));
    EXPECT_FALSE(model->isWakeWordListening()) << "the session that failed is not closed yet";
    EXPECT_TRUE(input.isCapturing());
    model->startNewSession();
    EXPECT_TRUE(waitUntil([&] { return isListening() && input.blockFrames == ofTheListener; }));

    server.whenConnected = [&] { server.client()->close(); };
    say(u"hey kelva"_s);
    EXPECT_TRUE(waitUntil([&] { return !answers().isEmpty() && isListening(); })) << "it never began";
    model.reset();
}
