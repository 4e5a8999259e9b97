#include "Services/Lightroom/LightroomService.h"

#include "Platform/LightroomMenus.h"
#include "Platform/RunningLightroom.h"
#include "Services/Lightroom/Bridge/BridgeTransport.h"
#include "Services/Lightroom/Bridge/LightroomReply.h"
#include "Services/Lightroom/Bridge/ReplyMailbox.h"

#include <QCoroTimer>

#include <QPointer>

namespace KelvaLR {

using namespace Qt::StringLiterals;

/// Marks a command as in flight for as long as it lives; the service may go first.
class LightroomService::CommandInFlight
{
public:
    explicit CommandInFlight(LightroomService *service)
        : m_service(service)
    {
        service->m_isCommandInFlight = true;
    }

    ~CommandInFlight()
    {
        if (m_service) {
            m_service->m_isCommandInFlight = false;
        }
    }

    Q_DISABLE_COPY_MOVE(CommandInFlight)

private:
    QPointer<LightroomService> m_service;
};

namespace {

BridgeExchange exchange(Sending sending, bool isAnswered)
{
    switch (sending) {
    case Sending::refused:
        return BridgeExchange::refused;
    case Sending::notTaken:
        return BridgeExchange::notTaken;
    case Sending::delivered:
        return isAnswered ? BridgeExchange::answered : BridgeExchange::unanswered;
    }
    Q_UNREACHABLE();
}

} // namespace

QCoro::Task<std::optional<QString>> LightroomService::sendPluginCommand(LightroomPluginCommand command)
{
    const QPointer<LightroomService> self(this);
    while (m_isCommandInFlight) {
        co_await QCoro::sleepFor(m_timing.queue);
        if (!self) {
            co_return std::nullopt;
        }
    }
    const CommandInFlight inFlight(this);
    const std::optional<QString> json = command.jsonText();
    if (!json) {
        setLastMessage(u"Failed to encode Lightroom command."_s);
        co_return std::nullopt;
    }
    ReplyMailbox mailbox(m_endpoint, command.requestID, m_timing);
    mailbox.discard();
    std::optional<QString> reply;
    const Sending sending = co_await sendCommand(m_endpoint, m_timing, *json);
    if (sending == Sending::delivered) {
        reply = co_await mailbox.takeReply(self);
    }
    if (!self) {
        co_return std::nullopt;
    }
    m_lastExchange = exchange(sending, reply.has_value());
    setPluginConnected(reply.has_value());
    if (reply) {
        setLastMessage(formattedPluginResponse(*reply));
    }
    co_return reply;
}

QCoro::Task<bool> LightroomService::ping(AutoStart autoStart)
{
    const QPointer<LightroomService> self(this);
    const std::optional<QString> reply = co_await sendPluginCommand({.action = LightroomPluginAction::ping});
    if (!self) {
        co_return false;
    }
    if (reply && reply->contains("pong"_L1)) {
        setPluginConnected(true);
        Q_EMIT exchangeEnded();
        co_return true;
    }
    if (autoStart == AutoStart::no) {
        setPluginConnected(false);
        Q_EMIT exchangeEnded();
        co_return false;
    }
    co_await startLightroomBridgeFromMenu();
    if (self) {
        co_await QCoro::sleepFor(m_timing.start);
    }
    co_return self &&co_await ping(AutoStart::no);
}

QCoro::Task<bool> LightroomService::startLightroomBridgeFromMenu()
{
    const QPointer<LightroomService> self(this);
    const std::expected<QString, QString> answer = co_await m_menus.clickBridgeStatus();
    if (answer == u"started"_s) {
        co_return true;
    }
    if (self) {
        const QString &reason = answer ? *answer : answer.error();
        setLastMessage(reason.isEmpty() ? u"Could not start Lightroom bridge."_s : reason);
    }
    co_return false;
}

QCoro::Task<bool> LightroomService::activateLightroom()
{
    const std::optional<RunningApplication> lightroom = runningLightroom(m_applications);
    if (!lightroom) {
        co_return false;
    }
    m_applications.activate(*lightroom);
    co_await QCoro::sleepFor(m_timing.activation);
    co_return true;
}

} // namespace KelvaLR
