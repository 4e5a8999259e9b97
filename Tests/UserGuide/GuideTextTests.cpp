#include "GuideText.h"

#include <gtest/gtest.h>

using namespace KelvaLR::UserGuide;
using namespace Qt::StringLiterals;

namespace {

constexpr std::array tables{
    GuideTable{"sliders"_L1, [] { return u"exposure"_s; }},
    GuideTable{"keys"_L1, [] { return u"a to z"_s; }},
};

} // namespace

TEST(GuideText, makesItsTablesAnewAndLeavesTheRest)
{
    const QString guide = u"Before.\n<!-- generated: keys -->\nold\nolder\n<!-- end -->\nBetween.\n"
                          "<!-- generated: sliders -->\nexposure\n<!-- end -->\nAfter.\n"_s;
    const auto renewed = withTables(guide, tables);
    ASSERT_TRUE(renewed) << renewed.error().toStdString();
    EXPECT_EQ(*renewed, u"Before.\n<!-- generated: keys -->\na to z\n<!-- end -->\nBetween.\n"
                        "<!-- generated: sliders -->\nexposure\n<!-- end -->\nAfter.\n"_s);
    EXPECT_EQ(differingTables(guide, *renewed), QStringList(u"keys"_s));
    EXPECT_EQ(withTables(*renewed, tables), renewed);
}

TEST(GuideText, saysWhatIsWrongWithItsMarkers)
{
    const QString noEnd = u"The table \"keys\" has no end."_s;
    EXPECT_EQ(withTables(u"<!-- generated: keys -->\nThe rest of the guide.\n"_s, tables).error(), noEnd);
    EXPECT_EQ(withTables(u"<!-- generated: keys -->\n<!-- generated: sliders -->\n<!-- end -->\n"_s, tables)
                  .error(),
              noEnd);
    EXPECT_EQ(withTables(u"<!-- generated: stars -->\n<!-- end -->\n"_s, tables).error(),
              u"There is no table named \"stars\"."_s);
    EXPECT_EQ(examples(u"<!-- requests: chat -->\n\n| `too late` |\n"_s).error(),
              u"No request stands behind <!-- requests: chat -->."_s);
    EXPECT_EQ(examples(u"<!-- spoken: command -->\n| `Kelva, next photo` |\n"_s).error(),
              u"\"Kelva, next photo\" does not begin with the wake phrase."_s);
}

TEST(GuideText, findsItsExamples)
{
    const auto found = examples(u"| `not marked` |\n"
                                "<!-- requests: command pressKey, Lightroom in front -->\n"
                                "| Say | Note |\n|---|---|\n| `press g`, `press d` | `not this` |\n\n"
                                "| `nor this` |\n"
                                "<!-- spoken: command -->\n| `Hey Kelva, set Tint to minus five` |\n"_s);
    ASSERT_TRUE(found) << found.error().toStdString();
    EXPECT_EQ(*found, (QList<Example>{{u"press g"_s, u"command"_s, u"pressKey"_s, true},
                                      {u"press d"_s, u"command"_s, u"pressKey"_s, true},
                                      {u"set tint to -5"_s, u"command"_s, QString(), false}}));
}

TEST(GuideText, findsWhatItQuotes)
{
    EXPECT_EQ(
        quotations(
            u"\"Not marked.\" **Settings...**\n"
            "<!-- sentences -->\n| You see | Why |\n|---|---|\n"
            "| \"Could not click …, see …\" | \"Not this.\" |\n| \"Say \"Hey Kelva\".\" | **Send** |\n"_s),
        (QStringList{u"Could not click"_s, u", see"_s, u"Say \"Hey Kelva\"."_s, u"Settings..."_s,
                     u"Send"_s}));
}
