#include "Services/Lightroom/LightroomConnection.h"

#include <gtest/gtest.h>

namespace KelvaLR {
namespace {

using namespace Connection;
using namespace Qt::StringLiterals;
using enum BridgeExchange;

constexpr quint16 port = 54321;
const PortListener unseen;
const PortListener nobody{.presence = PortListener::Presence::none, .programs = {}};
const PortListener somebody{.presence = PortListener::Presence::present, .programs = {}};

PortListener listeners(const QList<ListeningProgram> &programs)
{
    return {.presence = PortListener::Presence::present, .programs = programs};
}

TEST(LightroomConnectionTest, isJudgedByWhoListensWhatRunsAndHowTheLastCommandEnded)
{
    const bool isOn = true;
    const bool isOff = false;
    const PortListener standIn = listeners({{u"lightroom-standin"_s, 7}});
    const PortListener rogue = listeners({{u"nc"_s, 7}});
    const NoAnswer noAnswer;
    const PluginNotLoaded notLoaded{.isPluginInstalled = true};
    const LightroomNotRunning notRunning{.isLightroomInstalled = true};
    const PortTaken takenByRogue{.port = port, .program = u"nc"_s};
    const PortTaken takenBySomebody{.port = port, .program = {}};

    const struct
    {
        bool isRunning; ///< as process 42
        PortListener listener;
        BridgeExchange lastExchange;
        LightroomConnection expected;
    } rows[] = {
        // Nobody listens.
        {isOff, nobody, none, notRunning},
        {isOff, nobody, refused, notRunning},
        {isOff, nobody, unanswered, notRunning},
        {isOn, nobody, none, notLoaded},
        {isOn, nobody, refused, notLoaded},
        {isOn, nobody, unanswered, noAnswer},
        // Lightroom listens, under its own name or another.
        {isOff, standIn, none, Usable()},
        {isOff, standIn, refused, Usable()},
        {isOff, standIn, notTaken, noAnswer},
        {isOff, standIn, unanswered, noAnswer},
        {isOn, listeners({{u"wine64-preloader"_s, 42}}), unanswered, noAnswer},
        {isOn, listeners({{u"sh"_s, 7}, {u"Lightroom.exe"_s, 8}}), none, Usable()},
        // Another program does, also beside a Lightroom.
        {isOff, rogue, none, takenByRogue},
        {isOn, rogue, none, takenByRogue},
        {isOn, rogue, unanswered, takenByRogue},
        // Somebody does, and it cannot be seen who.
        {isOff, somebody, none, Usable()},
        {isOn, somebody, refused, Usable()},
        {isOff, somebody, notTaken, takenBySomebody},
        {isOn, somebody, unanswered, takenBySomebody},
        // It cannot be seen whether anybody does.
        {isOff, unseen, none, notRunning},
        {isOn, unseen, none, Usable()},
        {isOn, unseen, refused, notLoaded},
        {isOn, unseen, notTaken, noAnswer},
    };

    for (int i = 0; const auto &row : rows) {
        ConnectionEvidence evidence{.lastExchange = row.lastExchange,
                                    .isLightroomInstalled = true,
                                    .isPluginInstalled = true,
                                    .port = port,
                                    .listener = row.listener};
        if (row.isRunning) {
            evidence.lightroom = RunningApplication{u"Adobe Lightroom Classic"_s, {}, 42};
        }
        EXPECT_TRUE(judgedConnection(evidence) == row.expected) << "row " << i;
        evidence.isPluginConnected = true;
        EXPECT_TRUE(judgedConnection(evidence) == LightroomConnection(Usable())) << "row " << i;
        ++i;
    }
}

} // namespace
} // namespace KelvaLR
