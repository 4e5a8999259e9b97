#include "Services/Assistant/Realtime/RealtimeToolRunner.h"

#include "Services/Lightroom/MacComputerUseService.h"
#include "Support/LightroomRig.h"
#include "Support/PrintQt.h"
#include "Support/WaitForTask.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

#include <limits>

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;

namespace {

class RealtimeToolRunnerTest : public testing::Test
{
protected:
    QString run(const RealtimeToolCall &call, const std::optional<QStringList> &targetPaths = std::nullopt)
    {
        const ComputerUseResult result = waitForTask(runner.run(call, targetPaths));
        EXPECT_EQ(result.artifact, std::nullopt);
        return result.summary;
    }

    /// The last command that was sent, without its identifier.
    QByteArray lastCommand() const
    {
        QJsonObject command = rig.plugin.commands().constLast();
        command.remove("request_id"_L1);
        return QJsonDocument(command).toJson(QJsonDocument::Compact);
    }

    LightroomRig rig;
    MacComputerUseService computerUse{*rig.service, rig.automation, rig.applications};
    RealtimeToolRunner runner{*rig.service, computerUse};
};

} // namespace

TEST_F(RealtimeToolRunnerTest, sendsThePluginWhatTheArgumentsMean)
{
    const std::pair<RealtimeToolCall, QByteArray> cases[] = {
        {{.action = u"lr_adjust_slider"_s, .text = u"0.5"_s, .slider = u"Exposure"_s},
         R"({"action":"adjust_slider","relative":true,"slider":"Exposure","value":0.5})"},
        {{.action = u"lr_adjust_slider"_s,
          .targetName = u"Tint"_s,
          .text = u"4"_s,
          .value = -3,
          .relative = false},
         R"({"action":"adjust_slider","relative":false,"slider":"Tint","value":-3})"},
        {{.action = u"lr_adjust_slider"_s, .targetName = u"Tint"_s, .text = u"four"_s, .slider = u"Temp"_s},
         R"({"action":"adjust_slider","relative":true,"slider":"Temp","value":0})"},
        {{.action = u"lr_adjust_sliders"_s, .text = u"Exposure:1:0"_s},
         R"({"action":"adjust_sliders","adjustments":"Exposure:1:0"})"},
        {{.action = u"lr_apply_preset"_s, .targetName = u"c"_s, .text = u"b"_s, .presetName = u"a"_s},
         R"({"action":"apply_preset","preset_name":"a"})"},
        {{.action = u"lr_apply_preset"_s, .targetName = u"c"_s, .text = u"b"_s},
         R"({"action":"apply_preset","preset_name":"b"})"},
        {{.action = u"lr_apply_preset"_s, .targetName = u"c"_s},
         R"({"action":"apply_preset","preset_name":"c"})"},
        {{.action = u"lr_import_folder"_s, .text = u"/"_s, .folderPath = u"/tmp"_s},
         R"({"action":"import_folder","folder_path":"/tmp"})"},
        {{.action = u"lr_import_folder"_s, .targetName = u"/tmp"_s},
         R"({"action":"import_folder","folder_path":"/tmp"})"},
        {{.action = u"lr_cull_photo"_s}, R"({"action":"cull","type":"pick"})"},
        {{.action = u"lr_cull_photo"_s, .targetName = u"reject"_s}, R"({"action":"cull","type":"reject"})"},
        {{.action = u"lr_cull_photo"_s, .targetName = u"reject"_s, .text = u"unflag"_s},
         R"({"action":"cull","type":"unflag"})"},
        {{.action = u"lr_set_rating"_s, .value = 4.9}, R"({"action":"rating","value":4})"},
        {{.action = u"lr_set_rating"_s, .text = u"3"_s}, R"({"action":"rating","value":3})"},
        {{.action = u"lr_set_rating"_s}, R"({"action":"rating","value":0})"},
        {{.action = u" LR_Navigate\n"_s}, R"({"action":"next"})"},
        {{.action = u"lr_navigate"_s, .targetName = u"prev"_s}, R"({"action":"prev"})"},
        {{.action = u"lr_get_status"_s}, R"({"action":"get_status"})"},
    };
    for (const auto &[call, command] : cases) {
        EXPECT_EQ(run(call), u"Lightroom Classic: Done"_s);
        EXPECT_EQ(lastCommand(), command);
    }
}

