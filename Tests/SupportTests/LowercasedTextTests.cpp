#include "Support/LowercasedText.h"

#include "Support/PrintQt.h"

#include <gtest/gtest.h>

using namespace KelvaLR;
using namespace Qt::StringLiterals;

TEST(LowercasedText, cutsTheTextAsWrittenWhateverItsLettersBecome)
{
    const QChar loneHigh(0xD83D);
    const QChar loneLow(0xDE00);

    const struct
    {
        const char *name;
        QString text;
        QString behindFrom;
    } cases[] = {
        {"plain", u"Import FROM /Photos"_s, u"/Photos"_s},
        {"a letter that grows, before the cut", u"\u0130\u0130 From \u0130zmir"_s, u"\u0130zmir"_s},
        {"a letter that grows, right before and behind it", u"\u0130From \u0130"_s, u"\u0130"_s},
        {"sharp s", u"STRA\u1E9EE From GRO\u1E9E"_s, u"GRO\u1E9E"_s},
        {"final sigma", u"\u039F\u0394\u039F\u03A3 from \u039F\u0394\u039F\u03A3"_s,
         u"\u039F\u0394\u039F\u03A3"_s},
        {"combining marks", u"I\u0307E\u0301 from I\u0307"_s, u"I\u0307"_s},
        {"letters outside the basic plane", u"\U00010400\u0130 from \U00010400"_s, u"\U00010400"_s},
        {"lone surrogates", loneHigh + u"\u0130"_s + loneLow + u" from "_s + loneHigh, QString(loneHigh)},
        {"nothing behind it", u"\u0130from "_s, QString()},
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        const LowercasedText text(c.text);
        const qsizetype at = text.lower().indexOf(u"from ");
        ASSERT_GE(at, 0);
        EXPECT_EQ(text.textFrom(at + 5), c.behindFrom);
        EXPECT_EQ(text.textBetween(0, at) + text.textBetween(at, at + 5) + text.textFrom(at + 5), c.text);
        EXPECT_EQ(text.textFrom(99), QString());
        EXPECT_EQ(text.textFrom(-1), c.text);
        EXPECT_EQ(text.textBetween(99, 0), QString());
    }
}

// The mapping of positions rests on this: one character grows, none shrinks.
TEST(LowercasedText, onlyTheDottedCapitalIChangesItsLength)
{
    for (char32_t character = 0; character <= QChar::LastValidCodePoint; ++character) {
        const QString text = QString::fromUcs4(&character, 1);
        ASSERT_EQ(text.toLower().size(), text.size() + (character == 0x130 ? 1 : 0))
            << static_cast<uint>(character);
    }
}

TEST(LowercasedText, lowersAsQtDoes)
{
    const QString text = u"\u0130A\u0130 \u1E9E \u03A3\u0391\u03A3 \U00010400\u0130"_s;
    EXPECT_EQ(lowercased(text), text.toLower());
}
