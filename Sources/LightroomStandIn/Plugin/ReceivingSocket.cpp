#include "Plugin/ReceivingSocket.h"

#include <QTcpSocket>

#include <utility>

namespace StandIn {

ReceivingSocket::ReceivingSocket(quint16 port, std::chrono::milliseconds patience)
    : m_port(port)
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    // The shortest queue there is: whoever finds it full is kept waiting by the system, not let in.
    m_server.setListenBacklogSize(0);
    connect(&m_server, &QTcpServer::newConnection, this, &ReceivingSocket::admitClients);
    connect(&m_patience, &QTimer::timeout, this, [this] {
        m_server.close();
        Q_EMIT failed(QStringLiteral("timeout"));
    });
}

ReceivingSocket::~ReceivingSocket()
{
    close();
}

void ReceivingSocket::reconnect()
{
    if (m_client || m_server.isListening()) {
        return;
    }
    if (!m_waiting.empty()) {
        QMetaObject::invokeMethod(this, &ReceivingSocket::serveNext, Qt::QueuedConnection);
        return;
    }
    listen();
}

void ReceivingSocket::listen()
{
    if (m_server.listen(QHostAddress::LocalHost, m_port)) {
        m_patience.start();
        Q_EMIT listening(m_server.serverPort());
        return;
    }
    const QString error = m_server.errorString();
    QMetaObject::invokeMethod(this, [this, error] { Q_EMIT failed(error); }, Qt::QueuedConnection);
}

void ReceivingSocket::admitClients()
{
    while (QTcpSocket *client = m_server.nextPendingConnection()) {
        m_waiting.push_back(client);
    }
    m_patience.stop();
    m_server.close();
    serveNext();
}

void ReceivingSocket::serveNext()
{
    if (m_client || m_waiting.empty()) {
        return;
    }
    m_client = m_waiting.front();
    m_waiting.pop_front();
    m_pending.clear();
    connect(m_client, &QTcpSocket::readyRead, this, &ReceivingSocket::readLines);
    connect(m_client, &QTcpSocket::disconnected, this, &ReceivingSocket::dropClient);
    Q_EMIT connected();
    readLines();
    // A client that has been waiting may have gone already, its lines still to be read.
    if (m_client && m_client->state() != QAbstractSocket::ConnectedState) {
        dropClient();
    }
}

void ReceivingSocket::readLines()
{
    if (!m_client || !m_client->isReadable()) {
        return;
    }
    const qsizetype searched = m_pending.size();
    m_pending += m_client->readAll();
    qsizetype start = 0;
    for (qsizetype end = m_pending.indexOf('\n', searched); end >= 0 && m_client;
         end = m_pending.indexOf('\n', start)) {
        const QByteArray line = m_pending.sliced(start, end - start);
        start = end + 1;
        Q_EMIT lineReceived(line);
    }
    m_pending.remove(0, start);
    if (!m_client) {
        return;
    }
    if (m_pending.size() > longestLine) {
        m_client->abort();
    }
}

void ReceivingSocket::dropClient()
{
    if (!m_client) {
        return;
    }
    readLines();
    if (QTcpSocket *client = std::exchange(m_client, nullptr)) {
        client->disconnect(this);
        client->deleteLater();
        Q_EMIT closed();
    }
}

void ReceivingSocket::close()
{
    m_patience.stop();
    m_server.close();
    if (m_client) {
        m_waiting.push_back(std::exchange(m_client, nullptr));
    }
    for (QTcpSocket *client : std::exchange(m_waiting, {})) {
        client->disconnect(this);
        client->abort();
        client->deleteLater();
    }
}

} // namespace StandIn
