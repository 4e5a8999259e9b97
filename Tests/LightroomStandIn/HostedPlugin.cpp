#include "LightroomStandIn/HostedPlugin.h"

#include "Catalog/XmpPacket.h"
#include "Support/WaitForTask.h"

#include <gtest/gtest.h>

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QHostAddress>
#include <QJsonDocument>
#include <QTcpSocket>
#include <QUuid>

using namespace Qt::StringLiterals;
using KelvaLR::Testing::waitUntil;

namespace StandIn::Testing {

namespace {

constexpr quint16 bridgePort = 54321;

/// Another program of tests may hold the bridge port for a while.
constexpr std::chrono::seconds portPatience{60};

} // namespace

QString installPluginInto(const QString &modules)
{
    const QDir source(QStringLiteral(KELVALR_PLUGIN_FOLDER));
    const QString folder = QDir(modules).filePath(u"KelvaLR.lrplugin"_s);
    for (const QString &name : source.entryList({u"*.lua"_s}, QDir::Files)) {
        writeFile(folder + u'/' + name, readFile(source.filePath(name)));
    }
    return folder;
}

void writeFile(const QString &path, const QByteArray &content)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    ASSERT_EQ(file.write(content), content.size());
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString xmpText(const QString &path, const char *key)
{
    const auto packet = XmpPacket::read(path);
    EXPECT_TRUE(packet.has_value()) << path.toStdString();
    return packet ? packet->text(key) : QString();
}

QByteArray presetFile(const QString &name, const QString &setting)
{
    return u"<x:xmpmeta xmlns:x=\"adobe:ns:meta/\"><rdf:RDF "
           u"xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">"
           "<rdf:Description rdf:about=\"\" xmlns:crs=\"http://ns.adobe.com/camera-raw-settings/1.0/\" "
           "crs:PresetType=\"Normal\" crs:%1><crs:Name><rdf:Alt><rdf:li "
           "xml:lang=\"x-default\">%2</rdf:li></rdf:Alt>"
           "</crs:Name></rdf:Description></rdf:RDF></x:xmpmeta>"_s.arg(setting, name)
               .toUtf8();
}

QString replyPath(const QString &requestId)
{
    return u"/tmp/kelvalr-lightroom-%1.json"_s.arg(requestId);
}

bool sendToPlugin(const QByteArray &bytes)
{
    QTcpSocket socket;
    const auto connects = [&socket] {
        socket.abort();
        socket.connectToHost(QHostAddress::LocalHost, bridgePort);
        return socket.waitForConnected(100);
    };
    if (!waitUntil(connects, std::chrono::seconds(2))) {
        return false;
    }
    socket.write(bytes);
    socket.disconnectFromHost();
    return waitUntil([&] { return socket.state() == QAbstractSocket::UnconnectedState; }) &&
           socket.bytesToWrite() == 0;
}

HostedPlugin::HostedPlugin()
    : HostedPlugin(Setup{})
{
}

HostedPlugin::HostedPlugin(const Setup &setup)
{
    for (const QString &name : setup.photos) {
        writeFile(photoPath(name));
    }
    QDir().mkpath(photoPath(QString()));
    for (const auto &[name, content] : setup.presets) {
        writeFile(folder(u"presets"_s) + u'/' + name, content);
    }
    if (!setup.presets.empty()) {
        const auto added = m_presets.addFolder(folder(u"presets"_s));
        EXPECT_TRUE(added.has_value()) << added.error().toStdString();
    }
    installPluginInto(folder(u"modules"_s));
    m_catalog = Catalog::open(photoPath(QString())).value();
    m_host = std::make_unique<PluginHost>(pluginFolder(), *m_catalog, m_presets, setup.facades);
    QObject::connect(m_host.get(), &PluginHost::listening, m_host.get(), [this] { m_isListening = true; });
    QObject::connect(m_host.get(), &PluginHost::listenFailed, m_host.get(), [this] { m_isRefused = true; });
    QObject::connect(m_host.get(), &PluginHost::messageShown, m_host.get(),
                     [this](const DialogMessage &message) { m_messages.push_back(message); });
    QObject::connect(m_host.get(), &PluginHost::taskFailed, m_host.get(),
                     [this](const QString &error) { m_failures.append(error); });
    load(setup.start);
    if (setup.shouldListen) {
        const QDeadlineTimer deadline(portPatience);
        while (waitUntil([this] { return m_isListening || m_isRefused; }) && !m_isListening &&
               !deadline.hasExpired()) {
            load();
        }
        EXPECT_TRUE(m_isListening);
    }
}

void HostedPlugin::load(PluginStart start)
{
    m_isRefused = false;
    const auto loaded = m_host->load(start);
    EXPECT_TRUE(loaded.has_value()) << loaded.error().toStdString();
}

QString HostedPlugin::folder(const QString &name) const
{
    return m_directory.filePath(name);
}

QString HostedPlugin::photoPath(const QString &name) const
{
    return folder(u"photos"_s) + u'/' + name;
}

QString HostedPlugin::pluginFolder() const
{
    return folder(u"modules/KelvaLR.lrplugin"_s);
}

QByteArray HostedPlugin::log() const
{
    return readFile(pluginFolder() + u"/lua_debug.log");
}

QJsonObject HostedPlugin::request(QJsonObject fields)
{
    if (!fields.contains("request_id"_L1)) {
        fields["request_id"_L1] = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    }
    return sendLine(QJsonDocument(fields).toJson(QJsonDocument::Compact), fields["request_id"_L1].toString());
}

QJsonObject HostedPlugin::sendLine(const QByteArray &line, const QString &requestId)
{
    const QString path = replyPath(requestId);
    QFile::remove(path);
    EXPECT_TRUE(sendToPlugin(line + '\n'));
    const bool hasReply = waitUntil([&] { return QFileInfo(path).size() > 0; }, std::chrono::seconds(8));
    EXPECT_TRUE(hasReply) << "no reply to " << line.left(200).toStdString();
    const QByteArray reply = readFile(path);
    QFile::remove(path);
    EXPECT_TRUE(reply.endsWith('\n'));
    return QJsonDocument::fromJson(reply).object();
}

} // namespace StandIn::Testing
