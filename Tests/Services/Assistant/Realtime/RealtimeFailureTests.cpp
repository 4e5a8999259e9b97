#include "Services/Assistant/Realtime/RealtimeSessionFixture.h"

#include <QCryptographicHash>
#include <QTcpServer>
#include <QTcpSocket>

namespace KelvaLR::Testing {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using enum RealtimeVoiceState;

class RealtimeFailureTest : public RealtimeSessionTest
{
protected:
    /// Starts a voice session that cannot run and gives what the user is told.
    QString startError()
    {
        waitForTask(service->start(RealtimeSessionKind::voice));
        EXPECT_FALSE(service->isActive());
        EXPECT_FALSE(input.isCapturing());
        return errors.isEmpty() ? QString() : errors.constLast();
    }
};

TEST_F(RealtimeFailureTest, aStartThatFailsSaysWhyAndEndsIdle)
{
    struct Case
    {
        const char *name;
        std::function<void()> arrange;
        QString error;
    };

    ScriptedHttpServer http;
    const QString denied =
        u"Microphone access was denied. Enable it in System Settings to test Realtime voice."_s;
    const Case cases[] = {
        {"microphone denied", [&] { input.isAccessGranted = false; }, denied},
        {"no microphone", [&] { input.startError = u"No microphone was found."_s; },
         u"No microphone was found."_s},
        {"a format that cannot be converted", [&] { input.microphone.channels = 0; },
         u"Could not prepare microphone audio conversion."_s},
        {"no speaker", [&] { output.startError = u"No speaker was found."_s; }, u"No speaker was found."_s},
        {"closed before the session is confirmed",
         [&] { server.whenConnected = [&] { server.client()->close(); }; },
         u"The realtime service closed the connection."_s},
        {"reset before the session is confirmed",
         [&] { server.whenConnected = [&] { server.client()->abort(); }; },
         u"The realtime service closed the connection."_s},
        {"no WebSocket", [&] { service = makeService(http.baseUrl()); },
         u"QWebSocketPrivate::processHandshake: Unhandled http status code: 404 (Not Found)."_s},
        {"nothing listens", [&] { service = makeService(u"http://127.0.0.1:1/v1"_s); },
         u"Connection refused"_s},
        {"a host that may not be reached in the clear",
         [&] { service = makeService(u"http://example.com/v1"_s); },
         u"OPENAI_BASE_URL begins with http://, which is allowed for this computer only."_s},
    };
    http.answer = [](const ScriptedHttpServer::Request &) { return httpResponse("404 Not Found"); };
    const auto whenConnected = server.whenConnected;
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        service = makeService(server.baseUrl());
        input.isAccessGranted = true;
        input.startError.reset();
        input.microphone.channels = 1;
        output.startError.reset();
        server.whenConnected = whenConnected;
        states.clear();
        errors.clear();
        c.arrange();
        EXPECT_EQ(startError(), c.error);
        EXPECT_EQ(states, (QList<State>{connecting, failed, idle}));
        EXPECT_EQ(errors.size(), 1);
    }
}

TEST_F(RealtimeFailureTest, withoutAKeyNothingIsConnected)
{
    apiKey.reset();
    EXPECT_EQ(startError(), u"OpenAI is not configured. Add KELVALR_OPENAI_API_KEY to .env.local."_s);
    EXPECT_EQ(states, (QList<State>{connecting, failed}));
    EXPECT_EQ(server.connections, 0);
}

TEST_F(RealtimeFailureTest, aSilentServiceIsNotWaitedForForever)
{
    RealtimeTiming impatient = timing();
    impatient.connection = 50ms;
    service = makeService(server.baseUrl(), impatient);
    server.whenConnected = [] {};
    EXPECT_EQ(startError(), u"The realtime service did not answer in time."_s);
}

