#include "Support/OrderedJsonObject.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>

#include <gtest/gtest.h>

using namespace KelvaLR;
using namespace Qt::StringLiterals;

TEST(OrderedJsonObject, keepsTheOrderOfItsMembersAndWritesNumbersShort)
{
    QLocale::setDefault(QLocale(QLocale::German));
    const auto inner = OrderedJsonObject().add("z"_L1, QJsonValue()).add("a"_L1, true);
    const auto outer = OrderedJsonObject()
                           .add("text"_L1, u"hi"_s)
                           .add("b"_L1, inner)
                           .add("a"_L1, QList{inner, OrderedJsonObject()})
                           .add("numbers"_L1, QJsonArray{1, -0.5, 0.1, 5500, 1234567.25, 1e300});
    EXPECT_EQ(outer.toJson(), R"({"text":"hi","b":{"z":null,"a":true},"a":[{"z":null,"a":true},{}],)"
                              R"("numbers":[1,-0.5,0.1,5500,1234567.25,1e+300]})");
    QLocale::setDefault(QLocale::c());
}

TEST(OrderedJsonObject, isOneLineForEveryReaderAndGivesEveryTextBack)
{
    QString text = u"\uFEFF\"\\/\b\f\n\r\t\v\u007F\u0085\u2028\u2029\u0130\U0001F600"_s;
    text += QChar(0);
    text += QChar(0xD83D); // a lone half of a surrogate pair
    const QByteArray json = OrderedJsonObject().add("text"_L1, text).toJson();
    for (const char *lineBreak : {"\n", "\r", "\v", "\f", "\xC2\x85", "\xE2\x80\xA8", "\xE2\x80\xA9"}) {
        EXPECT_FALSE(json.contains(lineBreak)) << json.toStdString();
    }
    EXPECT_EQ(QJsonDocument::fromJson(json).object().value("text"_L1).toString(), text);
}
