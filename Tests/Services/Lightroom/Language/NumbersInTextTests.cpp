#include "Services/Lightroom/Language/NumbersInText.h"

#include "Support/PrintQt.h"

#include <QRandomGenerator>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace KelvaLR {
namespace {

using namespace Qt::StringLiterals;

// What both functions stand for. The engine itself is used here, on texts short enough for it.
const QRegularExpression numberPattern(u"[-+]?(?:\\d+(?:\\.\\d+)?|\\.\\d+)"_s,
                                       QRegularExpression::UseUnicodePropertiesOption);
const QRegularExpression ratingPattern(u"(?:rate|rating|stars?|star)\\D*([0-5])|([0-5])\\s*(?:stars?|star)"_s,
                                       QRegularExpression::UseUnicodePropertiesOption);

QString expectedNumber(const QString &text)
{
    return numberPattern.match(text).captured(0);
}

std::optional<int> expectedRating(const QString &text)
{
    const QString digit = ratingPattern.match(text).captured(1) + ratingPattern.match(text).captured(2);
    return digit.isEmpty() ? std::nullopt : std::optional(digit.toInt());
}

/// Many texts of up to 12 of the pieces, in a random order.
QStringList randomTexts(quint32 seed, const QStringList &pieces)
{
    QRandomGenerator random(seed);
    QStringList texts(20000);
    for (QString &text : texts) {
        for (int count = random.bounded(12); count > 0; --count) {
            text += pieces.at(random.bounded(pieces.size()));
        }
    }
    return texts;
}

TEST(NumbersInText, agreeWithTheirExpressions)
{
    for (const QString &text : randomTexts(1, {u"-"_s, u"+"_s, u"."_s, u"1"_s, u"20"_s, u" "_s, u"by"_s,
                                               u"\u0663"_s, u"\U0001D7D8"_s, u"\U0001F600"_s})) {
        ASSERT_EQ(firstNumber(text).toString(), expectedNumber(text)) << text.toStdString();
    }
    for (const QString &text :
         randomTexts(2, {u"rate"_s, u"rating"_s, u"star"_s, u"s"_s, u" "_s, u"\u00A0"_s, u"it "_s, u"0"_s,
                         u"4"_s, u"7"_s, u"\u0663"_s, u"\U0001D7D8"_s, u"\U0001F600"_s})) {
        ASSERT_EQ(firstRating(text), expectedRating(text)) << text.toStdString();
    }
}

TEST(NumbersInText, lookPastLoneSurrogates)
{
    const QString text = QChar(0xD83D) + u"rate 4"_s + QChar(0xDE00);
    EXPECT_EQ(firstNumber(text), u"4");
    EXPECT_EQ(firstRating(text), 4);
}

} // namespace
} // namespace KelvaLR
