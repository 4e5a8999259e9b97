#include "Services/Lightroom/Plugin/PluginReplies.h"
#include "Support/WaitForTask.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>
#include <QHostAddress>
#include <QTcpSocket>

#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace StandIn::Testing;
using KelvaLR::Testing::waitUntil;
using StandIn::DialogMessage;

namespace {

constexpr qsizetype mebibyte = qsizetype{1024} * 1024;
constexpr auto ping = R"({"action":"ping"})";
const QString pong = success("pong");

QByteArray pingAs(const QString &id)
{
    const QJsonObject request{{u"action"_s, u"ping"_s}, {u"request_id"_s, id}};
    return QJsonDocument(request).toJson(QJsonDocument::Compact);
}

} // namespace

TEST(PluginServer, answersWhatItCannotRead)
{
    const struct
    {
        QByteArray line;
        QString requestId;
        QString echo;
    } rows[] = {
        {"hello", {}, u"hello"_s},
        {"", {}, {}},
        {"[1]", {}, u"[1]"_s},
        {"null", {}, u"null"_s},
        {R"({"request_id":"NO-ACTION"})", u"NO-ACTION"_s, uR"({"request_id":"NO-ACTION"})"_s},
        {R"({"request_id":"ODD","action":7})", u"ODD"_s, uR"({"request_id":"ODD","action":7})"_s},
        {R"({"request_id":"CUT","action":"pi)", u"CUT"_s, uR"({"request_id":"CUT","action":"pi)"_s},
        {R"({"request_id":"BIG","action":"rating","value":1e400})", u"BIG"_s,
         uR"({"request_id":"BIG","action":"rating","value":1e400})"_s},
        {"{\"request_id\":\"BYTES\",\"action\":\"\xFF\xC3\"}", u"BYTES"_s,
         u"{\"request_id\":\"BYTES\",\"action\":\"\uFFFD\uFFFD\"}"_s},
        {QByteArray(mebibyte, '['), {}, QString(mebibyte / 16 - 24, u'[') + u"..."},
    };

    HostedPlugin plugin;
    for (const auto &row : rows) {
        const QJsonObject reply = plugin.sendLine(row.line, row.requestId);
        EXPECT_EQ(reply, QJsonObject({{u"request_id"_s, row.requestId},
                                      {u"status"_s, u"error"_s},
                                      {u"message"_s, QString(u"Invalid command format: " + row.echo)}}))
            << row.line.left(100).toStdString();
    }
    EXPECT_TRUE(plugin.failures().isEmpty());
}

TEST(PluginServer, keepsRepliesInTheirFolder)
{
    HostedPlugin plugin;
    const std::pair<QString, QString> idsAndFileIds[] = {
        {u"../../tmp/x"_s, u"______tmp_x"_s},
        {u"a b\u00e9\U0001F600"_s, u"a_b______"_s},
        {u"x\n%s\0y"_s, u"x__s_y"_s},
        {{}, {}},
    };
    for (const auto &[id, fileId] : idsAndFileIds) {
        EXPECT_EQ(plugin.sendLine(pingAs(id), fileId)["request_id"_L1].toString(), id);
    }
    EXPECT_EQ(textOf(plugin.sendLine(R"({"action":"ping","request_id":5})", {})), pong);
}

TEST(PluginServer, answersOthersWhenOneReplyCannotBeWritten)
{
    HostedPlugin plugin;
    ASSERT_TRUE(sendToPlugin(pingAs(QString(mebibyte, u'x')) + '\n'));
    ASSERT_TRUE(waitUntil([&plugin] { return plugin.log().contains("reply file write failed: "); }));
    EXPECT_EQ(replyTo(plugin, ping), pong);
}

TEST(PluginServer, readsAMebibyteOfTargetPaths)
{
    HostedPlugin plugin;
    QByteArray paths;
    for (int count = 0; count < 21'000; ++count) {
        paths += "\"\\/no\\/such\\/folder\\/with\\/a\\/photo\\/IMG_" + QByteArray::number(count) + ".CR3\",";
    }
    const QByteArray line = R"({"request_id":"LONG","action":"rating","value":3,"target_paths":[)" + paths +
                            "\"" + plugin.photoPath(u"b.CR3"_s).toUtf8() + "\"]}";
    ASSERT_GT(line.size(), mebibyte);
    EXPECT_EQ(textOf(plugin.sendLine(line, u"LONG"_s)),
              success("Set rating to 3 on 1 photo (21000 missing)"));
}

TEST(PluginServer, takesALineInPiecesAndSeveralLinesAtOnce)
{
    HostedPlugin plugin;
    const auto hasReply = [](const QString &id) {
        return waitUntil([id] { return QFileInfo(replyPath(id)).size() > 0; }) &&
               QFile::remove(replyPath(id));
    };
    QTcpSocket socket;
    socket.connectToHost(QHostAddress::LocalHost, 54321);
    ASSERT_TRUE(waitUntil([&] { return socket.state() == QAbstractSocket::ConnectedState; }));
    for (const char *piece :
         {"{\"action\":", "\"ping\",\"request", "_id\":\"PIECES\"", "}\n{\"action\":\"ping\","}) {
        socket.write(piece);
        ASSERT_TRUE(waitUntil([&] { return socket.bytesToWrite() == 0; }));
    }
    EXPECT_TRUE(hasReply(u"PIECES"_s));
    socket.write("\"request_id\":\"REST\"}\n{\"action\":\"ping\",\"request_id\":\"LAST\"}\n{\"action\":");
    EXPECT_TRUE(hasReply(u"REST"_s));
    EXPECT_TRUE(hasReply(u"LAST"_s));
    socket.disconnectFromHost();
    EXPECT_EQ(replyTo(plugin, ping), pong);
    EXPECT_EQ(plugin.log().count("Received message: "), 4);
}

TEST(PluginServer, isDeafToWhatAWebPageSends)
{
    HostedPlugin plugin;
    ASSERT_TRUE(sendToPlugin("POST / HTTP/1.1\r\nHost: 127.0.0.1:54321\r\n\r\n"
                             "{\"action\":\"rating\",\"value\":1,\"request_id\":\"WEB\"}\n"));
    EXPECT_EQ(replyTo(plugin, ping), pong);
    EXPECT_FALSE(plugin.log().contains("rating"));
    EXPECT_FALSE(QFile::exists(replyPath(u"WEB"_s)));
    QFile::remove(replyPath({}));
}

TEST(PluginServer, writesNeitherThroughALinkNorIntoAPipe)
{
    HostedPlugin plugin;
    const QString precious = plugin.folder(u"precious"_s);
    writeFile(precious, "precious");
    ASSERT_TRUE(QFile::link(precious, replyPath(u"LINK"_s)));
    ASSERT_EQ(::mkfifo(replyPath(u"PIPE"_s).toUtf8().constData(), 0600), 0);
    for (const QString &id : {u"LINK"_s, u"PIPE"_s}) {
        const QByteArray line = R"({"action":"ping","request_id":")" + id.toUtf8() + "\"}";
        EXPECT_EQ(textOf(plugin.sendLine(line, id)), pong) << id.toStdString();
    }
    EXPECT_EQ(readFile(precious), "precious");
}

