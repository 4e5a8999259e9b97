#pragma once

#include "Services/Assistant/OpenAIAccess.h"
#include "Services/Assistant/Realtime/RealtimeAudio.h"
#include "Services/Assistant/Realtime/RealtimeServerEvent.h"
#include "Services/Assistant/Realtime/RealtimeSessionState.h"
#include "Services/Assistant/Realtime/RealtimeTiming.h"
#include "Services/Assistant/Realtime/RealtimeToolRunner.h"
#include "Services/Assistant/RealtimeVoiceService.h"
#include "Support/DebugLog.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QPromise>
#include <QTimer>

#include <deque>
#include <memory>

namespace KelvaLR {

class RealtimeConnection;

/// One speech session with OpenAI's realtime service over a WebSocket: the microphone goes up, the
/// assistant's speech comes down, and the service asks for Lightroom actions by its one tool. A text session
/// carries only events and tool calls.
///
/// Main thread. Events are handled one after the other, each to its end, tool calls included. A coroutine
/// that wakes up in another session than it began in touches nothing more.
class OpenAIRealtimeVoiceService final : public QObject, public RealtimeVoiceService
{
public:
    /// The ports outlive this object and its tasks.
    OpenAIRealtimeVoiceService(OpenAIAccess access, AudioInput &input, AudioOutput &output,
                               RealtimeToolRunner toolRunner, DebugLog log, RealtimeTiming timing = {});
    ~OpenAIRealtimeVoiceService() override;

    bool isActive() const override { return m_gate.isActive; }

    bool holdsMicrophone() const override { return m_audio.isMicrophoneActive(); }

    QCoro::Task<> start(RealtimeSessionKind kind) override;
    QCoro::Task<> stop() override;
    QCoro::Task<> setVoiceMode(RealtimeSessionKind kind) override;
    void beginLocalFeedback() override;
    void finishLocalFeedbackAndScheduleIdleDisconnect() override;
    void writeLog(const QString &message) override;

private:
    using Self = QPointer<OpenAIRealtimeVoiceService>;
    using Result = std::expected<void, QString>;
    struct EventRow;

    // The session.
    QCoro::Task<Result> beginSession(int session, QString apiKey);
    QCoro::Task<Result> connectToService(QString apiKey);
    Result beginRecordingAfterConnect();
    QCoro::Task<Result> switchVoiceMode(int session, RealtimeSessionKind kind);
    void closeSession();
    void finishConnecting(const QString &error);
    void handleEndOfConnection(const QString &reason);

    [[nodiscard]] bool isOf(int session) const { return session == m_session; }

    [[nodiscard]] bool isVoiceSession() const { return m_kind == RealtimeSessionKind::voice; }

    // What the model is told.
    void enter(RealtimeTransition transition);
    void fail(const QString &message);
    void emitAssistantTranscript();

    // What goes up.
    Result sendJSON(const QByteArray &event);
    void sendIfConnected(const QByteArray &event);
    void sendClear();
    void scheduleIdleDisconnect();

    // What comes down.
    void receive(const QByteArray &frame);
    QCoro::Task<> handleFrames();
    void handle(const RealtimeServerEvent &event);
    QCoro::Task<> handleFunctionCall(RealtimeServerEvent event);
    QCoro::Task<std::optional<QStringList>> targetPathsFor(RealtimeToolCall call);
    void returnToolOutput(const QString &callID, const QString &summary);
    void handleSessionCreated(const RealtimeServerEvent &event);
    void handleSpeechStarted(const RealtimeServerEvent &event);
    void handleResponseCreated(const RealtimeServerEvent &event);
    void handleAudioDelta(const RealtimeServerEvent &event);
    void handleTextDelta(const RealtimeServerEvent &event);
    void handleTranscriptDone(const RealtimeServerEvent &event);
    void handleTextDone(const RealtimeServerEvent &event);
    void takeWholeTranscript(const std::optional<QString> &text);
    void handleUserTranscription(const RealtimeServerEvent &event);
    void handleResponseDone(const RealtimeServerEvent &event);
    void handleError(const RealtimeServerEvent &event);
    void letSpeechEnd();

    OpenAIAccess m_access;
    RealtimeToolRunner m_toolRunner;
    DebugLog m_log;
    RealtimeTiming m_timing;
    RealtimeAudio m_audio;
    RealtimeAudioGate &m_gate;

    std::unique_ptr<RealtimeConnection> m_connection;
    std::unique_ptr<QPromise<QString>> m_connecting; ///< finishes with an error, or with nothing
    std::deque<QByteArray> m_frames;                 ///< received and not handled yet
    bool m_isHandling = false;                       ///< those of this session
    QTimer m_idleDisconnect;
    QTimer m_connectionDeadline;

    int m_session = 0; ///< counts up with every start and stop
    bool m_isStarting = false;
    RealtimeSessionKind m_kind = RealtimeSessionKind::voice;
    QString m_transcriptBuffer; ///< the reply's words so far
    bool m_didExecuteComputerUse = false;
    QDeadlineTimer m_suppressComputerUseUntil{0};
    int m_reply = 0;                     ///< counts up with everything that is heard
    bool m_shouldAskForFollowUp = false; ///< the service was busy when we asked it to go on
};

} // namespace KelvaLR
