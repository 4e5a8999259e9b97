#include "Services/Lightroom/Language/RouteExplanation.h"

#include "Support/PrintQt.h"
#include "Support/RecordingPorts.h"

#include <gtest/gtest.h>

namespace KelvaLR {
namespace {

using namespace Qt::StringLiterals;
using Testing::FixedFrontmostApplication;

const FixedFrontmostApplication elsewhere;
const FixedFrontmostApplication inLightroom{FixedFrontmostApplication::lightroomClassic()};

struct RouteCase
{
    QString text;
    QString explanation; ///< of the route
};

void expectRoutes(std::initializer_list<RouteCase> cases,
                  const FixedFrontmostApplication &frontmost = elsewhere)
{
    for (const RouteCase &c : cases) {
        EXPECT_EQ(QString::fromUtf8(explainedRoute({}, routePrompt(c.text, frontmost))),
                  uR"({"text":"","route":%1})"_s.arg(c.explanation))
            << c.text.toStdString();
    }
}

void expectRoutesInLightroom(std::initializer_list<RouteCase> cases)
{
    expectRoutes(cases, inLightroom);
}

QString batch(const char *payload)
{
    return uR"("batch","batch":{"case":%1})"_s.arg(QLatin1StringView(payload));
}

QString command(const char *payload)
{
    return uR"("command","command":{"case":%1})"_s.arg(QLatin1StringView(payload));
}

TEST(PromptRouter, triesTheRoadsInTheirOrder)
{
    const QString chat = uR"("chat")"_s;
    const QString connectionTest = uR"("connection_test")"_s;
    const QString status = command(R"("lightroomGetStatus")");
    const QString fourStars = command(R"("lightroomSetRating","value":4)");
    expectRoutes({
        {u" \t\u2003\n"_s, uR"("ignored")"_s},
        {u"Test-Lightroom-Connection please"_s, connectionTest},
        {u"check lightroom connection, then import photos from /a"_s, connectionTest},
        {u"lightroom status connection"_s, connectionTest},
        {u"lightroom status"_s, status},
        {u"import folder from ~/Pictures/Trip."_s, uR"("import_folder","path":"~/Pictures/Trip")"_s},
        {u" Import photos in folder \"/My Shoot\"\n"_s, uR"("import_folder","path":"/My Shoot")"_s},
        {u"import selected photos from ' ' from /b"_s, uR"("import_folder","path":"/b")"_s},
        {u"import photos from ?!"_s, chat},
        {u"import the folder"_s, chat},
        {u"rate these 4 stars in lightroom"_s, batch(R"("rate","rating":4)")},
        {u"what photo is selected in lightroom"_s, status},
        {u"rate it 4 stars in lightroom"_s, fourStars},
        {u"rate it 4 stars"_s, chat},
        {u"what makes a good portrait?"_s, chat},
    });
    expectRoutesInLightroom({{u"rate it 4 stars"_s, fourStars}});
    EXPECT_TRUE(routePrompt(u"  flag these  "_s, elsewhere) ==
                PromptRoute(Route::Batch{ImportedPhotoBatch::Cull{u"pick"_s, u"flag these"_s}}));
}

TEST(RouteExplanation, saysWhatARequestCarries)
{
    expectRoutesInLightroom({
        {u"use preset Warm to these"_s, batch(R"("applyPreset","name":"Warm")")},
        {u"reject these"_s, batch(R"("cull","type":"reject")")},
        {u"set tint of these to -3.5"_s,
         batch(R"("adjustSlider","sliderName":"tint","value":-3.5,"relative":false)")},
        {u"make these darker"_s, batch(R"("adjustSliders","adjustments":"exposure:-0.3:1")")},
        {u"open lightroom"_s, command(R"("openLightroom","name":"lightroom")")},
        {u"click Export"_s, command(R"("clickElement","name":"Export")")},
        {u"type hi"_s, command(R"("typeText","text":"hi")")},
        {u"type hi into Title"_s, command(R"("typeTextIntoField","text":"hi","field":"Title")")},
        {u"press shift cmd z"_s,
         command(R"("pressKey","key":{"displayName":"Command-Shift-Z","keyCode":6,"modifiers":1179648})")},
        {u"press home"_s, command(R"("pressKey","key":{"displayName":"Home","keyCode":null,"modifiers":0})")},
        {u"set exposure to 1"_s,
         command(R"("lightroomAdjustSlider","sliderName":"exposure","value":1,"relative":false)")},
        {u"apply preset Warm"_s, command(R"("lightroomApplyPreset","name":"Warm")")},
        {u"reject"_s, command(R"("lightroomCullPhoto","type":"reject")")},
        {u"next"_s, command(R"("lightroomNavigate","direction":"next")")},
        {u"inspect"_s, command(R"("inspectUI")")},
    });
}

// "import" goes to the folder import before the command language sees it, so that command has no request
// above.
TEST(RouteExplanation, explainsAnImportCommandBehindItsText)
{
    EXPECT_EQ(explainedRoute(u" a\t"_s, Route::Command{LightroomCommand::LightroomImportFolder{u"/a"_s}}),
              R"({"text":" a\t","route":"command","command":{"case":"lightroomImportFolder","path":"/a"}})");
}

// A road that takes time in the square of the length would not end before the test's time-out.
TEST(PromptRouter, answersAMegabyteInLinearTime)
{
    constexpr qsizetype size = 1'000'000;
    const std::pair<QString, QString> openingsAndFillings[] = {
        {u"these "_s, u"star "_s},
        {u"apply "_s, u"\u0130"_s},
        {u"press "_s, u"key"_s},
        {u"use preset these "_s, u" to these"_s},
        {u"set exposure "_s, u"9"_s},
        {u"set exposure "_s, u"-."_s},
        {u"type "_s, u" in "_s},
        {u"click "_s, u" slider button field"_s},
        {u"import photos from "_s, u"'"_s},
        {u"rate these "_s, QString(QChar(0xD800))},
    };
    for (const auto &[opening, filling] : openingsAndFillings) {
        const PromptRoute route = routePrompt(opening + filling.repeated(size / filling.size()), inLightroom);
        EXPECT_FALSE(std::holds_alternative<Route::Ignored>(route));
    }
}

} // namespace
} // namespace KelvaLR
