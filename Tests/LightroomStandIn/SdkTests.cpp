#include "LightroomStandIn/HostedPlugin.h"
#include "Support/PrintQt.h"
#include "Support/WaitForTask.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QHostAddress>
#include <QTcpSocket>

using namespace Qt::StringLiterals;
using KelvaLR::Testing::waitUntil;
using namespace StandIn;
using namespace StandIn::Testing;

namespace {

/// A plug-in of one script, which says what it sees by say(...) and ends with say("end").
class Script
{
public:
    explicit Script(const QByteArray &body)
        : m_catalog(openCatalog())
        , m_host(m_directory.filePath(u"Test.lrplugin"_s), m_catalog, m_presets)
    {
        writeFile(m_directory.filePath(u"Test.lrplugin/Info.lua"_s),
                  "return { LrToolkitIdentifier = 'test', LrPluginName = 'Test', LrInitPlugin = 'Init.lua',"
                  " LrForceInitPlugin = true }");
        writeFile(m_directory.filePath(u"Test.lrplugin/Init.lua"_s), prelude + body);
        QObject::connect(&m_host, &PluginHost::messageShown, &m_host,
                         [this](const DialogMessage &message) { m_said.append(message.title); });
        QObject::connect(&m_host, &PluginHost::taskFailed, &m_host,
                         [this](const QString &error) { m_said.append(u"failed: "_s + error); });
        QObject::connect(&m_host, &PluginHost::listening, &m_host, [this](quint16 port) { m_port = port; });
    }

    /// What was said until "end"; also the error of the init script, if it has one.
    QStringList run()
    {
        if (const auto loaded = m_host.load(); !loaded) {
            m_said.append(loaded.error());
        }
        EXPECT_TRUE(waitUntil([this] { return m_said.contains(u"end"_s); }))
            << m_said.join(u"; ").toStdString();
        m_said.removeAll(u"end"_s);
        return m_said;
    }

    [[nodiscard]] const QStringList &said() const { return m_said; }

    [[nodiscard]] quint16 port() const { return m_port; }

private:
    static constexpr auto prelude = R"(
        local LrApplication, LrDialogs = import "LrApplication", import "LrDialogs"
        local LrFunctionContext, LrSocket, LrTasks =
            import "LrFunctionContext", import "LrSocket", import "LrTasks"
        local catalog = LrApplication.activeCatalog()
        local function say(...)
            local words = {}
            for index = 1, select("#", ...) do words[index] = tostring((select(index, ...))) end
            LrDialogs.message(table.concat(words, " "))
        end
        local function task(body) LrTasks.startAsyncTask(body) end
    )";

    Catalog openCatalog()
    {
        writeFile(m_directory.filePath(u"photos/a.jpg"_s));
        writeFile(m_directory.filePath(u"photos/b.jpg"_s));
        return Catalog::open(m_directory.filePath(u"photos"_s)).value();
    }

    QTemporaryDir m_directory;
    Catalog m_catalog;
    PresetLibrary m_presets = PresetLibrary::shipped();
    PluginHost m_host;
    QStringList m_said;
    quint16 m_port = 0;
};

const auto cannotYield = u"attempt to yield across metamethod/C-call boundary"_s;

} // namespace

