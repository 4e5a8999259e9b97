#include "Stores/AppModel.h"

#include "Services/Assistant/AssistantProvider.h"
#include "Services/Assistant/RealtimeVoiceService.h"
#include "Services/Lightroom/LightroomConnectionWatch.h"
#include "Services/Speech/WakePhraseListener.h"
#include "Support/DetachedTask.h"

#include <algorithm>

namespace KelvaLR {

AppModel::AppModel(const AppModelServices &services, QObject *parent)
    : QObject(parent)
    , m_services(services)
    , m_assistantProviderKind(services.assistantProvider.kind())
{
    connect(&services.lightroomConnection, &LightroomConnectionWatch::connectionChanged, this,
            &AppModel::updateLightroomHint);
    configureRealtimeVoice();
    configureWakeWordVoice();
    startWakeWordListening();
}

AppModel::~AppModel() = default;

std::optional<Artifact> AppModel::selectedArtifact() const
{
    const auto selected = std::ranges::find_if(
        m_artifacts, [&](const Artifact &artifact) { return artifact.id == m_selectedArtifactID; });
    if (selected != m_artifacts.end()) {
        return *selected;
    }
    return m_artifacts.isEmpty() ? std::nullopt : std::optional(m_artifacts.first());
}

QList<ImportedPhotoAsset> AppModel::selectedImportedPhotos() const
{
    QList<ImportedPhotoAsset> selected = m_importedPhotos;
    selected.removeIf(
        [&](const ImportedPhotoAsset &photo) { return !m_selectedImportedPhotoIDs.contains(photo.id); });
    return selected;
}

void AppModel::startNewSession()
{
    startDetached(m_services.realtimeVoiceService.stop());
    if (m_isSpeaking) {
        stopSpeaking();
        startWakeWordListening();
    }
    m_messages.clear();
    Q_EMIT messagesChanged();
    m_artifacts.clear();
    Q_EMIT artifactsChanged();
    setSelectedArtifactID(std::nullopt);
    setSelectedSection(SidebarSection::chat);
    setPromptText({});
}

void AppModel::applyIntentRoute(const AppIntentRoute &route)
{
    setSelectedSection(SidebarSection::chat);
    if (!route.prefilledPrompt || route.prefilledPrompt->isEmpty()) {
        return;
    }
    setPromptText(*route.prefilledPrompt);
    requestPromptFocus();
}

void AppModel::requestPromptFocus()
{
    m_shouldFocusPrompt = !m_shouldFocusPrompt;
    Q_EMIT shouldFocusPromptChanged();
}

void AppModel::appendMessage(const ConversationMessage &message)
{
    m_messages.append(message);
    Q_EMIT messagesChanged();
    Q_EMIT messageAppended(message);
}

void AppModel::appendAssistantMessage(const QString &content)
{
    appendMessage(ConversationMessage::make(ConversationRole::assistant, m_inputMode, content));
}

bool AppModel::replaceMessageContent(std::optional<QUuid> id, const QString &content)
{
    const auto message = std::ranges::find_if(
        m_messages, [&](const ConversationMessage &candidate) { return candidate.id == id; });
    if (message == m_messages.end()) {
        return false;
    }
    if (message->content != content) {
        message->content = content;
        Q_EMIT messagesChanged();
    }
    return true;
}

void AppModel::appendArtifact(const Artifact &artifact)
{
    m_artifacts.append(artifact);
    Q_EMIT artifactsChanged();
    Q_EMIT artifactAppended(artifact);
}

void AppModel::appendAndSelectArtifact(const Artifact &artifact)
{
    appendArtifact(artifact);
    setSelectedArtifactID(artifact.id);
}

void AppModel::setPromptText(const QString &text)
{
    if (m_promptText != text) {
        m_promptText = text;
        Q_EMIT promptTextChanged();
    }
}

void AppModel::setSelectedArtifactID(std::optional<QUuid> id)
{
    if (m_selectedArtifactID != id) {
        m_selectedArtifactID = id;
        Q_EMIT selectedArtifactIDChanged();
    }
}

void AppModel::setResponding(bool isResponding)
{
    if (m_isResponding != isResponding) {
        m_isResponding = isResponding;
        Q_EMIT isRespondingChanged();
    }
}

void AppModel::setInputMode(InputMode mode)
{
    if (m_inputMode != mode) {
        m_inputMode = mode;
        Q_EMIT inputModeChanged();
    }
}

void AppModel::setSelectedSection(SidebarSection section)
{
    if (m_selectedSection != section) {
        m_selectedSection = section;
        Q_EMIT selectedSectionChanged();
    }
}

void AppModel::setRealtimeVoiceState(RealtimeVoiceState state)
{
    if (m_realtimeVoiceState != state) {
        m_realtimeVoiceState = state;
        Q_EMIT realtimeVoiceStateChanged();
    }
}

void AppModel::setWakeWordListening(bool isListening)
{
    if (m_isWakeWordListening != isListening) {
        m_isWakeWordListening = isListening;
        Q_EMIT isWakeWordListeningChanged();
    }
}

void AppModel::setSelectedImportedPhotoIDs(const QSet<QUuid> &ids)
{
    if (m_selectedImportedPhotoIDs != ids) {
        m_selectedImportedPhotoIDs = ids;
        Q_EMIT selectedImportedPhotoIDsChanged();
    }
}

} // namespace KelvaLR
