#include "Services/Lightroom/Bridge/BridgeTransport.h"

#include <QCoroTimer>

#include <QDeadlineTimer>
#include <QNetworkProxy>
#include <QTcpSocket>
#include <QTimer>

#include <algorithm>
#include <chrono>

namespace KelvaLR {

namespace {

using milliseconds = BridgeTiming::milliseconds;

milliseconds remaining(QDeadlineTimer deadline)
{
    return std::chrono::ceil<milliseconds>(deadline.remainingTimeAsDuration());
}

/// How far one attempt came.
enum class Delivery { refused, nothingWritten, dropped, delivered };

/// One attempt to hand a line over. Lives in the frame of the coroutine that runs it.
class Connection
{
public:
    explicit Connection(QDeadlineTimer deadline)
        : m_deadline(deadline)
    {
        m_change.setSingleShot(true);
        m_socket.setProxy(QNetworkProxy::NoProxy);
        QObject::connect(&m_socket, &QTcpSocket::stateChanged, &m_change, [this] { m_change.start(0); });
        QObject::connect(&m_socket, &QTcpSocket::bytesWritten, &m_change, [this](qint64 count) {
            m_written += count;
            m_change.start(0);
        });
    }

    ~Connection() { m_socket.abort(); }

    Q_DISABLE_COPY_MOVE(Connection)

    QCoro::Task<Delivery> deliver(BridgeEndpoint endpoint, QByteArray line)
    {
        m_socket.connectToHost(endpoint.host, endpoint.port);
        while (isConnecting() && !m_deadline.hasExpired()) {
            co_await nextChange();
        }
        if (!isConnected()) {
            co_return m_socket.error() == QAbstractSocket::ConnectionRefusedError ? Delivery::refused
                                                                                  : Delivery::nothingWritten;
        }
        m_socket.write(line);
        while (isConnected() && m_written < line.size() && !m_deadline.hasExpired()) {
            co_await nextChange();
        }
        if (m_written < line.size()) {
            co_return m_written == 0 ? Delivery::nothingWritten : Delivery::dropped;
        }
        m_socket.disconnectFromHost();
        co_return Delivery::delivered;
    }

private:
    [[nodiscard]] bool isConnected() const { return m_socket.state() == QAbstractSocket::ConnectedState; }

    [[nodiscard]] bool isConnecting() const
    {
        return !isConnected() && m_socket.state() != QAbstractSocket::UnconnectedState;
    }

    QCoro::Task<> nextChange()
    {
        m_change.start(remaining(m_deadline));
        co_await m_change;
    }

    QDeadlineTimer m_deadline;
    QTimer m_change; ///< runs to the deadline; a change of the socket ends it at once
    qint64 m_written = 0;
    QTcpSocket m_socket;
};

} // namespace

QCoro::Task<Sending> sendCommand(BridgeEndpoint endpoint, BridgeTiming timing, QString json)
{
    const QByteArray line = json.toUtf8() + '\n';
    const QDeadlineTimer deadline(timing.send);
    Sending outcome = Sending::notTaken;
    while (!deadline.hasExpired()) {
        {
            Connection connection(deadline);
            switch (co_await connection.deliver(endpoint, line)) {
            case Delivery::refused:
                outcome = Sending::refused;
                break;
            case Delivery::nothingWritten:
                break;
            case Delivery::dropped:
                co_return Sending::notTaken;
            case Delivery::delivered:
                co_return Sending::delivered;
            }
        }
        co_await QCoro::sleepFor(std::min(timing.retry, remaining(deadline)));
    }
    co_return outcome;
}

} // namespace KelvaLR
