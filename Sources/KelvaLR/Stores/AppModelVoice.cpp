// The road of speech: the realtime session and the wake phrase listener share one microphone.
#include "Platform/RunningApplications.h"
#include "Services/Assistant/RealtimeVoiceService.h"
#include "Services/Lightroom/Language/LightroomCommandParser.h"
#include "Services/Lightroom/Language/SpokenNumbers.h"
#include "Services/Lightroom/MacComputerUseService.h"
#include "Services/Speech/WakePhraseListener.h"
#include "Stores/RespondingScope.h"
#include "Support/DetachedTask.h"
#include "Support/Posted.h"
#include "Support/TextTrimming.h"

#include <QCoreApplication>
#include <QTimer>

#include <chrono>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

/// The desktop may still be raising another window when ours is activated; by then it has settled.
constexpr std::chrono::milliseconds secondActivation{150};

/// Wraps what a callback does: posted to the main thread, and nothing once the model is gone.
template <typename... Arguments, typename Work>
std::function<void(Arguments...)> onMainThread(const QPointer<AppModel> &model, Work work)
{
    return [model, work](const Arguments &...arguments) {
        auto posted = [model, work, arguments...] {
            if (model) {
                work(*model, arguments...);
            }
        };
        QMetaObject::invokeMethod(QCoreApplication::instance(), Posted(std::move(posted)),
                                  Qt::QueuedConnection);
    };
}

/// The command that these words are, as they stand or with their numbers in digits.
std::optional<QString> spokenCommand(const QString &words, const FrontmostApplication &frontmost)
{
    for (const QString &text : {words, withSpokenNumbersRead(words)}) {
        if (LightroomCommandParser::parse(text, frontmost)) {
            return text;
        }
    }
    return std::nullopt;
}

QCoro::Task<RealtimeVoiceService::TargetPaths> targetPaths(QPointer<AppModel> model,
                                                           RealtimeImportedPhotoTargetRequest request)
{
    if (!model) {
        co_return std::nullopt;
    }
    co_return model->importedPhotoTargetPaths(request);
}

} // namespace

void AppModel::configureRealtimeVoice()
{
    RealtimeVoiceService &service = m_services.realtimeVoiceService;
    const QPointer<AppModel> self(this);
    service.onStateChange = onMainThread<RealtimeVoiceState>(
        self, [](AppModel &model, RealtimeVoiceState state) { model.handleRealtimeState(state); });
    service.onAssistantTranscript = onMainThread<QString>(
        self, [](AppModel &model, const QString &text) { model.upsertRealtimeTranscript(text); });
    service.onComputerUseStart = nullptr;
    service.onComputerUseResult =
        onMainThread<ComputerUseResult>(self, [](AppModel &model, const ComputerUseResult &result) {
            model.applyRealtimeComputerUseResult(result, Speak::no);
        });
    service.onResponseDone = onMainThread<>(self, [](AppModel &model) {
        model.m_realtimeTranscriptMessageID.reset();
        model.setResponding(false);
    });
    service.onWakePhraseDetected = onMainThread<>(self, [](AppModel &model) { model.bringAppToFront(); });
    service.onError = onMainThread<QString>(
        self, [](AppModel &model, const QString &message) { model.handleRealtimeError(message); });
    service.importedPhotoTargetPathsProvider = [self](RealtimeImportedPhotoTargetRequest request) {
        return targetPaths(self, std::move(request));
    };
}

void AppModel::configureWakeWordVoice()
{
    WakePhraseListener &listener = m_services.wakeWordVoiceService;
    const QPointer<AppModel> self(this);
    listener.onWake = onMainThread<std::optional<QString>>(
        self, [](AppModel &model, const std::optional<QString> &suffix) { model.handleWakePhrase(suffix); });
    listener.onListeningStateChange = onMainThread<bool>(
        self, [](AppModel &model, bool isListening) { model.setWakeWordListening(isListening); });
    listener.onError = onMainThread<QString>(self, [](AppModel &model, const QString &message) {
        model.setWakeWordListening(false);
        model.appendMessage(ConversationMessage::make(ConversationRole::assistant, InputMode::voice,
                                                      u"Wake phrase failed: "_s + message));
    });
}

