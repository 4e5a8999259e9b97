#pragma once

#include "Models/Artifact.h"
#include "Views/Markdown/MarkdownListModel.h"
#include "Views/ViewModels/ImportedPhotoListModel.h"

#include <QObject>
#include <QString>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace KelvaLR {

class AppModel;

/// The artifact area as the window binds it: its header, the tray, the artifact in view and the latest reply.
/// Main thread. The model outlives it.
class ArtifactViewModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the application.")
    Q_PROPERTY(QString headerTitle READ headerTitle NOTIFY contentChanged)
    /// The latest assistant reply; empty when there is none or the artifact in view is newer.
    Q_PROPERTY(QString reply READ reply NOTIFY contentChanged)
    Q_PROPERTY(bool hasArtifact READ hasArtifact NOTIFY contentChanged)
    Q_PROPERTY(QString title READ title NOTIFY contentChanged)
    Q_PROPERTY(QString kindTitle READ kindTitle NOTIFY contentChanged)
    Q_PROPERTY(QString kindSymbol READ kindSymbol NOTIFY contentChanged)
    Q_PROPERTY(QString statusTitle READ statusTitle NOTIFY contentChanged)
    Q_PROPERTY(bool isRunning READ isRunning NOTIFY contentChanged)
    Q_PROPERTY(KelvaLR::MarkdownListModel *body READ body CONSTANT)
    Q_PROPERTY(KelvaLR::ImportedPhotoListModel *photos READ photos CONSTANT)

public:
    explicit ArtifactViewModel(AppModel &model, QObject *parent = nullptr);

    [[nodiscard]] const QString &headerTitle() const { return m_content.headerTitle; }

    [[nodiscard]] const QString &reply() const { return m_content.reply; }

    [[nodiscard]] bool hasArtifact() const { return m_content.artifact.has_value(); }

    [[nodiscard]] QString title() const;
    [[nodiscard]] QString kindTitle() const;
    [[nodiscard]] QString kindSymbol() const;
    [[nodiscard]] QString statusTitle() const;
    /// The work that the artifact records still goes on.
    [[nodiscard]] bool isRunning() const;

    /// Whether there is a folder among the places that are dragged over the tray.
    Q_INVOKABLE [[nodiscard]] bool canImport(const QList<QUrl> &places) const;

    [[nodiscard]] MarkdownListModel *body() { return &m_body; }

    [[nodiscard]] ImportedPhotoListModel *photos() { return &m_photos; }

Q_SIGNALS:
    void contentChanged();
    /// Another artifact or another reply has come into view, or none is any more.
    void contentReplaced();

private:
    struct Content
    {
        QString headerTitle;
        QUuid replyID; ///< null when no reply is in view
        QString reply;
        std::optional<Artifact> artifact;

        bool operator==(const Content &) const = default;
    };

    [[nodiscard]] static Content contentOf(const AppModel &model);
    void takeContent();

    AppModel &m_model;
    Content m_content;
    MarkdownListModel m_body;
    ImportedPhotoListModel m_photos;
};

} // namespace KelvaLR
