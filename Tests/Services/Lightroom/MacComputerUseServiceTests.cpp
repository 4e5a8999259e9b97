#include "Services/Lightroom/MacComputerUseService.h"
#include "Support/LightroomRig.h"
#include "Support/PrintQt.h"
#include "Support/WaitForTask.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

namespace KelvaLR::Testing {
namespace {

using namespace Qt::StringLiterals;

class MacComputerUseServiceTest : public testing::Test
{
protected:
    QString execute(const QString &text)
    {
        const ComputerUseResult result = waitForTask(service.execute(text));
        EXPECT_EQ(result.artifact, std::nullopt);
        return result.summary;
    }

    void bringLightroomToFront()
    {
        rig.applications.frontmost = FixedFrontmostApplication::lightroomClassic();
    }

    LightroomRig rig;
    MacComputerUseService service{*rig.service, rig.automation, rig.applications};
};

TEST_F(MacComputerUseServiceTest, refusesWhatIsNoCommand)
{
    EXPECT_EQ(execute(u" \n"_s), u"No command provided."_s);
    for (const QString &text : {u"click Export"_s, u"press shift"_s, u"what is a histogram?"_s}) {
        EXPECT_EQ(execute(text), u"KelvaLR only supports Adobe Lightroom and Lightroom Classic commands."_s);
    }
    EXPECT_EQ(rig.accessibility.lastPrompt, std::nullopt);
}

TEST_F(MacComputerUseServiceTest, sendsEveryLightroomCommandToThePlugin)
{
    struct Case
    {
        QString text;
        QByteArray command; ///< without its request identifier
    };

    const QList<Case> cases{
        {u"set exposure to +0.5"_s,
         R"({"action":"adjust_slider","relative":false,"slider":"exposure","value":0.5})"},
        {u"apply preset Soft Matte in lightroom"_s,
         R"({"action":"apply_preset","preset_name":"Soft Matte"})"},
        {u"import photos in lightroom from folder /tmp"_s,
         R"({"action":"import_folder","folder_path":"/tmp"})"},
        {u"flag as pick in lightroom"_s, R"({"action":"cull","type":"pick"})"},
        {u"rate it 4 stars in lightroom"_s, R"({"action":"rating","value":4})"},
        {u"next photo in lightroom"_s, R"({"action":"next"})"},
        {u"what photo is selected in lightroom"_s, R"({"action":"get_status"})"},
    };
    for (const Case &one : cases) {
        EXPECT_EQ(execute(one.text), u"Lightroom Classic: Done"_s) << one.text.toStdString();
        QJsonObject command = rig.plugin.commands().constLast();
        command.remove("request_id"_L1);
        EXPECT_EQ(QJsonDocument(command).toJson(QJsonDocument::Compact), one.command);
    }
}

TEST_F(MacComputerUseServiceTest, drivesTheWindowOnlyWhileLightroomIsInFront)
{
    struct Case
    {
        QString text;
        QString refusal;
        QString answer;
        QStringList deeds;
    };

    const QString before = u"Bring Adobe Lightroom or Lightroom Classic to the front before "_s;
    const QList<Case> cases{
        {u"click Export in Lightroom"_s, before + "clicking."_L1, u"Clicked Export."_s, {u"press 1"_s}},
        {u"type hello in lightroom classic"_s,
         before + "typing."_L1,
         u"Could not find lightroom classic field on screen."_s,
         {}},
        {u"type \"in lightroom\""_s, before + "typing."_L1, u"Typed text."_s, {u"text in lightroom"_s}},
        {u"press p in lightroom"_s, before + "pressing keys."_L1, u"Could not press P In Lightroom."_s, {}},
        {u"inspect lightroom"_s,
         before + "inspecting UI."_L1,
         u"Interactive Lightroom elements in the active window:\n\n"
         "* [AXButton] \"Export\"\n* [AXTextField] \"Search\" (a field) = \"raw\"\n"_s,
         {}},
    };
    for (const Case &one : cases) {
        rig.journal.clear();
        rig.accessibility.elements = {
            {.id = u"0"_s, .role = u"AXApplication"_s, .children = {1, 2}},
            {.id = u"1"_s,
             .role = u"AXButton"_s,
             .title = u"Export"_s,
             .actions = {u"AXPress"_s},
             .parent = 0},
            {.id = u"2"_s,
             .role = u"AXTextField"_s,
             .title = u"Search"_s,
             .description = u"a field"_s,
             .value = u"raw"_s,
             .parent = 0},
        };
        rig.applications.frontmost = RunningApplication{.name = u"Files"_s};
        EXPECT_EQ(execute(one.text), one.refusal);
        EXPECT_EQ(rig.journal, QStringList());
        bringLightroomToFront();
        EXPECT_EQ(execute(one.text), one.answer);
        EXPECT_EQ(rig.journal, one.deeds);
    }
    EXPECT_TRUE(rig.plugin.lines().isEmpty());
}

TEST_F(MacComputerUseServiceTest, saysWhenThereIsNothingToSeeOrNoPermission)
{
    bringLightroomToFront();
    EXPECT_EQ(execute(u"inspect lightroom"_s),
              u"No Lightroom UI elements found. Ensure Lightroom is focused and fully loaded."_s);
    rig.accessibility.trusted = false;
    EXPECT_EQ(execute(u"click Export"_s),
              u"Enable KelvaLR in System Settings > Privacy & Security > Accessibility, then try again."_s);
}

TEST_F(MacComputerUseServiceTest, opensAnInstalledLightroom)
{
    EXPECT_EQ(execute(u"open Lightroom"_s), u"Could not find Adobe Lightroom or Lightroom Classic."_s);
    rig.applications.installed = {
        {u"Lightroom Stand-in"_s, u"lightroom-standin.desktop"_s, QUrl(u"file:///a.desktop"_s)}};
    EXPECT_EQ(execute(u"open Lightroom"_s), u"Opened Lightroom Stand-in."_s);
    EXPECT_EQ(rig.journal, QStringList{u"open file:///a.desktop"_s});
    rig.applications.opening = std::unexpected(u"no such program"_s);
    EXPECT_EQ(execute(u"open Lightroom"_s), u"Could not open Lightroom Stand-in: no such program"_s);
}

TEST_F(MacComputerUseServiceTest, runsOverlappingCommandsOneAfterTheOther)
{
    QCoro::Task<ComputerUseResult> first = service.execute(u"rate it 1 star in lightroom"_s);
    QCoro::Task<ComputerUseResult> second = service.execute(u"rate it 2 stars in lightroom"_s);
    EXPECT_EQ(waitForTask(std::move(second)).summary, u"Lightroom Classic: Done"_s);
    EXPECT_EQ(waitForTask(std::move(first)).summary, u"Lightroom Classic: Done"_s);
    EXPECT_EQ(rig.plugin.repliesLeft(), QStringList());
}

} // namespace
} // namespace KelvaLR::Testing
