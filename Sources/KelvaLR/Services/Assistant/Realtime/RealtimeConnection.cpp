#include "Services/Assistant/Realtime/RealtimeConnection.h"

#include "Services/Assistant/Realtime/RealtimeServerEvent.h"

namespace KelvaLR {

using namespace Qt::StringLiterals;

RealtimeConnection::RealtimeConnection(QObject *parent)
    : QObject(parent)
{
    m_socket.setMaxAllowedIncomingFrameSize(quint64(RealtimeServerEvent::largestFrame));
    m_socket.setMaxAllowedIncomingMessageSize(quint64(RealtimeServerEvent::largestFrame));
    connect(&m_socket, &QWebSocket::textMessageReceived, this,
            [this](const QString &text) { Q_EMIT frameReceived(text.toUtf8()); });
    connect(&m_socket, &QWebSocket::binaryMessageReceived, this, &RealtimeConnection::frameReceived);
    connect(&m_socket, qOverload<QAbstractSocket::SocketError>(&QWebSocket::error), this,
            [this](QAbstractSocket::SocketError error) { end(reasonOf(error)); });
    // Some errors are told only after this.
    connect(&m_socket, &QWebSocket::disconnected, this, [this] { end(reasonOf(m_socket.error())); });
    connect(&m_socket, &QWebSocket::pong, this, [this] { m_isPongOutstanding = false; });
    connect(&m_pingTimer, &QTimer::timeout, this, &RealtimeConnection::ping);
}

RealtimeConnection::~RealtimeConnection()
{
    close();
}

void RealtimeConnection::open(const QNetworkRequest &request, std::chrono::milliseconds ping)
{
    m_pingTimer.start(ping);
    m_socket.open(request);
}

std::expected<void, QString> RealtimeConnection::send(const QByteArray &json)
{
    if (m_socket.sendTextMessage(QString::fromUtf8(json)) > 0) {
        return {};
    }
    return std::unexpected(m_socket.errorString());
}

void RealtimeConnection::close()
{
    m_hasEnded = true;
    m_pingTimer.stop();
    m_socket.disconnect(this);
    m_socket.close(QWebSocketProtocol::CloseCodeGoingAway);
}

bool RealtimeConnection::isOpen() const
{
    return m_socket.state() == QAbstractSocket::ConnectedState;
}

QString RealtimeConnection::reasonOf(QAbstractSocket::SocketError error) const
{
    const bool isOrderly =
        error == QAbstractSocket::UnknownSocketError || error == QAbstractSocket::RemoteHostClosedError;
    return isOrderly ? m_socket.closeReason() : m_socket.errorString();
}

void RealtimeConnection::end(const QString &reason)
{
    if (m_hasEnded) {
        return;
    }
    m_hasEnded = true;
    m_pingTimer.stop();
    Q_EMIT ended(reason.isEmpty() ? u"The realtime service closed the connection."_s : reason);
}

void RealtimeConnection::ping()
{
    if (!isOpen()) {
        return;
    }
    if (m_isPongOutstanding) {
        Q_EMIT pingFailed(u"no pong came"_s);
    }
    m_isPongOutstanding = true;
    m_socket.ping();
}

} // namespace KelvaLR
