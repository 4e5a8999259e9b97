#include "Support/ScriptedHttpServer.h"
#include "Support/TestFiles.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSslKey>
#include <QSslServer>
#include <QTcpSocket>

namespace KelvaLR::Testing {

using namespace Qt::StringLiterals;

namespace {

QByteArray testFile(QLatin1StringView name)
{
    return readFile(QLatin1StringView(KELVALR_TEST_DATA "/tls/") + name);
}

QSslCertificate certificate()
{
    return QSslCertificate(testFile("localhost.crt"_L1));
}

std::unique_ptr<QTcpServer> tlsServer()
{
    auto server = std::make_unique<QSslServer>();
    server->setSslConfiguration(testServerConfiguration());
    return server;
}

/// The request that the bytes hold once they hold all of it.
std::optional<ScriptedHttpServer::Request> completeRequest(const QByteArray &bytes)
{
    static const QRegularExpression length(u"content-length: *(\\d+)"_s,
                                           QRegularExpression::CaseInsensitiveOption);
    const auto headEnd = bytes.indexOf("\r\n\r\n");
    const QByteArray head = bytes.left(headEnd);
    const QByteArray body = bytes.mid(headEnd + 4);
    if (headEnd < 0 || body.size() < length.match(QString::fromLatin1(head)).captured(1).toInt()) {
        return std::nullopt;
    }
    return ScriptedHttpServer::Request{head, body};
}

} // namespace

ScriptedHttpServer::ScriptedHttpServer(Transport transport)
    : m_server(transport == Transport::tls ? tlsServer() : std::make_unique<QTcpServer>())
{
    QObject::connect(m_server.get(), &QTcpServer::pendingConnectionAvailable, m_server.get(),
                     [this] { receive(); });
    m_server->listen(QHostAddress::LocalHost);
}

QString ScriptedHttpServer::baseUrl() const
{
    const bool isTls = qobject_cast<QSslServer *>(m_server.get()) != nullptr;
    return u"%1://localhost:%2/v1"_s.arg(isTls ? "https"_L1 : "http"_L1).arg(m_server->serverPort());
}

void ScriptedHttpServer::receive()
{
    ++connections;
    QTcpSocket *socket = m_server->nextPendingConnection();
    QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket, bytes = QByteArray()]() mutable {
        bytes += socket->readAll();
        const std::optional<Request> request = completeRequest(bytes);
        if (!request) {
            return;
        }
        bytes.clear();
        requests.append(*request);
        if (const QByteArray reply = answer ? answer(*request) : QByteArray(); !reply.isEmpty()) {
            socket->write(reply);
            socket->disconnectFromHost();
        }
    });
    QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
}

QByteArray httpResponse(const QByteArray &statusLine, const QByteArray &body, const QByteArray &headers)
{
    return "HTTP/1.1 " + statusLine + "\r\n" + headers +
           "Content-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body;
}

QByteArray chatResponse(const QString &content)
{
    const QJsonObject message{{u"role"_s, u"assistant"_s}, {u"content"_s, content}};
    const QJsonObject reply{{u"choices"_s, QJsonArray{QJsonObject{{u"message"_s, message}}}}};
    return httpResponse("200 OK", QJsonDocument(reply).toJson(), "Content-Type: application/json\r\n");
}

TrustedTestCertificate::TrustedTestCertificate()
    : m_previous(QSslConfiguration::defaultConfiguration())
{
    QSslConfiguration trusting = m_previous;
    trusting.addCaCertificate(certificate());
    QSslConfiguration::setDefaultConfiguration(trusting);
}

TrustedTestCertificate::~TrustedTestCertificate()
{
    QSslConfiguration::setDefaultConfiguration(m_previous);
}

QSslConfiguration testServerConfiguration()
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(certificate());
    configuration.setPrivateKey(QSslKey(testFile("localhost.key"_L1), QSsl::Ec));
    return configuration;
}

} // namespace KelvaLR::Testing