TEST_F(RealtimeToolRunnerTest, actsOnThePhotosThatAreMeantOrSaysThatNoneIsSelected)
{
    const QString done = u"Lightroom Classic: Done"_s;
    const RealtimeToolCall targeted[] = {
        {.action = u"lr_adjust_slider"_s, .slider = u"Exposure"_s},
        {.action = u"LR_Adjust_Sliders"_s, .text = u"Exposure:1:0"_s},
        {.action = u"lr_apply_preset"_s, .text = u"Warm"_s},
        {.action = u"lr_cull_photo"_s},
        {.action = u"lr_set_rating"_s},
    };
    for (const RealtimeToolCall &call : targeted) {
        const qsizetype before = rig.plugin.lines().size();
        EXPECT_EQ(run(call, QStringList()),
                  u"Select one or more imported photos in the artifact area first."_s);
        EXPECT_EQ(rig.plugin.lines().size(), before) << call.action.toStdString();
        EXPECT_EQ(run(call, QStringList{u"/a.jpg"_s, u"/b.jpg"_s}), done);
        EXPECT_TRUE(lastCommand().contains(R"("target_paths":["/a.jpg","/b.jpg"])"))
            << call.action.toStdString();
    }
    for (const QString &action : {u"lr_import_folder"_s, u"lr_navigate"_s, u"lr_get_status"_s}) {
        const RealtimeToolCall call{.action = action, .text = u"/tmp"_s};
        EXPECT_EQ(run(call, QStringList()), done);
        EXPECT_EQ(run(call, QStringList{u"/a.jpg"_s}), done);
        EXPECT_FALSE(lastCommand().contains("target_paths")) << action.toStdString();
    }
}

TEST_F(RealtimeToolRunnerTest, drivesTheDesktopOrSaysWhatIsMissing)
{
    const QString unsupported = u"KelvaLR only supports Lightroom and Lightroom Classic actions."_s;

    const struct
    {
        RealtimeToolCall call;
        QString answer;
        QString deed = u""_s; ///< empty: nothing is done
    } cases[] = {
        {{.action = u"open_app"_s, .appName = u"Lightroom"_s}, u"Opened Lightroom."_s, u"open file:///a"_s},
        {{.action = u"open_app"_s}, u"No application name provided."_s},
        {{.action = u"open_app"_s, .appName = u""_s}, u"No application name provided."_s},
        {{.action = u"click"_s, .targetName = u"export"_s}, u"Clicked export."_s, u"press 1"_s},
        {{.action = u"click"_s, .targetName = u""_s}, u"No Lightroom element name provided to click."_s},
        {{.action = u"Type"_s, .text = u"hello"_s}, u"Typed text."_s, u"text hello"_s},
        {{.action = u"type"_s, .targetName = u""_s, .text = u"hello"_s}, u"Typed text."_s, u"text hello"_s},
        {{.action = u"type"_s, .targetName = u"nowhere"_s, .text = u"hello"_s},
         u"Could not find nowhere field on screen."_s},
        {{.action = u"type"_s, .targetName = u"Search"_s, .text = u""_s}, u"No text provided to type."_s},
        {{.action = u"press_key"_s, .key = u"escape"_s}, u"Pressed Escape."_s, u"key 53 0x0"_s},
        {{.action = u"press_key"_s}, u"Invalid or missing key: "_s},
        {{.action = u"press_key"_s, .key = u"Shift Key"_s}, u"Invalid or missing key: Shift Key"_s},
        {{.action = u"inspect_ui"_s},
         u"Interactive Lightroom elements in the active window:\n\n* [AXButton] \"Export\"\n"_s},
        {{.action = u"lr_import_folder"_s}, u"No folder path was provided."_s},
        {{.action = u"lr_set_rating"_s, .value = std::numeric_limits<double>::quiet_NaN()},
         u"That rating is not a number from 0 to 5."_s},
        {{.action = u"lr_set_rating"_s, .value = 1e19}, u"That rating is not a number from 0 to 5."_s},
        {{.action = u"lr_delete"_s}, unsupported},
        {{}, unsupported},
    };

    rig.applications.installed = {{u"Lightroom"_s, u"lightroom"_s, QUrl(u"file:///a"_s)}};
    rig.applications.frontmost = FixedFrontmostApplication::lightroomClassic();
    rig.accessibility.elements = {
        {.id = u"0"_s, .role = u"AXApplication"_s, .children = {1}},
        {.id = u"1"_s, .role = u"AXButton"_s, .title = u"Export"_s, .actions = {u"AXPress"_s}, .parent = 0},
    };
    for (const auto &c : cases) {
        EXPECT_EQ(run(c.call, QStringList{u"/a.jpg"_s}), c.answer) << c.call.action.toStdString();
        EXPECT_EQ(std::exchange(rig.journal, {}).join(u'|'), c.deed) << c.call.action.toStdString();
    }
    EXPECT_TRUE(rig.plugin.lines().isEmpty());
}
