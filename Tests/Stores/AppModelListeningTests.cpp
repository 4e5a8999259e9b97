// The model with the real wake phrase listener, whose microphone and recogniser answer late.
#include "Services/Assistant/Realtime/OpenAIRealtimeVoiceService.h"
#include "Services/Speech/WakeWordVoiceService.h"
#include "Stores/AppModelFixture.h"
#include "Support/FakeAudio.h"
#include "Support/ScriptedRealtimeServer.h"
#include "Support/ScriptedSpeechRecognizer.h"

#include <thread>

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// A listener that never waits long, and hears the same words again at once.
class ListeningTest : public AppModelTest
{
protected:
    ListeningTest() { makeModel(realtime); }

    void TearDown() override
    {
        model.reset();
        AppModelTest::TearDown();
    }

    void makeModel(RealtimeVoiceService &session)
    {
        model = std::make_unique<AppModel>(AppModelServices{assistant, computerUse, session, listener, speech,
                                                            *lightroom.service, connection, actions,
                                                            lightroom.applications, preferences});
    }

    /// A service reports from a thread of its own.
    void enter(RealtimeVoiceState state)
    {
        std::jthread([&] { realtime.onStateChange(state); });
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

    [[nodiscard]] double lastValue() const { return lastCommand().value(u"value"_s).toDouble(); }

    FakeAudioInput input;
    ScriptedSpeechRecognizer recognizer;
    WakeWordVoiceService listener{
        input,
        recognizer,
        [] { return QtFuture::makeReadyFuture(QStringList()); },
        {.restart = 1ms, .sameUtterance = 0ms, .firstRetry = 1ms, .longestRetry = 1ms, .mutedAfter = 1h}};
};

constexpr std::pair<RealtimeVoiceState, bool> listeningIn[] = {
    {RealtimeVoiceState::idle, true},       {RealtimeVoiceState::connecting, false},
    {RealtimeVoiceState::recording, false}, {RealtimeVoiceState::speaking, false},
    {RealtimeVoiceState::failed, true},
};

} // namespace

TEST_F(ListeningTest, followsTheSessionFromEveryStateToEveryOther)
{
    for (const auto &[from, wasListening] : listeningIn) {
        for (const auto &[to, shouldListen] : listeningIn) {
            enter(from);
            enter(to);
            EXPECT_TRUE(waitUntil([&] {
                return model->realtimeVoiceState() == to && (shouldListen ? isListening() : isDeaf());
            })) << rawValue(from).data()
                << " to " << rawValue(to).data();
        }
    }
}

TEST_F(ListeningTest, survivesTheErrorsOfEveryState)
{
    for (const auto &[state, shouldListen] : listeningIn) {
        enter(state);
        std::jthread([&] { realtime.onError(u"HTTP 500"_s); }).join();
        const auto errors = answers().size() + 1;
        EXPECT_TRUE(waitUntil([&] { return answers().size() == errors; }));
        EXPECT_TRUE(waitUntil([&] { return shouldListen ? isListening() : isDeaf(); }));
        EXPECT_EQ(model->realtimeVoiceState(), state);
        EXPECT_FALSE(model->isResponding());
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
    EXPECT_TRUE(waitUntil([&] { return model->realtimeVoiceState() == RealtimeVoiceState::connecting; }));
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
        EXPECT_EQ(model->messages().at(model->messages().size() - 2).content, words);
        EXPECT_EQ(lastValue(), value) << words.toStdString();
        EXPECT_TRUE(isDeaf()) << "it would hear the answer";
        speech.finish();
    }
    EXPECT_TRUE(realtime.calls.isEmpty());
    say(u"hey kelva tell me one thing"_s);
    EXPECT_TRUE(waitUntil([&] { return realtime.calls == QStringList{u"start voice"_s}; }));
    EXPECT_TRUE(isDeaf());
}

TEST_F(ListeningTest, listensAgainWhenTheAnswerIsNotReadAloud)
{
    whenLightroomIsAsked([&] { model->setMode(InputMode::quiet); });
    say(u"hey kelva set exposure to one"_s);
    EXPECT_TRUE(waitUntil([&] { return !answers().isEmpty() && isListening(); }));
    EXPECT_TRUE(speech.texts.isEmpty());
}

TEST_F(ListeningTest, aMicrophoneThatDoesNotWorkIsSaidOnceInAllItsSessions)
{
    input.startError = u"No microphone was found."_s;
    const QStringList said{u"Wake phrase failed: No microphone was found."_s};
    EXPECT_TRUE(waitUntil([&] { return answers() == said; }));
    for (const auto state :
         {RealtimeVoiceState::connecting, RealtimeVoiceState::idle, RealtimeVoiceState::failed}) {
        enter(state);
        EXPECT_TRUE(waitUntil([&] { return model->realtimeVoiceState() == state; }));
    }
    EXPECT_TRUE(isDeaf());
    input.startError.reset();
    EXPECT_TRUE(waitUntil([&] { return isListening(); }));
    EXPECT_EQ(answers(), said);
}

TEST_F(ListeningTest, aModelThatIsGoneLeavesNothingUnderWay)
{
    say(u"hey kelva set exposure to one"_s);
    model.reset();
    ASSERT_TRUE(waitUntil([&] { return !recognizer.isRecognizing(); })) << "the wake was heard";

    makeModel(realtime);
    whenLightroomIsAsked([&] { model.reset(); });
    say(u"hey kelva set exposure to two"_s);
    ASSERT_TRUE(waitUntil([&] { return !model; }));

    recognizer.isAskingHeld = true;
    makeModel(realtime);
    model.reset();
    recognizer.answer(true);
    EXPECT_TRUE(waitUntil([&] { return input.isCapturing(); })) << "the listener is the application's";
    EXPECT_TRUE(waitUntil([&] { return lightroom.plugin.repliesLeft().isEmpty(); }));
    EXPECT_EQ(lastValue(), 2);
    EXPECT_TRUE(speech.texts.isEmpty());
}

TEST_F(ListeningTest, handsOneMicrophoneToARealSessionAndBack)
{
    constexpr qsizetype ofTheListener = 1024;
    constexpr qsizetype ofTheSession = 2048;
    ScriptedRealtimeServer server;
    FakeAudioOutput output;
    const QTemporaryDir folder;
    OpenAIRealtimeVoiceService session(
        OpenAIAccess(u"KELVALR_OPENAI_API_KEY"_s, server.baseUrl(), [](const QString &) { return u"key"_s; }),
        input, output, RealtimeToolRunner(*lightroom.service, computerUse),
        DebugLog(folder.filePath(u"app_debug.log"_s)));
    model.reset();
    listener.stop();
    makeModel(session);

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
