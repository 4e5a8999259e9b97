#include "Services/Lightroom/LightroomConnectionWatch.h"
#include "Support/LightroomRig.h"
#include "Support/PrintQt.h"
#include "Support/WaitForTask.h"

#include <QDir>
#include <QTimer>

#include <gtest/gtest.h>

namespace KelvaLR::Testing {
namespace {

using namespace Connection;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

const PortListener nobody{.presence = PortListener::Presence::none, .programs = {}};
const PortListener lightroomListens{.presence = PortListener::Presence::present,
                                    .programs = {{u"Lightroom.exe"_s, 42}}};
const PortListener rogueListens{.presence = PortListener::Presence::present, .programs = {{u"nc"_s, 7}}};
const RunningApplication lightroomClassic{u"Adobe Lightroom Classic"_s, {}, 42};

class LightroomConnectionWatchTest : public testing::Test
{
protected:
    LightroomConnectionWatchTest() { makeWatch(0ms); }

    void makeWatch(std::chrono::milliseconds loading)
    {
        history.clear();
        watch = std::make_unique<LightroomConnectionWatch>(
            *rig.service, rig.applications, rig.listening,
            ConnectionWatchTiming{.gap = 1ms, .follow = 10ms, .loading = loading});
        QObject::connect(watch.get(), &LightroomConnectionWatch::connectionChanged, watch.get(),
                         [this] { history.append(watch->connection()); });
    }

    /// Waits until the watch has found this.
    [[nodiscard]] bool willFind(const LightroomConnection &expected) const
    {
        return waitUntil([&] { return watch->connection() == expected; });
    }

    /// Waits until as many questions have been asked since the watch was made.
    [[nodiscard]] bool willHaveAsked(int questions) const
    {
        return waitUntil([&] { return rig.listening.questions >= questions; });
    }

    void keepSilent()
    {
        rig.plugin.setHandler([](const QJsonObject &) { return std::nullopt; });
    }

    LightroomRig rig{impatientTiming()};
    std::unique_ptr<LightroomConnectionWatch> watch;
    QList<LightroomConnection> history;
};

TEST_F(LightroomConnectionWatchTest, findsTheReasonWithoutAskingThePlugin)
{
    rig.listening.listener = nobody;
    watch->look();
    EXPECT_TRUE(willFind(LightroomNotRunning{.isLightroomInstalled = false}));
    rig.applications.installed = {{u"Lightroom"_s, u"lightroom.desktop"_s, QUrl(u"file:///lightroom"_s)}};
    watch->look();
    EXPECT_TRUE(willFind(LightroomNotRunning{.isLightroomInstalled = true}));
    rig.applications.running = {lightroomClassic};
    watch->look();
    EXPECT_TRUE(willFind(PluginNotLoaded{.isPluginInstalled = true}));
    QDir(rig.modules.filePath(u"KelvaLR.lrplugin"_s)).removeRecursively();
    watch->look();
    EXPECT_TRUE(willFind(PluginNotLoaded{.isPluginInstalled = false}));
    rig.listening.listener = rogueListens;
    watch->look();
    EXPECT_TRUE(willFind(PortTaken{.port = rig.plugin.endpoint().port, .program = u"nc"_s}));
    rig.listening.listener = lightroomListens;
    watch->look();
    EXPECT_TRUE(willFind(Usable()));
    EXPECT_EQ(rig.plugin.lines(), QList<QByteArray>());
    EXPECT_EQ(rig.journal, QStringList());
}

TEST_F(LightroomConnectionWatchTest, takesThePluginsPauseBetweenTwoListensForNothing)
{
    rig.listening.listener = nobody;
    rig.listening.whenAsked = [&] {
        rig.listening.listener = rig.listening.questions % 2 == 1 ? nobody : lightroomListens;
    };
    for (int look = 1; look <= 3; ++look) {
        watch->look();
        EXPECT_TRUE(willHaveAsked(2 * look));
    }
    EXPECT_TRUE(history.isEmpty());
}

TEST_F(LightroomConnectionWatchTest, looksAfterExchangesOnceItHasBegun)
{
    keepSilent();
    EXPECT_FALSE(waitForTask(rig.service->ping(AutoStart::no)));
    EXPECT_EQ(rig.listening.questions, 0);
    watch->look();
    EXPECT_TRUE(willFind(NoAnswer()));
    rig.plugin.answer(ScriptedPlugin::successReply(u"Done"_s));
    EXPECT_TRUE(waitForTask(rig.service->ping(AutoStart::no)));
    EXPECT_EQ(watch->connection(), LightroomConnection(Usable()));
    keepSilent();
    waitForTask(rig.service->getStatus());
    EXPECT_TRUE(willFind(NoAnswer()));
}

TEST_F(LightroomConnectionWatchTest, doesNotBlameLightroomForWhatAnotherProgramTook)
{
    rig.applications.running = {lightroomClassic};
    rig.listening.listener = rogueListens;
    keepSilent();
    watch->look();
    EXPECT_FALSE(waitForTask(rig.service->ping(AutoStart::no)));
    EXPECT_TRUE(willFind(PortTaken{.port = rig.plugin.endpoint().port, .program = u"nc"_s}));
    rig.listening.listener = nobody;
    watch->look();
    EXPECT_TRUE(willFind(PluginNotLoaded{.isPluginInstalled = true}));
}

TEST_F(LightroomConnectionWatchTest, givesALightroomThatHasJustComeTimeToLoadThePlugin)
{
    makeWatch(2s);
    rig.listening.listener = nobody;
    watch->look();
    EXPECT_TRUE(willFind(LightroomNotRunning()));
    rig.applications.running = {lightroomClassic};
    watch->look();
    EXPECT_TRUE(willFind(PluginNotLoaded{.isPluginInstalled = true})); // by a look of its own
    EXPECT_EQ(history, (QList<LightroomConnection>{LightroomNotRunning(), Usable(),
                                                   PluginNotLoaded{.isPluginInstalled = true}}));
}

TEST_F(LightroomConnectionWatchTest, looksAgainByItselfOnlyWhileFollowed)
{
    rig.listening.listener = nobody;
    watch->look();
    EXPECT_TRUE(willFind(LightroomNotRunning()));
    watch->setFollowed(true);
    rig.applications.running = {lightroomClassic};
    EXPECT_TRUE(willFind(PluginNotLoaded{.isPluginInstalled = true}));
    EXPECT_TRUE(willHaveAsked(8));
    watch->setFollowed(false);
    watch->look();
    rig.applications.running.clear();
    EXPECT_TRUE(willFind(LightroomNotRunning())); // by that one look
    const int questions = rig.listening.questions;
    EXPECT_FALSE(waitUntil([&] { return rig.listening.questions > questions; }, 200ms));
}

TEST_F(LightroomConnectionWatchTest, mayDieWhileItLooks)
{
    rig.listening.listener = nobody;
    for (const int question : {1, 2}) {
        rig.listening.questions = 0;
        makeWatch(0ms);
        rig.listening.whenAsked = [&] {
            if (rig.listening.questions == question) {
                QTimer::singleShot(0, &rig.plugin, [&] { watch.reset(); });
            }
        };
        watch->look();
        EXPECT_TRUE(waitUntil([&] { return !watch; }));
    }
}

} // namespace
} // namespace KelvaLR::Testing
