#pragma once

#include "Models/AppIntentRoute.h"
#include "Models/Artifact.h"
#include "Models/AssistantProviderKind.h"
#include "Models/ComputerUseResult.h"
#include "Models/ConversationMessage.h"
#include "Models/ImportedPhotoAsset.h"
#include "Models/RealtimeImportedPhotoTargetRequest.h"
#include "Models/RealtimeVoiceState.h"
#include "Services/Lightroom/Language/ImportedPhotoBatchIntent.h"
#include "Services/Lightroom/Language/PromptRouter.h"
#include "Services/Lightroom/LightroomConnection.h"

#include <QCoroTask>

#include <QList>
#include <QObject>
#include <QSet>
#include <QStringList>

#include <optional>

namespace KelvaLR {

class AssistantActionRunner;
class AssistantProvider;
class LightroomConnectionWatch;
class LightroomService;
class MacComputerUseService;
class Preferences;
class RealtimeVoiceService;
class RunningApplications;
class SpokenFeedback;
class WakePhraseListener;
struct AssistantAction;
struct AssistantResponse;

/// What the model works with. Everything here outlives the model.
struct AppModelServices
{
    AssistantProvider &assistantProvider;
    MacComputerUseService &computerUseService;
    RealtimeVoiceService &realtimeVoiceService;
    WakePhraseListener &wakeWordVoiceService;
    SpokenFeedback &speechFeedbackService;
    LightroomService &lightroomService;
    LightroomConnectionWatch &lightroomConnection;
    AssistantActionRunner &assistantActions;
    RunningApplications &applications;
    const Preferences &preferences;
};

/// The one application model: conversation, artifacts, imported photos and modes, and the road of every
/// request to the service that executes it. Lives on the main thread, where every property is read and
/// written; it is the only writer of its lists. Each road stands in a file of its own.
class AppModel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString promptText READ promptText WRITE setPromptText NOTIFY promptTextChanged)
    Q_PROPERTY(bool isResponding READ isResponding NOTIFY isRespondingChanged)
    Q_PROPERTY(bool shouldFocusPrompt READ shouldFocusPrompt NOTIFY shouldFocusPromptChanged)
    Q_PROPERTY(bool isWakeWordListening READ isWakeWordListening NOTIFY isWakeWordListeningChanged)
    Q_PROPERTY(QList<KelvaLR::ConversationMessage> messages READ messages NOTIFY messagesChanged)
    Q_PROPERTY(QList<KelvaLR::Artifact> artifacts READ artifacts NOTIFY artifactsChanged)
    Q_PROPERTY(
        QList<KelvaLR::ImportedPhotoAsset> importedPhotos READ importedPhotos NOTIFY importedPhotosChanged)

public:
    /// Whether a result is read aloud when the mode is `voice` or the user wants to hear every response.
    enum class Speak { no, yes };
    /// Whether a click on a photo adds to the selection or replaces it.
    enum class Selection { replace, extend };

    explicit AppModel(const AppModelServices &services, QObject *parent = nullptr);
    ~AppModel() override;

    [[nodiscard]] const QString &promptText() const { return m_promptText; }

    [[nodiscard]] bool isResponding() const { return m_isResponding; }

    [[nodiscard]] InputMode inputMode() const { return m_inputMode; }

    /// A signal rather than a state: every change asks the composer to take keyboard focus.
    [[nodiscard]] bool shouldFocusPrompt() const { return m_shouldFocusPrompt; }

    [[nodiscard]] std::optional<SidebarSection> selectedSection() const { return m_selectedSection; }

    [[nodiscard]] AssistantProviderKind assistantProviderKind() const { return m_assistantProviderKind; }

    [[nodiscard]] RealtimeVoiceState realtimeVoiceState() const { return m_realtimeVoiceState; }

    [[nodiscard]] bool isWakeWordListening() const { return m_isWakeWordListening; }

    [[nodiscard]] const QList<ConversationMessage> &messages() const { return m_messages; }

    [[nodiscard]] const QList<Artifact> &artifacts() const { return m_artifacts; }

    [[nodiscard]] std::optional<QUuid> selectedArtifactID() const { return m_selectedArtifactID; }

    /// The artifact that is selected, else the first one, else none.
    [[nodiscard]] std::optional<Artifact> selectedArtifact() const;

    [[nodiscard]] const QList<ImportedPhotoAsset> &importedPhotos() const { return m_importedPhotos; }

    /// May hold ids of photos that have been removed.
    [[nodiscard]] const QSet<QUuid> &selectedImportedPhotoIDs() const { return m_selectedImportedPhotoIDs; }

    /// The selected photos, in the order of `importedPhotos`.
    [[nodiscard]] QList<ImportedPhotoAsset> selectedImportedPhotos() const;

    /// What keeps requests from reaching Lightroom; none when nothing does, or once the user has seen enough.
    [[nodiscard]] std::optional<LightroomConnection> lightroomHint() const;

    void setPromptText(const QString &text);
    void setSelectedArtifactID(std::optional<QUuid> id);

    /// Submits `promptText`; does nothing while a request runs or when it is blank. Returns at once.
    Q_INVOKABLE void submitPrompt();
    /// Empties the conversation and the artifacts and stops the realtime session; imported photos stay.
    Q_INVOKABLE void startNewSession();
    /// Asks the composer to take keyboard focus.
    void requestPromptFocus();
    /// Shows what a system action asks for; a prefilled prompt waits in the composer, nothing is submitted.
    void applyIntentRoute(const AppIntentRoute &route);
    /// Records a result in the voice reply message, shows its artifact and reads it aloud.
    void applyRealtimeComputerUseResult(const ComputerUseResult &result, Speak speak);

    /// Imports a folder into the catalog and, when Lightroom accepts it, its photos into the tray.
    QCoro::Task<> importPhotos(QUrl folder);
    void selectImportedPhoto(const ImportedPhotoAsset &photo, Selection selection);
    void removeImportedPhoto(const ImportedPhotoAsset &photo);
    /// The photos that a request means: all of them, or the selected ones.
    [[nodiscard]] QList<ImportedPhotoAsset> targetImportedPhotos(const QString &text) const;
    /// None when the tool call does not speak of imported photos; an empty list when it does and none is
    /// there.
    [[nodiscard]] std::optional<QStringList>
    importedPhotoTargetPaths(const RealtimeImportedPhotoTargetRequest &request) const;

    /// Finds out anew whether requests can reach Lightroom. Nothing is found out before the first call.
    void lookAtLightroom();
    /// Keeps the hint away until it becomes another one.
    void dismissLightroomHint();
    /// Opens an installed Lightroom and says how that went; does nothing while a request runs.
    void openLightroom();

    /// Switches between written and spoken work; `voice` starts the realtime session, or stops a running one.
    void setMode(InputMode mode);
    void startComputerUseVoiceMode();
    void startWakeWordListening();
    /// Brings the windows forward at once and again a moment later, when the desktop has settled.
    void bringAppToFront();

