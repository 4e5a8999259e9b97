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

} // namespace
