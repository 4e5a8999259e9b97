#include "Services/Lightroom/Bridge/BridgeTransport.h"
#include "Support/LightroomRig.h"
#include "Support/WaitForTask.h"

#include <QElapsedTimer>
#include <QTimer>

#include <gtest/gtest.h>

namespace KelvaLR::Testing {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

TEST(BridgeTransportTest, deliversEveryByteOfALongLineBeforeItCloses)
{
    ScriptedPlugin plugin;
    const QString json = u"{\"text\":\"Ü"_s + QString(8'000'000, u'x') + u"\"}"_s;
    EXPECT_EQ(waitForTask(sendCommand(plugin.endpoint(), patientTiming(), json)), Sending::delivered);
    ASSERT_TRUE(waitUntil([&] { return !plugin.lines().isEmpty(); }));
    EXPECT_EQ(plugin.lines().constFirst(), json.toUtf8());
}

TEST(BridgeTransportTest, deliversEveryCommandToAPluginThatComesLateAndPausesBetweenClients)
{
    ScriptedPlugin plugin;
    plugin.stopListening();
    QTimer::singleShot(100ms, &plugin, [&] { plugin.listenAgain(); });
    plugin.pauseAfterEachClient(150ms);
    for (int round = 0; round < 4; ++round) {
        EXPECT_EQ(waitForTask(sendCommand(plugin.endpoint(), patientTiming(), QString::number(round))),
                  Sending::delivered);
        ASSERT_TRUE(waitUntil([&] { return plugin.lines().size() == round + 1; }));
    }
    EXPECT_EQ(plugin.lines(), (QList<QByteArray>{"0", "1", "2", "3"}));
}

TEST(BridgeTransportTest, givesUpInTimeWithoutHoldingTheEventLoop)
{
    ScriptedPlugin refusing;
    refusing.stopListening();
    ScriptedPlugin deaf;
    deaf.stopReading();
    const QString moreThanTheNetworkHolds(16'000'000, u'x');

    for (const ScriptedPlugin *plugin : {&refusing, &deaf}) {
        int turns = 0;
        QTimer ticker;
        ticker.callOnTimeout([&] { ++turns; });
        ticker.start(10ms);
        QElapsedTimer clock;
        clock.start();
        EXPECT_EQ(waitForTask(sendCommand(plugin->endpoint(), impatientTiming(), moreThanTheNetworkHolds)),
                  plugin == &refusing ? Sending::refused : Sending::notTaken);
        EXPECT_GE(clock.elapsed(), impatientTiming().send.count() * 9 / 10);
        EXPECT_LT(clock.elapsed(), 5000);
        EXPECT_GT(turns, 3);
    }
}

TEST(BridgeTransportTest, doesNotSendAgainWhatAPluginHasBegunToRead)
{
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    int clients = 0;
    QObject::connect(&server, &QTcpServer::newConnection, &server, [&] {
        QTcpSocket *client = server.nextPendingConnection();
        ++clients;
        client->setReadBufferSize(1000);
        QObject::connect(client, &QTcpSocket::readyRead, client, [client] { client->abort(); });
    });
    const BridgeEndpoint endpoint{.port = server.serverPort()};
    EXPECT_EQ(waitForTask(sendCommand(endpoint, patientTiming(), QString(16'000'000, u'x'))),
              Sending::notTaken);
    EXPECT_EQ(clients, 1);
}

} // namespace
} // namespace KelvaLR::Testing
