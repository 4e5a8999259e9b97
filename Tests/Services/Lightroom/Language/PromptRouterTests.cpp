#include "Services/Lightroom/Language/PromptRouter.h"

#include "Support/PrintLanguage.h"
#include "Support/PrintQt.h"
#include "Support/RecordingPorts.h"

#include <gtest/gtest.h>

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;
using Testing::FixedFrontmostApplication;

const FixedFrontmostApplication elsewhere;

struct RouteCase
{
    QString text;
    PromptRoute route;
};

TEST(PromptRouter, triesTheRoadsInTheirOrder)
{
    const PromptRoute status = Route::Command{LightroomCommand::LightroomGetStatus{}};
    const RouteCase cases[] = {
        {u" \t\u2003\n"_s, Route::Ignored{}},
        {u"Test-Lightroom-Connection please"_s, Route::ConnectionTest{}},
        {u"check lightroom connection, then import photos from /a"_s, Route::ConnectionTest{}},
        {u"lightroom status connection"_s, Route::ConnectionTest{}},
        {u"lightroom status"_s, status},
        {u"import folder from ~/Pictures/Trip."_s, Route::FolderImport{u"~/Pictures/Trip"_s}},
        {u" Import photos in folder \"/My Shoot\"\n"_s, Route::FolderImport{u"/My Shoot"_s}},
        {u"import selected photos from ' ' from /b"_s, Route::FolderImport{u"/b"_s}},
        {u"import photos from ?!"_s, Route::Chat{}},
        {u"import the folder"_s, Route::Chat{}},
        {u"rate these 4 stars in lightroom"_s,
         Route::Batch{ImportedPhotoBatch::Rate{4, u"rate these 4 stars in lightroom"_s}}},
        {u"  flag these  "_s, Route::Batch{ImportedPhotoBatch::Cull{u"pick"_s, u"flag these"_s}}},
        {u"what photo is selected in lightroom"_s, status},
        {u"rate it 4 stars in lightroom"_s, Route::Command{LightroomCommand::LightroomSetRating{4}}},
        {u"rate it 4 stars"_s, Route::Chat{}},
        {u"what makes a good portrait?"_s, Route::Chat{}},
    };
    for (const RouteCase &c : cases) {
        EXPECT_EQ(routePrompt(c.text, elsewhere), c.route) << c.text.toStdString();
    }
    EXPECT_EQ(routePrompt(u"rate it 4 stars"_s,
                          FixedFrontmostApplication(FixedFrontmostApplication::lightroomClassic())),
              PromptRoute(Route::Command{LightroomCommand::LightroomSetRating{4}}));
}

// A road that takes time in the square of the length would not end before the test's time-out.
TEST(PromptRouter, answersAMegabyteInLinearTime)
{
    const FixedFrontmostApplication inLightroom{FixedFrontmostApplication::lightroomClassic()};
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
