#pragma once

#include "Support/ScriptedHttpServer.h"

#include <QJsonDocument>
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

    explicit ScriptedRealtimeServer(Transport transport = Transport::plain)
        : m_transport(transport)
    {
        if (transport == Transport::tls) {
            m_server.setSslConfiguration(testServerConfiguration());
        }
        QObject::connect(&m_server, &QWebSocketServer::newConnection, &m_server, [this] { accept(); });
        m_server.listen(QHostAddress::LocalHost);
    }

    /// The address for OPENAI_BASE_URL.
    [[nodiscard]] QString baseUrl() const
    {
        const bool isTls = m_transport == Transport::tls;
        return QStringLiteral("%1:%2/v1")
            .arg(isTls ? QStringLiteral("https://localhost") : QStringLiteral("http://127.0.0.1"))
            .arg(m_server.serverPort());
    }

    /// Sends an event to the latest client.
    void send(const QJsonObject &event)
    {
        if (m_client) {
            m_client->sendTextMessage(QString::fromUtf8(QJsonDocument(event).toJson(QJsonDocument::Compact)));
        }
    }

    void send(const QString &type) { send(QJsonObject{{QStringLiteral("type"), type}}); }

    /// The types of what came since the last call, in order.
    [[nodiscard]] QStringList takeTypes()
    {
        QStringList types;
        for (; m_taken < events.size(); ++m_taken) {
            types.append(events.at(m_taken).value(QStringLiteral("type")).toString());
        }
        return types;
    }

    [[nodiscard]] QWebSocket *client() const { return m_client; }

    /// What a client is told once it is there; the service confirms the session.
    std::function<void()> whenConnected = [this] { send(QStringLiteral("session.created")); };
    std::function<void(const QJsonObject &)> whenReceived = [](const QJsonObject &) {};
    QList<QJsonObject> events; ///< everything received
    QList<QByteArray> frames;  ///< as they came over the wire
    QNetworkRequest handshake; ///< of the latest client
    int connections = 0;

private:
    void accept()
    {
        m_client = m_server.nextPendingConnection();
        m_client->setParent(&m_server);
        handshake = m_client->request();
        ++connections;
        QObject::connect(m_client, &QWebSocket::textMessageReceived, &m_server, [this](const QString &text) {
            frames.append(text.toUtf8());
            events.append(QJsonDocument::fromJson(frames.constLast()).object());
            whenReceived(events.constLast());
        });
        whenConnected();
    }

    Transport m_transport;
    QWebSocketServer m_server{QStringLiteral("realtime"), m_transport == Transport::tls
                                                              ? QWebSocketServer::SecureMode
                                                              : QWebSocketServer::NonSecureMode};
    QPointer<QWebSocket> m_client;
    qsizetype m_taken = 0;
};

} // namespace KelvaLR::Testing
