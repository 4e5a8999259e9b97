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
const PluginNotLoaded notLoaded{.isPluginInstalled = true};

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

    /// The same, by a look.
    [[nodiscard]] bool finds(const LightroomConnection &expected) const
    {
        watch->look();
        return willFind(expected);
    }

    /// Waits until as many questions have been asked since the watch was made.
    [[nodiscard]] bool willHaveAsked(int questions) const
    {
        return waitUntil([&] { return rig.listening.questions >= questions; });
    }

    LightroomRig rig{impatientTiming()};
    std::unique_ptr<LightroomConnectionWatch> watch;
    QList<LightroomConnection> history;
};

TEST_F(LightroomConnectionWatchTest, findsTheReasonWithoutAskingThePlugin)
{
    rig.listening.listener = nobody;
    EXPECT_TRUE(finds(LightroomNotRunning{.isLightroomInstalled = false}));
    rig.applications.installed = {{u"Lightroom"_s, u"lightroom.desktop"_s, QUrl(u"file:///lightroom"_s)}};
    EXPECT_TRUE(finds(LightroomNotRunning{.isLightroomInstalled = true}));
    rig.applications.running = {lightroomClassic};
    EXPECT_TRUE(finds(notLoaded));
    QDir(rig.modules.filePath(u"KelvaLR.lrplugin"_s)).removeRecursively();
    EXPECT_TRUE(finds(PluginNotLoaded{.isPluginInstalled = false}));
    rig.listening.listener = rogueListens;
    EXPECT_TRUE(finds(PortTaken{.port = rig.plugin.endpoint().port, .program = u"nc"_s}));
    rig.listening.listener = lightroomListens;
    EXPECT_TRUE(finds(Usable()));
    EXPECT_EQ(rig.plugin.lines(), QList<QByteArray>());
    EXPECT_EQ(rig.journal, QStringList());
}

TEST_F(LightroomConnectionWatchTest, takesThePluginsPauseBetweenTwoListensForNothing)
{
    rig.listening.listener = nobody;
    rig.listening.whenAsked = [&] {
        rig.listening.listener = rig.listening.questions % 2 == 1 ? nobody : lightroomListens;
    };
    for (const int questions : {2, 4, 6}) {
        watch->look();
        EXPECT_TRUE(willHaveAsked(questions));
    }
    EXPECT_TRUE(history.isEmpty());
}

TEST_F(LightroomConnectionWatchTest, looksAfterExchangesOnceItHasBegun)
{
    rig.plugin.keepSilent();
    EXPECT_FALSE(waitForTask(rig.service->ping(AutoStart::no)));
    EXPECT_EQ(rig.listening.questions, 0);
    EXPECT_TRUE(finds(NoAnswer()));
    rig.plugin.answer(ScriptedPlugin::successReply(u"Done"_s));
    EXPECT_TRUE(waitForTask(rig.service->ping(AutoStart::no)));
    EXPECT_EQ(watch->connection(), LightroomConnection(Usable()));
    rig.plugin.keepSilent();
    waitForTask(rig.service->getStatus());
    EXPECT_TRUE(willFind(NoAnswer()));
}

TEST_F(LightroomConnectionWatchTest, doesNotBlameLightroomForWhatAnotherProgramTook)
{
    rig.applications.running = {lightroomClassic};
    rig.listening.listener = rogueListens;
    rig.plugin.keepSilent();
    watch->look();
    EXPECT_FALSE(waitForTask(rig.service->ping(AutoStart::no)));
    EXPECT_TRUE(willFind(PortTaken{.port = rig.plugin.endpoint().port, .program = u"nc"_s}));
    rig.listening.listener = nobody;
    EXPECT_TRUE(finds(notLoaded));
}

TEST_F(LightroomConnectionWatchTest, givesALightroomThatHasJustComeTimeToLoadThePlugin)
{
    makeWatch(2s);
    rig.listening.listener = nobody;
    EXPECT_TRUE(finds(LightroomNotRunning()));
    rig.applications.running = {lightroomClassic};
    EXPECT_TRUE(finds(notLoaded)); // by a look of its own
    EXPECT_EQ(history, (QList<LightroomConnection>{LightroomNotRunning(), Usable(), notLoaded}));
}

TEST_F(LightroomConnectionWatchTest, looksAgainByItselfOnlyWhileFollowed)
{
    rig.listening.listener = nobody;
    EXPECT_TRUE(finds(LightroomNotRunning()));
    watch->setFollowed(true);
    rig.applications.running = {lightroomClassic};
    EXPECT_TRUE(willFind(notLoaded));
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
