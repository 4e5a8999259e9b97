// The road of what the service sends: each event is handled to its end before the next.
#include "Services/Assistant/Realtime/OpenAIRealtimeVoiceService.h"
#include "Services/Assistant/Realtime/RealtimeClientEvents.h"
#include "Services/Assistant/Realtime/RealtimeConnection.h"
#include "Services/Assistant/Realtime/RealtimePhrases.h"
#include "Support/DetachedTask.h"

#include <QJsonObject>
#include <QPointer>

#include <array>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView functionCall("response.function_call_arguments.done");

/// Refusals that leave the session as it is.
constexpr QLatin1StringView noActiveResponse("no active response found");
constexpr QLatin1StringView alreadyActiveResponse("already has an active response");

QString quoted(const QString &text)
{
    return u'"' + text + u'"';
}

} // namespace

struct OpenAIRealtimeVoiceService::EventRow
{
    QLatin1StringView type;
    void (OpenAIRealtimeVoiceService::*handle)(const RealtimeServerEvent &);
};

void OpenAIRealtimeVoiceService::receive(const QByteArray &frame)
{
    m_frames.push_back(frame);
    if (!m_isHandling) {
        startDetached(handleFrames());
    }
}

/// Ends with the session, also when a tool call of it is still under way: the next session has its own.
QCoro::Task<> OpenAIRealtimeVoiceService::handleFrames()
{
    const Self self(this);
    const int session = m_session;
    m_isHandling = true;
    while (self && isOf(session) && !m_frames.empty()) {
        const QByteArray frame = std::move(m_frames.front());
        m_frames.pop_front();
        const std::optional<RealtimeServerEvent> event = RealtimeServerEvent::parse(frame);
        if (!event) {
            continue;
        }
        writeLog("Received Realtime WebSocket event: "_L1 + event->type);
        if (event->type == functionCall) {
            co_await handleFunctionCall(*event);
        } else {
            handle(*event);
        }
    }
    if (self && isOf(session)) {
        m_isHandling = false;
    }
}

void OpenAIRealtimeVoiceService::handle(const RealtimeServerEvent &event)
{
    using Service = OpenAIRealtimeVoiceService;
    // Events that are not here, such as "input_audio_buffer.speech_stopped", only stand in the log. Some
    // services name the text of a reply "output_text".
    static constexpr std::array rows{
        EventRow{"session.created"_L1, &Service::handleSessionCreated},
        EventRow{"input_audio_buffer.speech_started"_L1, &Service::handleSpeechStarted},
        EventRow{"response.created"_L1, &Service::handleResponseCreated},
        EventRow{"response.output_audio.delta"_L1, &Service::handleAudioDelta},
        EventRow{"response.output_audio_transcript.delta"_L1, &Service::handleTextDelta},
        EventRow{"response.text.delta"_L1, &Service::handleTextDelta},
        EventRow{"response.output_text.delta"_L1, &Service::handleTextDelta},
        EventRow{"response.output_audio_transcript.done"_L1, &Service::handleTranscriptDone},
        EventRow{"response.text.done"_L1, &Service::handleTextDone},
        EventRow{"response.output_text.done"_L1, &Service::handleTextDone},
        EventRow{"conversation.item.input_audio_transcription.completed"_L1,
                 &Service::handleUserTranscription},
        EventRow{"response.done"_L1, &Service::handleResponseDone},
        EventRow{"error"_L1, &Service::handleError},
    };
    for (const EventRow &row : rows) {
        if (event.type == row.type) {
            (this->*row.handle)(event);
            return;
        }
    }
}

void OpenAIRealtimeVoiceService::handleSessionCreated(const RealtimeServerEvent &)
{
    finishConnecting(QString());
}

void OpenAIRealtimeVoiceService::handleSpeechStarted(const RealtimeServerEvent &)
{
    m_idleDisconnect.stop();
    if (m_suppressComputerUseUntil.hasExpired()) {
        m_didExecuteComputerUse = false;
    }
}

void OpenAIRealtimeVoiceService::handleResponseCreated(const RealtimeServerEvent &)
{
    m_didExecuteComputerUse = false;
    ++m_reply;
}