void AppModel::handleRealtimeState(RealtimeVoiceState state)
{
    setRealtimeVoiceState(state);
    if (state == RealtimeVoiceState::connecting) {
        m_realtimeTranscriptMessageID.reset(); // its first reply is a message of its own
    }
    if (isRealtimeSessionBusy()) {
        m_services.wakeWordVoiceService.stop();
        setWakeWordListening(false);
        return;
    }
    m_realtimeTranscriptMessageID.reset();
    setResponding(false);
    startWakeWordListening();
}

void AppModel::handleRealtimeError(const QString &message)
{
    setResponding(false);
    m_services.realtimeVoiceService.writeLog(u"System error encountered: "_s + message);
    appendAssistantMessage(
        u"I'm having trouble connecting to my service right now. I've logged the issue for my "
        "administrator to look into. Please try again in a few moments."_s);
}

void AppModel::startWakeWordListening()
{
    if (!m_isSpeaking && !isRealtimeSessionBusy() && !m_services.realtimeVoiceService.holdsMicrophone()) {
        m_services.wakeWordVoiceService.start();
    }
}

void AppModel::handleWakePhrase(const std::optional<QString> &commandSuffix)
{
    bringAppToFront();
    setInputMode(InputMode::voice);
    setSelectedSection(SidebarSection::chat);
    setWakeWordListening(false);
    const QString words = commandSuffix.value_or(QString());
    if (const auto command = spokenCommand(words, m_services.applications)) {
        m_realtimeTranscriptMessageID.reset();
        appendMessage(ConversationMessage::make(ConversationRole::user, InputMode::voice, words));
        startDetached(executeSpokenCommand(*command));
        return;
    }
    startComputerUseVoiceMode();
}

QCoro::Task<> AppModel::executeSpokenCommand(QString text)
{
    const QPointer<AppModel> self(this);
    ComputerUseResult result;
    {
        const RespondingScope responding(*this);
        result = co_await m_services.computerUseService.execute(text);
    }
    if (!self) {
        co_return;
    }
    applyRealtimeComputerUseResult(result, Speak::yes);
    if (m_inputMode != InputMode::voice) {
        startWakeWordListening(); // quiet by now: no speech whose end would do it
    }
}

void AppModel::startComputerUseVoiceMode()
{
    setInputMode(InputMode::voice);
    setSelectedSection(SidebarSection::chat);
    stopSpeaking();
    m_services.wakeWordVoiceService.stop();
    setWakeWordListening(false);
    RealtimeVoiceService &service = m_services.realtimeVoiceService;
    startDetached(service.isActive() ? service.stop() : service.start(RealtimeSessionKind::voice));
}

void AppModel::setMode(InputMode mode)
{
    setInputMode(mode);
    if (mode == InputMode::voice) {
        startComputerUseVoiceMode();
    } else if (m_services.realtimeVoiceService.isActive()) {
        startDetached(m_services.realtimeVoiceService.setVoiceMode(RealtimeSessionKind::text));
    } else if (isRealtimeSessionBusy()) {
        startDetached(m_services.realtimeVoiceService.stop()); // before it has the microphone
    }
}

void AppModel::bringAppToFront()
{
    m_services.applications.bringOwnWindowsToFront();
    QTimer::singleShot(secondActivation, this, [this] { m_services.applications.bringOwnWindowsToFront(); });
}

void AppModel::upsertRealtimeTranscript(const QString &text)
{
    const QString transcript = trimmedWhitespace(text);
    if (!transcript.isEmpty()) {
        recordVoiceReply(transcript);
    }
}

void AppModel::recordVoiceReply(const QString &text)
{
    if (replaceMessageContent(m_realtimeTranscriptMessageID, text)) {
        return;
    }
    appendAssistantMessage(text);
    m_realtimeTranscriptMessageID = m_messages.last().id;
}

bool AppModel::isRealtimeSessionBusy() const
{
    return m_realtimeVoiceState != RealtimeVoiceState::idle &&
           m_realtimeVoiceState != RealtimeVoiceState::failed;
}

} // namespace KelvaLR
