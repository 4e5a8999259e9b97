#include "Support/DecimalNumber.h"

#include <QString>

#include <gtest/gtest.h>

#include <limits>

using namespace KelvaLR;
using namespace Qt::StringLiterals;

TEST(DecimalNumber, isTheWholeTextInDecimalOrExponentNotation)
{
    const std::pair<QString, double> cases[] = {
        {u"5500"_s, 5500},
        {u"-0.5"_s, -0.5},
        {u"+.5"_s, 0.5},
        {u"1e3"_s, 1000},
        {u"2.5E-1"_s, .25},
        {u"4."_s, 4},
        {u"1e-999"_s, 0.0},
        {u"0."_s + QString(400, u'0') + u'1', 0.0},
        {u"5e-324"_s, std::numeric_limits<double>::denorm_min()},
    };
    for (const auto &[text, number] : cases) {
        EXPECT_EQ(decimalNumber(text), number) << text.toStdString();
    }
    for (const QString &text :
         {QString(), u" 1"_s, u"1 "_s, u"1,5"_s, u"+-1"_s, u"--1"_s, u"."_s, u"e5"_s, u"1e"_s, u"inf"_s,
          u"nan"_s, u"0x10"_s, u"1e999"_s, u"-1e999"_s, QString(400, u'9'), u"\u0663"_s}) {
        EXPECT_EQ(decimalNumber(text), std::nullopt) << text.toStdString();
    }
}

TEST(DecimalNumber, truncatesOnlyWhatFitsAnInteger)
{
    const std::pair<double, std::optional<qint64>> cases[] = {
        {3.9, 3},
        {-3.9, -3},
        {-9223372036854775808.0, std::numeric_limits<qint64>::min()},
        {9223372036854775808.0, std::nullopt},
        {std::numeric_limits<double>::infinity(), std::nullopt},
        {std::numeric_limits<double>::quiet_NaN(), std::nullopt},
    };
    for (const auto &[value, integer] : cases) {
        EXPECT_EQ(truncatedInteger(value), integer) << value;
    }
}
