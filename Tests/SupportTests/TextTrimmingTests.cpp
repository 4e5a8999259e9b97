#include "Support/TextTrimming.h"

#include "Support/PrintQt.h"

#include <gtest/gtest.h>

using namespace KelvaLR;
using namespace Qt::StringLiterals;

TEST(TextTrimming, takesOffOnlyWhatIsMeant)
{
    const struct
    {
        QString (*trimmed)(QStringView);
        QString text;
        QString result;
    } cases[] = {
        {trimmedWhitespace, u" \t\r\n\u00A0\u2003\u2028a b\u3000\v"_s, u"a b"_s},
        {trimmedWhitespace, u"\u2028 \u00A0"_s, QString()},
        {trimmedPunctuation, u" .,!?\n\tMr. Soft!?"_s, u"Mr. Soft"_s},
        {trimmedPunctuation, u"\r;Soft;\r"_s, u"\r;Soft;\r"_s},
        {trimmedPunctuation, u"?!."_s, QString()},
        {stripMatchingQuotes, u" \"Soft \" "_s, u"Soft "_s},
        {stripMatchingQuotes, u"'Soft'"_s, u"Soft"_s},
        {stripMatchingQuotes, u"\"'Soft'\""_s, u"'Soft'"_s},
        {stripMatchingQuotes, u"\"Soft'"_s, u"\"Soft'"_s},
        {stripMatchingQuotes, u"\""_s, u"\""_s},
        {stripMatchingQuotes, u"''"_s, QString()},
        {stripMatchingQuotes, u" 'tis "_s, u"'tis"_s},
    };

    for (const auto &c : cases) {
        EXPECT_EQ(c.trimmed(c.text), c.result) << &c - cases;
    }
}
