#include "Services/Assistant/OpenAIAssistantProvider.h"

#include "Support/PrintQt.h"
#include "Support/ScriptedHttpServer.h"
#include "Support/WaitForTask.h"

#include <QFile>
#include <QTimer>

#include <gtest/gtest.h>

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;

namespace {

const QString secret = u"sk-very-secret"_s;

OpenAIAccess accessTo(const QString &baseUrl, const QString &key = secret)
{
    return OpenAIAccess(u"SOME_KEY"_s, baseUrl, [key](const QString &name) {
        return name == "SOME_KEY"_L1 && !key.isEmpty() ? std::optional(key) : std::nullopt;
    });
}

QString answerOf(const OpenAIAccess &access, const QString &prompt = u"hello"_s,
                 std::chrono::milliseconds deadline = std::chrono::seconds(10))
{
    OpenAIAssistantProvider provider(access, {deadline, 1000});
    const AssistantResponse response = waitForTask(provider.respond({prompt, {}}));
    EXPECT_FALSE(response.message.content.contains(secret));
    return response.message.content;
}

} // namespace

TEST(OpenAIAssistantProvider, postsThePromptBehindTheSystemPrompt)
{
    ScriptedHttpServer server;
    server.answer = [](const auto &) { return chatResponse(u"{\"message\":\"Done.\"}"_s); };
    EXPECT_EQ(answerOf(accessTo(server.baseUrl()), u"give this a \"warm\", faded look, café 😀"_s),
              u"Done."_s);

    ASSERT_EQ(server.requests.size(), 1);
    const QByteArray head = server.requests[0].head + "\r\n";
    for (const char *part :
         {"POST /v1/chat/completions HTTP/1.1\r\n", "\r\nAuthorization: Bearer sk-very-secret\r\n",
          "\r\nContent-Type: application/json\r\n", "\r\nAccept-Encoding: identity\r\n"}) {
        EXPECT_TRUE(head.contains(part)) << part << head.toStdString();
    }
    QFile golden(QStringLiteral(KELVALR_GOLDEN_CHAT_REQUEST));
    ASSERT_TRUE(golden.open(QFile::ReadOnly));
    EXPECT_EQ(server.requests[0].body.toStdString(), golden.readAll().toStdString());
}

TEST(OpenAIAssistantProvider, anyFailureIsASentence)
{
    const QString invalid = u"The OpenAI server returned an invalid response."_s;
    const std::pair<QByteArray, QString> cases[] = {
        {httpResponse("401 Unauthorized", "{\"error\":{\"message\":\"Incorrect API key: sk-very-secret\"}}"),
         u"HTTP 401"_s},
        {httpResponse("429 Too Many Requests"), u"HTTP 429"_s},
        {httpResponse("500 Internal Server Error", QByteArray(900, 'x')), u"HTTP 500"_s},
        {httpResponse("302 Found", {}, "Location: https://127.0.0.1:1/elsewhere\r\n"), u"HTTP 302"_s},
        {httpResponse("307 Temporary Redirect", {}, "Location: /v1/chat\r\n"), u"HTTP 307"_s},
        {"HTTP/1.1 304 Not Modified\r\n\r\n", u"HTTP 304"_s},
        {"HTTP/1.1 204 No Content\r\n\r\n", u"The OpenAI response did not include text output."_s},
        {httpResponse("200 OK", "not JSON"), u"The OpenAI response did not include text output."_s},
        {httpResponse("200 OK", QByteArray(1001, 'x')), invalid},
        {"HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n800\r\n" + QByteArray(2048, 'x'), invalid},
        {"220 mail.example ESMTP\r\n\r\n", invalid},
        {QByteArray(5000, '\0'), invalid},
        {"HTTP/1.1 200 OK\r\nContent-Length: 500\r\n\r\ncut", u"Connection closed"_s},
    };
    for (const auto &[reply, reason] : cases) {
        SCOPED_TRACE(reply.left(60).toStdString());
        ScriptedHttpServer server;
        server.answer = [&reply](const auto &) { return reply; };
        EXPECT_EQ(answerOf(accessTo(server.baseUrl())), u"OpenAI request failed: "_s + reason);
        EXPECT_EQ(server.requests.size(), 1);
    }
}

