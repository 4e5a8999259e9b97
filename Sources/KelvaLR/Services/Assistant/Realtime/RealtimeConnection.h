#pragma once

#include <QByteArray>
#include <QNetworkRequest>
#include <QObject>
#include <QTimer>
#include <QWebSocket>

#include <chrono>
#include <expected>

namespace KelvaLR {

/// One WebSocket to the realtime service. Main thread; nothing waits. Its end closes it.
class RealtimeConnection : public QObject
{
    Q_OBJECT

public:
    explicit RealtimeConnection(QObject *parent = nullptr);
    ~RealtimeConnection() override;

    /// Begins to connect; `ended` tells when that fails.
    /// @param ping how often a ping keeps the connection alive
    void open(const QNetworkRequest &request, std::chrono::milliseconds ping);

    /// Sends one event as a text frame; the error is a finished sentence.
    std::expected<void, QString> send(const QByteArray &json);

    /// Tells the service that we are going away. Nothing is signalled any more.
    void close();

    [[nodiscard]] bool isOpen() const;

Q_SIGNALS:
    /// A whole frame, text or binary.
    void frameReceived(const QByteArray &frame);
    /// The connection was lost or never came about; once, with the reason.
    void ended(const QString &reason);
    /// A ping was not answered before the next one.
    void pingFailed(const QString &reason);

private:
    [[nodiscard]] QString reasonOf(QAbstractSocket::SocketError error) const;
    void end(const QString &reason);
    void ping();

    QWebSocket m_socket;
    QTimer m_pingTimer;
    bool m_isPongOutstanding = false;
    bool m_hasEnded = false;
};

} // namespace KelvaLR
