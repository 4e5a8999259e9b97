#include "Support/ScriptedPlugin.h"
#include "Support/TestFiles.h"

#include <QJsonDocument>
#include <QTimer>

namespace KelvaLR::Testing {

using namespace Qt::StringLiterals;

namespace {

QByteArray reply(QLatin1StringView status, const QString &message)
{
    const QJsonObject object{{u"status"_s, status}, {u"message"_s, message}};
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

} // namespace

ScriptedPlugin::ScriptedPlugin()
{
    connect(&m_server, &QTcpServer::newConnection, this, [this] { serve(m_server.nextPendingConnection()); });
    listenAgain();
    answer(successReply(u"Done"_s));
}

QByteArray ScriptedPlugin::successReply(const QString &message)
{
    return Testing::reply("success"_L1, message);
}

QByteArray ScriptedPlugin::errorReply(const QString &message)
{
    return Testing::reply("error"_L1, message);
}

BridgeEndpoint ScriptedPlugin::endpoint() const
{
    return {.host = u"127.0.0.1"_s, .port = m_port, .replyDirectory = m_directory.path()};
}

QString ScriptedPlugin::replyPath(const QJsonObject &object) const
{
    return endpoint().replyPath(object.value("request_id"_L1).toString());
}

QStringList ScriptedPlugin::repliesLeft() const
{
    return QDir(m_directory.path()).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
}

QByteArray ScriptedPlugin::lastCommand() const
{
    QJsonObject object = m_commands.constLast();
    object.remove("request_id"_L1);
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

void ScriptedPlugin::answer(const QByteArray &bytes)
{
    setHandler([bytes](const QJsonObject &object) {
        return object.value("action"_L1) == "ping"_L1 ? successReply(u"pong"_s) : bytes;
    });
}

void ScriptedPlugin::listenAgain()
{
    m_server.listen(QHostAddress::LocalHost, m_port);
    m_port = m_server.serverPort();
}

void ScriptedPlugin::serve(QTcpSocket *client)
{
    if (!m_isReading) {
        client->setReadBufferSize(1);
        return;
    }
    connect(client, &QTcpSocket::readyRead, this, [this, client] { readFrom(client); });
    connect(client, &QTcpSocket::disconnected, client, &QObject::deleteLater);
    if (m_pause) {
        stopListening();
        connect(client, &QTcpSocket::disconnected, this,
                [this] { QTimer::singleShot(*m_pause, this, [this] { listenAgain(); }); });
    }
}

void ScriptedPlugin::readFrom(QTcpSocket *client)
{
    while (client->canReadLine()) {
        m_lines.append(client->readLine().chopped(1));
        m_commands.append(QJsonDocument::fromJson(m_lines.constLast()).object());
        QTimer::singleShot(0, this, [this, command = m_commands.constLast()] {
            if (const std::optional<QByteArray> bytes = m_handler(command)) {
                writeReply(command, *bytes);
            }
        });
    }
}

void ScriptedPlugin::writeReply(const QJsonObject &command, const QByteArray &bytes) const
{
    writeFile(replyPath(command), bytes);
}

} // namespace KelvaLR::Testing
