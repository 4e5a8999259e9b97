#include "Support/ScriptedRealtimeServer.h"

#include <QJsonDocument>

namespace KelvaLR::Testing {

using namespace Qt::StringLiterals;

ScriptedRealtimeServer::ScriptedRealtimeServer(Transport transport)
    : m_server(u"realtime"_s,
               transport == Transport::tls ? QWebSocketServer::SecureMode : QWebSocketServer::NonSecureMode)
{
    if (transport == Transport::tls) {
        m_server.setSslConfiguration(testServerConfiguration());
    }
    QObject::connect(&m_server, &QWebSocketServer::newConnection, &m_server, [this] { accept(); });
    m_server.listen(QHostAddress::LocalHost);
}

QString ScriptedRealtimeServer::baseUrl() const
{
    const bool isSecure = m_server.secureMode() == QWebSocketServer::SecureMode;
    return u"%1://%2:%3/v1"_s
        .arg(isSecure ? u"https"_s : u"http"_s, isSecure ? u"localhost"_s : u"127.0.0.1"_s)
        .arg(m_server.serverPort());
}

void ScriptedRealtimeServer::send(const QJsonObject &event)
{
    if (m_client) {
        m_client->sendTextMessage(QString::fromUtf8(QJsonDocument(event).toJson(QJsonDocument::Compact)));
    }
}

QStringList ScriptedRealtimeServer::takeTypes()
{
    QStringList types;
    for (; m_taken < events.size(); ++m_taken) {
        types.append(events.at(m_taken).value("type"_L1).toString());
    }
    return types;
}

void ScriptedRealtimeServer::accept()
{
    QWebSocket *client = m_server.nextPendingConnection();
    client->setParent(&m_server);
    m_client = client;
    handshake = client->request();
    ++connections;
    QObject::connect(client, &QWebSocket::textMessageReceived, &m_server, [this](const QString &text) {
        frames.append(text.toUtf8());
        events.append(QJsonDocument::fromJson(frames.constLast()).object());
    });
    whenConnected();
}

} // namespace KelvaLR::Testing
