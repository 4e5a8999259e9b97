#pragma once

#include <QObject>
#include <QPointer>
#include <QQuickTextDocument>
#include <QtQml/qqmlregistration.h>

namespace KelvaLR {

/// Sets the lines of a text document apart, which editable and selectable text has no property for.
class LineSpacing : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickTextDocument *document READ document WRITE setDocument NOTIFY changed)
    /// Points between two lines, beyond the font's own.
    Q_PROPERTY(qreal distance READ distance WRITE setDistance NOTIFY changed)

public:
    using QObject::QObject;

    [[nodiscard]] QQuickTextDocument *document() const { return m_document; }

    void setDocument(QQuickTextDocument *document);

    [[nodiscard]] qreal distance() const { return m_distance; }

    void setDistance(qreal distance);

Q_SIGNALS:
    void changed();

private:
    void apply();

    QPointer<QQuickTextDocument> m_document;
    qreal m_distance = 0;
};

} // namespace KelvaLR