TEST_F(RealtimeFailureTest, anErrorOfTheServiceEndsTheSessionUnlessItIsHarmless)
{
    const auto send = [&](const QJsonValue &error) {
        server.send(QJsonObject{{u"type"_s, u"error"_s}, {u"error"_s, error}});
    };
    open(RealtimeSessionKind::text);
    send(QJsonObject{{u"message"_s, u"No Active Response Found."_s}});
    settle();
    EXPECT_TRUE(service->isActive());
    for (const auto &[error, text] :
         {std::pair{QJsonValue(QJsonObject{{u"message"_s, u"Quota exceeded"_s}}), u"Quota exceeded"_s},
          {QJsonValue(u"odd"_s), u"Realtime API error."_s}}) {
        if (!service->isActive()) {
            open(RealtimeSessionKind::text);
        }
        send(error);
        EXPECT_TRUE(waitUntil([&] { return !service->isActive(); }));
        EXPECT_EQ(errors.constLast(), text);
        EXPECT_EQ(states.mid(states.size() - 2), (QList<State>{failed, idle}));
    }
}

TEST_F(RealtimeFailureTest, aLostConnectionIsReportedOnceAndTheSessionCanBeClosed)
{
    const std::function<void()> losses[] = {
        [&] { server.client()->abort(); }, [&] { server.client()->close(); },
        [&] {
            server.client()->sendBinaryMessage(QByteArray(qsizetype{17} * 1024 * 1024, 'a'));
        }, // too much for us
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

/// A service that confirms the session and then reads nothing any more.
class DeafService
{
public:
    DeafService()
    {
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
            QTcpSocket *client = m_server.nextPendingConnection();
            QObject::connect(client, &QTcpSocket::readyRead, client, [client] { answer(*client); });
        });
        m_server.listen(QHostAddress::LocalHost);
    }

    [[nodiscard]] QString baseUrl() const { return u"http://127.0.0.1:%1/v1"_s.arg(m_server.serverPort()); }

private:
    static void answer(QTcpSocket &client)
    {
        const QByteArray request = client.readAll();
        const auto start = request.toLower().indexOf("sec-websocket-key: ") + 19;
        if (start < 19) {
            return;
        }
        const QByteArray key = request.mid(start, 24) + "258EAFA5-E914-47DA-95CA-C5AB0DC85B11"; // RFC 6455
        const QByteArray accept = QCryptographicHash::hash(key, QCryptographicHash::Sha1);
        client.write("HTTP/1.1 101 Switching Protocols\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
                     "Sec-WebSocket-Accept: " +
                     accept.toBase64() + "\r\n\r\n\x81\x1a{\"type\":\"session.created\"}");
    }

    QTcpServer m_server;
};

TEST_F(RealtimeFailureTest, pingsThatAreNotAnsweredAreOnlyLogged)
{
    const DeafService deaf;
    RealtimeTiming impatient = timing();
    impatient.ping = 20ms;
    service = makeService(deaf.baseUrl(), impatient);
    waitForTask(service->start(RealtimeSessionKind::text));
    ASSERT_TRUE(service->isActive()) << errors.join(u' ').toStdString();
    EXPECT_TRUE(waitUntil([&] { return logged().contains("WebSocket ping failed: no pong came"_L1); }));
    EXPECT_TRUE(service->isActive());
    EXPECT_EQ(errors, QStringList());
}

TEST_F(RealtimeFailureTest, aDeviceThatGoesAwayEndsTheSessionWithASentence)
{
    open(RealtimeSessionKind::voice);
    input.fail(u"The microphone is gone."_s);
    EXPECT_TRUE(waitUntil([&] { return !service->isActive(); }));
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
    service = makeService(server.baseUrl());
    open(RealtimeSessionKind::voice);
    input.deliver(QByteArray(qsizetype{2048} * 4, '\0'));
    service.reset();
    QCoreApplication::processEvents();
    EXPECT_FALSE(input.isCapturing());
}

class SecureRealtimeSessionTest : public RealtimeSessionTest
{
protected:
    SecureRealtimeSessionTest()
        : RealtimeSessionTest(ScriptedHttpServer::Transport::tls)
    {
    }

    TrustedTestCertificate trusted;
};

TEST_F(SecureRealtimeSessionTest, runsOverTls)
{
    open(RealtimeSessionKind::text);
    EXPECT_EQ(server.handshake.rawHeader("Authorization"), "Bearer secret-key");
}

} // namespace
} // namespace KelvaLR::Testing
