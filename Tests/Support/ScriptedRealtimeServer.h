#pragma once

#include "Support/ScriptedHttpServer.h"

#include <QJsonObject>
#include <QNetworkRequest>
#include <QPointer>
#include <QWebSocket>
#include <QWebSocketServer>

#include <functional>

namespace KelvaLR::Testing {

/// A real WebSocket server on this computer that behaves as it is told: it keeps what it receives, and the
/// test sends what a realtime service would.
class ScriptedRealtimeServer
{
public:
    using Transport = ScriptedHttpServer::Transport;

    explicit ScriptedRealtimeServer(Transport transport = Transport::plain);

    /// The address for OPENAI_BASE_URL.
    [[nodiscard]] QString baseUrl() const;

    /// Sends an event to the latest client.
    void send(const QJsonObject &event);

    void send(const QString &type) { send(QJsonObject{{QStringLiteral("type"), type}}); }

    /// The types of what came since the last call, in order.
    [[nodiscard]] QStringList takeTypes();

    [[nodiscard]] QWebSocket *client() const { return m_client; }

    /// What a client is told once it is there; the service confirms the session.
    std::function<void()> whenConnected = [this] { send(QStringLiteral("session.created")); };
    QList<QJsonObject> events; ///< everything received
    QList<QByteArray> frames;  ///< as they came over the wire
    QNetworkRequest handshake; ///< of the latest client
    int connections = 0;

private:
    void accept();

    QWebSocketServer m_server;
    QPointer<QWebSocket> m_client;
    qsizetype m_taken = 0;
};

} // namespace KelvaLR::Testing
