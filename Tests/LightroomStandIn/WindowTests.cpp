#include "LightroomStandIn/HostedPlugin.h"

#include "Support/WaitForTask.h"
#include "Window/DevelopSlider.h"
#include "Window/MainWindow.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace StandIn;
using namespace StandIn::Testing;
using KelvaLR::Testing::waitUntil;

namespace {

constexpr auto ratingKey = "Xmp.xmp.Rating";
constexpr auto pickKey = "Xmp.xmpDM.pick";

/// The window over three photos, in front on the display.
class Window : public testing::Test
{
protected:
    Window()
    {
        m_window.show();
        EXPECT_TRUE(waitUntil([this] { return m_window.isActiveWindow(); }));
    }

    /// Real key events of the display, in xdotool's words.
    void press(const QStringList &keys)
    {
        QProcess xdotool;
        xdotool.start(u"xdotool"_s, QStringList{u"key"_s} + keys);
        EXPECT_TRUE(waitUntil([&] { return xdotool.state() == QProcess::NotRunning; }));
        EXPECT_EQ(xdotool.exitCode(), 0);
    }

    [[nodiscard]] QString kept(const QString &sidecar, const char *key) const
    {
        return xmpText(m_plugin.photoPath(sidecar), key);
    }

    /// Whether the sidecar comes to say this.
    [[nodiscard]] bool comesToSay(const QString &sidecar, const char *key, const QString &text)
    {
        return waitUntil([&] { return kept(sidecar, key) == text; }, std::chrono::seconds(5));
    }

    void choose(const QString &menuItem)
    {
        const auto actions = m_window.findChildren<QAction *>();
        const auto action = std::ranges::find(actions, menuItem, &QAction::text);
        ASSERT_NE(action, actions.end());
        (*action)->trigger();
    }

    template <typename Widget>
    [[nodiscard]] Widget &named(const QString &name)
    {
        for (auto *widget : m_window.findChildren<Widget *>()) {
            if (widget->accessibleName() == name) {
                return *widget;
            }
        }
        throw std::runtime_error("the window has no " + name.toStdString());
    }

    [[nodiscard]] bool isShown(const QString &text)
    {
        const auto labels = m_window.findChildren<QLabel *>();
        return std::ranges::any_of(
            labels, [&](const QLabel *label) { return label->isVisible() && label->text() == text; });
    }

    HostedPlugin m_plugin{{.photos = {u"a.jpg"_s, u"b.jpg"_s, u"c.jpg"_s},
                           .start = PluginStart::whenFirstUsed,
                           .shouldListen = false}};
    MainWindow m_window{m_plugin.catalog(), m_plugin.host()};
};

} // namespace

TEST_F(Window, flagsAndRatesTheActivePhotoByKey)
{
    const std::tuple<QString, const char *, QString, QString> rows[] = {
        {u"p"_s, pickKey, u"1"_s, u"Set Flag to Pick"_s},
        {u"x"_s, pickKey, u"-1"_s, u"Set Flag to Reject"_s},
        {u"u"_s, pickKey, u"0"_s, u"Remove Flag"_s},
        {u"3"_s, ratingKey, u"3"_s, u"Set Rating to 3"_s},
        {u"5"_s, ratingKey, u"5"_s, u"Set Rating to 5"_s},
        {u"1"_s, ratingKey, u"1"_s, u"Set Rating to 1"_s},
        {u"2"_s, ratingKey, u"2"_s, u"Set Rating to 2"_s},
        {u"4"_s, ratingKey, u"4"_s, u"Set Rating to 4"_s},
        {u"0"_s, ratingKey, u"0"_s, u"Set Rating to None"_s},
    };
    for (const auto &[key, property, value, answer] : rows) {
        press({key});
        EXPECT_TRUE(comesToSay(u"a.xmp"_s, property, value)) << key.toStdString();
        EXPECT_TRUE(isShown(answer)) << answer.toStdString();
    }
    EXPECT_FALSE(QFile::exists(m_plugin.photoPath(u"b.xmp"_s))); // selected, but not active
}

