#include "Services/Lightroom/Plugin/PluginJson.h"

#include "Support/PrintQt.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>

using KelvaLR::Testing::PluginJson;

namespace {

constexpr qsizetype mebibyte = qsizetype{1024} * 1024;

} // namespace

TEST(PluginJson, readsTheWholeStandardAndWritesItTidily)
{
    const struct
    {
        QByteArray text;
        QByteArray written;
    } rows[] = {
        {R"({"b":1,"a":[true,false,null]})", R"({"a":[true,false,null],"b":1})"},
        {" \t\r\n{ \"a\" : [ ] , \"b\" : { } } \n", R"({"a":[],"b":{}})"},
        {R"("\"\\\/\b\f\n\r\t")", R"("\"\\/\b\f\n\r\t")"},
        {R"("\u0041\u00e9\u20AC")", "\"A\xC3\xA9\xE2\x82\xAC\""},
        {R"("\uD83D\uDE00")", "\"\xF0\x9F\x98\x80\""},
        {R"("\uDBFF\uDFFF")", "\"\xF4\x8F\xBF\xBF\""},
        {R"("\ud83d")", "\"\xEF\xBF\xBD\""},
        {R"("\ude00\ud83d\ud83d\ude00x")", "\"\xEF\xBF\xBD\xEF\xBF\xBD\xF0\x9F\x98\x80x\""},
        {R"("\u0000\u001f")", R"("\u0000\u001f")"},
        {"\"\x7F\xEF\xBF\xBF\"", "\"\x7F\xEF\xBF\xBF\""},
        {"[0,-0,10,-7,0.5,-0.25,1e3,1E-2,2.5e+1]", "[0,-0,10,-7,0.5,-0.25,1000,0.01,25]"},
        {"[0.1,0.30000000000000004,9007199254740993,1e-400]", "[0.1,0.30000000000000004,9007199254740992,0]"},
        {R"({"a":1,"b":2,"a":3})", R"({"a":3,"b":2})"},
        {R"({"":{"":[[],{}]}})", R"({"":{"":[[],{}]}})"},
        {"null", "null"},
        {"false", "false"},
        {"\"\"", "\"\""},
    };

    PluginJson json;
    for (const auto &row : rows) {
        const auto written = json.readAndWrite(row.text);
        ASSERT_TRUE(written.has_value()) << row.text.toStdString() << ": " << written.error().toStdString();
        EXPECT_EQ(*written, row.written) << row.text.toStdString();
    }
}

TEST(PluginJson, refusesWhatIsNoJson)
{
    const QByteArray texts[] = {// cut off
                                "", " ", "{", "[", "\"", "{\"a\"", "{\"a\":", "{\"a\":1", "{\"a\":1,", "[1",
                                "[1,", "\"a", "\"\\", "\"\\u12",
                                // no value, or more than one
                                "tru", "nul", "True", "nulls", "1 2", "{} {}", "[1,]", "{\"a\":1,}", "[,1]",
                                "{1:2}", "{a:1}", "{\"a\" 1}", "'a'", "// comment\n1", "\xEF\xBB\xBF{}",
                                // no number
                                "01", "-", "-01", "1.", ".5", "+1", "1e", "1e+", "0x10", "inf", "NaN",
                                "1e400", "-1e999",
                                // no text
                                "\"\\x\"", "\"\\u00g0\"", "\"\n\"", QByteArrayLiteral("\"\0\""),
                                // no UTF-8
                                "[1]\xFF", "\"\xFF\"", "\"\xC0\x80\"", "\"\xE0\x80\xAF\"", "\"\xED\xA0\x80\"",
                                "\"\xF4\x90\x80\x80\"", "\"\xE2\x82\"", "\"\xC3"};
    PluginJson json;
    for (const QByteArray &text : texts) {
        const auto written = json.readAndWrite(text);
        EXPECT_FALSE(written.has_value()) << text.toStdString() << " was read as " << written->toStdString();
    }
}

TEST(PluginJson, writesAnyBytesAsValidText)
{
    PluginJson json;
    EXPECT_EQ(json.write("a\"b\\c/d\n\x01"), R"("a\"b\\c/d\n\u0001")");
    EXPECT_EQ(json.write("caf\xC3\xA9 \xFF\xC3 \xED\xA0\x80"),
              "\"caf\xC3\xA9 \xEF\xBF\xBD\xEF\xBF\xBD \xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\"");
}

TEST(PluginJson, boundsTheDepthOfNesting)
{
    PluginJson json;
    const auto nested = [](int depth) -> QByteArray {
        return QByteArray(depth, '[') + QByteArray(depth, ']');
    };
    EXPECT_EQ(json.readAndWrite(nested(100)).value_or(QByteArray()), nested(100));
    EXPECT_FALSE(json.readAndWrite(nested(102)).has_value());
    EXPECT_FALSE(json.readAndWrite(QByteArray(mebibyte, '[')).has_value());
    EXPECT_FALSE(json.readAndWrite(QByteArray("{\"a\":").repeated(200'000)).has_value());
}

/// Each of these would take minutes if anything in the reader or the writer were quadratic.
TEST(PluginJson, readsAMebibyteWithoutDelay)
{
    const QByteArray texts[] = {
        '"' + QByteArray(mebibyte, 'a') + '"',
        '"' + QByteArray("\\n").repeated(mebibyte / 2) + '"',
        '"' + QByteArray("\\ud83d\\ude00").repeated(mebibyte / 12) + '"',
        '"' + QByteArray("\xE2\x82\xAC").repeated(mebibyte / 3) + '"',
        '[' + QByteArray("1,").repeated(mebibyte / 2) + "1]",
        '[' + QByteArray("{\"a\":\"b\"},").repeated(mebibyte / 10) + "{}]",
        QByteArray(mebibyte, ' ') + '1',
        QByteArray(mebibyte, '9'),
        QByteArray(mebibyte, '\xFF'),
    };
    PluginJson json;
    QElapsedTimer clock;
    clock.start();
    int readable = 0;
    for (const QByteArray &text : texts) {
        readable += json.readAndWrite(text).has_value() ? 1 : 0;
        EXPECT_GE(json.write(text).size(), text.size());
    }
    EXPECT_EQ(readable, 7);
    EXPECT_LT(clock.elapsed(), 30'000);
}