TEST(PluginServer, opensOneListenerHoweverOftenItIsRun)
{
    HostedPlugin plugin;
    for (int count = 0; count < 2; ++count) {
        ASSERT_TRUE(plugin.host().chooseMenuItem(u"KelvaLR Status"_s).has_value());
    }
    const DialogMessage running{.title = u"KelvaLR Assistant Bridge"_s,
                                .text = u"The background assistant connection is active and running."_s,
                                .kind = u"info"_s};
    EXPECT_EQ(plugin.messages(), std::vector({running, running}));
    EXPECT_EQ(replyTo(plugin, ping), pong);
    EXPECT_EQ(plugin.log().count("Socket server already started"), 2);
    EXPECT_EQ(plugin.log().count("Async task started"), 1);
}

TEST(PluginServer, saysWhyItCouldNotBeStarted)
{
    HostedPlugin plugin;
    writeFile(plugin.pluginFolder() + u"/LightroomSocketServer.lua", "error('no port', 0)");
    ASSERT_TRUE(plugin.host().chooseMenuItem(u"KelvaLR Status"_s).has_value());
    EXPECT_EQ(plugin.messages().at(0),
              (DialogMessage{.title = u"KelvaLR Assistant Bridge"_s,
                             .text = u"Could not start the background assistant connection: no port"_s,
                             .kind = u"critical"_s}));
}

TEST(PluginServer, startsAgainWhenThePluginIsReloaded)
{
    HostedPlugin plugin;
    ASSERT_TRUE(plugin.host().load().has_value());
    EXPECT_EQ(replyTo(plugin, ping), pong);
    EXPECT_EQ(plugin.log().count("Async task started"), 2);
}

/// An LrSocket that the test drives: the plug-in's callbacks are kept, and what it does is shown as messages.
constexpr auto drivenSocket = R"(
    local host = ...
    local show = host.application.showMessage
    local LrTasks = host.builtin("LrTasks")
    return { bind = function(options)
        local socket = { reconnect = function() show("reconnect", tostring(LrTasks.canYield()), "") end }
        LrTasks.startAsyncTask(function()
            options.onError(socket, "timeout")
            show("after the time-out", "", "")
            LrTasks.sleep(0.5)
            options.onError(socket, "cable cut")
            LrTasks.sleep(0.8)
            show("end", "", "")
        end)
        return socket
    end }
)";

TEST(PluginServer, listensAgainALittleAfterATimeOutAndEndsOnOtherErrors)
{
    HostedPlugin plugin({.presets = {}, .facades = {{u"LrSocket"_s, drivenSocket}}, .shouldListen = false});
    const auto titles = [&plugin] {
        QStringList list;
        for (const DialogMessage &message : plugin.messages()) {
            list.append(message.title);
        }
        return list;
    };
    ASSERT_TRUE(waitUntil([&] { return titles().contains(u"end"_s); }));
    EXPECT_EQ(titles(), QStringList({u"after the time-out"_s, u"reconnect"_s, u"end"_s}));
    EXPECT_TRUE(plugin.log().contains("Listener error: timeout"));
    EXPECT_TRUE(plugin.log().contains("Listener error: cable cut"));
    EXPECT_TRUE(plugin.log().contains("Socket loop exited"));
}
