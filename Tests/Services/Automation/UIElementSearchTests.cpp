#include "Services/Automation/UIElementSearch.h"

#include "Support/AccessibilityTreeBuilder.h"
#include "Support/PrintQt.h"

#include <gtest/gtest.h>

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;
using Testing::appendElement;
using Testing::applicationTree;

AccessibilityElement element(const QString &role, const QString &title, const QStringList &actions = {})
{
    AccessibilityElement made;
    made.role = role;
    made.title = title;
    made.actions = actions;
    return made;
}

const QStringList pressable{u"AXPress"_s};

struct ScoreCase
{
    const char *name;
    AccessibilityElement element;
    QString target;
    ElementPurpose purpose;
    int score;
};

TEST(UIElementSearch, scoresHowWellAnElementFits)
{
    auto centred = element(u"AXButton"_s, u"Export"_s, pressable);
    centred.center = QPointF(1, 2);
    auto readableWithCenter = element(u"AXStaticText"_s, u"Export Settings"_s);
    readableWithCenter.center = QPointF(1, 2);
    auto byPlaceholder = element(u"AXTextField"_s, QString());
    byPlaceholder.placeholder = u"Search"_s;
    auto searchField = element(u"AXGroup"_s, u"Find"_s);
    searchField.subrole = u"AXSearchField"_s;
    auto closeButton = element(u"AXUnknown"_s, u"Close"_s);
    closeButton.subrole = u"AXCloseButton"_s;
    auto number = element(u"AXButton"_s, QString());
    number.value = 5.0;
    auto best = element(u"AXButton"_s, u"all exports"_s);
    best.help = u"Export"_s;

    const auto click = ElementPurpose::click;
    const auto field = ElementPurpose::field;
    const ScoreCase cases[] = {
        {"equal, pressable, with a centre", centred, u"export"_s, click, 140},
        {"a readable text that begins with the target", readableWithCenter, u"export"_s, click, 85},
        {"prefix", element(u"AXButton"_s, u"Export"_s), u"ex"_s, click, 105},
        {"inside", element(u"AXButton"_s, u"Quick Export"_s), u"export"_s, click, 85},
        {"inside the target", element(u"AXRow"_s, u"all"_s), u"export all photos now"_s, click, 40},
        {"too short to lie inside the target", element(u"AXRow"_s, u"ok"_s), u"book now"_s, click, 0},
        {"two characters of two units each", element(u"AXRow"_s, u"\U00020000\U00020001"_s),
         u"\U00020000\U00020001 a"_s, click, 0},
        {"the best of several texts", best, u"export"_s, click, 125},
        {"punctuation joins", element(u"AXButton"_s, u"AutoTone"_s), u"autotone"_s, click, 125},
        {"blanks do not", element(u"AXButton"_s, u"Auto Tone"_s), u"autotone"_s, click, 0},
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
    for (const ScoreCase &c : cases) {
        EXPECT_EQ(elementScore(c.element, c.target, c.purpose), c.score) << c.name;
    }
}

TEST(UIElementSearch, takesTheFirstInBreadthFirstOrderAmongEquals)
{
    AccessibilityTree tree = applicationTree();
    const auto group = appendElement(tree, 0, element(u"AXGroup"_s, QString()));
    const auto deep = appendElement(tree, group, element(u"AXButton"_s, u"Done"_s, pressable));
    const auto shallow = appendElement(tree, 0, element(u"AXButton"_s, u"Done"_s, pressable));
    appendElement(tree, 0, element(u"AXButton"_s, u"Done"_s, pressable));

    EXPECT_EQ(findElement(tree, u"done"_s, ElementPurpose::click), &tree.at(shallow));
    tree[deep].center = QPointF(5, 5);
    EXPECT_EQ(findElement(tree, u"DONE!"_s, ElementPurpose::click), &tree.at(deep));
    EXPECT_EQ(findElement(tree, u"done"_s, ElementPurpose::field), nullptr);
    EXPECT_EQ(findElement({}, u"done"_s, ElementPurpose::click), nullptr);
}

TEST(UIElementSearch, survivesAMalformedTree)
{
    AccessibilityTree tree = applicationTree();
    const auto button = appendElement(tree, 0, element(u"AXButton"_s, u"Done"_s));
    tree[0].children << 99 << -1 << 0 << button;
    tree[button].children << 0;
    EXPECT_EQ(findElement(tree, u"done"_s, ElementPurpose::click), &tree.at(button));
    EXPECT_EQ(visibleElements(tree).size(), 1);
}

TEST(UIElementSearch, listsLabelledElementsLevelByLevel)
{
    AccessibilityTree tree = applicationTree();
    auto row = element(u"AXRow"_s, QString());
    row.description = u"A photo"_s;
    const auto rowAt = appendElement(tree, 0, row);
    auto text = element(u"AXTextField"_s, QString());
    text.identifier = u"search"_s;
    text.value = u"cats"_s;
    appendElement(tree, rowAt, text);
    auto slider = element(u"AXSlider"_s, u"Exposure"_s);
    slider.value = 0.5;
    const auto sliderAt = appendElement(tree, 0, slider); // not listed, its children are
    appendElement(tree, sliderAt, element(u"AXButton"_s, u"Reset"_s));
    appendElement(tree, 0, element(u"AXButton"_s, QString(), pressable)); // without a label

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
        appendElement(tree, 0, element(u"AXButton"_s, QString::number(i)));
    }
    const auto listed = visibleElements(tree);
    ASSERT_EQ(listed.size(), 1499); // the application itself is the first of the 1,500
    EXPECT_EQ(listed.last().name, u"1499"_s);
    EXPECT_EQ(findElement(tree, u"1999"_s, ElementPurpose::click), &tree.last());
}

} // namespace

} // namespace KelvaLR
