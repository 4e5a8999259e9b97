#include "Services/Lightroom/LightroomPluginInstaller.h"
#include "Support/LightroomRig.h"
#include "Support/PrintQt.h"
#include "Support/TestFiles.h"
#include "Support/WaitForTask.h"

#include <gtest/gtest.h>

namespace KelvaLR::Testing {
namespace {

using namespace Qt::StringLiterals;

TEST(LightroomPluginInstallerTest, writesThePluginsOwnSourcesByteForByteHoweverOften)
{
    const QTemporaryDir home;
    const LightroomPluginInstaller installer(home.filePath(u"Lightroom/Modules"_s));
    const QDir folder(installer.pluginFolder());
    EXPECT_EQ(folder.dirName(), u"KelvaLR.lrplugin"_s);
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(installer.install());
        const QStringList files = folder.entryList(QDir::Files | QDir::Hidden, QDir::Name);
        EXPECT_EQ(files, QStringList({u"Info.lua"_s, u"LightroomSocketServer.lua"_s, u"MenuAction.lua"_s}));
        for (const QString &name : files) {
            EXPECT_EQ(readFile(folder.filePath(name)),
                      readFile(QStringLiteral(KELVALR_PLUGIN_SOURCES "/") + name))
                << name.toStdString();
        }
        writeFile(folder.filePath(u"Info.lua"_s), "changed");
        writeFile(folder.filePath(u"source_reference.txt"_s), "old");
    }
}

TEST(LightroomPluginInstallerTest, saysWhatCannotBeWritten)
{
    const QTemporaryDir home;
    const QString modules = home.filePath(u"Modules"_s);
    writeFile(modules, "in the way");
    const LightroomPluginInstaller installer(modules);
    EXPECT_EQ(installer.install().error(),
              "Could not create the folder "_L1 + installer.pluginFolder() + u'.');

    QFile::remove(modules);
    const QString menu = installer.pluginFolder() + "/MenuAction.lua"_L1;
    ASSERT_TRUE(QDir().mkpath(menu));
    const QString error = installer.install().error();
    EXPECT_TRUE(error.startsWith("Could not write "_L1 + menu + ": "_L1)) << error.toStdString();
    EXPECT_TRUE(QFile::exists(installer.pluginFolder() + "/Info.lua"_L1));
}

TEST(LightroomPluginInstallationTest, happensWhenTheServiceIsMadeAndIsReportedWhereItIsTold)
{
    LightroomRig rig;
    EXPECT_TRUE(rig.service->isPluginInstalled());
    EXPECT_TRUE(QFile::exists(rig.modules.filePath(u"KelvaLR.lrplugin/Info.lua"_s)));

    std::FILE *report = std::tmpfile();
    const QString inTheWay = rig.modules.filePath(u"file"_s);
    writeFile(inTheWay, "");
    LightroomService blocked(rig.applications, rig.accessibility, rig.menus, rig.automation,
                             LightroomPluginInstaller(inTheWay), rig.log, {}, {}, report);
    EXPECT_FALSE(blocked.isPluginInstalled());
    QFile reported;
    ASSERT_TRUE(reported.open(report, QIODevice::ReadOnly) && reported.seek(0));
    EXPECT_EQ(QString::fromUtf8(reported.readAll()),
              "Failed to install Lightroom plugin: Could not create the folder "_L1 + inTheWay +
                  "/KelvaLR.lrplugin.\n"_L1);
    std::fclose(report);
    QFile::remove(inTheWay);
    EXPECT_TRUE(blocked.installPlugin());
    EXPECT_TRUE(blocked.isPluginInstalled());
}

TEST(LightroomPluginInstallationTest, isShownInTheFileManagerAndInLightroom)
{
    LightroomRig rig;
    rig.service->revealInstalledPlugin();
    waitForTask(rig.service->openPluginManager());
    EXPECT_EQ(rig.journal, (QStringList{"reveal "_L1 + rig.modules.filePath(u"KelvaLR.lrplugin"_s),
                                        u"plug-in manager"_s}));
}

} // namespace
} // namespace KelvaLR::Testing
