#include "Services/Lightroom/AccessibilitySliders.h"
#include "Support/PrintQt.h"

#include <gtest/gtest.h>

namespace KelvaLR {
namespace {

using namespace Qt::StringLiterals;

/// Appends an element to the tree, below its parent, and gives its index.
qsizetype add(AccessibilityTree &tree, qsizetype parent, AccessibilityElement element)
{
    const qsizetype index = tree.size();
    element.id = QString::number(index);
    if (index > 0) {
        element.parent = parent;
        tree[parent].children.append(index);
    }
    tree.append(element);
    return index;
}

std::optional<qsizetype> id(const AccessibilityElement *element)
{
    return element ? std::optional(element->id.toLongLong()) : std::nullopt;
}

TEST(AccessibilitySlidersTest, findsTheFirstSliderDepthFirstByAnyOfItsLabels)
{
    AccessibilityTree tree;
    add(tree, 0, {.role = u"AXApplication"_s, .title = u"Exposure"_s});
    const qsizetype panel = add(tree, 0, {.role = u"AXGroup"_s});
    const qsizetype later = add(tree, 0, {.role = u"AXSlider"_s, .title = u"Exposure"_s});
    const qsizetype deep = add(tree, panel, {.role = u"AXSlider"_s, .help = u"The EXPOSURE of the photo"_s});
    const qsizetype tint =
        add(tree, later, {.role = u"AXSlider"_s, .title = u"x"_s, .identifier = u"tint.slider"_s});
    add(tree, panel, {.role = u"AXSlider"_s, .value = u"Clarity"_s});
    EXPECT_EQ(id(findSliderDirectly(tree, u"exposure"_s)), deep);
    EXPECT_EQ(id(findSliderDirectly(tree, u"Tint"_s)), tint);
    for (const QString &name : {u"Clarity"_s, QString()}) {
        EXPECT_EQ(findSliderDirectly(tree, name), nullptr);
    }
    EXPECT_EQ(findSliderDirectly({}, u"exposure"_s), nullptr);
}

TEST(AccessibilitySlidersTest, findsTheSliderBesideItsText)
{
    AccessibilityTree tree;
    add(tree, 0, {.role = u"AXApplication"_s});
    const qsizetype lonely = add(tree, 0, {.role = u"AXGroup"_s});
    add(tree, lonely, {.role = u"AXStaticText"_s, .value = u"Tint"_s});
    const qsizetype group = add(tree, 0, {.role = u"AXGroup"_s});
    const qsizetype slider = add(tree, group, {.role = u"AXSlider"_s});
    add(tree, group, {.role = u"AXSlider"_s});
    for (const QString &text : {u"TINT"_s, u"Green tint slider"_s, u"Exposures"_s}) {
        add(tree, group, {.role = u"AXStaticText"_s, .value = text});
    }
    add(tree, group, {.role = u"AXButton"_s, .value = u"Clarity"_s});
    add(tree, group, {.role = u"AXStaticText"_s, .title = u"Dehaze"_s, .value = 3.0});
    EXPECT_EQ(id(findSliderByTextLabel(tree, u"tint"_s)), slider);
    EXPECT_EQ(id(findSliderByTextLabel(tree, u"Green Tint"_s)), slider);
    for (const QString &name : {u"exposure"_s, u"clarity"_s, u"dehaze"_s, QString()}) {
        EXPECT_EQ(findSliderByTextLabel(tree, name), nullptr) << name.toStdString();
    }
}

TEST(AccessibilitySlidersTest, reachesTheBottomOfAVeryDeepTree)
{
    AccessibilityTree tree;
    qsizetype last = add(tree, 0, {.role = u"AXApplication"_s});
    for (int level = 0; level < 100'000; ++level) {
        last = add(tree, last, {.role = u"AXGroup"_s});
    }
    const qsizetype slider = add(tree, last, {.role = u"AXSlider"_s, .title = u"Exposure"_s});
    add(tree, last, {.role = u"AXStaticText"_s, .value = u"Tint"_s});
    EXPECT_EQ(id(findSliderDirectly(tree, u"exposure"_s)), slider);
    EXPECT_EQ(id(findSliderByTextLabel(tree, u"tint"_s)), slider);
}

} // namespace
} // namespace KelvaLR
