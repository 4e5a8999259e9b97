#include "Views/MainWindowFixture.h"

#include <QColor>

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;

namespace {

class SettingsTest : public MainWindowTest
{
protected:
    /// Opens the settings by their shortcut.
    QQuickWindow &openSettings()
    {
        press(Qt::Key_Comma, Qt::ControlModifier);
        return openedSettings();
    }

    static QQuickWindow &openedSettings()
    {
        QQuickWindow *settings = nullptr;
        EXPECT_TRUE(waitUntil([&] {
            for (QWindow *candidate : QGuiApplication::topLevelWindows()) {
                if (candidate->title() == "KelvaLR Settings"_L1 && candidate->isVisible()) {
                    settings = qobject_cast<QQuickWindow *>(candidate);
                }
            }
            return settings && QTest::qWaitForWindowExposed(settings);
        }));
        return *settings;
    }

    static bool isOn(QWindow &settings, const QString &name)
    {
        return control(settings, name)->state().checked;
    }

    /// Waits for the result line and gives its colour.
    static QColor resultColor(const QQuickWindow &settings, const QString &text)
    {
        EXPECT_TRUE(waitUntil([&] { return itemWithText(settings, text) != nullptr; })) << text.toStdString();
        const QQuickItem *line = itemWithText(settings, text);
        return line ? line->property("color").value<QColor>() : QColor();
    }
};

bool isGreen(const QColor &color)
{
    return color.green() > color.red() + 50;
}

bool isRed(const QColor &color)
{
    return color.red() > color.green() + 50;
}

TEST_F(SettingsTest, keepsTheTogglesBeyondARestart)
{
    const QStringList names{u"Start in Quiet Mode"_s, u"Read Responses Aloud"_s, u"Allow Computer Control"_s};
    const QList<bool> defaults{true, false, false};
    {
        QQuickWindow &settings = openSettings();
        for (int i = 0; i < names.size(); ++i) {
            EXPECT_EQ(isOn(settings, names[i]), defaults[i]);
            click(settings, names[i]);
            EXPECT_EQ(isOn(settings, names[i]), !defaults[i]);
        }
    }
    reopen();
    QQuickWindow &settings = openSettings();
    for (int i = 0; i < names.size(); ++i) {
        EXPECT_EQ(isOn(settings, names[i]), !defaults[i]) << names[i].toStdString();
    }
}

TEST_F(SettingsTest, openAtTheSwitchThatWasMissing)
{
    host->settings().askForComputerControl();
    QQuickWindow &settings = openedSettings();
    EXPECT_TRUE(waitUntil([&] { return control(settings, u"Allow Computer Control"_s)->state().focused; }));
    QTest::keyClick(&settings, Qt::Key_Space);
    EXPECT_TRUE(savedPreferences->isOn(Preference::allowComputerControl));
}

TEST_F(SettingsTest, theResultLineIsGreenForAnInstallationOnlyAndTheConnectionIsShownBesideIt)
{
    QQuickWindow &settings = openSettings();
    const QColor note = resultColor(
        settings,
        u"This installs the KelvaLR helper module to Lightroom Classic's default Modules folder."_s);
    EXPECT_FALSE(isGreen(note) || isRed(note));
    click(settings, u"Install Lightroom Classic Plugin"_s);
    EXPECT_TRUE(isGreen(resultColor(settings,
                                    u"Plugin installed. Add it in Lightroom Classic's Plug-in Manager if it "
                                    "is not listed, then restart Lightroom Classic."_s)));
    EXPECT_NE(itemWithText(settings, u"Disconnected"_s), nullptr);
    click(settings, u"Test Lightroom Connection"_s);
    EXPECT_TRUE(isRed(resultColor(settings, u"Connected to Lightroom Classic plugin."_s)));
    EXPECT_TRUE(waitUntil([&] { return itemWithText(settings, u"Connected"_s) != nullptr; }));
}

TEST_F(SettingsTest, canBePressedByAssistiveTechnology)
{
    const auto pressNamed = [](QWindow &in, const QString &name) {
        QAccessibleInterface *found = control(in, name);
        QAccessibleActionInterface *actions = found ? found->actionInterface() : nullptr;
        ASSERT_NE(actions, nullptr) << name.toStdString();
        actions->doAction(QAccessibleActionInterface::pressAction());
    };
    pressNamed(window(), u"File"_s);
    ASSERT_TRUE(waitUntil([this] { return control(u"Settings..."_s) != nullptr; }));
    pressNamed(window(), u"Settings..."_s);
    QQuickWindow &settings = openedSettings();
    pressNamed(settings, u"Install Lightroom Classic Plugin"_s);
    EXPECT_TRUE(isGreen(resultColor(settings,
                                    u"Plugin installed. Add it in Lightroom Classic's Plug-in Manager if it "
                                    "is not listed, then restart Lightroom Classic."_s)));
}

TEST_F(SettingsTest, revealsThePluginAndOpensThePluginManager)
{
    QQuickWindow &settings = openSettings();
    click(settings, u"Reveal Installed Plugin"_s);
    EXPECT_TRUE(lightroom.journal.constLast().startsWith(u"reveal "_s));
    EXPECT_TRUE(lightroom.journal.constLast().endsWith(u"KelvaLR.lrplugin"_s));
    click(settings, u"Open Lightroom Plug-in Manager"_s);
    EXPECT_TRUE(waitUntil([&] { return lightroom.journal.contains(u"plug-in manager"_s); }));
}

} // namespace
