#include "MarkdownTable.h"

namespace KelvaLR::UserGuide {

using namespace Qt::StringLiterals;

namespace {

QString row(const QStringList &cells)
{
    return u"| "_s + cells.join(u" | "_s) + u" |"_s;
}

} // namespace

MarkdownTable::MarkdownTable(const QStringList &head)
    : m_text(row(head) + u"\n|"_s + u"---|"_s.repeated(head.size()))
{
}

MarkdownTable &MarkdownTable::addRow(const QStringList &cells)
{
    m_text += u'\n' + row(cells);
    return *this;
}

} // namespace KelvaLR::UserGuide
