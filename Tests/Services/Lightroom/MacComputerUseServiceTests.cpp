#include "Services/Lightroom/MacComputerUseService.h"
#include "Support/AccessibilityTreeBuilder.h"
#include "Support/LightroomRig.h"
#include "Support/PrintQt.h"
#include "Support/WaitForTask.h"

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

TEST_F(MacComputerUseServiceTest, sendsCommandsToThePlugin)
{
    EXPECT_EQ(execute(u"set exposure to +0.5"_s), u"Lightroom Classic: Done"_s);
    EXPECT_EQ(rig.plugin.lastCommand(),
              R"({"action":"adjust_slider","relative":false,"slider":"exposure","value":0.5})");
    EXPECT_EQ(execute(u"import photos in lightroom from folder /tmp"_s), u"Lightroom Classic: Done"_s);
    EXPECT_EQ(rig.plugin.lastCommand(), R"({"action":"import_folder","folder_path":"/tmp"})");
}

TEST_F(MacComputerUseServiceTest, drivesTheWindowOnlyWhileLightroomIsInFront)
{
    const struct
    {
        QString text;
        QString gerund;
        QString answer;
        QStringList deeds;
    } rows[] = {
        {u"click Export in Lightroom"_s, u"clicking"_s, u"Clicked Export."_s, QStringList(u"press 1"_s)},
        {u"type hello in lightroom classic"_s, u"typing"_s,
         u"Could not find lightroom classic field on screen."_s, QStringList()},
        {u"type \"in lightroom\""_s, u"typing"_s, u"Typed text."_s, QStringList(u"text in lightroom"_s)},
        {u"press p in lightroom"_s, u"pressing keys"_s, u"Could not press P In Lightroom."_s, QStringList()},
        {u"inspect lightroom"_s, u"inspecting UI"_s,
         u"Interactive Lightroom elements in the active window:\n\n"
         "* [AXButton] \"Export\"\n* [AXTextField] \"Search\" (a field) = \"raw\"\n"_s,
         QStringList()},
    };

    rig.accessibility.elements = applicationTree();
    appendElement(rig.accessibility.elements, 0,
                  {.role = u"AXButton"_s, .title = u"Export"_s, .actions = {u"AXPress"_s}});
    appendElement(
        rig.accessibility.elements, 0,
        {.role = u"AXTextField"_s, .title = u"Search"_s, .description = u"a field"_s, .value = u"raw"_s});
    for (const auto &row : rows) {
        SCOPED_TRACE(row.text.toStdString());
        rig.journal.clear();
        rig.applications.frontmost = RunningApplication{.name = u"Files"_s};
        EXPECT_EQ(execute(row.text),
                  u"Bring Adobe Lightroom or Lightroom Classic to the front before %1."_s.arg(row.gerund));
        EXPECT_EQ(rig.journal, QStringList());
        rig.applications.frontmost = FixedFrontmostApplication::lightroomClassic();
        EXPECT_EQ(execute(row.text), row.answer);
        EXPECT_EQ(rig.journal, row.deeds);
    }
    EXPECT_TRUE(rig.plugin.lines().isEmpty());
}

TEST_F(MacComputerUseServiceTest, saysWhenThereIsNothingToSeeOrNoPermission)
{
    rig.applications.frontmost = FixedFrontmostApplication::lightroomClassic();
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
