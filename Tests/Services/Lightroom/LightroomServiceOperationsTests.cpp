#include "Support/LightroomRig.h"
#include "Support/PrintQt.h"
#include "Support/TestFiles.h"
#include "Support/WaitForTask.h"

#include <gtest/gtest.h>

namespace KelvaLR::Testing {
namespace {

using namespace Qt::StringLiterals;

const QStringList photos{u"/photos/a.dng"_s, u"/photos/b.cr3"_s};

QString notConnected(const QString &consequence, const QString &advice)
{
    return "Lightroom Classic plugin is not connected, so "_L1 + consequence +
           " In Lightroom Classic, open File > Plug-in Manager, add the installed KelvaLR.lrplugin folder "
           "from "
           "Settings, restart Lightroom Classic, "_L1 +
           advice;
}

struct Operation
{
    std::function<QCoro::Task<QString>(LightroomService &)> call;
    QByteArray command; ///< without its request identifier
    QString unreachable;
    QStringList deeds = {u"activate Adobe Lightroom Classic"_s};
};

const QList<Operation> operations{
    {[](auto &service) { return service.adjustSlider({u"exposure"_s, 0.5, true}, photos); },
     R"({"action":"adjust_slider","relative":true,"slider":"exposure",)"
     R"("target_paths":["/photos/a.dng","/photos/b.cr3"],"value":0.5})",
     notConnected(u"exposure was not changed."_s, u"select a photo, then try again."_s)},
    {[](auto &service) { return service.adjustSliders(u"Exposure:0.5:1"_s); },
     R"({"action":"adjust_sliders","adjustments":"Exposure:0.5:1"})",
     u"UI Accessibility Fallback: Adjusted 0 of 1 sliders."_s},
    {[](auto &service) { return service.applyPreset(u" Soft Matte\n"_s, photos); },
     R"({"action":"apply_preset","preset_name":"Soft Matte",)"
     R"("target_paths":["/photos/a.dng","/photos/b.cr3"]})",
     notConnected(u"preset Soft Matte was not applied."_s, u"select a photo, then try again."_s)},
    {[](auto &service) { return service.importFolder(u" /tmp "_s); },
     R"({"action":"import_folder","folder_path":"/tmp"})",
     notConnected(u"photos were not imported."_s, u"then try again."_s)},
    {[](auto &service) { return service.cullPhoto(u"Pick"_s); }, R"({"action":"cull","type":"Pick"})",
     u"Flag simulated: Pressed P."_s},
    {[](auto &service) { return service.setRating(7, {u"/photos/a.dng"_s}); },
     R"({"action":"rating","target_paths":["/photos/a.dng"],"value":7})", u"Rating simulated: Pressed 7."_s},
    {[](auto &service) { return service.navigate(u"PREV"_s); }, R"({"action":"prev"})",
     u"Navigation simulated: Pressed Left."_s},
    {[](auto &service) { return service.navigate(u"previous"_s); }, R"({"action":"next"})",
     u"Navigation simulated: Pressed Right."_s},
    {[](auto &service) { return service.getStatus(); }, R"({"action":"get_status"})",
     u"Lightroom Classic plugin is not connected. Open KelvaLR Settings, choose Reveal Installed "
     "Plugin, then add that KelvaLR.lrplugin folder in Lightroom Classic > File > Plug-in Manager."_s,
     QStringList()},
};

TEST(LightroomServiceOperationsTest, sendOneCommandWordTheReplyAndBringLightroomForwardUnlessItIsAnError)
{
    for (const Operation &one : operations) {
        SCOPED_TRACE(one.command.toStdString());
        LightroomRig rig;
        rig.applications.running = {{.name = u"KelvaLR"_s},
                                    {.name = u"lightroomy"_s},
                                    {.name = u"Adobe Lightroom Classic"_s, .processId = 7}};
        EXPECT_EQ(waitForTask(one.call(*rig.service)), u"Lightroom Classic: Done"_s);
        ASSERT_EQ(rig.plugin.commands().size(), 2);
        EXPECT_EQ(rig.plugin.commands().constFirst().value("action"_L1), "ping"_L1);
        EXPECT_EQ(rig.plugin.lastCommand(), one.command);
        EXPECT_EQ(rig.journal, one.deeds);

        rig.plugin.answer(ScriptedPlugin::errorReply(u"No target photos found"_s));
        EXPECT_EQ(waitForTask(one.call(*rig.service)), u"Lightroom Classic: No target photos found"_s);
        EXPECT_EQ(rig.journal, one.deeds);
    }
}

TEST(LightroomServiceOperationsTest, explainOrTakeAnotherRoadWithoutThePlugin)
{
    for (const Operation &one : operations) {
        SCOPED_TRACE(one.command.toStdString());
        LightroomRig neverThere(impatientTiming());
        neverThere.plugin.stopListening();
        EXPECT_EQ(waitForTask(one.call(*neverThere.service)), one.unreachable);

        LightroomRig silentSincePing(impatientTiming());
        silentSincePing.plugin.answer("");
        EXPECT_EQ(waitForTask(one.call(*silentSincePing.service)), one.unreachable);
        EXPECT_FALSE(silentSincePing.service->isPluginConnected());
    }
}

TEST(LightroomServiceOperationsTest, checkTheirArgumentsBeforeTheySendAnything)
{
    LightroomRig rig;
    const QString file = rig.modules.filePath(u"photo.dng"_s);
    writeFile(file, "");
    EXPECT_EQ(waitForTask(rig.service->applyPreset(u" \u2003\n"_s)),
              u"No Lightroom preset name was provided."_s);
    EXPECT_EQ(waitForTask(rig.service->importFolder(u"\t"_s)), u"No folder path was provided."_s);
    for (const QString &path : {file, u"/no/such/folder"_s}) {
        EXPECT_EQ(waitForTask(rig.service->importFolder(path)), "Folder not found: "_L1 + path);
    }
    EXPECT_TRUE(rig.plugin.lines().isEmpty());
}

TEST(LightroomServiceOperationsTest, askForNoPingOnceThePluginHasAnswered)
{
    LightroomRig rig;
    waitForTask(rig.service->getStatus());
    waitForTask(rig.service->getStatus());
    EXPECT_EQ(rig.plugin.lines().size(), 3);
}

} // namespace
} // namespace KelvaLR::Testing
