#pragma once

#include <QStringList>

namespace KelvaLR::UserGuide {

/// A table of Markdown: its head, then its rows, each of as many cells. No line feed at its end.
class MarkdownTable
{
public:
    explicit MarkdownTable(const QStringList &head);

    MarkdownTable &addRow(const QStringList &cells);

    [[nodiscard]] const QString &text() const { return m_text; }

private:
    QString m_text;
};

} // namespace KelvaLR::UserGuide
