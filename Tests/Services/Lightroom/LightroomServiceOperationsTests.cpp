#include "Support/LightroomRig.h"
#include "Support/PrintQt.h"
#include "Support/WaitForTask.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

namespace KelvaLR::Testing {
namespace {

using namespace Qt::StringLiterals;

const QStringList photos{u"/photos/a.dng"_s, u"/photos/b.cr3"_s};
constexpr QLatin1StringView addThePlugin(" In Lightroom Classic, open File > Plug-in Manager, add the "
                                         "installed KelvaLR.lrplugin folder from Settings, "
                                         "restart Lightroom Classic, ");

struct OperationCase
{
    const char *name;
    std::function<QCoro::Task<QString>(LightroomService &)> call;
    QByteArray command; ///< without its request identifier
    QString unreachable;
    bool comesForward = true;
};

class OperationTest : public testing::TestWithParam<OperationCase>
{
protected:
    QString call(LightroomRig &rig) { return waitForTask(GetParam().call(*rig.service)); }
};

const RunningApplication lightroom{.name = u"Adobe Lightroom Classic"_s, .processId = 7};

TEST_P(OperationTest, sendsOneCommandWordsTheReplyAndBringsLightroomForward)
{
    LightroomRig rig;
    rig.applications.running = {{.name = u"KelvaLR"_s}, {.name = u"lightroomy"_s}, lightroom};
    EXPECT_EQ(call(rig), u"Lightroom Classic: Done"_s);
    ASSERT_EQ(rig.plugin.commands().size(), 2);
    EXPECT_EQ(rig.plugin.commands().constFirst().value("action"_L1), "ping"_L1);
    QJsonObject command = rig.plugin.commands().constLast();
    command.remove("request_id"_L1);
    EXPECT_EQ(QJsonDocument(command).toJson(QJsonDocument::Compact), GetParam().command);
    EXPECT_EQ(rig.journal,
              GetParam().comesForward ? QStringList{u"activate Adobe Lightroom Classic"_s} : QStringList());
}

TEST_P(OperationTest, staysInTheBackgroundWhenThePluginReportsAnError)
{
    LightroomRig rig;
    rig.applications.running = {lightroom};
    rig.plugin.answer(ScriptedPlugin::errorReply(u"No target photos found"_s));
    EXPECT_EQ(call(rig), u"Lightroom Classic: No target photos found"_s);
    EXPECT_EQ(rig.journal, QStringList());
}

TEST_P(OperationTest, explainsOrTakesAnotherRoadWithoutThePlugin)
{
    LightroomRig neverThere(impatientTiming());
    neverThere.plugin.stopListening();
    EXPECT_EQ(call(neverThere), GetParam().unreachable);

    LightroomRig silentSincePing(impatientTiming());
    silentSincePing.plugin.answer("");
    EXPECT_EQ(call(silentSincePing), GetParam().unreachable);
    EXPECT_FALSE(silentSincePing.service->isPluginConnected());
}

INSTANTIATE_TEST_SUITE_P(
    All, OperationTest,
    testing::Values(
        OperationCase{"adjustSlider",
                      [](LightroomService &service) {
                          return service.adjustSlider({u"exposure"_s, 0.5, true}, photos);
                      },
                      R"({"action":"adjust_slider","relative":true,"slider":"exposure",)"
                      R"("target_paths":["/photos/a.dng","/photos/b.cr3"],"value":0.5})",
                      "Lightroom Classic plugin is not connected, so exposure was not changed."_L1 +
                          addThePlugin + "select a photo, then try again."_L1},
        OperationCase{"adjustSliders",
                      [](LightroomService &service) { return service.adjustSliders(u"Exposure:0.5:1"_s); },
                      R"({"action":"adjust_sliders","adjustments":"Exposure:0.5:1"})",
                      u"UI Accessibility Fallback: Adjusted 0 of 1 sliders."_s},
        OperationCase{
            "applyPreset",
            [](LightroomService &service) { return service.applyPreset(u" Soft Matte\n"_s, photos); },
            R"({"action":"apply_preset","preset_name":"Soft Matte",)"
            R"("target_paths":["/photos/a.dng","/photos/b.cr3"]})",
            "Lightroom Classic plugin is not connected, so preset Soft Matte was not applied."_L1 +
                addThePlugin + "select a photo, then try again."_L1},
        OperationCase{"importFolder",
                      [](LightroomService &service) { return service.importFolder(u" /tmp "_s); },
                      R"({"action":"import_folder","folder_path":"/tmp"})",
                      "Lightroom Classic plugin is not connected, so photos were not imported."_L1 +
                          addThePlugin + "then try again."_L1},
        OperationCase{"cullPhoto", [](LightroomService &service) { return service.cullPhoto(u"Pick"_s); },
                      R"({"action":"cull","type":"Pick"})", u"Flag simulated: Pressed P."_s},
        OperationCase{"setRating",
                      [](LightroomService &service) { return service.setRating(7, {u"/photos/a.dng"_s}); },
                      R"({"action":"rating","target_paths":["/photos/a.dng"],"value":7})",
                      u"Rating simulated: Pressed 7."_s},
        OperationCase{"navigateBack", [](LightroomService &service) { return service.navigate(u"PREV"_s); },
                      R"({"action":"prev"})", u"Navigation simulated: Pressed Left."_s},
        OperationCase{"navigateOn", [](LightroomService &service) { return service.navigate(u"previous"_s); },
                      R"({"action":"next"})", u"Navigation simulated: Pressed Right."_s},
        OperationCase{
            "getStatus", [](LightroomService &service) { return service.getStatus(); },
            R"({"action":"get_status"})",
            u"Lightroom Classic plugin is not connected. Open KelvaLR Settings, choose Reveal Installed "
            u"Plugin, then add that KelvaLR.lrplugin folder in Lightroom Classic > File > Plug-in "
            u"Manager."_s,
            false}),
    [](const auto &testCase) { return testCase.param.name; });

TEST(LightroomServiceOperationsTest, checksItsArgumentsBeforeItSendsAnything)
{
    LightroomRig rig;
    QFile file(rig.modules.filePath(u"photo.dng"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(waitForTask(rig.service->applyPreset(u" \u2003\n"_s)),
              u"No Lightroom preset name was provided."_s);
    EXPECT_EQ(waitForTask(rig.service->importFolder(u"\t"_s)), u"No folder path was provided."_s);
    for (const QString &path : {file.fileName(), u"/no/such/folder"_s}) {
        EXPECT_EQ(waitForTask(rig.service->importFolder(path)), "Folder not found: "_L1 + path);
    }
    EXPECT_TRUE(rig.plugin.lines().isEmpty());
}

TEST(LightroomServiceOperationsTest, asksForNoPingOnceThePluginHasAnswered)
{
    LightroomRig rig;
    waitForTask(rig.service->getStatus());
    waitForTask(rig.service->getStatus());
    EXPECT_EQ(rig.plugin.lines().size(), 3);
}

} // namespace
} // namespace KelvaLR::Testing
