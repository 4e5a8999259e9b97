#pragma once

#include <QList>
#include <QString>

namespace KelvaLR {

/// One line of an artifact body, with its marker removed.
struct MarkdownElement
{
    enum class Kind { h1, h2, h3, bullet, numbered, paragraph, spacer };

    Kind kind = Kind::paragraph;
    QString text;

    bool operator==(const MarkdownElement &) const = default;
};

/// A stretch of text in one weight.
struct StyledRun
{
    QString text;
    bool isBold = false;

    bool operator==(const StyledRun &) const = default;
};

/// One element for each line; an empty text is one empty line. Any line break counts, so CR LF counts twice.
[[nodiscard]] QList<MarkdownElement> parseMarkdownLines(QStringView markdown);

/// Splits a text at its pairs of "**"; a marker without a partner stays as it is written.
[[nodiscard]] QList<StyledRun> parseInlineStyles(QStringView text);

} // namespace KelvaLR
