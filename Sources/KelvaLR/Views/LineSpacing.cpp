#include "Views/LineSpacing.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace KelvaLR {

void LineSpacing::setDocument(QQuickTextDocument *document)
{
    if (m_document == document) {
        return;
    }
    if (m_document) {
        m_document->textDocument()->disconnect(this);
    }
    m_document = document;
    if (m_document) {
        connect(m_document->textDocument(), &QTextDocument::contentsChanged, this, &LineSpacing::apply);
    }
    apply();
    Q_EMIT changed();
}

void LineSpacing::setDistance(qreal distance)
{
    if (!qFuzzyCompare(m_distance, distance)) {
        m_distance = distance;
        apply();
        Q_EMIT changed();
    }
}

void LineSpacing::apply()
{
    QTextDocument *const document = m_document ? m_document->textDocument() : nullptr;
    if (!document || qFuzzyCompare(document->lastBlock().blockFormat().lineHeight(), m_distance)) {
        return; // applying it is a change of the contents, too
    }
    QTextBlockFormat format;
    format.setLineHeight(m_distance, QTextBlockFormat::LineDistanceHeight);
    QTextCursor cursor(document);
    cursor.select(QTextCursor::Document);
    cursor.mergeBlockFormat(format);
}

} // namespace KelvaLR
