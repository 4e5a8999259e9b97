#include "Support/DetachedTask.h"
#include "Support/LightroomRig.h"
#include "Support/PrintQt.h"
#include "Support/WaitForTask.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTimer>

#include <gtest/gtest.h>

#include <limits>

namespace KelvaLR::Testing {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

const LightroomPluginCommand status{.action = LightroomPluginAction::getStatus};

TEST(LightroomServiceBridgeTest, givesTheReplyAndRemembersHowItWent)
{
    LightroomRig rig;
    const QSignalSpy connectedChanged(rig.service.get(), &LightroomService::isPluginConnectedChanged);
    const QSignalSpy messageChanged(rig.service.get(), &LightroomService::lastMessageChanged);
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(waitForTask(rig.service->sendPluginCommand({.action = LightroomPluginAction::next})),
                  QString::fromUtf8(ScriptedPlugin::successReply(u"Done"_s)));
    }
    EXPECT_TRUE(rig.service->isPluginConnected());
    EXPECT_EQ(rig.service->lastMessage(), u"Lightroom Classic: Done"_s);
    EXPECT_EQ(connectedChanged.count(), 1);
    EXPECT_EQ(messageChanged.count(), 1);
    EXPECT_EQ(rig.plugin.repliesLeft(), QStringList());
}

TEST(LightroomServiceBridgeTest, reportsEveryFailureAsNoReplyAndIsReadyForTheNextCommand)
{
    struct Case
    {
        const char *name;
        std::function<void(ScriptedPlugin &)> prepare;
    };

    const QList<Case> cases{
        {"refused", [](ScriptedPlugin &plugin) { plugin.stopListening(); }},
        {"silent",
         [](ScriptedPlugin &plugin) { plugin.setHandler([](const QJsonObject &) { return std::nullopt; }); }},
        {"takes the connection and never reads", [](ScriptedPlugin &plugin) { plugin.stopReading(); }},
        {"empty", [](ScriptedPlugin &plugin) { plugin.answer(""); }},
        {"not UTF-8", [](ScriptedPlugin &plugin) { plugin.answer("\xFF\n"); }},
        {"too large", [](ScriptedPlugin &plugin) { plugin.answer(QByteArray(1 << 20, 'x') + '\n'); }},
    };
    for (const Case &one : cases) {
        LightroomRig rig(impatientTiming());
        EXPECT_TRUE(waitForTask(rig.service->ping(AutoStart::no))) << one.name;
        one.prepare(rig.plugin);
        EXPECT_EQ(waitForTask(rig.service->sendPluginCommand(status)), std::nullopt) << one.name;
        EXPECT_FALSE(rig.service->isPluginConnected()) << one.name;
        EXPECT_FALSE(rig.service->isCommandInFlight()) << one.name;
        EXPECT_EQ(rig.service->lastMessage(), u"Lightroom Classic: pong"_s) << one.name;
    }
}

TEST(LightroomServiceBridgeTest, passesOnAReplyThatIsNotJson)
{
    LightroomRig rig;
    rig.plugin.answer("lua: out of memory\n");
    EXPECT_EQ(waitForTask(rig.service->sendPluginCommand(status)), u"lua: out of memory\n"_s);
    EXPECT_TRUE(rig.service->isPluginConnected());
    EXPECT_EQ(rig.service->lastMessage(), u"lua: out of memory\n"_s);
}

TEST(LightroomServiceBridgeTest, leavesALateReplyAloneAndNeverTakesItForAnother)
{
    LightroomRig rig(impatientTiming());
    rig.plugin.setHandler([](const QJsonObject &) { return std::nullopt; });
    EXPECT_EQ(waitForTask(rig.service->sendPluginCommand(status)), std::nullopt);
    QFile late(rig.plugin.replyPath(rig.plugin.commands().constLast()));
    ASSERT_TRUE(late.open(QIODevice::WriteOnly));
    late.write(ScriptedPlugin::successReply(u"late"_s));
    late.close();

    rig.plugin.answer(ScriptedPlugin::successReply(u"fresh"_s));
    EXPECT_EQ(waitForTask(rig.service->sendPluginCommand({.action = LightroomPluginAction::next})),
              QString::fromUtf8(ScriptedPlugin::successReply(u"fresh"_s)));
    EXPECT_EQ(rig.plugin.repliesLeft().size(), 1);
}

