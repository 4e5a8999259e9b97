#pragma once

#include "Views/Markdown/MarkdownParser.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace KelvaLR {

/// The lines of a Markdown text, none for no text, as rows for a view that makes only those in sight. A line
/// longer than a screen becomes several rows, because a view lays out a row at once.
class MarkdownListModel : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the artifact's view model.")

public:
    /// What a row is; the values of the role `kind`.
    enum class Kind { H1, H2, H3, Bullet, Numbered, Paragraph, Spacer };
    Q_ENUM(Kind)

    enum Role { KindRole = Qt::UserRole, RichTextRole, ContinuationRole };

    using QAbstractListModel::QAbstractListModel;

    void setMarkdown(const std::optional<QString> &markdown);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    struct Row
    {
        MarkdownElement::Kind kind;
        QList<StyledRun> runs;
        bool isContinuation = false; ///< goes on with the line of the row before
    };

    void appendRows(const MarkdownElement &element);

    std::optional<QString> m_markdown;
    QList<Row> m_rows;
};

} // namespace KelvaLR
