// What is read aloud, and that the wake phrase listener does not hear it.
#include "Stores/AppModelFixture.h"

#include <QTemporaryDir>

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;

using AppModelSpeechTest = AppModelTest;

TEST_F(AppModelSpeechTest, nothingIsReadAloudInQuietModeUnlessTheUserWantsIt)
{
    const QTemporaryDir empty;
    const QStringList requests{u"hello"_s, u"set exposure to 1"_s, u"test lightroom connection"_s,
                               u"import photos from folder "_s + empty.path(), u"rate these 4 stars"_s};
    for (const QString &request : requests) {
        submit(request);
    }
    EXPECT_TRUE(speech.texts.isEmpty());

    preferences.setOn(Preference::readResponsesAloud, true);
    for (const QString &request : requests) {
        submit(request);
    }
    EXPECT_EQ(speech.texts, answers().sliced(5));
}

TEST_F(AppModelSpeechTest, aChatAnswerIsReadInPlainWordsInEitherMode)
{
    preferences.setOn(Preference::readResponsesAloud, true);
    assistant.response.message.content = u"**Warm**, see [this](https://a.b)"_s;
    submit(u"hello"_s);
    EXPECT_EQ(speech.texts, QStringList{u"Warm, see this."_s});
    EXPECT_EQ(answers(), QStringList{u"**Warm**, see [this](https://a.b)"_s});

    model->setMode(InputMode::voice);
    submit(u"hello"_s);
    EXPECT_EQ(speech.texts.size(), 2);

    // An open microphone would take what we say for the user's words.
    realtime.isMicrophoneHeld = true;
    submit(u"hello"_s);
    EXPECT_EQ(speech.texts.size(), 2);
}

TEST_F(AppModelSpeechTest, theListenerRestsWhileOurOwnVoiceSpeaks)
{
    preferences.setOn(Preference::readResponsesAloud, true);
    ASSERT_EQ(wakePhrase.starts, 1);
    submit(u"hello"_s);
    EXPECT_EQ(wakePhrase.stops, 1);
    EXPECT_FALSE(model->isWakeWordListening());
    enter(RealtimeVoiceState::failed); // what else would start it
    enter(RealtimeVoiceState::idle);
    EXPECT_EQ(wakePhrase.starts, 1);
    speech.finish();
    EXPECT_EQ(wakePhrase.starts, 2);

    submit(u"hello"_s);
    const auto finish = speech.finish;
    enter(RealtimeVoiceState::recording);
    finish();
    EXPECT_EQ(wakePhrase.starts, 2) << "the microphone is the session's";
    EXPECT_TRUE(realtime.calls.contains(u"finish"_s));
}

TEST_F(AppModelSpeechTest, aNewSessionAndTheMicrophoneControlSilenceIt)
{
    preferences.setOn(Preference::readResponsesAloud, true);
    submit(u"hello"_s);
    model->startNewSession();
    EXPECT_FALSE(speech.finish);
    EXPECT_EQ(wakePhrase.starts, 2);

    submit(u"hello"_s);
    model->startComputerUseVoiceMode();
    EXPECT_FALSE(speech.finish);
    EXPECT_EQ(wakePhrase.starts, 2);
    EXPECT_FALSE(realtime.calls.contains(u"begin"_s)) << "no session yet";
    enter(RealtimeVoiceState::recording);
    submit(u"hello"_s);
    EXPECT_TRUE(realtime.calls.contains(u"begin"_s));
    model->startNewSession();
    EXPECT_EQ(realtime.calls.constLast(), u"finish"_s) << "the microphone opens again";
    enter(RealtimeVoiceState::idle);
    EXPECT_EQ(wakePhrase.starts, 3);
}
