#include "Services/Assistant/IdleRealtimeVoiceService.h"

namespace KelvaLR {

IdleRealtimeVoiceService::IdleRealtimeVoiceService(DebugLog log)
    : m_log(std::move(log))
{
}

bool IdleRealtimeVoiceService::isActive() const
{
    return false;
}

bool IdleRealtimeVoiceService::holdsMicrophone() const
{
    return false;
}

QCoro::Task<> IdleRealtimeVoiceService::start(RealtimeSessionKind)
{
    co_return;
}

QCoro::Task<> IdleRealtimeVoiceService::stop()
{
    co_return;
}

QCoro::Task<> IdleRealtimeVoiceService::setVoiceMode(RealtimeSessionKind)
{
    co_return;
}

void IdleRealtimeVoiceService::finishLocalFeedbackAndScheduleIdleDisconnect() {}

void IdleRealtimeVoiceService::writeLog(const QString &message)
{
    m_log.write(message);
}

} // namespace KelvaLR
