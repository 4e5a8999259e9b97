#include "Support/PrintQt.h"
#include "Views/Markdown/MarkdownListModel.h"

#include <gtest/gtest.h>

namespace KelvaLR {

void PrintTo(const MarkdownElement &element, std::ostream *out)
{
    *out << static_cast<int>(element.kind) << ' ' << element.text.toStdString();
}

namespace {

using namespace Qt::StringLiterals;
using Kind = MarkdownElement::Kind;

TEST(Markdown, eachLineIsOneElement)
{
    const std::pair<QString, MarkdownElement> rows[] = {
        {u""_s, {Kind::spacer, {}}},
        {u" \t\u00a0"_s, {Kind::spacer, {}}},
        {u"# Title"_s, {Kind::h1, u"Title"_s}},
        {u"  ## Setup \t"_s, {Kind::h2, u"Setup"_s}},
        {u"### Deep"_s, {Kind::h3, u"Deep"_s}},
        {u"#   spaced"_s, {Kind::h1, u"  spaced"_s}},
        {u"#### x"_s, {Kind::paragraph, u"#### x"_s}},
        {u"#Title"_s, {Kind::paragraph, u"#Title"_s}},
        {u"#"_s, {Kind::paragraph, u"#"_s}},
        {u"- one"_s, {Kind::bullet, u"one"_s}},
        {u"* two"_s, {Kind::bullet, u"two"_s}},
        {u"*word*"_s, {Kind::paragraph, u"*word*"_s}},
        {u"-"_s, {Kind::paragraph, u"-"_s}},
        {u"12. Export"_s, {Kind::numbered, u"Export"_s}},
        {u"\u0663.\tExport "_s, {Kind::numbered, u"Export"_s}},
        {u"12 Export"_s, {Kind::paragraph, u"12 Export"_s}},
        {u"1.5 stops"_s, {Kind::paragraph, u"1.5 stops"_s}},
        {u"12."_s, {Kind::paragraph, u"12."_s}},
    };
    for (const auto &[line, element] : rows) {
        EXPECT_EQ(parseMarkdownLines(line), QList<MarkdownElement>{element}) << line.toStdString();
    }
    EXPECT_EQ(parseMarkdownLines(u"a\r\nb\u2028c\n"), (QList<MarkdownElement>{{Kind::paragraph, u"a"_s},
                                                                              {Kind::spacer, {}},
                                                                              {Kind::paragraph, u"b"_s},
                                                                              {Kind::paragraph, u"c"_s},
                                                                              {Kind::spacer, {}}}));
}

TEST(Markdown, pairsOfDoubleAsterisksAreBold)
{
    const std::pair<QString, QList<StyledRun>> rows[] = {
        {u""_s, {}},
        {u"plain *text*"_s, {{u"plain *text*"_s}}},
        {u"Make it **bold** and **this**"_s,
         {{u"Make it "_s}, {u"bold"_s, true}, {u" and "_s}, {u"this"_s, true}}},
        {u"**a** ** b"_s, {{u"a"_s, true}, {u" ** b"_s}}},
        {u"one ** two"_s, {{u"one ** two"_s}}},
        {u"****"_s, {}},
        {u"***a***"_s, {{u"*a"_s, true}, {u"*"_s}}},
    };
    for (const auto &[text, runs] : rows) {
        EXPECT_EQ(parseInlineStyles(text), runs) << text.toStdString();
    }
}

TEST(MarkdownListModel, aLongLineBecomesRowsThatLoseNothing)
{
    QString line(u"**"_s);
    for (int i = 0; i < 3000; ++i) {
        line += u"wörd 😀 "_s;
    }
    line += u"** and **"_s + QString(10'000, u'x') + u"**"_s;
    MarkdownListModel model;
    model.setMarkdown(line + u"\n- <b>&"_s);

    QString text;
    for (int row = 0; row < model.rowCount(); ++row) {
        const QModelIndex index = model.index(row);
        const QString rich = model.data(index, MarkdownListModel::RichTextRole).toString();
        EXPECT_LT(rich.size(), 4200);
        EXPECT_TRUE(rich.isValidUtf16());
        EXPECT_EQ(rich.count(u"<b>"_s), rich.count(u"</b>"_s));
        EXPECT_EQ(model.data(index, MarkdownListModel::ContinuationRole).toBool(),
                  row > 0 && row < model.rowCount() - 1);
        text += QString(rich)
                    .remove(u"<b>"_s)
                    .remove(u"</b>"_s)
                    .remove(u"</span>"_s)
                    .remove(u"<span style=\"white-space:pre-wrap\">"_s);
    }
    EXPECT_GT(model.rowCount(), 5);
    EXPECT_EQ(text, QString(line).remove(u"**"_s) + u"&lt;b&gt;&amp;"_s);
    model.setMarkdown(std::nullopt);
    EXPECT_EQ(model.rowCount(), 0);
    model.setMarkdown(QString());
    EXPECT_EQ(model.rowCount(), 1);
}

} // namespace

} // namespace KelvaLR
