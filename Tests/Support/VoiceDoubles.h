#pragma once

#include "Services/Assistant/RealtimeVoiceService.h"
#include "Services/Speech/SpokenFeedback.h"
#include "Services/Speech/WakePhraseListener.h"

#include <QCoroTimer>
#include <QStringList>

#include <memory>

namespace KelvaLR::Testing {

/// Records what the model asks of it; the test reports states through the callbacks.
class RecordingRealtimeVoiceService final : public RealtimeVoiceService
{
public:
    bool isActive() const override { return isSessionActive; }

    bool holdsMicrophone() const override { return isMicrophoneHeld; }

    QCoro::Task<> start(RealtimeSessionKind kind) override
    {
        return record(kind == RealtimeSessionKind::voice ? "start voice" : "start text");
    }

    QCoro::Task<> stop() override { return record("stop"); }

    QCoro::Task<> setVoiceMode(RealtimeSessionKind kind) override
    {
        return record(kind == RealtimeSessionKind::voice ? "voice mode" : "text mode");
    }

    void beginLocalFeedback() override { calls.append(QStringLiteral("begin")); }

    void finishLocalFeedbackAndScheduleIdleDisconnect() override { calls.append(QStringLiteral("finish")); }

    void writeLog(const QString &message) override { log.append(message); }

    bool isSessionActive = false;
    bool isMicrophoneHeld = false;
    QStringList calls;
    QStringList log;

    /// A task that is still under way when its test ends would never be resumed.
    bool hasTasksUnderWay() const { return *m_tasksUnderWay > 0; }

private:
    QCoro::Task<> record(const char *call)
    {
        calls.append(QString::fromLatin1(call));
        return finishSoon(m_tasksUnderWay);
    }

    /// May outlive the double, so it holds what it touches.
    static QCoro::Task<> finishSoon(std::shared_ptr<int> tasksUnderWay)
    {
        ++*tasksUnderWay;
        co_await QCoro::sleepFor(std::chrono::milliseconds(1));
        --*tasksUnderWay;
    }

    std::shared_ptr<int> m_tasksUnderWay = std::make_shared<int>(0);
};

class RecordingWakePhraseListener final : public WakePhraseListener
{
public:
    void start() override { ++starts; }

    void stop() override { ++stops; }

    int starts = 0;
    int stops = 0;
};

/// Records the texts; the test finishes the last one when it likes, unless it was stopped.
class RecordingSpokenFeedback final : public SpokenFeedback
{
public:
    void speak(const QString &text, std::function<void()> completion) override
    {
        texts.append(text);
        finish = std::move(completion);
    }

    void stop() override { finish = nullptr; }

    QStringList texts;
    std::function<void()> finish;
};

} // namespace KelvaLR::Testing
