#pragma once

#include "Services/Assistant/RealtimeVoiceService.h"
#include "Services/Speech/SpokenFeedback.h"
#include "Services/Speech/WakePhraseListener.h"

#include <QCoroTimer>
#include <QStringList>

namespace KelvaLR::Testing {

/// Records what the model asks of it; the test reports states through the callbacks.
class RecordingRealtimeVoiceService final : public RealtimeVoiceService
{
public:
    bool isActive() const override { return isSessionActive; }

    QCoro::Task<> start(RealtimeSessionKind kind) override
    {
        return record(kind == RealtimeSessionKind::voice ? "start voice" : "start text");
    }

    QCoro::Task<> stop() override { return record("stop"); }

    QCoro::Task<> setVoiceMode(RealtimeSessionKind kind) override
    {
        return record(kind == RealtimeSessionKind::voice ? "voice mode" : "text mode");
    }

    void finishLocalFeedbackAndScheduleIdleDisconnect() override { calls.append(QStringLiteral("finish")); }

    void writeLog(const QString &message) override { log.append(message); }

    bool isSessionActive = false;
    QStringList calls;
    QStringList log;

private:
    QCoro::Task<> record(const char *call)
    {
        calls.append(QString::fromLatin1(call));
        co_await QCoro::sleepFor(
            std::chrono::milliseconds(1)); // may outlive the test, so nothing is touched after
    }
};

class RecordingWakePhraseListener final : public WakePhraseListener
{
public:
    void start() override { ++starts; }

    void stop() override { ++stops; }

    int starts = 0;
    int stops = 0;
};

/// Records the texts; the test finishes the last one when it likes.
class RecordingSpokenFeedback final : public SpokenFeedback
{
public:
    void speak(const QString &text, std::function<void()> completion) override
    {
        texts.append(text);
        finish = std::move(completion);
    }

    QStringList texts;
    std::function<void()> finish;
};

} // namespace KelvaLR::Testing
