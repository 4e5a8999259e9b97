#include "Services/Assistant/Realtime/OpenAIRealtimeVoiceService.h"

#include "Platform/AudioInput.h"
#include "Services/Assistant/Realtime/RealtimeClientEvents.h"
#include "Services/Assistant/Realtime/RealtimeConnection.h"
#include "Services/Assistant/Realtime/RealtimeVoiceError.h"

#include <QCoroFuture>

#include <QPointer>
#include <QUrlQuery>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView model("gpt-realtime-2.1");

/// The realtime address of the service that the base URL names, over the WebSocket's own schemes.
std::expected<QUrl, QString> realtimeAddress(const OpenAIAccess &access)
{
    auto address = access.address("realtime"_L1);
    if (address) {
        address->setScheme(address->scheme() == "http"_L1 ? u"ws"_s : u"wss"_s);
        QUrlQuery query;
        query.addQueryItem(u"model"_s, model);
        address->setQuery(query);
        if (!address->isValid()) {
            return std::unexpected(description(RealtimeVoiceError::invalidURL));
        }
    }
    return address;
}

QNetworkRequest realtimeRequest(const QUrl &address, const QByteArray &authorization)
{
    QNetworkRequest request(address);
    request.setRawHeader("Authorization", authorization);
    request.setRawHeader("OpenAI-Safety-Identifier", "kelva-local-dev-user");
    return request;
}

} // namespace

OpenAIRealtimeVoiceService::OpenAIRealtimeVoiceService(OpenAIAccess access, AudioInput &input,
                                                       AudioOutput &output, RealtimeToolRunner toolRunner,
                                                       DebugLog log, RealtimeTiming timing)
    : m_access(std::move(access))
    , m_toolRunner(toolRunner)
    , m_log(std::move(log))
    , m_timing(timing)
    , m_audio(
          input, output,
          [this](const QByteArray &pcm) { sendIfConnected(RealtimeClientEvents::appendAudio(pcm)); },
          [this](const QString &sentence) {
              fail(sentence);
              closeSession();
          })
    , m_gate(m_audio.gate())
{
    m_idleDisconnect.setSingleShot(true);
    m_connectionDeadline.setSingleShot(true);
    connect(&m_idleDisconnect, &QTimer::timeout, this, &OpenAIRealtimeVoiceService::closeSession);
    connect(&m_connectionDeadline, &QTimer::timeout, this,
            [this] { finishConnecting(u"The realtime service did not answer in time."_s); });
}

OpenAIRealtimeVoiceService::~OpenAIRealtimeVoiceService()
{
    finishConnecting(description(RealtimeVoiceError::notConnected)); // a start that waits for it ends
}

QCoro::Task<> OpenAIRealtimeVoiceService::start(RealtimeSessionKind kind)
{
    const Self self(this);
    if (isActive() || m_isStarting) {
        closeSession();
        co_return;
    }
    const int session = ++m_session;
    m_kind = kind;
    m_gate.isSpeaking = false;
    enter(RealtimeTransition::startBegan);
    const std::optional<QString> apiKey = m_access.apiKey();
    if (!apiKey) {
        fail("OpenAI is not configured. Add "_L1 + m_access.environmentKeyName() + " to .env.local."_L1);
        co_return;
    }
    m_isStarting = true;
    const Result begun = co_await beginSession(session, *apiKey);
    if (!self || !isOf(session)) {
        co_return; // stopped meanwhile
    }
    m_isStarting = false;
    if (!begun) {
        fail(begun.error());
        closeSession();
    }
}

/// From the permission to a session that runs. Ends empty-handed when another session has taken its place.
QCoro::Task<OpenAIRealtimeVoiceService::Result> OpenAIRealtimeVoiceService::beginSession(int session,
                                                                                         QString apiKey)
{
    const Self self(this);
    if (isVoiceSession() && !co_await m_audio.input().requestAccess()) {
        co_return std::unexpected(description(RealtimeVoiceError::microphoneDenied));
    }
    if (!self || !isOf(session)) {
        co_return Result();
    }
    if (const Result prepared = m_audio.configurePlayback(); !prepared) {
        co_return prepared;
    }
    const Result connected = co_await connectToService(apiKey);
    if (!self || !isOf(session) || !connected) {
        co_return connected;
    }
    if (const Result configured = sendJSON(RealtimeClientEvents::sessionUpdate(m_kind)); !configured) {
        co_return configured;
    }
    m_gate.isActive = true;
    if (isVoiceSession()) {
        if (const Result recording = beginRecordingAfterConnect(); !recording) {
            co_return recording;
        }
    }
    scheduleIdleDisconnect();
    co_return Result();
}

/// Ends once the service has confirmed the session, or has not within the time.
QCoro::Task<OpenAIRealtimeVoiceService::Result> OpenAIRealtimeVoiceService::connectToService(QString apiKey)
{
    const auto address = realtimeAddress(m_access);
    if (!address) {
        co_return std::unexpected(address.error());
    }
    const auto authorization = OpenAIAccess::authorization(apiKey);
    if (!authorization) {
        co_return std::unexpected(authorization.error());
    }
    m_connection = std::make_unique<RealtimeConnection>();
    connect(m_connection.get(), &RealtimeConnection::frameReceived, this,
            &OpenAIRealtimeVoiceService::receive);
    connect(m_connection.get(), &RealtimeConnection::ended, this,
            &OpenAIRealtimeVoiceService::handleEndOfConnection);
    connect(m_connection.get(), &RealtimeConnection::pingFailed, this,
            [this](const QString &reason) { writeLog("WebSocket ping failed: "_L1 + reason); });
    m_connecting = std::make_unique<QPromise<QString>>();
    m_connecting->start();
    const QFuture<QString> confirmed = m_connecting->future();
    m_connectionDeadline.start(m_timing.connection);
    m_connection->open(realtimeRequest(*address, *authorization), m_timing.ping);
    const QString error = co_await confirmed;
    co_return error.isEmpty() ? Result() : std::unexpected(error);
}

