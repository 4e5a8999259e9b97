#include "Support/TextTrimming.h"

#include "Support/PrintQt.h"

#include <gtest/gtest.h>

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;

TEST(TextTrimming, whiteSpaceIsUnicodesOwn)
{
    EXPECT_EQ(trimmedWhitespace(u" \t\r\n\u00A0\u2003\u2028a b\u3000\v"), u"a b"_s);
    EXPECT_EQ(trimmedWhitespace(u"\u2028 \u00A0"), QString());
}

TEST(TextTrimming, punctuationIsTheSevenCharactersThatEndASentence)
{
    EXPECT_EQ(trimmedPunctuation(u" .,!?\n\tMr. Soft!?"), u"Mr. Soft"_s);
    EXPECT_EQ(trimmedPunctuation(u"\r;Soft;\r"), u"\r;Soft;\r"_s);
    EXPECT_EQ(trimmedPunctuation(u"?!."), QString());
}

TEST(TextTrimming, takesOnePairOfMatchingQuotesOff)
{
    const std::pair<QString, QString> cases[] = {
        {u" \"Soft \" "_s, u"Soft "_s}, {u"'Soft'"_s, u"Soft"_s}, {u"\"'Soft'\""_s, u"'Soft'"_s},
        {u"\"Soft'"_s, u"\"Soft'"_s},   {u"\""_s, u"\""_s},       {u"''"_s, QString()},
        {u" 'tis "_s, u"'tis"_s},
    };
    for (const auto &[text, stripped] : cases) {
        EXPECT_EQ(stripMatchingQuotes(text), stripped) << text.toStdString();
    }
}

} // namespace

} // namespace KelvaLR
