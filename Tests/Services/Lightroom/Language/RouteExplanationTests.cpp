#include "Services/Lightroom/Language/RouteExplanation.h"

#include "Support/RecordingPorts.h"

#include <gtest/gtest.h>

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;
using Testing::FixedFrontmostApplication;

/// A request made while Lightroom is in front, and the explanation behind its text.
struct ExplanationCase
{
    const char *text;
    const char *explanation;
};

constexpr ExplanationCase cases[] = {
    {" ", R"("route":"ignored")"},
    {"test lightroom connection", R"("route":"connection_test")"},
    {"import photos from /a", R"("route":"import_folder","path":"/a")"},
    {"hello", R"("route":"chat")"},
    {"use preset Warm to these", R"("route":"batch","batch":{"case":"applyPreset","name":"Warm"})"},
    {"reject these", R"("route":"batch","batch":{"case":"cull","type":"reject"})"},
    {"rate these 2", R"("route":"batch","batch":{"case":"rate","rating":2})"},
    {"set tint of these to -3.5",
     R"("route":"batch","batch":{"case":"adjustSlider","sliderName":"tint","value":-3.5,"relative":false})"},
    {"make these darker",
     R"("route":"batch","batch":{"case":"adjustSliders","adjustments":"exposure:-0.3:1"})"},
    {"open lightroom", R"("route":"command","command":{"case":"openLightroom","name":"lightroom"})"},
    {"click Export", R"("route":"command","command":{"case":"clickElement","name":"Export"})"},
    {"type hi", R"("route":"command","command":{"case":"typeText","text":"hi"})"},
    {"type hi into Title",
     R"("route":"command","command":{"case":"typeTextIntoField","text":"hi","field":"Title"})"},
    {"press shift cmd z",
     R"("route":"command","command":{"case":"pressKey","key":{"displayName":"Command-Shift-Z","keyCode":6,"modifiers":1179648}})"},
    {"press home",
     R"("route":"command","command":{"case":"pressKey","key":{"displayName":"Home","keyCode":null,"modifiers":0}})"},
    {"set exposure to 1",
     R"("route":"command","command":{"case":"lightroomAdjustSlider","sliderName":"exposure","value":1,"relative":false})"},
    {"apply preset Warm", R"("route":"command","command":{"case":"lightroomApplyPreset","name":"Warm"})"},
    {"reject", R"("route":"command","command":{"case":"lightroomCullPhoto","type":"reject"})"},
    {"four stars", R"("route":"command","command":{"case":"lightroomSetRating","value":4})"},
    {"next", R"("route":"command","command":{"case":"lightroomNavigate","direction":"next"})"},
    {"inspect", R"("route":"command","command":{"case":"inspectUI"})"},
    {"status", R"("route":"command","command":{"case":"lightroomGetStatus"})"},
};

TEST(RouteExplanation, saysWhereARequestGoesAndWhatItCarries)
{
    const FixedFrontmostApplication inLightroom{FixedFrontmostApplication::lightroomClassic()};
    for (const auto &[text, explanation] : cases) {
        const QString line = QString::fromLatin1(text);
        EXPECT_EQ(explainedRoute(line, routePrompt(line, inLightroom)),
                  QByteArray("{\"text\":\"") + text + "\"," + explanation + '}');
    }
}

// "import" goes to the folder import before the command language sees it, so that command has no request
// above.
TEST(RouteExplanation, explainsAnImportCommand)
{
    EXPECT_EQ(explainedRoute(u" a\t"_s, Route::Command{LightroomCommand::LightroomImportFolder{u"/a"_s}}),
              R"({"text":" a\t","route":"command","command":{"case":"lightroomImportFolder","path":"/a"}})");
}

} // namespace

} // namespace KelvaLR