OpenAIRealtimeVoiceService::Result OpenAIRealtimeVoiceService::beginRecordingAfterConnect()
{
    m_transcriptBuffer.clear();
    m_didExecuteComputerUse = false;
    m_audio.restartPlayback();
    if (const Result sent = sendJSON(RealtimeClientEvents::clearInputAudio()); !sent) {
        return sent;
    }
    if (const Result started = m_audio.startMicrophone(); !started) {
        return started;
    }
    m_gate.isRecording = true;
    enter(RealtimeTransition::voiceSessionRuns);
    return {};
}

QCoro::Task<> OpenAIRealtimeVoiceService::stop()
{
    closeSession();
    co_return;
}

void OpenAIRealtimeVoiceService::closeSession()
{
    ++m_session;
    m_isStarting = false;
    m_idleDisconnect.stop();
    m_gate.isActive = false;
    m_gate.isRecording = false;
    m_gate.isSpeaking = false;
    m_audio.tearDown(); // pieces that are posted already find the gate closed
    finishConnecting(description(RealtimeVoiceError::notConnected));
    if (m_connection) {
        m_connection->close();
        m_connection.release()->deleteLater(); // this may be the handling of one of its signals
    }
    m_frames.clear();
    m_isHandling = false;
    m_transcriptBuffer.clear();
    m_shouldAskForFollowUp = false;
    enter(RealtimeTransition::stopped);
}

QCoro::Task<> OpenAIRealtimeVoiceService::setVoiceMode(RealtimeSessionKind kind)
{
    const Self self(this);
    const int session = m_session;
    m_kind = kind;
    const Result switched = co_await switchVoiceMode(session, kind);
    if (self && isOf(session) && !switched) {
        fail(switched.error());
    }
}

QCoro::Task<OpenAIRealtimeVoiceService::Result>
OpenAIRealtimeVoiceService::switchVoiceMode(int session, RealtimeSessionKind kind)
{
    const Self self(this);
    if (kind == RealtimeSessionKind::text) {
        m_gate.isRecording = false;
        m_audio.tearDown();
        const Result sent = sendJSON(RealtimeClientEvents::sessionUpdate(kind));
        if (sent) {
            enter(RealtimeTransition::voiceDisabled);
        }
        co_return sent;
    }
    if (!co_await m_audio.input().requestAccess()) {
        co_return std::unexpected(description(RealtimeVoiceError::microphoneDenied));
    }
    if (!self || !isOf(session)) {
        co_return Result();
    }
    for (const auto step : {&RealtimeAudio::configurePlayback, &RealtimeAudio::startMicrophone}) {
        if (const Result done = (m_audio.*step)(); !done) {
            co_return done;
        }
    }
    m_gate.isRecording = true;
    const Result sent = sendJSON(RealtimeClientEvents::sessionUpdate(kind));
    if (sent) {
        enter(RealtimeTransition::voiceEnabled);
    }
    co_return sent;
}

void OpenAIRealtimeVoiceService::beginLocalFeedback()
{
    m_gate.isSpeaking = isActive();
    ++m_reply; // the end of an earlier reply does not open the microphone any more
}

void OpenAIRealtimeVoiceService::finishLocalFeedbackAndScheduleIdleDisconnect()
{
    if (!isActive()) {
        return;
    }
    m_gate.isSpeaking = false;
    m_didExecuteComputerUse = false;
    m_suppressComputerUseUntil.setRemainingTime(m_timing.feedbackEcho);
    enter(RealtimeTransition::localFeedbackEnded);
    sendClear();
    scheduleIdleDisconnect();
}

void OpenAIRealtimeVoiceService::finishConnecting(const QString &error)
{
    m_connectionDeadline.stop();
    if (const auto connecting = std::exchange(m_connecting, nullptr)) {
        connecting->addResult(error);
        connecting->finish();
    }
}

void OpenAIRealtimeVoiceService::handleEndOfConnection(const QString &reason)
{
    finishConnecting(reason);
    if (isActive()) {
        fail(reason);
        scheduleIdleDisconnect(); // whatever was under way will not end by itself, and the microphone is held
    }
}

void OpenAIRealtimeVoiceService::enter(RealtimeTransition transition)
{
    if (onStateChange) {
        onStateChange(stateAfter(transition));
    }
}

void OpenAIRealtimeVoiceService::fail(const QString &message)
{
    if (onError) {
        onError(message);
    }
    if (onStateChange) {
        onStateChange(RealtimeVoiceState::failed);
    }
}

OpenAIRealtimeVoiceService::Result OpenAIRealtimeVoiceService::sendJSON(const QByteArray &event)
{
    if (!m_connection) {
        return std::unexpected(description(RealtimeVoiceError::notConnected));
    }
    return m_connection->send(event);
}

/// For events on whose arrival nothing depends.
void OpenAIRealtimeVoiceService::sendIfConnected(const QByteArray &event)
{
    [[maybe_unused]] const Result sent = sendJSON(event);
}

/// What the microphone heard so far is no utterance.
void OpenAIRealtimeVoiceService::sendClear()
{
    sendIfConnected(RealtimeClientEvents::clearInputAudio());
}

void OpenAIRealtimeVoiceService::scheduleIdleDisconnect()
{
    m_idleDisconnect.start(m_timing.idleDisconnect);
}

void OpenAIRealtimeVoiceService::writeLog(const QString &message)
{
    m_log.write(message);
}

} // namespace KelvaLR