Q_SIGNALS:
    void promptTextChanged();
    void isRespondingChanged();
    void inputModeChanged();
    void shouldFocusPromptChanged();
    void selectedSectionChanged();
    void realtimeVoiceStateChanged();
    void isWakeWordListeningChanged();
    void messagesChanged();
    void artifactsChanged();
    void selectedArtifactIDChanged();
    void importedPhotosChanged();
    void selectedImportedPhotoIDsChanged();
    void lightroomHintChanged();
    /// Emitted after the list holds the new entry.
    void messageAppended(const KelvaLR::ConversationMessage &message);
    void artifactAppended(const KelvaLR::Artifact &artifact);

private:
    class RespondingScope;

    void appendMessage(const ConversationMessage &message);
    void appendAssistantMessage(const QString &content);
    void appendArtifact(const Artifact &artifact);
    void appendAndSelectArtifact(const Artifact &artifact);
    bool replaceMessageContent(std::optional<QUuid> id, const QString &content);
    void setResponding(bool isResponding);
    void setInputMode(InputMode mode);
    void setSelectedSection(SidebarSection section);
    void setRealtimeVoiceState(RealtimeVoiceState state);
    void setWakeWordListening(bool isListening);
    void setSelectedImportedPhotoIDs(const QSet<QUuid> &ids);

    // AppModelPrompt.cpp
    QCoro::Task<> carryOut(const PromptRoute &route, const QString &text);
    QCoro::Task<> testConnection();
    QCoro::Task<> executeCommand(QString text);
    QCoro::Task<> askAssistant(QString text);
    QCoro::Task<> runAssistantAction(AssistantAction action);
    void showArtifactAndSpeak(const ComputerUseResult &result, Speak speak);

    // AppModelLightroom.cpp
    void updateLightroomHint();
    QCoro::Task<> openInstalledLightroom();

    // AppModelSpeech.cpp
    void answer(const QString &content);
    void readResponse(const QString &text);
    [[nodiscard]] bool readsResponses() const;
    void readAloud(const QString &text);
    void finishSpeaking();
    void stopSpeaking();

    // AppModelImportedPhotos.cpp
    QCoro::Task<> runImportedPhotoBatchIntent(ImportedPhotoBatchIntent intent);
    QCoro::Task<QString> performBatch(const ImportedPhotoBatchIntent &intent, const QStringList &paths);
    void addImportedPhotos(const QStringList &paths);

    // AppModelVoice.cpp
    void configureRealtimeVoice();
    void configureWakeWordVoice();
    void handleRealtimeState(RealtimeVoiceState state);
    void handleRealtimeError(const QString &message);
    void handleWakePhrase(const std::optional<QString> &commandSuffix);
    QCoro::Task<> executeSpokenCommand(QString text);
    void upsertRealtimeTranscript(const QString &text);
    void recordVoiceReply(const QString &text);
    [[nodiscard]] bool isRealtimeSessionBusy() const;

    AppModelServices m_services;

    QString m_promptText;
    bool m_isResponding = false;
    InputMode m_inputMode = InputMode::quiet;
    bool m_shouldFocusPrompt = false;
    std::optional<SidebarSection> m_selectedSection = SidebarSection::chat;
    AssistantProviderKind m_assistantProviderKind;
    RealtimeVoiceState m_realtimeVoiceState = RealtimeVoiceState::idle;
    bool m_isWakeWordListening = false;
    bool m_isSpeaking = false; ///< with our own voice
    QList<ConversationMessage> m_messages;
    QList<Artifact> m_artifacts;
    std::optional<QUuid> m_selectedArtifactID;
    QList<ImportedPhotoAsset> m_importedPhotos;
    QSet<QUuid> m_selectedImportedPhotoIDs;
    /// The message that the current voice reply is written into.
    std::optional<QUuid> m_realtimeTranscriptMessageID;
    std::optional<LightroomConnection> m_dismissedHint;
};

} // namespace KelvaLR
