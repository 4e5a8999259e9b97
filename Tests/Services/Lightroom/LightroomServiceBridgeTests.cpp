#include "Support/DetachedTask.h"
#include "Support/LightroomRig.h"
#include "Support/PrintQt.h"
#include "Support/WaitForTask.h"

#include <QSignalSpy>
#include <QTimer>

#include <gtest/gtest.h>

#include <limits>

namespace KelvaLR::Testing {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

const LightroomPluginCommand status{.action = LightroomPluginAction::getStatus};

std::optional<QString> send(const LightroomRig &rig, const LightroomPluginCommand &command = status)
{
    return waitForTask(rig.service->sendPluginCommand(command));
}

TEST(LightroomServiceBridgeTest, givesTheReplyAndRemembersHowItWent)
{
    LightroomRig rig;
    const QSignalSpy connectedChanged(rig.service.get(), &LightroomService::isPluginConnectedChanged);
    const QSignalSpy messageChanged(rig.service.get(), &LightroomService::lastMessageChanged);
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(send(rig), QString::fromUtf8(ScriptedPlugin::successReply(u"Done"_s)));
    }
    EXPECT_TRUE(rig.service->isPluginConnected());
    EXPECT_EQ(rig.service->lastMessage(), u"Lightroom Classic: Done"_s);
    EXPECT_EQ(connectedChanged.count(), 1);
    EXPECT_EQ(messageChanged.count(), 1);
    EXPECT_EQ(rig.plugin.repliesLeft(), QStringList());

    const QString noJson = u"lua: out of memory\n"_s;
    rig.plugin.answer(noJson.toUtf8());
    EXPECT_EQ(send(rig), noJson);
    EXPECT_TRUE(rig.service->isPluginConnected());
    EXPECT_EQ(rig.service->lastMessage(), noJson);
}

TEST(LightroomServiceBridgeTest, reportsEveryFailureAsNoReplyAndIsReadyForTheNextCommand)
{
    const std::pair<const char *, std::function<void(ScriptedPlugin &)>> cases[] = {
        {"refused", [](auto &plugin) { plugin.stopListening(); }},
        {"silent", [](auto &plugin) { plugin.keepSilent(); }},
        {"takes the connection and never reads", [](auto &plugin) { plugin.stopReading(); }},
        {"empty", [](auto &plugin) { plugin.answer(""); }},
    };
    for (const auto &[name, prepare] : cases) {
        SCOPED_TRACE(name);
        LightroomRig rig(impatientTiming());
        EXPECT_TRUE(waitForTask(rig.service->ping(AutoStart::no)));
        prepare(rig.plugin);
        EXPECT_EQ(send(rig), std::nullopt);
        EXPECT_FALSE(rig.service->isPluginConnected());
        EXPECT_FALSE(rig.service->isCommandInFlight());
        EXPECT_EQ(rig.service->lastMessage(), u"Lightroom Classic: pong"_s);
    }
}

TEST(LightroomServiceBridgeTest, leavesALateReplyAloneAndNeverTakesItForAnother)
{
    LightroomRig rig(impatientTiming());
    rig.plugin.keepSilent();
    EXPECT_EQ(send(rig), std::nullopt);
    rig.plugin.writeReply(rig.plugin.commands().constLast(), ScriptedPlugin::successReply(u"late"_s));
    const QByteArray fresh = ScriptedPlugin::successReply(u"fresh"_s);
    rig.plugin.answer(fresh);
    EXPECT_EQ(send(rig, {.action = LightroomPluginAction::next}), QString::fromUtf8(fresh));
    EXPECT_EQ(rig.plugin.repliesLeft().size(), 1);
}

TEST(LightroomServiceBridgeTest, removesAStaleReplyBeforeItSends)
{
    const LightroomRig rig;
    const LightroomPluginCommand ping;
    rig.plugin.writeReply({{u"request_id"_s, ping.requestID}}, ScriptedPlugin::successReply(u"stale"_s));
    EXPECT_TRUE(send(rig, ping)->contains("pong"_L1));
}

TEST(LightroomServiceBridgeTest, keepsItsStateWhenACommandHasNoJson)
{
    LightroomRig rig;
    EXPECT_TRUE(waitForTask(rig.service->ping(AutoStart::no)));
    EXPECT_EQ(send(rig, {.value = std::numeric_limits<double>::infinity()}), std::nullopt);
    EXPECT_EQ(rig.service->lastMessage(), u"Failed to encode Lightroom command."_s);
    EXPECT_TRUE(rig.service->isPluginConnected());
    EXPECT_FALSE(rig.service->isCommandInFlight());
    EXPECT_EQ(rig.plugin.lines().size(), 1);
}

