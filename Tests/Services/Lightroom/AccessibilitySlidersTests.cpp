#include "Services/Lightroom/AccessibilitySliders.h"
#include "Support/AccessibilityTreeBuilder.h"
#include "Support/PrintQt.h"

#include <gtest/gtest.h>

namespace KelvaLR::Testing {
namespace {

using namespace Qt::StringLiterals;

std::optional<qsizetype> id(const AccessibilityElement *element)
{
    return element ? std::optional(element->id.toLongLong()) : std::nullopt;
}

TEST(AccessibilitySlidersTest, findsTheFirstSliderDepthFirstByAnyOfItsLabels)
{
    AccessibilityTree tree = applicationTree();
    tree[0].title = u"Exposure"_s;
    const qsizetype panel = appendElement(tree, 0, {.role = u"AXGroup"_s});
    const qsizetype later = appendElement(tree, 0, {.role = u"AXSlider"_s, .title = u"Exposure"_s});
    const qsizetype deep =
        appendElement(tree, panel, {.role = u"AXSlider"_s, .help = u"The EXPOSURE of the photo"_s});
    const qsizetype tint =
        appendElement(tree, later, {.role = u"AXSlider"_s, .title = u"x"_s, .identifier = u"tint.slider"_s});
    appendElement(tree, panel, {.role = u"AXSlider"_s, .value = u"Clarity"_s});
    EXPECT_EQ(id(findSliderDirectly(tree, u"exposure"_s)), deep);
    EXPECT_EQ(id(findSliderDirectly(tree, u"Tint"_s)), tint);
    for (const QString &name : {u"Clarity"_s, QString()}) {
        EXPECT_EQ(findSliderDirectly(tree, name), nullptr);
    }
    EXPECT_EQ(findSliderDirectly({}, u"exposure"_s), nullptr);
}

TEST(AccessibilitySlidersTest, findsTheSliderBesideItsText)
{
    AccessibilityTree tree = applicationTree();
    const qsizetype lonely = appendElement(tree, 0, {.role = u"AXGroup"_s});
    appendElement(tree, lonely, {.role = u"AXStaticText"_s, .value = u"Tint"_s});
    const qsizetype group = appendElement(tree, 0, {.role = u"AXGroup"_s});
    const qsizetype slider = appendElement(tree, group, {.role = u"AXSlider"_s});
    appendElement(tree, group, {.role = u"AXSlider"_s});
    for (const QString &text : {u"TINT"_s, u"Green tint slider"_s, u"Exposures"_s}) {
        appendElement(tree, group, {.role = u"AXStaticText"_s, .value = text});
    }
    appendElement(tree, group, {.role = u"AXButton"_s, .value = u"Clarity"_s});
    appendElement(tree, group, {.role = u"AXStaticText"_s, .title = u"Dehaze"_s, .value = 3.0});
    EXPECT_EQ(id(findSliderByTextLabel(tree, u"tint"_s)), slider);
    EXPECT_EQ(id(findSliderByTextLabel(tree, u"Green Tint"_s)), slider);
    for (const QString &name : {u"exposure"_s, u"clarity"_s, u"dehaze"_s, QString()}) {
        EXPECT_EQ(findSliderByTextLabel(tree, name), nullptr) << name.toStdString();
    }
}

TEST(AccessibilitySlidersTest, reachesTheBottomOfAVeryDeepTree)
{
    AccessibilityTree tree = applicationTree();
    qsizetype last = 0;
    for (int level = 0; level < 100'000; ++level) {
        last = appendElement(tree, last, {.role = u"AXGroup"_s});
    }
    const qsizetype slider = appendElement(tree, last, {.role = u"AXSlider"_s, .title = u"Exposure"_s});
    appendElement(tree, last, {.role = u"AXStaticText"_s, .value = u"Tint"_s});
    EXPECT_EQ(id(findSliderDirectly(tree, u"exposure"_s)), slider);
    EXPECT_EQ(id(findSliderByTextLabel(tree, u"tint"_s)), slider);
}

} // namespace
} // namespace KelvaLR::Testing
