#include "Services/Lightroom/Bridge/LightroomPluginCommand.h"
#include "Support/PrintQt.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <limits>

namespace KelvaLR {
namespace {

using namespace Qt::StringLiterals;

struct EncodingCase
{
    const char *name;
    LightroomPluginCommand command;
    QString json;
};

class CommandEncodingTest : public testing::TestWithParam<EncodingCase>
{
};

TEST_P(CommandEncodingTest, writesOnlyThePresentFieldsUnderTheirWireKeys)
{
    EXPECT_EQ(GetParam().command.jsonText(), GetParam().json);
}

INSTANTIATE_TEST_SUITE_P(
    Golden, CommandEncodingTest,
    testing::Values(
        EncodingCase{"ping",
                     {.requestID = u"ID"_s, .action = LightroomPluginAction::ping},
                     uR"({"action":"ping","request_id":"ID"})"_s},
        EncodingCase{
            "adjustSlider",
            {.requestID = u"ID"_s,
             .action = LightroomPluginAction::adjustSlider,
             .slider = u"exposure"_s,
             .value = 0.1,
             .relative = false},
            uR"({"action":"adjust_slider","relative":false,"request_id":"ID","slider":"exposure","value":0.1})"_s},
        EncodingCase{
            "adjustSlidersOfPhotos",
            {.requestID = u"ID"_s,
             .action = LightroomPluginAction::adjustSliders,
             .adjustments = u"Exposure:0.5:1;Contrast:10:0"_s,
             .targetPaths = {u"/photos/a \"b\"\n.dng"_s, u"/photos/Übung 📷.cr3"_s}},
            uR"({"action":"adjust_sliders","adjustments":"Exposure:0.5:1;Contrast:10:0","request_id":"ID",)"
            uR"("target_paths":["/photos/a \"b\"\n.dng","/photos/Übung 📷.cr3"]})"_s},
        EncodingCase{"applyPreset",
                     {.requestID = u"ID"_s,
                      .action = LightroomPluginAction::applyPreset,
                      .presetName = u"Portra \\ 400"_s},
                     uR"({"action":"apply_preset","preset_name":"Portra \\ 400","request_id":"ID"})"_s},
        EncodingCase{
            "importFolder",
            {.requestID = u"ID"_s, .action = LightroomPluginAction::importFolder, .folderPath = u"/photos"_s},
            uR"({"action":"import_folder","folder_path":"/photos","request_id":"ID"})"_s},
        EncodingCase{"cull",
                     {.requestID = u"ID"_s, .action = LightroomPluginAction::cull, .type = u"pick"_s},
                     uR"({"action":"cull","request_id":"ID","type":"pick"})"_s},
        EncodingCase{"rating",
                     {.requestID = u"ID"_s, .action = LightroomPluginAction::rating, .value = 5},
                     uR"({"action":"rating","request_id":"ID","value":5})"_s}),
    [](const auto &testCase) { return testCase.param.name; });

TEST(LightroomPluginCommandTest, hasNoTextForWhatJsonCannotHold)
{
    for (const double value :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(LightroomPluginCommand{.value = value}.jsonText(), std::nullopt);
    }
    const QString loneSurrogate(QChar(0xD83D));
    EXPECT_EQ(LightroomPluginCommand{.presetName = loneSurrogate}.jsonText(), std::nullopt);
    EXPECT_EQ(LightroomPluginCommand{.targetPaths = {loneSurrogate}}.jsonText(), std::nullopt);
}

TEST(LightroomPluginCommandTest, carriesAFreshUpperCaseIdentifier)
{
    static const QRegularExpression form(u"^[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}$"_s);
    const LightroomPluginCommand first;
    EXPECT_TRUE(form.match(first.requestID).hasMatch()) << first.requestID.toStdString();
    EXPECT_NE(first.requestID, LightroomPluginCommand().requestID);
}

} // namespace
} // namespace KelvaLR
