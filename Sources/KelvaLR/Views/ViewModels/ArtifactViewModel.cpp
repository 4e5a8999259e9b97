#include "Views/ViewModels/ArtifactViewModel.h"

#include "Stores/AppModel.h"
#include "Stores/PhotoFolder.h"
#include "Views/ViewModels/ArtifactPresentation.h"

#include <algorithm>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

std::optional<ConversationMessage> latestAssistantMessage(const QList<ConversationMessage> &messages)
{
    const auto latest = std::find_if(messages.crbegin(), messages.crend(), [](const auto &message) {
        return message.role == ConversationRole::assistant;
    });
    return latest == messages.crend() ? std::nullopt : std::optional(*latest);
}

} // namespace

ArtifactViewModel::ArtifactViewModel(AppModel &model, QObject *parent)
    : QObject(parent)
    , m_model(model)
    , m_photos(model)
{
    connect(&model, &AppModel::messagesChanged, this, &ArtifactViewModel::takeContent);
    connect(&model, &AppModel::artifactsChanged, this, &ArtifactViewModel::takeContent);
    connect(&model, &AppModel::selectedArtifactIDChanged, this, &ArtifactViewModel::takeContent);
    takeContent();
}

QString ArtifactViewModel::title() const
{
    return hasArtifact() ? m_content.artifact->title : QString();
}

QString ArtifactViewModel::kindTitle() const
{
    return hasArtifact() ? KelvaLR::title(m_content.artifact->kind) : QString();
}

QString ArtifactViewModel::kindSymbol() const
{
    return hasArtifact() ? symbol(m_content.artifact->kind) : QString();
}

QString ArtifactViewModel::statusTitle() const
{
    return hasArtifact() ? KelvaLR::title(m_content.artifact->status) : QString();
}

bool ArtifactViewModel::isRunning() const
{
    return hasArtifact() && m_content.artifact->status == ArtifactStatus::running;
}

bool ArtifactViewModel::canImport(const QList<QUrl> &places) const
{
    return !foldersAmong(places).isEmpty();
}

ArtifactViewModel::Content ArtifactViewModel::contentOf(const AppModel &model)
{
    const auto artifact = model.selectedArtifact();
    const auto message = latestAssistantMessage(model.messages());
    const bool isReplyInView = message && (!artifact || message->createdAt > artifact->createdAt);
    const QString waiting = message ? u"Realtime Output"_s : u"Waiting for Response"_s;
    Content content{.headerTitle = artifact ? artifact->title : waiting, .artifact = artifact};
    if (isReplyInView) {
        content.replyID = message->id;
        content.reply = message->content;
    }
    return content;
}

void ArtifactViewModel::takeContent()
{
    if (Content content = contentOf(m_model); content != m_content) {
        const auto idOf = [](const auto &artifact) { return artifact ? artifact->id : QUuid(); };
        const bool isReplaced =
            content.replyID != m_content.replyID || idOf(content.artifact) != idOf(m_content.artifact);
        m_content = std::move(content);
        m_body.setMarkdown(hasArtifact() ? std::optional(m_content.artifact->body) : std::nullopt);
        Q_EMIT contentChanged();
        if (isReplaced) {
            Q_EMIT contentReplaced();
        }
    }
}

} // namespace KelvaLR