TEST(LightroomServiceBridgeTest, removesAStaleReplyBeforeItSends)
{
    LightroomRig rig;
    const LightroomPluginCommand command;
    QFile stale(rig.plugin.endpoint().replyPath(command.requestID));
    ASSERT_TRUE(stale.open(QIODevice::WriteOnly));
    stale.write(ScriptedPlugin::successReply(u"stale"_s));
    stale.close();
    EXPECT_TRUE(waitForTask(rig.service->sendPluginCommand(command))->contains("pong"_L1));
}

TEST(LightroomServiceBridgeTest, keepsItsStateWhenACommandHasNoJson)
{
    LightroomRig rig;
    EXPECT_TRUE(waitForTask(rig.service->ping(AutoStart::no)));
    EXPECT_EQ(waitForTask(rig.service->sendPluginCommand({.value = std::numeric_limits<double>::infinity()})),
              std::nullopt);
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
    rig.plugin.setHandler([&](const QJsonObject &command) -> std::optional<QByteArray> {
        mostUnanswered = std::max(mostUnanswered, ++unanswered);
        QTimer::singleShot(30ms, &rig.plugin, [&, command] {
            --unanswered;
            QFile file(rig.plugin.replyPath(command));
            if (file.open(QIODevice::WriteOnly)) {
                file.write(ScriptedPlugin::successReply(command.value("slider"_L1).toString()));
            }
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
    struct Case
    {
        const char *name;
        std::function<void(LightroomRig &)> prepare;
    };

    const QList<Case> cases{
        {"connecting", [](LightroomRig &rig) { rig.plugin.stopListening(); }},
        {"waiting for a reply",
         [](LightroomRig &rig) { rig.plugin.setHandler([](const QJsonObject &) { return std::nullopt; }); }},
        {"waiting for another command",
         [](LightroomRig &rig) {
             rig.plugin.setHandler([](const QJsonObject &) { return std::nullopt; });
             startDetached([](LightroomService *service) -> QCoro::Task<> {
                 co_await service->sendPluginCommand(status);
             }(rig.service.get()));
         }},
        {"starting the server",
         [](LightroomRig &rig) {
             rig.plugin.setHandler([](const QJsonObject &) { return "no"; });
             rig.menus.whenClicked = [&rig] { rig.service.reset(); };
         }},
    };
    for (const Case &one : cases) {
        LightroomRig rig(impatientTiming());
        one.prepare(rig);
        QTimer::singleShot(20ms, &rig.plugin, [&] { rig.service.reset(); });
        EXPECT_EQ(waitForTask(rig.service->setRating(3)), QString()) << one.name;
        EXPECT_FALSE(rig.journal.contains(u"key 20 0x0"_s)) << one.name;
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
    struct Case
    {
        std::expected<QString, QString> answer;
        QString lastMessage;
    };

    const QList<Case> cases{
        {u"Lightroom Classic is not running"_s, u"Lightroom Classic is not running"_s},
        {u""_s, u"Could not start Lightroom bridge."_s},
        {std::unexpected(u"not allowed"_s), u"not allowed"_s},
        {std::unexpected(QString()), u"Could not start Lightroom bridge."_s},
    };
    for (const Case &one : cases) {
        LightroomRig rig(impatientTiming());
        rig.plugin.stopListening();
        rig.menus.answer = one.answer;
        EXPECT_FALSE(waitForTask(rig.service->ping(AutoStart::yes)));
        EXPECT_EQ(rig.service->lastMessage(), one.lastMessage);
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
