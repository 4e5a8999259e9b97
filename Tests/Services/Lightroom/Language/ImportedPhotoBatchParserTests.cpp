#include "Services/Lightroom/Language/ImportedPhotoBatchParser.h"

#include "Services/Lightroom/Language/RouteExplanation.h"

#include <gtest/gtest.h>

namespace KelvaLR {
namespace {

using namespace Qt::StringLiterals;
using namespace ImportedPhotoBatch;

struct BatchCase
{
    QString text;
    ImportedPhotoBatchIntent intent; ///< its prompt is the text, and left out here
};

void expectIntents(std::initializer_list<BatchCase> cases)
{
    for (BatchCase c : cases) {
        std::visit([&](auto &batch) { batch.prompt = c.text; }, c.intent);
        const auto intent = importedPhotoBatchIntent(c.text);
        EXPECT_TRUE(intent == c.intent)
            << c.text.toStdString() << " is "
            << (intent ? explainedRoute({}, Route::Batch{*intent}).constData() : "no batch");
    }
}

ImportedPhotoBatchIntent preset(const QString &name)
{
    return ApplyPreset{name, {}};
}

TEST(ImportedPhotoBatchParser, findsPresetNames)
{
    expectIntents({
        {u"apply the Vivid preset to the selected photos"_s, preset(u"Vivid"_s)},
        {u"Apply a 'Soft Matte' preset to these"_s, preset(u"Soft Matte"_s)},
        {u"apply the A preset to these"_s, preset(u"A"_s)},
        {u"apply \"A\" preset to these"_s, preset(u"A"_s)},
        {u"apply the preset Vivid to these"_s, preset(u"Vivid"_s)},
        {u"apply preset Warm to these"_s, preset(u"Warm"_s)},
        {u"use the preset Matte Look to these"_s, preset(u"Matte Look"_s)},
        {u"use preset Matte Look on these"_s, preset(u"Matte Look on these"_s)},
        {u"use preset Matte To All Imported Photos!"_s, preset(u"Matte"_s)},
        {u"apply preset called Vivid to these"_s, preset(u"Vivid"_s)},
        {u"apply preset named 'Soft Matte' to selected"_s, preset(u"Soft Matte"_s)},
        {u"apply preset \"Called Home\" to these"_s, preset(u"Home"_s)},
        {u"apply preset called named Vivid to these"_s, preset(u"named Vivid"_s)},
        {u"apply the lightroom preset \u0130zmir to these"_s, preset(u"lightroom"_s)},
        {u"\u0130\u0130 these: use preset \u0130zmir"_s, preset(u"\u0130zmir"_s)},
    });
}

TEST(ImportedPhotoBatchParser, findsOtherActions)
{
    expectIntents({
        {u"flag these"_s, Cull{u"pick"_s, {}}},
        {u"clear flag on selected"_s, Cull{u"unflag"_s, {}}},
        {u"unflag and reject these"_s, Cull{u"unflag"_s, {}}},
        {u"cull all imported photos"_s, Cull{u"reject"_s, {}}},
        {u"rate these 4 stars"_s, Rate{4, {}}},
        {u"give this photo 0 stars"_s, Rate{0, {}}},
        {u"rate these 3 and increase exposure by 1"_s, Rate{3, {}}},
        {u"increase exposure of these by 0.5"_s, AdjustSlider{{u"exposure"_s, 0.5, true}, {}}},
        {u"give these 7 stars and set tint to 8"_s, AdjustSlider{{u"tint"_s, 7, false}, {}}},
        {u"make these brighter and warmer"_s, AdjustSliders{u"exposure:0.3:1;temperature:500:1"_s, {}}},
        {u"cool down and darken this image, more contrast"_s,
         AdjustSliders{u"exposure:-0.3:1;temperature:-500:1;contrast:10:1"_s, {}}},
    });
}

TEST(ImportedPhotoBatchParser, leavesOtherRequestsAlone)
{
    for (const QString &text : {u"apply a preset to these"_s, u"give these 7 stars"_s, u"brighten it"_s,
                                u"rate it 4 stars"_s, u"describe these"_s}) {
        EXPECT_FALSE(importedPhotoBatchIntent(text)) << text.toStdString();
    }
}

TEST(ImportedPhotoBatchParser, tellsAllPhotosFromSelectedOnes)
{
    const std::pair<QString, bool> textsAndAll[] = {
        {u"rate all imported 3"_s, true},       {u"flag imported photos"_s, true},
        {u"reject all photos"_s, true},         {u"flag these"_s, false},
        {u"rate the selected photos"_s, false}, {u"this imported photo"_s, false}};
    for (const auto &[text, meansAll] : textsAndAll) {
        EXPECT_TRUE(referencesImportedPhotoSelection(text)) << text.toStdString();
        EXPECT_EQ(meansAllImportedPhotos(text), meansAll) << text.toStdString();
    }
}

TEST(ImportedPhotoBatchParser, knowsWhichActionsCanBeAimed)
{
    for (const QString &action : {u"lr_adjust_slider"_s, u"lr_adjust_sliders"_s, u"lr_apply_preset"_s,
                                  u"lr_cull_photo"_s, u" LR_Set_Rating\n"_s}) {
        EXPECT_TRUE(isImportedPhotoTargetableAction(action)) << action.toStdString();
    }
    for (const QString &action : {u"lr_navigate"_s, u"lr_get_status"_s, u"rating"_s, QString()}) {
        EXPECT_FALSE(isImportedPhotoTargetableAction(action)) << action.toStdString();
    }
}

} // namespace
} // namespace KelvaLR
