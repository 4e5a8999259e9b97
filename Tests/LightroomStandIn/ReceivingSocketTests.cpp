#include "Plugin/ReceivingSocket.h"

#include "Support/PrintQt.h"
#include "Support/WaitForTask.h"

#include <gtest/gtest.h>

#include <QHostAddress>
#include <QStringList>
#include <QTcpSocket>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using KelvaLR::Testing::waitUntil;
using StandIn::ReceivingSocket;

namespace {

/// A socket on a port of its own that keeps what happened to it.
struct Listener
{
    ReceivingSocket socket;
    QStringList events;
    quint16 port = 0;

    explicit Listener(std::chrono::milliseconds patience = 60s, quint16 where = 0)
        : socket(where, patience)
    {
        QObject::connect(&socket, &ReceivingSocket::listening, &socket,
                         [this](quint16 where) { port = where; });
        QObject::connect(&socket, &ReceivingSocket::connected, &socket,
                         [this] { events.append(u"connected"_s); });
        QObject::connect(&socket, &ReceivingSocket::lineReceived, &socket,
                         [this](const QByteArray &line) { events.append(QString::fromUtf8(line)); });
        QObject::connect(&socket, &ReceivingSocket::closed, &socket, [this] { events.append(u"closed"_s); });
        QObject::connect(&socket, &ReceivingSocket::failed, &socket,
                         [this](const QString &error) { events.append(error); });
        socket.reconnect();
    }

    [[nodiscard]] bool waitFor(const QString &event)
    {
        return waitUntil([&] { return events.contains(event); });
    }
};

/// Whether the connection came about.
bool connects(QTcpSocket &client, quint16 port)
{
    client.connectToHost(QHostAddress::LocalHost, port);
    return client.waitForConnected();
}

bool anotherConnects(quint16 port)
{
    QTcpSocket client;
    return connects(client, port);
}

} // namespace

TEST(ReceivingSocket, refusesASecondClientAndListensAgainOnlyWhenTold)
{
    Listener listener;
    QTcpSocket first;
    ASSERT_TRUE(connects(first, listener.port));
    ASSERT_TRUE(listener.waitFor(u"connected"_s));
    EXPECT_FALSE(anotherConnects(listener.port));

    first.disconnectFromHost();
    ASSERT_TRUE(listener.waitFor(u"closed"_s));
    EXPECT_FALSE(anotherConnects(listener.port));

    listener.socket.reconnect();
    EXPECT_TRUE(anotherConnects(listener.port));
}

TEST(ReceivingSocket, handsOnLinesHoweverTheyArrive)
{
    Listener listener;
    QTcpSocket client;
    ASSERT_TRUE(connects(client, listener.port));
    for (const char *piece : {"o", "ne\ntw", "o\n\nthr\xC3", "\xA9\r\nlost at the end"}) {
        client.write(piece);
        ASSERT_TRUE(waitUntil([&] { return client.bytesToWrite() == 0; }));
    }
    client.disconnectFromHost();
    ASSERT_TRUE(listener.waitFor(u"closed"_s));
    EXPECT_EQ(listener.events,
              QStringList({u"connected"_s, u"one"_s, u"two"_s, QString(), u"thr\u00e9\r"_s, u"closed"_s}));
}

TEST(ReceivingSocket, readsWhatAClientLeftBehind)
{
    Listener listener;
    {
        QTcpSocket hasty;
        hasty.connectToHost(QHostAddress::LocalHost, listener.port);
        // Blocking, so that the client has come and gone before the listener's side turns.
        ASSERT_TRUE(hasty.waitForConnected());
        hasty.write("hello\n");
        ASSERT_TRUE(hasty.waitForBytesWritten());
    }
    ASSERT_TRUE(listener.waitFor(u"closed"_s));
    EXPECT_EQ(listener.events, QStringList({u"connected"_s, u"hello"_s, u"closed"_s}));
}

TEST(ReceivingSocket, dropsAClientWhoseLineNeverEnds)
{
    Listener listener;
    QTcpSocket client;
    ASSERT_TRUE(connects(client, listener.port));
    client.write(QByteArray(ReceivingSocket::longestLine + 1024, 'x'));
    ASSERT_TRUE(listener.waitFor(u"closed"_s));
    EXPECT_EQ(listener.events, QStringList({u"connected"_s, u"closed"_s}));
}

TEST(ReceivingSocket, givesUpWithATimeOutWhenNobodyComes)
{
    Listener listener(50ms);
    ASSERT_TRUE(listener.waitFor(u"timeout"_s));
    EXPECT_FALSE(anotherConnects(listener.port));

    listener.socket.reconnect();
    QTcpSocket client;
    ASSERT_TRUE(connects(client, listener.port));
    ASSERT_TRUE(listener.waitFor(u"connected"_s));
    client.write("late\n");
    ASSERT_TRUE(listener.waitFor(u"late"_s));
    EXPECT_EQ(listener.events.count(u"timeout"_s), 1);
}

TEST(ReceivingSocket, saysWhyItCannotListen)
{
    const Listener holder;
    const Listener second(60s, holder.port);
    EXPECT_TRUE(second.events.isEmpty()) << "signalled before the event loop turned";
    EXPECT_TRUE(waitUntil([&] { return !second.events.isEmpty(); }));
    EXPECT_NE(second.events, QStringList{u"timeout"_s});
}
