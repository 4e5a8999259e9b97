#include "Services/Lightroom/LightroomConnectionWatch.h"

#include "Platform/RunningLightroom.h"
#include "Services/Lightroom/LightroomApplicationResolver.h"
#include "Services/Lightroom/LightroomService.h"
#include "Support/DetachedTask.h"

#include <QCoroTimer>

#include <QPointer>

namespace KelvaLR {

using namespace Qt::StringLiterals;

/// Marks a look as under way for as long as it lives; the watch may go first.
class LightroomConnectionWatch::Looking
{
public:
    explicit Looking(LightroomConnectionWatch *watch)
        : m_watch(watch)
    {
        watch->m_isLooking = true;
    }

    ~Looking()
    {
        if (m_watch) {
            m_watch->m_isLooking = false;
            m_watch->planNextLook();
        }
    }

    Q_DISABLE_COPY_MOVE(Looking)

private:
    QPointer<LightroomConnectionWatch> m_watch;
};

LightroomConnectionWatch::LightroomConnectionWatch(LightroomService &lightroom,
                                                   RunningApplications &applications,
                                                   ListeningPrograms &programs, ConnectionWatchTiming timing,
                                                   QObject *parent)
    : QObject(parent)
    , m_lightroom(lightroom)
    , m_applications(applications)
    , m_programs(programs)
    , m_timing(timing)
    , m_lastExchange(lightroom.lastExchange())
{
    m_nextLook.setSingleShot(true);
    connect(&m_nextLook, &QTimer::timeout, this, &LightroomConnectionWatch::lookAgain);
    connect(&lightroom, &LightroomService::exchangeEnded, this, &LightroomConnectionWatch::noteExchange);
}

void LightroomConnectionWatch::look()
{
    m_hasBegun = true;
    m_isLightroomInstalled.reset();
    lookAgain();
}

void LightroomConnectionWatch::lookAgain()
{
    if (m_lightroom.isPluginConnected()) {
        setConnection(Connection::Usable());
    } else if (m_isLooking) {
        m_isLookWanted = true;
    } else {
        startDetached(lookUntilSettled());
    }
}

void LightroomConnectionWatch::setFollowed(bool isFollowed)
{
    m_isFollowed = isFollowed;
    planNextLook();
}

QCoro::Task<> LightroomConnectionWatch::lookUntilSettled()
{
    const Looking looking(this);
    const QPointer<LightroomConnectionWatch> self(this);
    do {
        m_isLookWanted = false;
        const PortListener listener = co_await settledListener();
        if (!self) {
            co_return;
        }
        if (!m_isLookWanted && !m_lightroom.isCommandInFlight()) {
            setConnection(withPatience(judgedConnection(evidence(listener))));
        }
    } while (m_isLookWanted);
}

/// The plug-in listens anew after each command and each time-out, so nobody counts only when seen twice.
QCoro::Task<PortListener> LightroomConnectionWatch::settledListener()
{
    const QPointer<LightroomConnectionWatch> self(this);
    PortListener listener = co_await m_programs.listenerOn(m_lightroom.bridgePort());
    if (!self || listener.presence != PortListener::Presence::none) {
        co_return listener;
    }
    co_await QCoro::sleepFor(m_timing.gap);
    if (!self) {
        co_return listener;
    }
    co_return co_await m_programs.listenerOn(m_lightroom.bridgePort());
}

void LightroomConnectionWatch::noteExchange()
{
    m_lastExchange = m_lightroom.lastExchange();
    if (m_hasBegun) {
        look();
    }
}

ConnectionEvidence LightroomConnectionWatch::evidence(const PortListener &listener)
{
    const std::optional<RunningApplication> lightroom = runningLightroom(m_applications);
    if (!m_isLightroomInstalled) {
        m_isLightroomInstalled =
            LightroomApplicationResolver(m_applications).resolve(u"Lightroom"_s).has_value();
    }
    return {.isPluginConnected = m_lightroom.isPluginConnected(),
            .lastExchange = m_lastExchange,
            .lightroom = lightroom,
            .isLightroomInstalled = *m_isLightroomInstalled,
            .isPluginInstalled = m_lightroom.isPluginInPlace(),
            .port = m_lightroom.bridgePort(),
            .listener = listener};
}

/// A Lightroom that has just come gets the time to load the plug-in. What was sent to one that has gone, or
/// to another program, says nothing of it.
LightroomConnection LightroomConnectionWatch::withPatience(const LightroomConnection &judged)
{
    if (std::holds_alternative<Connection::LightroomNotRunning>(judged)) {
        m_loading.setRemainingTime(m_timing.loading);
        m_lastExchange = BridgeExchange::none;
    }
    const auto *taken = std::get_if<Connection::PortTaken>(&judged);
    if (taken && !taken->program.isEmpty()) {
        m_lastExchange = BridgeExchange::none;
    }
    const bool mayBeLoading = std::holds_alternative<Connection::PluginNotLoaded>(judged) &&
                              m_lastExchange == BridgeExchange::none && !m_loading.hasExpired();
    return mayBeLoading ? Connection::Usable() : judged;
}

void LightroomConnectionWatch::setConnection(const LightroomConnection &connection)
{
    if (m_connection != connection) {
        m_connection = connection;
        Q_EMIT connectionChanged();
    }
}

void LightroomConnectionWatch::planNextLook()
{
    const bool isUsable = std::holds_alternative<Connection::Usable>(m_connection);
    if (m_isFollowed) {
        m_nextLook.start(m_timing.follow);
    } else if (isUsable && !m_loading.hasExpired()) {
        m_nextLook.start(std::chrono::ceil<std::chrono::milliseconds>(m_loading.remainingTimeAsDuration()));
    } else {
        m_nextLook.stop();
    }
}

} // namespace KelvaLR
