#include "Services/Lightroom/Language/LightroomCommandParser.h"

#include "Services/Lightroom/Language/LightroomFrontmost.h"
#include "Services/Lightroom/Language/RouteExplanation.h"
#include "Support/RecordingPorts.h"

#include <gtest/gtest.h>

namespace KelvaLR {
namespace {

using namespace Qt::StringLiterals;
using namespace LightroomCommand;
using Testing::FixedFrontmostApplication;

constexpr bool absolute = false;
constexpr bool relative = true;

LightroomComputerUseCommand slider(const char *name, double value, bool isRelative)
{
    return LightroomAdjustSlider{{QString::fromLatin1(name), value, isRelative}};
}

LightroomComputerUseCommand key(const QString &displayName, std::optional<quint16> code,
                                KeyModifiers modifiers = {})
{
    return PressKey{{displayName, code, modifiers}};
}

struct CommandCase
{
    QString text;
    LightroomComputerUseCommand command;
};

/// Another application, or none, is in front.
const FixedFrontmostApplication elsewhere;
const FixedFrontmostApplication inLightroom{FixedFrontmostApplication::lightroomClassic()};

void expectCommands(std::initializer_list<CommandCase> cases,
                    const FixedFrontmostApplication &frontmost = elsewhere)
{
    for (const CommandCase &c : cases) {
        const auto command = LightroomCommandParser::parse(c.text, frontmost);
        EXPECT_TRUE(command == c.command)
            << c.text.toStdString() << " is "
            << (command ? explainedRoute({}, Route::Command{*command}).constData() : "no command");
    }
}

void expectCommandsInLightroom(std::initializer_list<CommandCase> cases)
{
    expectCommands(cases, inLightroom);
}

TEST(LightroomCommandParser, movesSliders)
{
    expectCommands({
        {u"increase exposure by 0.5"_s, slider("exposure", 0.5, relative)},
        {u"decrease exposure by 0.5"_s, slider("exposure", -0.5, relative)},
        {u"lower shadows -20"_s, slider("shadows", -20, relative)},
        {u"raise highlights -10"_s, slider("highlights", 10, relative)},
        {u"lower or raise whites 5"_s, slider("whites", 5, relative)},
        {u"change blacks -5"_s, slider("blacks", -5, relative)},
        {u"adjust tint +7"_s, slider("tint", 7, relative)},
        {u"SET Temperature to 5500"_s, slider("temperature", 5500, absolute)},
        {u"please set temp to 5500"_s, slider("temperature", 5500, absolute)},
        {u"set to .5 the clarity"_s, slider("clarity", 0.5, absolute)},
        {u"set exposure to -1."_s, slider("exposure", -1, absolute)},
        {u"set exposure to 1.2.3"_s, slider("exposure", 1.2, absolute)},
        {u"  set\texposure 1"_s, slider("exposure", 1, relative)},
        {u" set exposure 1"_s, slider("exposure", 1, absolute)},
        {u"lightroom exposure 1"_s, slider("exposure", 1, relative)},
        {u"set grain size to 30"_s, slider("grainsize", 30, absolute)},
        {u"set grain frequency to 30"_s, slider("grainfrequency", 30, absolute)},
        {u"add grain 20"_s, slider("grainamount", 20, relative)},
        {u"add contrast to exposure 3"_s, slider("exposure", 3, relative)},
        {u"set attempt 7"_s, slider("temperature", 7, absolute)},
    });
}

TEST(LightroomCommandParser, movesSlidersBeforeAnythingElse)
{
    expectCommandsInLightroom({
        {u"set the rating of exposure to 2"_s, slider("exposure", 2, absolute)},
        {u"apply preset Contrast 2"_s, slider("contrast", 2, relative)},
        {u"inspect lightroom texture 3"_s, slider("texture", 3, relative)},
        {u"open lightroom tint 1"_s, slider("tint", 1, relative)},
    });
}

TEST(LightroomCommandParser, understandsSentencesThatNameLightroom)
{
    expectCommands({
        {u"inspect lightroom"_s, InspectUI{}},
        {u"inspect UI of LR classic"_s, InspectUI{}},
        {u"open Lightroom Classic"_s, OpenLightroom{u"Lightroom Classic"_s}},
        {u"  Launch   my Lightroom "_s, OpenLightroom{u"my Lightroom"_s}},
        {u"open lightroom preset x"_s, OpenLightroom{u"lightroom preset x"_s}},
        {u"what photo is selected in lightroom"_s, LightroomGetStatus{}},
        {u"lightroom status"_s, LightroomGetStatus{}},
        {u"lr current photo and its settings"_s, LightroomGetStatus{}},
        {u"Import photos from folder /Users/me/Shoot into Lightroom"_s,
         LightroomImportFolder{u"/Users/me/Shoot into Lightroom"_s}},
        {u"flag as pick in Lightroom"_s, LightroomCullPhoto{u"pick"_s}},
        {u"mark as keeper in lightroom"_s, LightroomCullPhoto{u"pick"_s}},
        {u"unflag this in lightroom"_s, LightroomCullPhoto{u"unflag"_s}},
        {u"lr remove flag"_s, LightroomCullPhoto{u"unflag"_s}},
        {u"reject and rate 3 stars in lightroom"_s, LightroomCullPhoto{u"reject"_s}},
        {u"rate it five stars in lightroom"_s, LightroomSetRating{5}},
        {u"rating: 10 in lightroom"_s, LightroomSetRating{0}},
        {u"lightroom: 3 or 4 stars"_s, LightroomSetRating{3}},
        {u"on the phone, started in lightroom"_s, LightroomSetRating{1}},
        {u"lightroom five stars, not 4"_s, LightroomSetRating{4}},
        {u"next photo in lightroom"_s, LightroomNavigate{u"next"_s}},
        {u"lr go previous"_s, LightroomNavigate{u"prev"_s}},
        {u"apply preset called Portra 400 in Lightroom Classic"_s, LightroomApplyPreset{u"Portra 400"_s}},
        {u"click the Export button in Lightroom"_s, ClickElement{u"Export"_s}},
        {u"press p in lightroom"_s, key(u"P In Lightroom"_s, {})},
        {u"type hello world into the search field in lightroom"_s,
         TypeTextIntoField{u"hello world"_s, u"search"_s}},
    });
}

TEST(LightroomCommandParser, needsNoMentionWhileLightroomIsInFront)
{
    const KeyModifiers undo = KeyModifier::maskCommand;
    expectCommandsInLightroom({
        {u"inspect"_s, InspectUI{}},
        {u"next"_s, LightroomNavigate{u"next"_s}},
        {u"Prev"_s, LightroomNavigate{u"prev"_s}},
        {u"apply preset 'Portra 400'"_s, LightroomApplyPreset{u"Portra 400"_s}},
        {u"apply preset called 'Portra 400'"_s, LightroomApplyPreset{u"'Portra 400'"_s}},
        {u"use preset called the Portra preset."_s, LightroomApplyPreset{u"Portra"_s}},
        {u"apply Soft Matte preset"_s, LightroomApplyPreset{u"Soft Matte"_s}},
        {u"click on Exposure slider in Lightroom Classic"_s, ClickElement{u"Exposure"_s}},
        {u"please tap \"Auto Tone\"!"_s, ClickElement{u"Auto Tone"_s}},
        {u"hit the escape key"_s, key(u"Escape"_s, 53)},
        {u"press cmd z."_s, key(u"Command-Z"_s, 6, undo)},
        {u"now press page down"_s, key(u"Page Down"_s, {})},
        {u"press the shift key and hit a"_s, key(u"Shift-And Hit A"_s, {}, KeyModifier::maskShift)},
        {u"type \"Hello\""_s, TypeText{u"Hello"_s}},
        {u"Write  Hello There "_s, TypeText{u"Hello There"_s}},
        {u"enter 'Rome' in Title in Caption"_s, TypeTextIntoField{u"'Rome' in Title"_s, u"Caption"_s}},
        {u"type in the Caption"_s, TypeText{u"in the Caption"_s}},
        {u"type x into the !"_s, TypeTextIntoField{u"x"_s, u"the"_s}},
    });
}

TEST(LightroomCommandParser, leavesOtherRequestsAlone)
{
    const QString tooMuch = u"set exposure to "_s + QString(400, u'9');
    // U+0663 is a digit, but not one that converts.
    for (const QString &text :
         {u"exposure 1"_s, u"more grain 20"_s, u"increase exposure"_s, u"set exposure to \u0663"_s, tooMuch,
          u"inspect ui in lr"_s, u"inspect"_s, u"open Photoshop"_s, u"lightroom rate"_s,
          u"apply Soft Matte preset in lightroom"_s, u"make it pop in lightroom"_s, u" \n "_s, QString()}) {
        EXPECT_FALSE(LightroomCommandParser::parse(text, elsewhere)) << text.toStdString();
    }
    for (const QString &text :
         {u"open Photoshop"_s, u"nextdoor"_s, u"use preset"_s, u"use  preset"_s, u"click ..."_s,
          u"doubleclick the Export"_s, u"press shift"_s, u"type ''"_s}) {
        EXPECT_FALSE(LightroomCommandParser::parse(text, inLightroom)) << text.toStdString();
    }
}

TEST(LightroomCommandParser, cutsArgumentsAsWrittenBehindLettersThatGrow)
{
    expectCommandsInLightroom({
        {u"\u0130\u0130 apply preset \u0130zmir 2"_s, LightroomApplyPreset{u"\u0130zmir 2"_s}},
        {u"apply \u0130zmir preset"_s, LightroomApplyPreset{u"\u0130zmir"_s}},
        {u"\u0130 click \u0130ptal button"_s, ClickElement{u"\u0130ptal"_s}},
        {u"type \u0130\u0130 into \u0130sim field"_s, TypeTextIntoField{u"\u0130\u0130"_s, u"\u0130sim"_s}},
        {u"import photos \u0130 from /\u0130"_s, LightroomImportFolder{u"/\u0130"_s}},
    });
}

TEST(LightroomCommandParser, asksForTheFrontmostApplicationOnlyWhenItMatters)
{
    const FixedFrontmostApplication frontmost{FixedFrontmostApplication::lightroomClassic()};
    for (const QString &text :
         {u"set exposure to 1"_s, u"next photo in lightroom"_s, u"open lightroom"_s, u"lr go next"_s}) {
        EXPECT_TRUE(LightroomCommandParser::parse(text, frontmost)) << text.toStdString();
    }
    EXPECT_EQ(frontmost.questions, 0);
    EXPECT_TRUE(LightroomCommandParser::parse(u"next photo"_s, frontmost));
    EXPECT_EQ(frontmost.questions, 1);
}

TEST(LightroomFrontmost, isKnownByNameOrIdentifier)
{
    const std::pair<std::optional<RunningApplication>, bool> cases[] = {
        {std::nullopt, false},
        {RunningApplication{}, false},
        {RunningApplication{u"Photos"_s, u"org.photos"_s, 1}, false},
        {RunningApplication{u"LIGHTROOM Stand-in"_s, QString(), 1}, true},
        {RunningApplication{QString(), u"com.adobe.LightroomClassicCC7"_s, 1}, true},
    };
    for (const auto &[application, isLightroom] : cases) {
        EXPECT_EQ(isLightroomFrontmost(FixedFrontmostApplication(application)), isLightroom);
    }
}

} // namespace
} // namespace KelvaLR
