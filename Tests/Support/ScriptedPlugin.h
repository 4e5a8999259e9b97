#pragma once

#include "Services/Lightroom/Bridge/BridgeEndpoint.h"

#include <QJsonObject>
#include <QList>
#include <QObject>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>

#include <chrono>
#include <functional>
#include <optional>

namespace KelvaLR::Testing {

/// Plays the plug-in on a free port: takes one line from each connection and leaves the scripted reply in a
/// directory of its own, on a later turn of the event loop.
class ScriptedPlugin : public QObject
{
public:
    /// Gives the bytes to be written to the reply file; none stays silent.
    using Handler = std::function<std::optional<QByteArray>(const QJsonObject &command)>;

    /// Listens at once; answers "pong" to pings and "Done" to everything else.
    ScriptedPlugin();

    [[nodiscard]] static QByteArray successReply(const QString &message);
    [[nodiscard]] static QByteArray errorReply(const QString &message);

    [[nodiscard]] BridgeEndpoint endpoint() const;
    [[nodiscard]] QString replyPath(const QJsonObject &command) const;

    /// The files in the reply directory.
    [[nodiscard]] QStringList repliesLeft() const;

    /// The lines received, each without its line feed.
    [[nodiscard]] const QList<QByteArray> &lines() const { return m_lines; }

    /// The commands received.
    [[nodiscard]] const QList<QJsonObject> &commands() const { return m_commands; }

    /// The latest command as text, without its identifier.
    [[nodiscard]] QByteArray lastCommand() const;

    void setHandler(Handler handler) { m_handler = std::move(handler); }

    /// Takes commands and answers none, pings neither.
    void keepSilent()
    {
        setHandler([](const QJsonObject &) { return std::nullopt; });
    }

    /// Gives every command but "ping" this reply.
    void answer(const QByteArray &reply);

    void stopListening() { m_server.close(); }

    void listenAgain();

    /// Closes its socket once a client is there, and listens again this long after it has gone.
    void pauseAfterEachClient(std::chrono::milliseconds pause) { m_pause = pause; }

    /// From now on takes connections and never reads from them.
    void stopReading() { m_isReading = false; }

    /// Leaves a reply to a command.
    void writeReply(const QJsonObject &command, const QByteArray &bytes) const;

private:
    void serve(QTcpSocket *client);
    void readFrom(QTcpSocket *client);

    QTemporaryDir m_directory;
    QTcpServer m_server;
    quint16 m_port = 0;
    Handler m_handler;
    QList<QByteArray> m_lines;
    QList<QJsonObject> m_commands;
    std::optional<std::chrono::milliseconds> m_pause;
    bool m_isReading = true;
};

} // namespace KelvaLR::Testing
