#include "Services/Assistant/Realtime/RealtimeSessionFixture.h"

#include <QCoroTimer>

namespace KelvaLR::Testing {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using enum RealtimeVoiceState;

const QString append = u"input_audio_buffer.append"_s;
const QString clear = u"input_audio_buffer.clear"_s;
const QString update = u"session.update"_s;

/// One block of 2,048 frames at 48 kHz: it makes 1,024 or 1,025 frames for the service.
QByteArray block()
{
    return QByteArray(2048 * qsizetype(sizeof(float)), '\x11');
}

QJsonObject event(const QString &type, const QString &key, const QString &value)
{
    return {{u"type"_s, type}, {key, value}};
}

QJsonObject audioDelta(const QByteArray &pcm)
{
    return event(u"response.output_audio.delta"_s, u"delta"_s, QString::fromLatin1(pcm.toBase64()));
}

QJsonObject heard(const QString &words)
{
    return event(u"conversation.item.input_audio_transcription.completed"_s, u"transcript"_s, words);
}

QJsonObject toolCall(const QString &arguments)
{
    return {{u"type"_s, u"response.function_call_arguments.done"_s},
            {u"name"_s, u"computer_use"_s},
            {u"call_id"_s, u"call_1"_s},
            {u"arguments"_s, arguments}};
}

TEST_F(RealtimeSessionTest, aVoiceSessionHearsAndSpeaksHalfDuplex)
{
    waitForTask(service->start(RealtimeSessionKind::voice));
    EXPECT_EQ(typesWhen(2), (QStringList{update, clear}));
    EXPECT_EQ(states, (QList<State>{connecting, recording}));
    EXPECT_EQ(server.handshake.url().path(), u"/v1/realtime"_s);
    EXPECT_EQ(server.handshake.url().query(), u"model=gpt-realtime-2.1"_s);
    EXPECT_EQ(server.handshake.rawHeader("Authorization"), "Bearer secret-key");
    EXPECT_EQ(server.handshake.rawHeader("OpenAI-Safety-Identifier"), "kelva-local-dev-user");

    input.deliver(block());
    EXPECT_EQ(typesWhen(1), QStringList{append});
    const auto sent =
        QByteArray::fromBase64(server.events.constLast().value("audio"_L1).toString().toLatin1());
    EXPECT_TRUE(sent.size() == 2048 || sent.size() == 2050) << sent.size();

    server.send(audioDelta("abcde"));
    ASSERT_TRUE(waitUntil([&] { return output.played == "abcd"; })) << "whole samples only";
    input.deliver(block()); // the assistant is heard
    server.send(event(u"response.output_audio_transcript.delta"_s, u"delta"_s, u"War"_s));
    server.send(event(u"response.output_audio_transcript.delta"_s, u"delta"_s, u"mer"_s));
    server.send(event(u"response.output_audio_transcript.done"_s, u"transcript"_s, u"Warmer."_s));
    server.send(u"response.done"_s);
    EXPECT_EQ(typesWhen(1), QStringList{clear}) << "nothing is sent while the assistant speaks";
    EXPECT_EQ(transcripts, (QStringList{u"War"_s, u"Warmer"_s, u"Warmer."_s}));
    EXPECT_EQ(states, (QList<State>{connecting, recording, speaking, recording}));
    EXPECT_EQ(responsesDone, 1);
    waitForTask(QCoro::sleepFor(timing().speechEnd * 3));
    input.deliver(block());
    settle();
    EXPECT_EQ(server.takeTypes(), QStringList()) << "a reply comes faster than it is spoken";
    output.finish();
    ASSERT_TRUE(waitUntil([&] {
        input.deliver(block());
        return server.takeTypes().contains(append);
    })) << "the microphone opens again";

    EXPECT_TRUE(logged().contains("Assistant response transcript: \"Warmer.\""_L1));
    EXPECT_FALSE(logged().contains("secret-key"_L1));
    EXPECT_FALSE(logged().contains(QString::fromLatin1("abcde"_ba.toBase64()))) << "no sound";
}

TEST_F(RealtimeSessionTest, theEndOfOneReplyDoesNotOpenTheMicrophoneDuringTheNext)
{
    open(RealtimeSessionKind::voice);
    server.send(audioDelta("ab"));
    server.send(u"response.done"_s);
    server.send(u"response.created"_s);
    server.send(audioDelta("cd"));
    settle();
    (void)server.takeTypes();
    waitForTask(QCoro::sleepFor(timing().speechEnd * 3));
    input.deliver(block());
    settle();
    EXPECT_FALSE(server.takeTypes().contains(append));
}

TEST_F(RealtimeSessionTest, aTextSessionUsesNoSoundAtAll)
{
    open(RealtimeSessionKind::text);
    EXPECT_EQ(input.starts, 0);
    server.send(audioDelta("ab"));
    server.send(event(u"response.text.delta"_s, u"delta"_s, u"Do"_s));
    server.send(event(u"response.output_text.delta"_s, u"delta"_s, u"ne"_s));
    server.send(event(u"response.output_text.done"_s, u"text"_s, u"Done."_s));
    server.send(u"response.done"_s);
    settle();
    EXPECT_EQ(transcripts, (QStringList{u"Do"_s, u"Done"_s, u"Done."_s}));
    EXPECT_EQ(states, QList<State>{idle});
    EXPECT_EQ(output.played, QByteArray());
    EXPECT_TRUE(service->isActive());
}

TEST_F(RealtimeSessionTest, aToolCallActsAndItsOutputGoesBackInOrder)
{
    open(RealtimeSessionKind::voice);
    server.send(toolCall(uR"({"action": " LR_Set_Rating ", "value": 4.9})"_s));
    EXPECT_EQ(typesWhen(3), (QStringList{u"conversation.item.create"_s, clear, u"response.create"_s}));
    const QJsonObject item = server.events.at(server.events.size() - 3).value("item"_L1).toObject();
    EXPECT_EQ(item.value("call_id"_L1).toString(), u"call_1"_s);
    EXPECT_EQ(QStringList{item.value("output"_L1).toString()}, results);
    EXPECT_EQ(lightroom.plugin.commands().constLast().value("value"_L1).toDouble(), 4);
    server.send(u"response.done"_s);
    settle();
    EXPECT_EQ(responsesDone, 0) << "a reply that called a tool is not done for the user";
}

TEST_F(RealtimeSessionTest, asksOnceMoreForAFollowUpThatWasRefused)
{
    const QJsonObject refusal{{u"message"_s, u"Conversation already has an active response in progress"_s}};
    open(RealtimeSessionKind::text);
    server.send(toolCall(uR"({"action": "lr_navigate"})"_s));
    server.send(toolCall(uR"({"action": "lr_navigate"})"_s));
    EXPECT_EQ(typesWhen(6).constLast(), u"response.create"_s);
    server.send(u"response.created"_s); // the first is not refused, the second is
    sendError(refusal);
    server.send(u"response.done"_s);
    EXPECT_EQ(typesWhen(1), QStringList{u"response.create"_s});
    sendError(refusal); // twice, for both of a reply's calls
    sendError(refusal);
    server.send(u"response.done"_s);
    EXPECT_EQ(typesWhen(1), QStringList{u"response.create"_s});
    server.send(u"response.done"_s);
    settle();
    EXPECT_EQ(server.takeTypes(), QStringList());
    EXPECT_EQ(errors, QStringList());
}

TEST_F(RealtimeSessionTest, aCallThatCannotBeReadIsReportedAndNotAnswered)
{
    open(RealtimeSessionKind::text);
    server.send(toolCall(u"{}"_s));
    server.send(QJsonObject{{u"type"_s, u"response.function_call_arguments.done"_s}});
    settle();
    EXPECT_EQ(errors, QStringList{u"Failed to parse tool call arguments: {}"_s});
    EXPECT_EQ(server.takeTypes(), QStringList());
    EXPECT_TRUE(service->isActive());
}

TEST_F(RealtimeSessionTest, wakesAndStopsAtTheUsersWords)
{
    open(RealtimeSessionKind::voice);
    server.send(heard(u"stopping"_s));
    settle();
    EXPECT_EQ(wakePhrases, 0);
    server.send(heard(u"Hey, Kelva, darker"_s));
    settle();
    EXPECT_EQ(wakePhrases, 1);
    EXPECT_TRUE(service->isActive());

    server.send(heard(u"Okay, stop!"_s));
    EXPECT_TRUE(waitUntil([&] { return !service->isActive(); }));
    EXPECT_EQ(typesWhen(1), QStringList{clear});
    EXPECT_EQ(states, QList<State>{idle});
    EXPECT_FALSE(input.isCapturing());
    EXPECT_TRUE(logged().contains("User input transcription: \"Okay, stop!\""_L1));
}

TEST_F(RealtimeSessionTest, switchesBetweenVoiceAndTextWhileItRuns)
{
    open(RealtimeSessionKind::voice);
    waitForTask(service->setVoiceMode(RealtimeSessionKind::text));
    EXPECT_EQ(typesWhen(1), QStringList{update});
    EXPECT_FALSE(server.events.constLast().value("session"_L1).toObject().contains("audio"_L1));
    EXPECT_FALSE(input.isCapturing());
    waitForTask(service->setVoiceMode(RealtimeSessionKind::voice));
    EXPECT_EQ(typesWhen(1), QStringList{update});
    EXPECT_TRUE(server.events.constLast().value("session"_L1).toObject().contains("audio"_L1));
    EXPECT_TRUE(input.isCapturing());
    EXPECT_EQ(states, (QList<State>{idle, recording}));

    waitForTask(service->setVoiceMode(RealtimeSessionKind::text));
    input.isAccessGranted = false;
    waitForTask(service->setVoiceMode(RealtimeSessionKind::voice));
    EXPECT_EQ(errors, QStringList{u"Microphone access was denied. Enable it in System Settings to test "
                                  "Realtime voice."_s});
    EXPECT_TRUE(service->isActive());
}

TEST_F(RealtimeSessionTest, ourOwnFeedbackReopensTheMicrophone)
{
    open(RealtimeSessionKind::voice);
    service->beginLocalFeedback();
    input.deliver(block());
    settle();
    service->finishLocalFeedbackAndScheduleIdleDisconnect();
    EXPECT_EQ(typesWhen(1), QStringList{clear}) << "our own voice does not go up";
    EXPECT_EQ(states, QList<State>{recording});
    input.deliver(block());
    EXPECT_EQ(typesWhen(1), QStringList{append});
}

TEST_F(RealtimeSessionTest, aSecondStartClosesWhateverTheFirstHasReached)
{
    open(RealtimeSessionKind::voice);
    waitForTask(service->start(RealtimeSessionKind::voice));
    EXPECT_FALSE(service->isActive());
    EXPECT_EQ(states, QList<State>{idle});
    EXPECT_TRUE(waitUntil([&] { return !server.client() || !server.client()->isValid(); }));

    server.whenConnected = [] {}; // no confirmation comes
    states.clear();
    auto connecting1 = service->start(RealtimeSessionKind::voice);
    ASSERT_TRUE(waitUntil([&] { return server.connections == 2; }));
    waitForTask(service->start(RealtimeSessionKind::voice));
    waitForTask(std::move(connecting1));
    EXPECT_EQ(states, (QList<State>{connecting, idle}));
    EXPECT_EQ(errors, QStringList());
    server.whenConnected = [&] { server.send(u"session.created"_s); };
    open(RealtimeSessionKind::text);
}

TEST_F(RealtimeSessionTest, endsByItselfWhenNothingHappens)
{
    RealtimeTiming impatient = timing();
    impatient.idleDisconnect = 50ms;
    useService(server.baseUrl(), impatient);
    waitForTask(service->start(RealtimeSessionKind::text));
    EXPECT_TRUE(waitUntil([&] { return !service->isActive(); }));
    EXPECT_EQ(states, (QList<State>{connecting, idle}));
    EXPECT_EQ(errors, QStringList());
}

TEST_F(RealtimeSessionTest, whatIsNoEventIsIgnored)
{
    open(RealtimeSessionKind::text);
    server.client()->sendTextMessage(u"not JSON"_s);
    server.client()->sendBinaryMessage(R"({"type": "response.done"})");
    server.client()->setOutgoingFrameSize(1'000); // the next event comes in many frames
    server.send(event(u"response.text.delta"_s, u"delta"_s, QString(200'000, u'a')));
    server.send(QJsonObject{{u"type"_s, u"response.text.delta"_s}, {u"delta"_s, 5}});
    settle();
    EXPECT_EQ(states, QList<State>{idle}) << "a binary frame is an event too";
    EXPECT_EQ(transcripts.size(), 1);
    EXPECT_EQ(errors, QStringList());
}

TEST_F(RealtimeSessionTest, runsOverTls)
{
    const ScriptedRealtimeServer secure(ScriptedHttpServer::Transport::tls);
    const TrustedTestCertificate trusted;
    useService(secure.baseUrl());
    waitForTask(service->start(RealtimeSessionKind::text));
    EXPECT_TRUE(service->isActive());
    EXPECT_EQ(secure.handshake.rawHeader("Authorization"), "Bearer secret-key");
}

} // namespace
} // namespace KelvaLR::Testing
