#include "Platform/Linux/SettingsPreferences.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace KelvaLR;
using namespace Qt::StringLiterals;
using enum Preference;

namespace {

TEST(SettingsPreferences, aValueThatIsNoBooleanIsNoConsent)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"KelvaLR.ini"_s));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write("[General]\nallowComputerControl=maybe\nreadResponsesAloud=@Invalid(\nstartInQuietMode=0\n");
    file.close();
    const SettingsPreferences preferences(file.fileName());
    EXPECT_FALSE(preferences.isOn(allowComputerControl));
    EXPECT_FALSE(preferences.isOn(readResponsesAloud));
    EXPECT_TRUE(preferences.isOn(startInQuietMode));
}

TEST(SettingsPreferences, followWhatAnotherProcessWrites)
{
    const QTemporaryDir folder;
    SettingsPreferences preferences(folder.filePath(u"KelvaLR.ini"_s));
    ASSERT_TRUE(preferences.setOn(allowComputerControl, true));
    QFile file(folder.filePath(u"KelvaLR.ini"_s));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write("[General]\nallowComputerControl=false\n");
    file.close();
    EXPECT_FALSE(preferences.isOn(allowComputerControl));
}

TEST(SettingsPreferences, sayWhenTheyCannotBeKept)
{
    SettingsPreferences preferences(u"/proc/nowhere/KelvaLR.ini"_s);
    EXPECT_FALSE(preferences.setOn(readResponsesAloud, true));
    EXPECT_TRUE(preferences.isOn(readResponsesAloud));
}

} // namespace