TEST(OpenAIAssistantProvider, whatCannotBeSentIsASentenceAndOpensNoConnection)
{
    const ScriptedHttpServer server;
    const std::pair<OpenAIAccess, QString> cases[] = {
        {accessTo(server.baseUrl(), QString()),
         u"OpenAI is not configured. Add `SOME_KEY` to `.env.local` for local development."_s},
        {accessTo(server.baseUrl(), u"sk-very-secret\r\nHost: elsewhere"_s),
         u"OpenAI request failed: The API key holds a character that cannot be sent."_s},
        {accessTo(u"http://example.com/v1"_s),
         u"OpenAI request failed: OPENAI_BASE_URL begins with http://, which is allowed for this computer only."_s},
        {accessTo(u"http://127.0.0.1:1/v1"_s), u"OpenAI request failed: Connection refused"_s},
    };
    for (const auto &[access, sentence] : cases) {
        EXPECT_EQ(answerOf(access), sentence);
    }
    EXPECT_FALSE(waitUntil([&] { return server.connections > 0; }, std::chrono::milliseconds(50)));
}

TEST(OpenAIAssistantProvider, checksTheCertificateOfTheServer)
{
    ScriptedHttpServer server(ScriptedHttpServer::Transport::tls);
    server.answer = [](const auto &) { return chatResponse(u"Hello over TLS."_s); };
    const QString refusal = answerOf(accessTo(server.baseUrl()));
    EXPECT_TRUE(refusal.startsWith("OpenAI request failed: "_L1)) << refusal.toStdString();
    EXPECT_TRUE(refusal.contains("certificate"_L1)) << refusal.toStdString();

    const TrustedTestCertificate trust;
    const QString byAddress = server.baseUrl().replace("localhost"_L1, "127.0.0.1"_L1);
    EXPECT_TRUE(answerOf(accessTo(byAddress)).contains("host name"_L1));
    EXPECT_TRUE(server.requests.isEmpty());
    EXPECT_EQ(answerOf(accessTo(server.baseUrl())), u"Hello over TLS."_s);
}

TEST(OpenAIAssistantProvider, aSilentOrDrippingServerTimesOutWhileTheEventLoopTurns)
{
    for (const QByteArray &beginning : {QByteArray(), "HTTP/1.1 200 OK\r\nContent-Length: 500\r\n\r\n"_ba}) {
        int drops = 0;
        QTcpServer server;
        ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
        QObject::connect(&server, &QTcpServer::newConnection, &server, [&] {
            QTcpSocket *socket = server.nextPendingConnection();
            socket->write(beginning);
            auto *drip = new QTimer(socket);
            QObject::connect(drip, &QTimer::timeout, socket, [&drops, socket, beginning] {
                ++drops;
                socket->write(beginning.isEmpty() ? "" : "x");
            });
            drip->start(std::chrono::milliseconds(20));
        });
        EXPECT_EQ(answerOf(accessTo(u"http://127.0.0.1:%1/v1"_s.arg(server.serverPort())), u"hello"_s,
                           std::chrono::milliseconds(300)),
                  u"OpenAI request failed: The request timed out."_s);
        EXPECT_GT(drops, 3);
    }
}

TEST(OpenAIAssistantProvider, overlappingRequestsGetTheirOwnAnswers)
{
    ScriptedHttpServer server;
    server.answer = [](const ScriptedHttpServer::Request &request) {
        return chatResponse(request.body.contains("\"first\"") ? u"one"_s : u"two"_s);
    };
    OpenAIAssistantProvider provider(accessTo(server.baseUrl()));
    QCoro::Task<AssistantResponse> first = provider.respond({u"first"_s, {}});
    EXPECT_EQ(waitForTask(provider.respond({u"second"_s, {}})).message.content, u"two"_s);
    EXPECT_EQ(waitForTask(std::move(first)).message.content, u"one"_s);
}

TEST(OpenAIAssistantProvider, endsWhatIsUnderWayWhenItIsDestroyed)
{
    ScriptedHttpServer server;
    auto provider = std::make_unique<OpenAIAssistantProvider>(accessTo(server.baseUrl()));
    const QCoro::Task<AssistantResponse> first = provider->respond({u"first"_s, {}});
    const QCoro::Task<AssistantResponse> second = provider->respond({u"second"_s, {}});
    ASSERT_TRUE(waitUntil([&] { return server.requests.size() == 2; }));
    provider.reset();
    EXPECT_TRUE(first.isReady() && second.isReady());
}