TEST_F(Window, goesThroughThePhotosByArrow)
{
    press({u"Left"_s, u"Right"_s, u"p"_s, u"Right"_s, u"Right"_s, u"x"_s, u"Left"_s, u"2"_s});
    EXPECT_TRUE(comesToSay(u"b.xmp"_s, ratingKey, u"2"_s));
    EXPECT_EQ(kept(u"b.xmp"_s, pickKey), u"1"_s);
    EXPECT_EQ(kept(u"c.xmp"_s, pickKey), u"-1"_s);
    EXPECT_FALSE(QFile::exists(m_plugin.photoPath(u"a.xmp"_s)));
    EXPECT_EQ(m_plugin.catalog().selectedPhotos(), std::vector<int>{2});
}

TEST_F(Window, doesNothingForTheSameKeysWithModifiers)
{
    press({u"ctrl+p"_s, u"alt+p"_s, u"super+p"_s, u"ctrl+z"_s, u"alt+x"_s, u"ctrl+3"_s, u"alt+Right"_s,
           u"ctrl+d"_s, u"4"_s});
    EXPECT_TRUE(comesToSay(u"a.xmp"_s, ratingKey, u"4"_s));
    EXPECT_EQ(kept(u"a.xmp"_s, pickKey), QString());
    EXPECT_EQ(m_plugin.host().currentModule().name(), libraryModule);
}

TEST_F(Window, switchesTheModuleThatThePluginSees)
{
    const auto &panel = named<QWidget>(u"Develop settings"_s);
    CurrentModule &module = m_plugin.host().currentModule();
    for (const auto &[key, name] : {std::pair{u"d"_s, developModule},
                                    {u"g"_s, libraryModule},
                                    {u"d"_s, developModule},
                                    {u"e"_s, libraryModule}}) {
        press({key});
        EXPECT_TRUE(waitUntil([&] { return module.name() == name; })) << key.toStdString();
        EXPECT_EQ(panel.isVisible(), module.name() == developModule);
    }
    QAccessible::queryAccessibleInterface(&named<QAbstractButton>(u"Develop"_s))
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(module.name(), developModule);
    module.switchTo(libraryModule);
    EXPECT_TRUE(named<QAbstractButton>(u"Library"_s).isChecked());
    EXPECT_FALSE(panel.isVisible());
}

TEST_F(Window, handsAssistiveTechnologyTheSettingsOwnValues)
{
    const struct
    {
        QString label;
        double written;
        double lowest;
        double highest;
        const char *property;
        QString text;
    } rows[] = {
        {u"Exposure"_s, 1.25, -5, 5, "Xmp.crs.Exposure2012", u"+1.25"_s},
        {u"Temp"_s, 7321, 2000, 50000, "Xmp.crs.Temperature", u"7321"_s},
        {u"Clarity"_s, -12, -100, 100, "Xmp.crs.Clarity2012", u"-12"_s},
        {u"Sharpening Amount"_s, 999, 0, 150, "Xmp.crs.Sharpness", u"150"_s},
    };

    for (const auto &row : rows) {
        QAccessibleInterface *element =
            QAccessible::queryAccessibleInterface(&named<DevelopSlider>(row.label));
        ASSERT_EQ(element->role(), QAccessible::Slider);
        QAccessibleValueInterface *value = element->valueInterface();
        EXPECT_EQ(value->minimumValue().toDouble(), row.lowest) << row.label.toStdString();
        EXPECT_EQ(value->maximumValue().toDouble(), row.highest);
        value->setCurrentValue(row.written);
        EXPECT_EQ(kept(u"a.xmp"_s, row.property), row.text);
        EXPECT_EQ(value->currentValue().toDouble(), row.text.toDouble());
    }
    EXPECT_FALSE(QFile::exists(m_plugin.photoPath(u"b.xmp"_s)));
}

