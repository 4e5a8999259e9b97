#pragma once

#include "Services/Assistant/RealtimeVoiceService.h"
#include "Support/DebugLog.h"

namespace KelvaLR {

/// The realtime service of an application without realtime speech: no session is ever active.
class IdleRealtimeVoiceService final : public RealtimeVoiceService
{
public:
    explicit IdleRealtimeVoiceService(DebugLog log);

    bool isActive() const override;
    bool holdsMicrophone() const override;
    QCoro::Task<> start(RealtimeSessionKind kind) override;
    QCoro::Task<> stop() override;
    QCoro::Task<> setVoiceMode(RealtimeSessionKind kind) override;
    void finishLocalFeedbackAndScheduleIdleDisconnect() override;
    void writeLog(const QString &message) override;

private:
    DebugLog m_log;
};

} // namespace KelvaLR
