// The road of a typed request: from the composer to one of five destinations and back into the conversation.
#include "Platform/RunningApplications.h"
#include "Services/Assistant/AssistantActionRunner.h"
#include "Services/Assistant/AssistantProvider.h"
#include "Services/Assistant/RealtimeVoiceService.h"
#include "Services/Lightroom/LightroomSentences.h"
#include "Services/Lightroom/LightroomService.h"
#include "Services/Lightroom/MacComputerUseService.h"
#include "Stores/RespondingScope.h"
#include "Support/DetachedTask.h"
#include "Support/TextTrimming.h"

#include <QUrl>

namespace KelvaLR {

using namespace Qt::StringLiterals;

void AppModel::submitPrompt()
{
    const QString text = trimmedWhitespace(m_promptText);
    if (text.isEmpty() || m_isResponding) {
        return;
    }
    appendMessage(ConversationMessage::make(ConversationRole::user, m_inputMode, text));
    setPromptText({});
    startDetached(carryOut(routePrompt(text, m_services.applications), text));
}

QCoro::Task<> AppModel::carryOut(const PromptRoute &route, const QString &text)
{
    // Every destination holds a RespondingScope from its first line on, before it suspends.
    struct Destination
    {
        AppModel &model;
        const QString &text;

        QCoro::Task<> operator()(const Route::Ignored &) const { co_return; }

        QCoro::Task<> operator()(const Route::ConnectionTest &) const { return model.testConnection(); }

        QCoro::Task<> operator()(const Route::FolderImport &import) const
        {
            return model.importPhotos(QUrl::fromLocalFile(import.path));
        }

        QCoro::Task<> operator()(const Route::Batch &batch) const
        {
            return model.runImportedPhotoBatchIntent(batch.intent);
        }

        // The dispatcher is given the text, not the parsed command: it parses for itself.
        QCoro::Task<> operator()(const Route::Command &) const { return model.executeCommand(text); }

        QCoro::Task<> operator()(const Route::Chat &) const { return model.askAssistant(text); }
    };

    return std::visit(Destination{*this, text}, route);
}

QCoro::Task<> AppModel::testConnection()
{
    const RespondingScope responding(*this);
    const QPointer<AppModel> self(this);
    const bool isConnected = co_await m_services.lightroomService.ping(AutoStart::yes);
    if (!self) {
        co_return;
    }
    answer(isConnected ? connectedToPlugin() : NotConnected::howToConnect());
}

QCoro::Task<> AppModel::executeCommand(QString text)
{
    const RespondingScope responding(*this);
    const QPointer<AppModel> self(this);
    const ComputerUseResult result = co_await m_services.computerUseService.execute(text);
    if (!self) {
        co_return;
    }
    showArtifactAndSpeak(result, Speak::yes);
    appendAssistantMessage(result.summary);
}

QCoro::Task<> AppModel::askAssistant(QString text)
{
    const QPointer<AppModel> self(this);
    AssistantResponse response;
    {
        const RespondingScope responding(*this);
        response = co_await m_services.assistantProvider.respond({text, m_artifacts});
        if (!self) {
            co_return;
        }
        appendMessage(response.message);
        for (const Artifact &artifact : std::as_const(response.artifacts)) {
            appendArtifact(artifact);
        }
        if (!response.artifacts.isEmpty()) {
            setSelectedArtifactID(response.artifacts.last().id);
        }
        readResponse(response.message.content);
    }
    if (self && response.action) {
        startDetached(runAssistantAction(*response.action));
    }
}

QCoro::Task<> AppModel::runAssistantAction(AssistantAction action)
{
    const QPointer<AppModel> self(this);
    ComputerUseResult result;
    {
        const RespondingScope responding(*this);
        result = co_await m_services.assistantActions.run(action);
    }
    if (!self) {
        co_return;
    }
    if (result.artifact) {
        appendAndSelectArtifact(*result.artifact);
    }
    appendAssistantMessage(result.summary);
}

void AppModel::applyRealtimeComputerUseResult(const ComputerUseResult &result, Speak speak)
{
    // An active session writes its own transcript.
    if (!m_services.realtimeVoiceService.isActive()) {
        recordVoiceReply(result.summary);
    }
    showArtifactAndSpeak(result, speak);
}

void AppModel::showArtifactAndSpeak(const ComputerUseResult &result, Speak speak)
{
    if (result.artifact) {
        appendAndSelectArtifact(*result.artifact);
    }
    if (speak == Speak::yes && (m_inputMode == InputMode::voice || readsResponses())) {
        readAloud(result.summary);
    } else if (isRealtimeSessionBusy()) {
        m_services.realtimeVoiceService.finishLocalFeedbackAndScheduleIdleDisconnect();
    }
}

} // namespace KelvaLR
