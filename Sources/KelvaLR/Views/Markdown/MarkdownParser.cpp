#include "Views/Markdown/MarkdownParser.h"

#include <algorithm>
#include <array>
#include <optional>

namespace KelvaLR {

using namespace Qt::StringLiterals;
using Kind = MarkdownElement::Kind;

namespace {

struct MarkerRow
{
    QLatin1StringView marker;
    Kind kind;
};

constexpr std::array markers{
    MarkerRow{"# "_L1, Kind::h1},     MarkerRow{"## "_L1, Kind::h2},    MarkerRow{"### "_L1, Kind::h3},
    MarkerRow{"- "_L1, Kind::bullet}, MarkerRow{"* "_L1, Kind::bullet},
};

bool isLineBreak(QChar c)
{
    return (c >= u'\n' && c <= u'\r') || c == u'\u0085' || c == u'\u2028' || c == u'\u2029';
}

QStringView withoutBlanksAtTheEnds(QStringView text)
{
    const auto isBlank = [](QChar c) { return c == u'\t' || c.category() == QChar::Separator_Space; };
    while (!text.isEmpty() && isBlank(text.front())) {
        text = text.sliced(1);
    }
    while (!text.isEmpty() && isBlank(text.back())) {
        text.chop(1);
    }
    return text;
}

/// What stands behind a number, a full stop and white space.
std::optional<QStringView> numberedText(QStringView line)
{
    const auto *const afterDigits =
        std::ranges::find_if_not(line, [](QChar c) { return c.category() == QChar::Number_DecimalDigit; });
    const qsizetype digits = afterDigits - line.begin();
    if (digits == 0 || line.size() < digits + 2 || line[digits] != u'.' || !line[digits + 1].isSpace()) {
        return std::nullopt;
    }
    return withoutBlanksAtTheEnds(line.sliced(digits + 1));
}

MarkdownElement parseLine(QStringView line)
{
    line = withoutBlanksAtTheEnds(line);
    if (line.isEmpty()) {
        return {Kind::spacer, {}};
    }
    for (const MarkerRow &row : markers) {
        if (line.startsWith(row.marker)) {
            return {row.kind, line.sliced(row.marker.size()).toString()};
        }
    }
    if (const auto text = numberedText(line)) {
        return {Kind::numbered, text->toString()};
    }
    return {Kind::paragraph, line.toString()};
}

} // namespace

QList<MarkdownElement> parseMarkdownLines(QStringView markdown)
{
    QList<MarkdownElement> elements;
    while (true) {
        const auto *const end = std::ranges::find_if(markdown, isLineBreak);
        const qsizetype length = end - markdown.begin();
        elements.append(parseLine(markdown.first(length)));
        if (length == markdown.size()) {
            return elements;
        }
        markdown = markdown.sliced(length + 1);
    }
}

QList<StyledRun> parseInlineStyles(QStringView text)
{
    constexpr QLatin1StringView marker("**");
    QList<StyledRun> runs;
    const auto append = [&runs](QStringView part, bool isBold) {
        if (!part.isEmpty()) {
            runs.append({part.toString(), isBold});
        }
    };
    while (true) {
        const qsizetype opening = text.indexOf(marker);
        const qsizetype closing = opening < 0 ? -1 : text.indexOf(marker, opening + marker.size());
        if (closing < 0) {
            append(text, false);
            return runs;
        }
        append(text.first(opening), false);
        append(text.sliced(opening + marker.size(), closing - opening - marker.size()), true);
        text = text.sliced(closing + marker.size());
    }
}

} // namespace KelvaLR