TEST(Sdk, behavesAsLightrooms)
{
    const auto outside = [](const QString &call) {
        return u"false Lr%1: must be called inside LrCatalog:withWriteAccessDo."_s.arg(call);
    };

    const struct
    {
        const char *behaviour;
        QByteArray script;
        QStringList said;
    } rows[] = {
        {"nothing yields across a plain pcall or outside a task",
         R"(
            say(pcall(function() return catalog:getTargetPhoto() end))
            task(function()
                say(pcall(function() return catalog:getTargetPhoto() end))
                say(LrTasks.canYield(), LrTasks.pcall(function(...) LrTasks.yield() return ... end, 1, nil, "x"))
                say(LrTasks.pcall(function() LrTasks.sleep(0.01) error("late", 0) end))
                say(LrTasks.pcall(LrTasks.pcall, function() LrTasks.yield() error("inner", 0) end))
                say("end")
            end))",
         {u"false "_s + cannotYield, u"false "_s + cannotYield, u"true true 1 nil x"_s, u"false late"_s,
          u"true false inner"_s}},
        {"tasks run side by side, and their errors are reported",
         R"(
            task(function() say("a1") LrTasks.yield() say("a2") LrTasks.sleep(0.2) say("end") end)
            task(function() say("b1") LrTasks.yield() say("b2") error("broken", 0) end)
            say("script"))",
         {u"script"_s, u"a1"_s, u"b1"_s, u"a2"_s, u"b2"_s, u"failed: broken"_s}},
        {"a function context is cleaned up",
         R"(
            task(function()
                say(LrFunctionContext.callWithContext("ok", function(context, ...)
                    context:addCleanupHandler(function(...) say("first", ...) end)
                    context:addCleanupHandler(function() LrTasks.yield() say("second") end)
                    LrTasks.yield()
                    return ...
                end, 7))
                say(LrTasks.pcall(LrFunctionContext.callWithContext, "bad", function(context)
                    context:addCleanupHandler(function(ok, problem) say("cleanup", ok, problem) end)
                    error("broken", 0)
                end))
                say("end")
            end))",
         {u"second"_s, u"first true 7"_s, u"7"_s, u"cleanup false broken"_s, u"false broken"_s}},
        {"the catalog is changed only inside a write gate",
         R"(
            task(function()
                local photo = catalog:getTargetPhoto()
                local function outside() photo:setRawMetadata("rating", 3) end
                say(LrTasks.pcall(outside))
                say(LrTasks.pcall(function() photo:applyDevelopSettings({ Tint = 3 }) end))
                say(LrTasks.pcall(function() catalog:addPhoto("/x.jpg") end))
                say(catalog:withWriteAccessDo("outer", function()
                    photo:setRawMetadata("rating", 2)
                    say(photo:getRawMetadata("rating"))
                    task(function() say("other", LrTasks.pcall(outside)) end)
                    say(LrTasks.pcall(function() catalog:withWriteAccessDo("inner", outside) end))
                    say(catalog:withWriteAccessDo("inner", outside, { timeout = 0.1 }))
                end))
                say(LrTasks.pcall(function()
                    catalog:withWriteAccessDo("undone", function() photo:setRawMetadata("rating", 5) error("oh", 0) end)
                end))
                say(photo:getRawMetadata("rating"))
                say("end")
            end))",
         {outside(u"Photo:setRawMetadata"_s), outside(u"Photo:applyDevelopSettings"_s),
          outside(u"Catalog:addPhoto"_s), u"2"_s,
          u"false LrCatalog:withWriteAccessDo: could not execute action 'inner'. It was blocked by another "
          u"write "
          "access call, and no timeout parameters were provided."_s,
          u"other "_s + outside(u"Photo:setRawMetadata"_s), u"aborted"_s, u"executed"_s, u"false oh"_s,
          u"2"_s}},
        {"a waiting task comes through the gate once it is free",
         R"(
            task(function() catalog:withWriteAccessDo("one", function() LrTasks.sleep(0.2) say("one") end) end)
            task(function()
                say(catalog:withWriteAccessDo("two", function() say("two") end, { timeout = 5 }))
                say("end")
            end))",
         {u"one"_s, u"two"_s, u"executed"_s}},
        {"what is not modelled is refused by name",
         R"(
            local function words(_, problem) return (problem:gsub("^.-:%d+: ", "")) end
            say(words(pcall(import, "LrHttp")))
            say(words(pcall(import, "WriteGate")))
            say(words(pcall(function() return LrTasks.execute("ls") end)))
            say(words(pcall(function() return catalog:createCollection("x") end)))
            say(words(pcall(function() return _PLUGIN.enabled end)))
            say(coroutine, debug, require)
            task(function()
                say(words(LrTasks.pcall(function() return catalog:getTargetPhoto():getRawMetadata("gps") end)))
                say(words(LrTasks.pcall(LrSocket.bind, { mode = "send" })))
                say("end")
            end))",
         {u"The SDK module LrHttp is not modelled by the stand-in."_s,
          u"The SDK module WriteGate is not modelled by the stand-in."_s,
          u"LrTasks.execute is not modelled by the stand-in."_s,
          u"LrCatalog object.createCollection is not modelled by the stand-in."_s,
          u"_PLUGIN.enabled is not modelled by the stand-in."_s, u"nil nil nil"_s,
          u"LrPhoto:getRawMetadata: the key gps is not modelled by the stand-in."_s,
          u"LrSocket.bind: only the mode \"receive\" is modelled by the stand-in."_s}},
    };

    for (const auto &row : rows) {
        EXPECT_EQ(Script(row.script).run(), row.said) << row.behaviour;
    }
}

