#include "Support/ScriptedPlugin.h"

#include <QDir>
#include <QFile>
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

QJsonObject command(const QByteArray &line)
{
    return QJsonDocument::fromJson(line).object();
}

bool isPing(const QJsonObject &object)
{
    return object.value("action"_L1) == "ping"_L1;
}

} // namespace

ScriptedPlugin::ScriptedPlugin()
{
    connect(&m_server, &QTcpServer::newConnection, this, [this] { serve(m_server.nextPendingConnection()); });
    listenAgain();
    answer(successReply(u"Done"_s));
}

ScriptedPlugin::~ScriptedPlugin() = default;

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

QList<QJsonObject> ScriptedPlugin::commands() const
{
    QList<QJsonObject> objects;
    for (const QByteArray &line : m_lines) {
        objects.append(command(line));
    }
    return objects;
}

void ScriptedPlugin::setHandler(Handler handler)
{
    m_handler = std::move(handler);
}

void ScriptedPlugin::answer(const QByteArray &bytes)
{
    setHandler(
        [bytes](const QJsonObject &object) { return isPing(object) ? successReply(u"pong"_s) : bytes; });
}

void ScriptedPlugin::stopListening()
{
    m_server.close();
}

void ScriptedPlugin::listenAgain()
{
    m_server.listen(QHostAddress::LocalHost, m_port);
    m_port = m_server.serverPort();
}

void ScriptedPlugin::pauseAfterEachClient(std::chrono::milliseconds pause)
{
    m_pause = pause;
}

void ScriptedPlugin::stopReading()
{
    m_isReading = false;
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
        const QByteArray line = client->readLine().chopped(1);
        m_lines.append(line);
        QTimer::singleShot(0, this, [this, line] { reply(line); });
    }
}

void ScriptedPlugin::reply(const QByteArray &line)
{
    const QJsonObject object = command(line);
    if (const std::optional<QByteArray> bytes = m_handler(object)) {
        QFile file(replyPath(object));
        if (file.open(QIODevice::WriteOnly)) {
            file.write(*bytes);
        }
    }
}

} // namespace KelvaLR::Testing
