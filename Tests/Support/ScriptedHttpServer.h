#pragma once

#include <QList>
#include <QSslConfiguration>
#include <QTcpServer>

#include <functional>
#include <memory>

namespace KelvaLR::Testing {

/// A real HTTP server on this computer that answers each complete request with scripted bytes.
class ScriptedHttpServer
{
public:
    enum class Transport { plain, tls };

    struct Request
    {
        QByteArray head; ///< request line and headers
        QByteArray body;
    };

    explicit ScriptedHttpServer(Transport transport = Transport::plain);

    /// The address for OPENAI_BASE_URL.
    [[nodiscard]] QString baseUrl() const;

    /// The bytes that answer a request; the connection is closed behind them. An empty answer stays silent.
    std::function<QByteArray(const Request &)> answer;
    QList<Request> requests;
    int connections = 0;

private:
    void receive();

    std::unique_ptr<QTcpServer> m_server;
};

/// A complete HTTP response.
[[nodiscard]] QByteArray httpResponse(const QByteArray &statusLine, const QByteArray &body = {},
                                      const QByteArray &headers = {});

/// A chat-completions response whose text output is this content.
[[nodiscard]] QByteArray chatResponse(const QString &content);

/// What a test server shows to its clients over TLS: a certificate for localhost.
[[nodiscard]] QSslConfiguration testServerConfiguration();

/// Makes every new TLS connection of this process trust the test server's certificate, while it lives.
class TrustedTestCertificate
{
public:
    TrustedTestCertificate();
    ~TrustedTestCertificate();
    Q_DISABLE_COPY_MOVE(TrustedTestCertificate)

private:
    QSslConfiguration m_previous;
};

} // namespace KelvaLR::Testing
