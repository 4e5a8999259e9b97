#include "Support/LightroomRig.h"
#include "Support/PrintQt.h"
#include "Support/TestFiles.h"
#include "Support/WaitForTask.h"

#include <gtest/gtest.h>

namespace KelvaLR::Testing {
namespace {

using namespace Qt::StringLiterals;

const QString activated = u"activate Adobe Lightroom Classic"_s;
const QString loupe = u"key 14 0x0"_s;
const QString develop = u"key 2 0x0"_s;

/// A rig whose Lightroom runs without the plug-in.
struct UnpluggedRig : LightroomRig
{
    UnpluggedRig()
        : LightroomRig(impatientTiming())
    {
        plugin.stopListening();
        applications.running = {{.name = u"Adobe Lightroom Classic"_s, .processId = 7}};
    }

    [[nodiscard]] bool hasLogged(const char *line) const { return readFile(log.file()).contains(line); }

    /// What was done after the attempt to start the plug-in's server.
    [[nodiscard]] QStringList deeds() const { return journal.mid(1); }
};

TEST(KeyFallbackTest, pressesLightroomsOwnShortcutsInTheLoupe)
{
    const struct
    {
        std::function<QCoro::Task<QString>(LightroomService &)> call;
        QString answer;
        QStringList keys;
    } rows[] = {
        {[](auto &service) { return service.cullPhoto(u"REJECT"_s); }, u"Flag simulated: Pressed X."_s,
         QStringList(u"key 7 0x0"_s)},
        {[](auto &service) { return service.cullPhoto(u"unflag"_s); }, u"Flag simulated: Pressed U."_s,
         QStringList(u"key 32 0x0"_s)},
        {[](auto &service) { return service.setRating(3); }, u"Rating simulated: Pressed 3."_s,
         QStringList(u"key 20 0x0"_s)},
        {[](auto &service) { return service.setRating(-10); },
         u"Rating simulation failed: Could not press -10."_s, QStringList()},
        {[](auto &service) { return service.navigate(u"next"_s); }, u"Navigation simulated: Pressed Right."_s,
         QStringList(u"key 124 0x0"_s)},
    };

    for (const auto &row : rows) {
        UnpluggedRig rig;
        EXPECT_EQ(waitForTask(row.call(*rig.service)), row.answer);
        EXPECT_EQ(rig.deeds(), QStringList({activated, loupe}) + row.keys) << row.answer.toStdString();
        EXPECT_FALSE(rig.service->isPluginConnected());
    }
    UnpluggedRig rig;
    EXPECT_EQ(waitForTask(rig.service->cullPhoto(u"Keep"_s)), u"Unsupported flag type: Keep"_s);
    EXPECT_EQ(rig.deeds(), QStringList());
}

TEST(KeyFallbackTest, logsWhetherTheWindowChanged)
{
    UnpluggedRig rig;
    rig.applications.frontmost = rig.applications.running.constFirst();
    rig.accessibility.elements = {{.id = u"0"_s, .role = u"AXGroup"_s, .title = u"Sunset, no flag"_s}};
    waitForTask(rig.service->cullPhoto(u"pick"_s));
    EXPECT_TRUE(rig.hasLogged("pressed P, and the window shows no change"));
    rig.inputEvents.whenPosted = [&](quint16 key) {
        if (key == KeyboardKey::keyCodeFor(u"x")) {
            rig.accessibility.elements[0].title = u"Sunset, rejected"_s;
        }
    };
    waitForTask(rig.service->cullPhoto(u"reject"_s));
    EXPECT_TRUE(rig.hasLogged("pressed X, and the window changed"));
}

TEST(KeyFallbackTest, saysThatThePermissionIsMissing)
{
    UnpluggedRig rig;
    rig.accessibility.trusted = false;
    const QString sentence = u"Accessibility Permissions required for %1 simulation."_s;
    EXPECT_EQ(waitForTask(rig.service->cullPhoto(u"pick"_s)), sentence.arg(u"flag hotkey"_s));
    EXPECT_EQ(waitForTask(rig.service->setRating(1)), sentence.arg(u"rating"_s));
    EXPECT_EQ(waitForTask(rig.service->navigate(u"next"_s)), sentence.arg(u"navigation"_s));
}

class SliderFallbackTest : public testing::Test
{
protected:
    SliderFallbackTest()
    {
        rig.accessibility.elements = {
            {.id = u"10"_s, .role = u"AXApplication"_s, .children = {1}},
            {.id = u"11"_s, .role = u"AXGroup"_s, .parent = 0, .children = {2, 3, 4}},
            {.id = u"12"_s, .role = u"AXSlider"_s, .title = u"Exposure"_s, .value = 0.25, .parent = 1},
            {.id = u"13"_s, .role = u"AXStaticText"_s, .value = u"Shadows"_s, .parent = 1},
            {.id = u"14"_s, .role = u"AXSlider"_s, .title = u"Contrast"_s, .value = u"unread"_s, .parent = 1},
        };
    }

    QString adjust(const QString &adjustments)
    {
        return waitForTask(rig.service->adjustSliders(adjustments));
    }

    UnpluggedRig rig;
};

TEST_F(SliderFallbackTest, movesTheSlidersOfTheDevelopModule)
{
    EXPECT_EQ(adjust(u"Exposure:0.5:1;Contrast:1e1:1;shadows:-3:0;Nothing:1:0"_s),
              u"UI Accessibility Fallback: Adjusted 3 of 4 sliders."_s);
    EXPECT_EQ(rig.deeds(),
              (QStringList{activated, develop, u"set 12 to 0.75"_s, activated, develop, u"set 14 to 10"_s,
                           activated, develop, u"set 12 to -3"_s, activated, develop}));
    EXPECT_TRUE(rig.hasLogged("wrote 0.75 to the slider Exposure, which had 0.25 and has 0.25"));
}

TEST_F(SliderFallbackTest, countsOnlyItemsOfThreePartsAndTriesOnlyThoseWithANumber)
{
    EXPECT_EQ(adjust(u"Exposure:0.5:1;Contrast:abc:0;Shadows:10;Exposure: 1:0;Exposure::0"_s),
              u"UI Accessibility Fallback: Adjusted 1 of 4 sliders."_s);
    for (const QString &nothing : {u""_s, u"Exposure:1"_s, u"a:b:c:d;;"_s}) {
        EXPECT_EQ(adjust(nothing),
                  u"Lightroom Classic plugin is not connected and no adjustments could be parsed."_s);
    }
}

TEST_F(SliderFallbackTest, countsAChangeOnlyWhenTheSliderTookIt)
{
    const QString none = u"UI Accessibility Fallback: Adjusted 0 of 1 sliders."_s;
    rig.accessibility.setValueSucceeds = false;
    EXPECT_EQ(adjust(u"Exposure:0.5:1"_s), none);
    EXPECT_EQ(rig.accessibility.lastProcessId, 7);

    rig.accessibility.lastProcessId.reset();
    rig.accessibility.trusted = false;
    EXPECT_EQ(adjust(u"Exposure:0.5:1"_s), none);
    EXPECT_EQ(rig.accessibility.lastProcessId, std::nullopt) << "no window is read without the permission";

    rig.journal.clear();
    rig.accessibility.trusted = true;
    rig.applications.running = {};
    EXPECT_EQ(adjust(u"Exposure:0.5:1"_s), none);
    EXPECT_EQ(rig.deeds(), QStringList()) << "nothing is touched while no Lightroom runs";
}

} // namespace
} // namespace KelvaLR::Testing