void OpenAIRealtimeVoiceService::handleAudioDelta(const RealtimeServerEvent &event)
{
    const auto delta = event.text("delta"_L1);
    if (!isVoiceSession() || !delta) {
        return;
    }
    const auto sound =
        QByteArray::fromBase64Encoding(delta->toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
    if (!sound || sound.decoded.isEmpty()) {
        return;
    }
    m_gate.isSpeaking = true;
    m_audio.play(sound.decoded);
    enter(RealtimeTransition::audioArrived);
}

void OpenAIRealtimeVoiceService::handleTextDelta(const RealtimeServerEvent &event)
{
    if (const auto delta = event.text("delta"_L1)) {
        m_transcriptBuffer += *delta;
        emitAssistantTranscript();
    }
}

void OpenAIRealtimeVoiceService::handleTranscriptDone(const RealtimeServerEvent &event)
{
    takeWholeTranscript(event.text("transcript"_L1));
}

void OpenAIRealtimeVoiceService::handleTextDone(const RealtimeServerEvent &event)
{
    takeWholeTranscript(event.text("text"_L1));
}

void OpenAIRealtimeVoiceService::takeWholeTranscript(const std::optional<QString> &text)
{
    if (text) {
        m_transcriptBuffer = *text;
        emitAssistantTranscript();
        writeLog("Assistant response transcript: "_L1 + quoted(*text));
    }
}

void OpenAIRealtimeVoiceService::emitAssistantTranscript()
{
    if (onAssistantTranscript) {
        onAssistantTranscript(m_transcriptBuffer);
    }
}

void OpenAIRealtimeVoiceService::handleUserTranscription(const RealtimeServerEvent &event)
{
    if (const auto transcript = event.text("transcript"_L1)) {
        writeLog("User input transcription: "_L1 + quoted(*transcript));
        if (containsWakePhrase(*transcript) && onWakePhraseDetected) {
            onWakePhraseDetected();
        }
        if (isVoiceSessionStopCommand(*transcript)) {
            sendClear();
            closeSession();
        } else {
            scheduleIdleDisconnect();
        }
    }
    m_transcriptBuffer.clear();
}

void OpenAIRealtimeVoiceService::handleResponseDone(const RealtimeServerEvent &)
{
    if (isVoiceSession()) {
        sendClear();
        letSpeechEnd();
        enter(RealtimeTransition::replyDoneInVoiceSession);
    } else {
        enter(RealtimeTransition::replyDoneInTextSession);
    }
    if (!m_didExecuteComputerUse && onResponseDone) {
        onResponseDone();
    }
    if (std::exchange(m_shouldAskForFollowUp, false)) {
        sendIfConnected(RealtimeClientEvents::createResponse());
    }
    scheduleIdleDisconnect();
}

/// The microphone opens once the reply has left the room, unless another reply is heard by then. A reply
/// comes faster than it is spoken, so it may have to wait a while; the end of the session ends that, too.
void OpenAIRealtimeVoiceService::letSpeechEnd()
{
    QTimer::singleShot(m_timing.speechEnd, this, [this, session = m_session, reply = m_reply] {
        if (!isOf(session) || reply != m_reply) {
            return;
        }
        if (m_audio.isPlaying()) {
            letSpeechEnd();
        } else {
            m_gate.isSpeaking = false;
        }
    });
}

void OpenAIRealtimeVoiceService::handleError(const RealtimeServerEvent &event)
{
    const QJsonValue message = event.members.value("error"_L1).toObject().value("message"_L1);
    const QString text = message.isString() ? message.toString() : u"Realtime API error."_s;
    writeLog("Received Realtime API error: "_L1 + text);
    if (text.contains(alreadyActiveResponse, Qt::CaseInsensitive)) {
        m_shouldAskForFollowUp = true; // the service makes its own replies when it can; this one was ours
        return;
    }
    if (!text.contains(noActiveResponse, Qt::CaseInsensitive)) {
        fail(text);
        closeSession();
    }
}

QCoro::Task<> OpenAIRealtimeVoiceService::handleFunctionCall(RealtimeServerEvent event)
{
    const Self self(this);
    const int session = m_session;
    m_idleDisconnect.stop();
    const auto parsed = RealtimeToolCall::parse(event);
    if (!parsed) {
        if (const QString &sentence = parsed.error(); !sentence.isEmpty()) {
            writeLog(sentence);
            fail(sentence);
        }
        co_return;
    }
    const RealtimeToolCall &call = *parsed;
    writeLog("Tool call 'computer_use': action = "_L1 + call.action + ", args = "_L1 + call.arguments);
    const std::optional<QStringList> targetPaths = co_await targetPathsFor(call);
    if (!self || !isOf(session)) {
        co_return; // the session that asked is over, and so is its wish
    }
    m_didExecuteComputerUse = true;
    if (onComputerUseStart) {
        onComputerUseStart(call.action, call.scriptCode);
    }
    const ComputerUseResult result = co_await m_toolRunner.run(call, targetPaths);
    if (!self) {
        co_return;
    }
    const qsizetype bodyLength = result.artifact ? result.artifact->body.size() : 0;
    writeLog("Tool execution result: summary = "_L1 + quoted(result.summary) +
             ", artifact body length = "_L1 + QString::number(bodyLength));
    if (onComputerUseResult) {
        onComputerUseResult(result);
    }
    if (isOf(session) && m_connection && m_connection->isOpen()) {
        returnToolOutput(call.callID, result.summary);
    }
}

QCoro::Task<std::optional<QStringList>> OpenAIRealtimeVoiceService::targetPathsFor(RealtimeToolCall call)
{
    if (!importedPhotoTargetPathsProvider) {
        co_return std::nullopt;
    }
    co_return co_await importedPhotoTargetPathsProvider(targetRequest(call, m_transcriptBuffer));
}

void OpenAIRealtimeVoiceService::returnToolOutput(const QString &callID, const QString &summary)
{
    if (const Result sent = sendJSON(RealtimeClientEvents::functionCallOutput(callID, summary)); !sent) {
        fail(sent.error());
        return;
    }
    sendClear();
    if (const Result sent = sendJSON(RealtimeClientEvents::createResponse()); !sent) {
        fail(sent.error());
    }
}

} // namespace KelvaLR
