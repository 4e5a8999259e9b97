#include "Views/Markdown/MarkdownListModel.h"

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestRow = 4000; ///< about a screenful of text

/// Where to end a row that has this much room left: behind a blank, never inside a character.
qsizetype rowLength(QStringView text, qsizetype room)
{
    if (text.size() <= room) {
        return text.size();
    }
    const qsizetype blank = text.first(room).lastIndexOf(u' ');
    if (blank > 0) {
        return blank + 1;
    }
    return text[room - 1].isHighSurrogate() ? room - 1 : room;
}

/// Headings are bold as a whole; what looks like a marker inside is text.
QList<StyledRun> runsOf(const MarkdownElement &element)
{
    using Kind = MarkdownElement::Kind;
    const bool isHeading = element.kind == Kind::h1 || element.kind == Kind::h2 || element.kind == Kind::h3;
    return isHeading ? QList<StyledRun>{{element.text, false}} : parseInlineStyles(element.text);
}

QString richText(const QList<StyledRun> &runs)
{
    QString html = u"<span style=\"white-space:pre-wrap\">"_s;
    for (const StyledRun &run : runs) {
        const QString text = run.text.toHtmlEscaped();
        html += run.isBold ? QString(u"<b>"_s + text + u"</b>"_s) : text;
    }
    return html + u"</span>"_s;
}

} // namespace

void MarkdownListModel::setMarkdown(const std::optional<QString> &markdown)
{
    if (m_markdown == markdown) {
        return;
    }
    beginResetModel();
    m_markdown = markdown;
    m_rows.clear();
    if (markdown) {
        for (const MarkdownElement &element : parseMarkdownLines(*markdown)) {
            appendRows(element);
        }
    }
    endResetModel();
}

void MarkdownListModel::appendRows(const MarkdownElement &element)
{
    m_rows.append({element.kind, {}, false});
    qsizetype room = longestRow;
    for (const StyledRun &run : runsOf(element)) {
        QStringView rest = run.text;
        while (!rest.isEmpty()) {
            const qsizetype length = room > 1 ? rowLength(rest, room) : 0;
            if (length > 0) {
                m_rows.last().runs.append({rest.first(length).toString(), run.isBold});
            }
            rest = rest.sliced(length);
            room -= length;
            if (!rest.isEmpty()) {
                m_rows.append({element.kind, {}, true});
                room = longestRow;
            }
        }
    }
}

int MarkdownListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant MarkdownListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const Row &row = m_rows.at(index.row());
    switch (role) {
    case KindRole:
        return QVariant::fromValue(static_cast<Kind>(row.kind));
    case RichTextRole:
        return richText(row.runs);
    case ContinuationRole:
        return row.isContinuation;
    default:
        return {};
    }
}

QHash<int, QByteArray> MarkdownListModel::roleNames() const
{
    return {{KindRole, "kind"}, {RichTextRole, "richText"}, {ContinuationRole, "isContinuation"}};
}

} // namespace KelvaLR