TEST(Sdk, startsAFreshEnvironmentWhenThePluginIsReloaded)
{
    Script script(R"(
        seen = (seen or 0) + 1
        say("load", seen)
        task(function() while true do LrTasks.sleep(0.05) say("tick") end end)
        task(function() LrTasks.sleep(0.02) say("end") end)
    )");
    EXPECT_EQ(script.run(), QStringList(u"load 1"_s));
    EXPECT_EQ(script.run().filter(u"load"_s), QStringList({u"load 1"_s, u"load 1"_s}));
}

TEST(Sdk, givesSocketCallbacksNoTaskToYieldIn)
{
    Script script(R"(
        task(function()
            LrFunctionContext.callWithContext("socket", function(context)
                LrSocket.bind { functionContext = context, plugin = _PLUGIN, port = 0, mode = "receive",
                    onConnected = function(_, port) say("connected", port) end,
                    onMessage = function(_, message)
                        say(LrTasks.canYield(), message)
                        if message == "yield" then LrTasks.sleep(0) end
                    end,
                    onClosed = function(socket) say("closed") socket:reconnect() socket:reconnect() end }
                say("end")
                LrTasks.sleep(60)
            end)
        end)
    )");
    script.run();
    for (int visit = 1; visit <= 2; ++visit) {
        QTcpSocket client;
        client.connectToHost(QHostAddress::LocalHost, script.port());
        client.write("hello\nyield\nrest");
        client.disconnectFromHost();
        ASSERT_TRUE(waitUntil([&] { return script.said().count(u"closed"_s) == visit; }));
    }
    const QStringList visit{u"connected 0"_s, u"false hello"_s, u"false yield"_s, u"failed: "_s + cannotYield,
                            u"closed"_s};
    EXPECT_EQ(script.said(), visit + visit);
}

TEST(Sdk, saysWhatIsWrongWithAPlugin)
{
    const QTemporaryDir directory;
    writeFile(directory.filePath(u"photos/a.jpg"_s));
    auto catalog = Catalog::open(directory.filePath(u"photos"_s)).value();
    const PresetLibrary presets;
    const QString folder = directory.filePath(u"Odd.lrplugin"_s);
    const auto load = [&] {
        const auto loaded = PluginHost(folder, catalog, presets).load();
        return loaded ? QString() : loaded.error();
    };

    EXPECT_EQ(load(),
              u"There is no plug-in at \"%1\"; run \"kelvalr --install-plugin\" first."_s.arg(folder));
    const std::tuple<const char *, const char *, const char *> rows[] = {
        {"readme.txt", "", "Info.lua cannot be read: "},
        {"Info.lua", "return {", "Info.lua cannot be read: Info.lua:1:"},
        {"Info.lua", "return {}", "Info.lua does not name the plug-in."},
        {"Info.lua",
         "return { LrToolkitIdentifier = 'x', LrPluginName = 'X', LrInitPlugin = 'I.lua', LrForceInitPlugin "
         "= true }",
         "I.lua cannot be read: "},
        {"I.lua", "error('broken', 0)", "I.lua failed: broken"},
    };
    for (const auto &[file, content, sentence] : rows) {
        writeFile(folder + u'/' + QLatin1StringView(file), content);
        EXPECT_TRUE(load().startsWith(u"The plug-in's "_s + QLatin1StringView(sentence))) << sentence;
    }
}
