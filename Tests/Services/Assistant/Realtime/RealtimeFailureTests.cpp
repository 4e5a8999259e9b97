#include "Services/Assistant/Realtime/RealtimeSessionFixture.h"

namespace KelvaLR::Testing {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using enum RealtimeVoiceState;

class RealtimeFailureTest : public RealtimeSessionTest
{
protected:
    /// The sentence with which a voice session does not begin.
    QString startError(const QString &baseUrl, RealtimeTiming waits = timing())
    {
        states.clear();
        errors.clear();
        useService(baseUrl, waits);
        waitForTask(service->start(RealtimeSessionKind::voice));
        EXPECT_FALSE(service->isActive());
        EXPECT_FALSE(input.isCapturing());
        EXPECT_EQ(states, (QList<State>{connecting, failed, idle}));
        return errors.join(u'|');
    }
};

TEST_F(RealtimeFailureTest, aStartThatFailsSaysWhyAndEndsIdle)
{
    input.isAccessGranted = false;
    EXPECT_EQ(startError(server.baseUrl()),
              u"Microphone access was denied. Enable it in System Settings to test Realtime voice."_s);
    input.isAccessGranted = true;
    input.startError = u"No microphone was found."_s;
    EXPECT_EQ(startError(server.baseUrl()), u"No microphone was found."_s);
    input.startError.reset();
    input.microphone.channels = 0;
    EXPECT_EQ(startError(server.baseUrl()), u"Could not prepare microphone audio conversion."_s);
    input.microphone.channels = 1;
    output.startError = u"No speaker was found."_s;
    EXPECT_EQ(startError(server.baseUrl()), u"No speaker was found."_s);
    output.startError.reset();

    const QString closed = u"The realtime service closed the connection."_s;
    server.whenConnected = [&] { server.client()->close(); };
    EXPECT_EQ(startError(server.baseUrl()), closed);
    server.whenConnected = [&] { server.client()->abort(); };
    EXPECT_EQ(startError(server.baseUrl()), closed);
    server.whenConnected = [] {};
    RealtimeTiming impatient = timing();
    impatient.connection = 50ms;
    EXPECT_EQ(startError(server.baseUrl(), impatient), u"The realtime service did not answer in time."_s);

    ScriptedHttpServer http;
    http.answer = [](const ScriptedHttpServer::Request &) { return httpResponse("404 Not Found"); };
    EXPECT_EQ(startError(http.baseUrl()),
              u"QWebSocketPrivate::processHandshake: Unhandled http status code: 404 (Not Found)."_s);
    EXPECT_EQ(startError(u"http://127.0.0.1:1/v1"_s), u"Connection refused"_s);
    EXPECT_EQ(startError(u"http://example.com/v1"_s),
              u"OPENAI_BASE_URL begins with http://, which is allowed for this computer only."_s);
}

TEST_F(RealtimeFailureTest, withoutAKeyNothingIsConnected)
{
    apiKey.reset();
    waitForTask(service->start(RealtimeSessionKind::voice));
    EXPECT_FALSE(service->isActive());
    EXPECT_EQ(errors, QStringList{u"OpenAI is not configured. Add KELVALR_OPENAI_API_KEY to .env.local."_s});
    EXPECT_EQ(states, (QList<State>{connecting, failed}));
    EXPECT_EQ(server.connections, 0);
}

TEST_F(RealtimeFailureTest, anErrorOfTheServiceEndsTheSessionUnlessItIsHarmless)
{
    open(RealtimeSessionKind::text);
    sendError(QJsonObject{{u"message"_s, u"No Active Response Found."_s}});
    settle();
    EXPECT_TRUE(service->isActive());
    sendError(QJsonObject{{u"message"_s, u"Quota exceeded"_s}});
    EXPECT_TRUE(waitUntil([&] { return !service->isActive(); }));
    EXPECT_EQ(states, (QList<State>{failed, idle}));
    open(RealtimeSessionKind::text);
    sendError(u"odd"_s);
    EXPECT_TRUE(waitUntil([&] { return !service->isActive(); }));
    EXPECT_EQ(errors, (QStringList{u"Quota exceeded"_s, u"Realtime API error."_s}));
}

TEST_F(RealtimeFailureTest, aLostConnectionIsReportedOnceAndTheSessionCanBeClosed)
{
    const QByteArray tooMuch(qsizetype{17} * 1024 * 1024, 'a');
    const std::function<void()> losses[] = {
        [&] { server.client()->abort(); },
        [&] { server.client()->close(); },
        [&] { server.client()->sendBinaryMessage(tooMuch); },
    };
    for (const auto &lose : losses) {
        errors.clear();
        open(RealtimeSessionKind::voice);
        lose();
        ASSERT_TRUE(waitUntil([&] { return !errors.isEmpty(); }));
        EXPECT_EQ(states, QList<State>{failed});
        EXPECT_TRUE(service->holdsMicrophone());
        input.deliver(QByteArray(qsizetype{2048} * 4, '\0'));
        waitForTask(service->start(RealtimeSessionKind::voice)); // the control turns it off
        EXPECT_EQ(errors.size(), 1) << errors.join(u' ').toStdString();
        EXPECT_EQ(states, (QList<State>{failed, idle}));
        EXPECT_FALSE(input.isCapturing());
    }
}

TEST_F(RealtimeFailureTest, pingsThatAreNotAnsweredAreOnlyLogged)
{
    RealtimeTiming impatient = timing();
    impatient.ping = 20ms;
    useService(server.baseUrl(), impatient);
    open(RealtimeSessionKind::text);
    server.client()->setReadBufferSize(1); // too little for any frame
    EXPECT_TRUE(waitUntil([&] { return logged().contains("WebSocket ping failed: no pong came"_L1); }));
    EXPECT_TRUE(service->isActive());
    EXPECT_EQ(errors, QStringList());
}

TEST_F(RealtimeFailureTest, aDeviceThatGoesAwayEndsTheSessionWithASentence)
{
    open(RealtimeSessionKind::voice);
    const int stops = output.stops;
    input.fail(u"The microphone is gone."_s);
    EXPECT_TRUE(waitUntil([&] { return !service->isActive(); }));
    EXPECT_EQ(output.stops, stops + 1) << "nor does the assistant speak on";
    EXPECT_EQ(errors, QStringList{u"The microphone is gone."_s});
    EXPECT_EQ(states, (QList<State>{failed, idle}));
}

TEST_F(RealtimeFailureTest, nothingIsTouchedWhenTheServiceEndsAtAnyMoment)
{
    server.whenConnected = [] {};
    auto start = service->start(RealtimeSessionKind::voice);
    ASSERT_TRUE(waitUntil([&] { return server.connections == 1; }));
    service.reset();
    waitForTask(std::move(start));

    server.whenConnected = [&] { server.send(u"session.created"_s); };
    useService(server.baseUrl());
    open(RealtimeSessionKind::voice);
    input.deliver(QByteArray(qsizetype{2048} * 4, '\0'));
    service.reset();
    QCoreApplication::processEvents();
    EXPECT_FALSE(input.isCapturing());
}

} // namespace
} // namespace KelvaLR::Testing
