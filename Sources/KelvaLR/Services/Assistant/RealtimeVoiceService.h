#pragma once

#include "Models/ComputerUseResult.h"
#include "Models/RealtimeImportedPhotoTargetRequest.h"
#include "Models/RealtimeVoiceState.h"

#include <QCoroTask>

#include <QStringList>

#include <functional>
#include <optional>

namespace KelvaLR {

/// Whether a session uses audio in and out, or carries only events and tool calls.
enum class RealtimeSessionKind { voice, text };

/// A realtime speech session. Main thread; the application model assigns the callbacks once, before the first
/// session, and they may be invoked on any thread.
class RealtimeVoiceService
{
public:
    using TargetPaths = std::optional<QStringList>;

    RealtimeVoiceService() = default;
    virtual ~RealtimeVoiceService() = default;
    Q_DISABLE_COPY_MOVE(RealtimeVoiceService)

    std::function<void(RealtimeVoiceState)> onStateChange;
    /// The whole transcript of the reply so far.
    std::function<void(QString)> onAssistantTranscript;
    std::function<void(ComputerUseResult)> onComputerUseResult;
    /// A tool call is about to run: its action and an optional detail.
    std::function<void(QString, std::optional<QString>)> onComputerUseStart;
    std::function<void()> onWakePhraseDetected;
    /// A failure sentence; the model logs it and shows an apology.
    std::function<void(QString)> onError;
    /// A reply finished without any tool call.
    std::function<void()> onResponseDone;
    /// The imported photos that a tool call means: none for Lightroom's own selection, an empty list when it
    /// speaks of imported photos and none is selected.
    std::function<QCoro::Task<TargetPaths>(RealtimeImportedPhotoTargetRequest)>
        importedPhotoTargetPathsProvider;

    /// A session is connected and configured.
    [[nodiscard]] virtual bool isActive() const = 0;

    /// A session captures sound, also when it has failed and is not closed yet.
    [[nodiscard]] virtual bool holdsMicrophone() const = 0;

    /// Opens a session, or closes the one that is active.
    virtual QCoro::Task<> start(RealtimeSessionKind kind) = 0;
    /// Closes the session and falls back to `idle`.
    virtual QCoro::Task<> stop() = 0;
    /// Switches a running session between voice and text.
    virtual QCoro::Task<> setVoiceMode(RealtimeSessionKind kind) = 0;
    /// The application begins to speak a result of its own, which the microphone must not hear.
    virtual void beginLocalFeedback() = 0;
    /// The application has finished speaking a result of its own: the microphone may open again.
    virtual void finishLocalFeedbackAndScheduleIdleDisconnect() = 0;
    /// Appends a line to the session's debug log.
    virtual void writeLog(const QString &message) = 0;
};

} // namespace KelvaLR
