#include "Support/NormalizedWords.h"
#include "Support/PrintQt.h"

#include <gtest/gtest.h>

using namespace KelvaLR;
using namespace Qt::StringLiterals;

TEST(NormalizedWords, keepsLettersNumbersAndSingleBlanks)
{
    const std::pair<QString, QString> cases[] = {
        {u"  Auto-Tone! "_s, u"autotone"_s},
        {u"Soft   Matte (2) - 2 stops_more"_s, u"soft matte 2 2 stopsmore"_s},
        {u"tab\tinside"_s, u"tab\tinside"_s},
        {u"\u2764\uFE0F Love"_s, u"love"_s}, // the variation selector goes with its emoji
        {u"Cafe\u0301 \u00BD"_s, u"caf\u00E9 \u00BD"_s},
        {u"!?\u2026"_s, QString()},
    };
    for (const auto &[text, normalized] : cases) {
        EXPECT_EQ(normalizedWords(text), normalized) << text.toStdString();
    }
}
