#pragma once

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QTcpServer>
#include <QTimer>

#include <chrono>
#include <deque>

QT_BEGIN_NAMESPACE
class QTcpSocket;
QT_END_NAMESPACE

namespace StandIn {

/// A listening socket of Lightroom in "receive" mode: it serves one local client at a time and hands on each
/// of its lines. After that client has gone it listens again only when it is told to.
///
/// While a client is served nothing listens, so that another one is refused and can try again, instead of
/// waiting unseen in the system's queue. One that had already been let in is served next.
class ReceivingSocket : public QObject
{
    Q_OBJECT

public:
    /// How long it waits for a client before it gives up with "timeout".
    static constexpr std::chrono::seconds defaultPatience{10};

    /// A line longer than this is not waited for: the client is dropped.
    static constexpr qsizetype longestLine = qsizetype{16} * 1024 * 1024;

    explicit ReceivingSocket(quint16 port, std::chrono::milliseconds patience = defaultPatience);
    ~ReceivingSocket() override;

    /// Listens, or serves the next client that was let in. Does nothing while it listens or serves. Whatever
    /// comes of it is signalled in a later turn of the event loop.
    void reconnect();

    void close();

    /// The port that it listens on or was told to.
    [[nodiscard]] quint16 port() const { return m_port; }

Q_SIGNALS:
    void listening(quint16 port);
    void connected();
    void lineReceived(const QByteArray &line); ///< without its line feed
    void closed();
    void failed(const QString &error); ///< "timeout", or why it cannot listen; it no longer listens

private:
    void listen();
    void admitClients();
    void serveNext();
    void readLines();
    void dropClient();

    quint16 m_port;
    QTcpServer m_server;
    QTimer m_patience;
    std::deque<QTcpSocket *> m_waiting; ///< children of the server
    QPointer<QTcpSocket> m_client;
    QByteArray m_pending; ///< the beginning of a line whose end has not come yet
};

} // namespace StandIn
