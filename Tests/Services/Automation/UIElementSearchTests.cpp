#include "Services/Automation/UIElementSearch.h"

#include "Support/AccessibilityTreeBuilder.h"
#include "Support/PrintQt.h"

#include <gtest/gtest.h>

using namespace KelvaLR;
using namespace Qt::StringLiterals;
using Testing::appendElement;
using Testing::applicationTree;

namespace {

const QStringList pressable{u"AXPress"_s};

AccessibilityElement element(const QString &role, const QString &title, const QStringList &actions = {})
{
    return {.role = role, .title = title, .actions = actions};
}

AccessibilityElement button(const QString &title, const QStringList &actions = {})
{
    return element(u"AXButton"_s, title, actions);
}

} // namespace

TEST(UIElementSearch, scoresHowWellAnElementFits)
{
    using enum ElementPurpose;
    AccessibilityElement centred = button(u"Export"_s, pressable);
    centred.center = QPointF(1, 2);
    AccessibilityElement readableWithCenter = element(u"AXStaticText"_s, u"Export Settings"_s);
    readableWithCenter.center = QPointF(1, 2);
    const AccessibilityElement byPlaceholder{.role = u"AXTextField"_s, .placeholder = u"Search"_s};
    const AccessibilityElement searchField{.subrole = u"AXSearchField"_s, .title = u"Find"_s};
    const AccessibilityElement closeButton{.subrole = u"AXCloseButton"_s, .title = u"Close"_s};
    const AccessibilityElement number{.role = u"AXButton"_s, .value = 5.0};
    AccessibilityElement best = button(u"all exports"_s);
    best.help = u"Export"_s;

    const struct
    {
        const char *name;
        AccessibilityElement element;
        QString target;
        ElementPurpose purpose;
        int score;
    } cases[] = {
        {"equal, pressable, with a centre", centred, u"export"_s, click, 140},
        {"a readable text that begins with the target", readableWithCenter, u"export"_s, click, 85},
        {"prefix", button(u"Export"_s), u"ex"_s, click, 105},
        {"inside", button(u"Quick Export"_s), u"export"_s, click, 85},
        {"inside the target", element(u"AXRow"_s, u"all"_s), u"export all photos now"_s, click, 40},
        {"too short to lie inside the target", element(u"AXRow"_s, u"ok"_s), u"book now"_s, click, 0},
        {"two characters of two units each", element(u"AXRow"_s, u"\U00020000\U00020001"_s),
         u"\U00020000\U00020001 a"_s, click, 0},
        {"the best of several texts", best, u"export"_s, click, 125},
        {"punctuation joins", button(u"AutoTone"_s), u"autotone"_s, click, 125},
        {"blanks do not", button(u"Auto Tone"_s), u"autotone"_s, click, 0},
        {"clickable by its subrole", closeButton, u"close"_s, click, 125},
        {"pressable, whatever its role", element(u"AXImage"_s, u"Logo"_s, pressable), u"logo"_s, click, 135},
        {"neither pressable nor readable", element(u"AXImage"_s, u"Logo"_s), u"logo"_s, click, 0},
        {"a text input is admitted to clicks", byPlaceholder, u"search"_s, click, 100},
        {"a field by its placeholder", byPlaceholder, u"search"_s, field, 135},
        {"a field by its subrole", searchField, u"find"_s, field, 135},
        {"a pressable field", element(u"AXComboBox"_s, u"Preset"_s, pressable), u"preset"_s, field, 145},
        {"a button is no field", centred, u"export"_s, field, 0},
        {"a number is no text", number, u"5"_s, click, 0},
        {"an empty target names nothing", centred, QString(), click, 0},
    };

    for (const auto &c : cases) {
        EXPECT_EQ(elementScore(c.element, c.target, c.purpose), c.score) << c.name;
    }
}

TEST(UIElementSearch, takesTheFirstInBreadthFirstOrderAmongEquals)
{
    AccessibilityTree tree = applicationTree();
    const auto group = appendElement(tree, 0, {.role = u"AXGroup"_s});
    const auto deep = appendElement(tree, group, button(u"Done"_s, pressable));
    const auto shallow = appendElement(tree, 0, button(u"Done"_s, pressable));
    appendElement(tree, 0, button(u"Done"_s, pressable));

    EXPECT_EQ(findElement(tree, u"done"_s, ElementPurpose::click), &tree.at(shallow));
    tree[deep].center = QPointF(5, 5);
    EXPECT_EQ(findElement(tree, u"DONE!"_s, ElementPurpose::click), &tree.at(deep));
    EXPECT_EQ(findElement(tree, u"done"_s, ElementPurpose::field), nullptr);
    EXPECT_EQ(findElement({}, u"done"_s, ElementPurpose::click), nullptr);
}

TEST(UIElementSearch, survivesAMalformedTree)
{
    AccessibilityTree tree = applicationTree();
    const auto done = appendElement(tree, 0, button(u"Done"_s));
    tree[0].children << 99 << -1 << 0 << done;
    tree[done].children << 0;
    EXPECT_EQ(findElement(tree, u"done"_s, ElementPurpose::click), &tree.at(done));
    EXPECT_EQ(visibleElements(tree).size(), 1);
}

TEST(UIElementSearch, listsLabelledElementsLevelByLevel)
{
    AccessibilityTree tree = applicationTree();
    const auto row =
        appendElement(tree, 0, {.role = u"AXRow"_s, .title = u""_s, .description = u"A photo"_s});
    appendElement(tree, row, {.role = u"AXTextField"_s, .value = u"cats"_s, .identifier = u"search"_s});
    // A slider is not listed, its children are.
    const auto slider = appendElement(tree, 0, {.role = u"AXSlider"_s, .title = u"Exposure"_s, .value = 0.5});
    appendElement(tree, slider, button(u"Reset"_s));
    appendElement(tree, 0, button(QString(), pressable)); // without a label

    const QList<UIElementDescription> expected{
        {u"AXRow"_s, QString(), u"A photo"_s, u"A photo"_s, std::nullopt},
        {u"AXTextField"_s, QString(), u"search"_s, std::nullopt, u"cats"_s},
        {u"AXButton"_s, QString(), u"Reset"_s, std::nullopt, std::nullopt},
    };
    EXPECT_EQ(visibleElements(tree), expected);
}

TEST(UIElementSearch, listsNothingBehindThe1500thElement)
{
    AccessibilityTree tree = applicationTree();
    for (int i = 1; i < 2000; ++i) {
        appendElement(tree, 0, button(QString::number(i)));
    }
    const auto listed = visibleElements(tree);
    ASSERT_EQ(listed.size(), 1499); // the application itself is the first of the 1,500
    EXPECT_EQ(listed.last().name, u"1499"_s);
    EXPECT_EQ(findElement(tree, u"1999"_s, ElementPurpose::click), &tree.last());
}
