#include "Services/Lightroom/Language/SpokenNumbers.h"

#include "Support/PrintQt.h"

#include <gtest/gtest.h>

namespace KelvaLR {
namespace {

using namespace Qt::StringLiterals;

TEST(SpokenNumbers, areReadAndNothingElseIs)
{
    const std::pair<QString, QString> cases[] = {
        {u"set exposure to zero point five"_s, u"set exposure to 0.5"_s},
        {u"set exposure to minus zero point seven five please"_s, u"set exposure to -0.75 please"_s},
        {u"point five"_s, u"0.5"_s},
        {u"negative point oh five"_s, u"-0.05"_s},
        {u"one point seventy five"_s, u"1.75"_s},
        {u"minus ten"_s, u"-10"_s},
        {u"negative ten"_s, u"-10"_s},
        {u"plus one"_s, u"+1"_s},
        {u"zero"_s, u"0"_s},
        {u"seventeen"_s, u"17"_s},
        {u"twenty five"_s, u"25"_s},
        {u"one hundred"_s, u"100"_s},
        {u"by a hundred"_s, u"by a 100"_s},
        {u"one hundred and twenty"_s, u"120"_s},
        {u"nine hundred ninety nine thousand and one"_s, u"999001"_s},
        {u"five thousand five hundred"_s, u"5500"_s},
        {u"five thousand and fifty"_s, u"5050"_s},
        {u"fifty five hundred"_s, u"5500"_s},
        {u"fifty five hundred and ten"_s, u"5510"_s},
        {u"fifty two fifty"_s, u"5250"_s},
        {u"five five zero zero"_s, u"5500"_s},
        {u"Set Contrast To Plus TEN In Lightroom"_s, u"Set Contrast To +10 In Lightroom"_s},
        {u"contrast ten and clarity twenty"_s, u"contrast 10 and clarity 20"_s},
        {u"one hundred and clarity"_s, u"100 and clarity"_s},
        {u"ten point"_s, u"10 point"_s},
        {u"the point and plus a minus"_s, u"the point and plus a minus"_s},
        {u"reduce contrast on this one"_s, u"reduce contrast on this one"_s},
        {u"oh someone  tens often"_s, u"oh someone  tens often"_s},
        {u"set exposure to 0.5"_s, u"set exposure to 0.5"_s},
        {u""_s, u""_s},
    };
    for (const auto &[spoken, read] : cases) {
        EXPECT_EQ(withSpokenNumbersRead(spoken), read) << spoken.toStdString();
        EXPECT_EQ(withSpokenNumbersRead(read), read) << "nothing is left to read";
    }
}

} // namespace
} // namespace KelvaLR