TEST(LightroomServiceBridgeTest, sendsOneCommandAtATime)
{
    LightroomRig rig;
    int unanswered = 0;
    int mostUnanswered = 0;
    rig.plugin.setHandler([&](const QJsonObject &command) {
        mostUnanswered = std::max(mostUnanswered, ++unanswered);
        QTimer::singleShot(30ms, &rig.plugin, [&, command] {
            --unanswered;
            rig.plugin.writeReply(command,
                                  ScriptedPlugin::successReply(command.value("slider"_L1).toString()));
        });
        return std::nullopt;
    });
    QCoro::Task<std::optional<QString>> first = rig.service->sendPluginCommand({.slider = u"first"_s});
    QCoro::Task<std::optional<QString>> second = rig.service->sendPluginCommand({.slider = u"second"_s});
    EXPECT_TRUE(rig.service->isCommandInFlight());
    EXPECT_TRUE(waitForTask(std::move(second))->contains("second"_L1));
    EXPECT_TRUE(waitForTask(std::move(first))->contains("first"_L1));
    EXPECT_EQ(mostUnanswered, 1);
    EXPECT_FALSE(rig.service->isCommandInFlight());
}

TEST(LightroomServiceBridgeTest, mayDieWhileItsTasksAreSuspended)
{
    const std::pair<const char *, std::function<void(LightroomRig &)>> cases[] = {
        {"connecting", [](auto &rig) { rig.plugin.stopListening(); }},
        {"waiting for a reply", [](auto &rig) { rig.plugin.keepSilent(); }},
        {"waiting for another command",
         [](auto &rig) {
             rig.plugin.keepSilent();
             startDetached([](LightroomService *service) -> QCoro::Task<> {
                 co_await service->sendPluginCommand(status);
             }(rig.service.get()));
         }},
        {"starting the server",
         [](auto &rig) {
             rig.plugin.setHandler([](const QJsonObject &) { return "no"; });
             rig.menus.whenClicked = [&rig] { rig.service.reset(); };
         }},
    };
    for (const auto &[name, prepare] : cases) {
        SCOPED_TRACE(name);
        LightroomRig rig(impatientTiming());
        prepare(rig);
        QTimer::singleShot(20ms, &rig.plugin, [&] { rig.service.reset(); });
        EXPECT_EQ(waitForTask(rig.service->setRating(3)), QString());
        EXPECT_FALSE(rig.journal.contains(u"key 20 0x0"_s));
    }
}

TEST(LightroomServicePingTest, startsTheServerOnceAndTestsAgain)
{
    LightroomRig rig(impatientTiming());
    rig.plugin.stopListening();
    rig.menus.answer = u"started"_s;
    rig.menus.whenClicked = [&] { rig.plugin.listenAgain(); };
    EXPECT_TRUE(waitForTask(rig.service->ping(AutoStart::yes)));
    EXPECT_EQ(rig.journal, QStringList{u"bridge status"_s});
    EXPECT_TRUE(rig.service->isPluginConnected());
}

TEST(LightroomServicePingTest, failsWithTheMenusReason)
{
    const std::pair<std::expected<QString, QString>, QString> cases[] = {
        {u"Lightroom Classic is not running"_s, u"Lightroom Classic is not running"_s},
        {u""_s, u"Could not start Lightroom bridge."_s},
        {std::unexpected(u"not allowed"_s), u"not allowed"_s},
        {std::unexpected(QString()), u"Could not start Lightroom bridge."_s},
    };
    for (const auto &[answer, lastMessage] : cases) {
        LightroomRig rig(impatientTiming());
        rig.plugin.stopListening();
        rig.menus.answer = answer;
        EXPECT_FALSE(waitForTask(rig.service->ping(AutoStart::yes)));
        EXPECT_EQ(rig.service->lastMessage(), lastMessage);
        EXPECT_EQ(rig.journal, QStringList{u"bridge status"_s});
    }
}

TEST(LightroomServicePingTest, countsOnlyPongAsAnAnswer)
{
    LightroomRig rig;
    rig.plugin.setHandler([](const QJsonObject &) { return ScriptedPlugin::successReply(u"hello"_s); });
    EXPECT_FALSE(waitForTask(rig.service->ping(AutoStart::no)));
    EXPECT_FALSE(rig.service->isPluginConnected());
    EXPECT_EQ(rig.journal, QStringList());
}

} // namespace
} // namespace KelvaLR::Testing