TEST_F(Window, keepsKeywordsAndLeavesLettersToTheField)
{
    auto &field = named<QLineEdit>(u"Keyword"_s);
    QTest::mouseClick(&field, Qt::LeftButton);
    ASSERT_TRUE(waitUntil([&] { return field.hasFocus(); }));
    press({u"p"_s, u"3"_s, u"comma"_s, u"space"_s, u"x"_s});
    EXPECT_TRUE(waitUntil([&] { return field.text() == u"p3, x"_s; })) << field.text().toStdString();
    EXPECT_FALSE(QFile::exists(m_plugin.photoPath(u"a.xmp"_s)));
    press({u"Return"_s, u"4"_s});
    EXPECT_TRUE(comesToSay(u"a.xmp"_s, ratingKey, u"4"_s));
    EXPECT_EQ(m_plugin.catalog().state(1)->keywords, (QStringList{u"p3"_s, u"x"_s}));

    QTest::mouseClick(&field, Qt::LeftButton);
    press({u"y"_s, u"Escape"_s, u"5"_s});
    EXPECT_TRUE(comesToSay(u"a.xmp"_s, ratingKey, u"5"_s));
    EXPECT_EQ(m_plugin.catalog().state(1)->keywords, (QStringList{u"p3"_s, u"x"_s}));
}

TEST_F(Window, selectsInTheFilmstripByClick)
{
    auto &strip = named<QListView>(u"Filmstrip"_s);
    const auto click = [&](int row, Qt::KeyboardModifiers modifiers) {
        const QPoint place = strip.visualRect(strip.model()->index(row, 0)).center();
        QTest::mouseClick(strip.viewport(), Qt::LeftButton, modifiers, place);
    };
    const Catalog &catalog = m_plugin.catalog();
    click(1, Qt::NoModifier);
    EXPECT_EQ(catalog.selectedPhotos(), std::vector<int>{2});
    click(2, Qt::ControlModifier);
    EXPECT_EQ(catalog.selectedPhotos(), (std::vector<int>{2, 3}));
    EXPECT_EQ(catalog.activePhoto(), 3);
    click(2, Qt::ControlModifier);
    click(1, Qt::ControlModifier); // the last one stays
    EXPECT_EQ(catalog.selectedPhotos(), std::vector<int>{2});
    EXPECT_TRUE(isShown(u"b.jpg"_s));
}

TEST_F(Window, showsWhatThePluginAndOtherProgramsDo)
{
    Catalog &catalog = m_plugin.catalog();
    catalog.beginChanges();
    catalog.change(1, {.develop = {{u"Exposure2012"_s, u"+1.50"_s}}});
    ASSERT_TRUE(catalog.commitChanges());
    EXPECT_EQ(named<DevelopSlider>(u"Exposure"_s).settingValue(), 1.5);

    ASSERT_TRUE(changeSidecar(m_plugin.photoPath(u"a.xmp"_s), {.develop = {{u"Tint"_s, u"+33"_s}}}));
    EXPECT_TRUE(waitUntil([this] { return named<DevelopSlider>(u"Tint"_s).settingValue() == 33; }));
}

TEST_F(Window, startsThePluginFromItsMenuAndShowsWhatItSays)
{
    EXPECT_EQ(m_plugin.host().state(), PluginState::loaded);
    choose(u"KelvaLR Status"_s);
    EXPECT_TRUE(waitUntil(
        [this] { return isShown(u"The background assistant connection is active and running."_s); }));
    EXPECT_EQ(m_plugin.host().state(), PluginState::running);
}

TEST_F(Window, saysInThePluginManagerHowThePluginDoes)
{
    choose(u"Plug-in Manager..."_s);
    const auto *dialog = m_window.findChild<QDialog *>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->windowTitle(), u"Lightroom Plug-in Manager"_s);
    EXPECT_FALSE(dialog->isModal());
    EXPECT_TRUE(isShown(u"KelvaLR Assistant Bridge"_s));
    EXPECT_TRUE(isShown(m_plugin.pluginFolder()));
    EXPECT_TRUE(isShown(u"Installed, not running yet"_s));
}
