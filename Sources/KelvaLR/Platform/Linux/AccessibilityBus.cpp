#include "Platform/Linux/AccessibilityBus.h"

#include <QCoroDBusPendingCall>
#include <QCoroSignal>

#include <QDBusPendingCall>
#include <QDBusVariant>
#include <QFutureWatcher>
#include <QPointer>
#include <QtConcurrentRun>

#include <algorithm>
#include <array>
#include <deque>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView launcher("org.a11y.Bus");
constexpr QLatin1StringView launcherPath("/org/a11y/bus");

/// The bus's address, asked for where the session keeps it; empty when there is none.
QString addressOf(const QDBusConnection &session, std::chrono::milliseconds deadline)
{
    QString configured = qEnvironmentVariable("AT_SPI_BUS_ADDRESS");
    if (!configured.isEmpty() || !session.isConnected()) {
        return configured;
    }
    const auto question =
        QDBusMessage::createMethodCall(launcher, launcherPath, u"org.a11y.Bus"_s, u"GetAddress"_s);
    const QDBusMessage answer =
        session.call(question, QDBus::Block, static_cast<int>(deadline.count())); // in a thread of its own
    return answer.type() == QDBusMessage::ReplyMessage ? answer.arguments().value(0).toString() : QString();
}

/// Programs of some toolkits show their interface only while somebody wants to see it.
void announceInterest(const QDBusConnection &session)
{
    auto message = QDBusMessage::createMethodCall(launcher, launcherPath,
                                                  u"org.freedesktop.DBus.Properties"_s, u"Set"_s);
    message << u"org.a11y.Status"_s << u"IsEnabled"_s << QVariant::fromValue(QDBusVariant(true));
    session.asyncCall(message);
}

QDBusConnection connectedBus(const AccessibilityBus::SessionBus &sessionBus, const QString &name,
                             std::chrono::milliseconds deadline)
{
    const QDBusConnection session = sessionBus();
    const QString address = addressOf(session, deadline);
    if (address.isEmpty()) {
        return QDBusConnection(QString());
    }
    if (session.isConnected()) {
        announceInterest(session);
    }
    return QDBusConnection::connectToBus(address, name);
}

} // namespace

AccessibilityBus::AccessibilityBus(SessionBus sessionBus)
    : AccessibilityBus(std::move(sessionBus), Limits())
{
}

AccessibilityBus::AccessibilityBus(SessionBus sessionBus, Limits limits)
    : m_sessionBus(std::move(sessionBus))
    , m_limits(limits)
{
}

AccessibilityBus::~AccessibilityBus()
{
    QDBusConnection::disconnectFromBus(m_bus.name());
}

QCoro::Task<QDBusConnection> AccessibilityBus::connection()
{
    const QPointer<AccessibilityBus> self(this);
    if (!m_bus.isConnected()) {
        QDBusConnection::disconnectFromBus(m_bus.name());
        static int connections = 0;
        const QString name = u"kelvalr-accessibility-%1"_s.arg(++connections);
        QFutureWatcher<QDBusConnection> connecting;
        connecting.setFuture(QtConcurrent::run(&connectedBus, m_sessionBus, name, m_limits.connection));
        const bool isFinished =
            (co_await qCoro(&connecting, &QFutureWatcherBase::finished, m_limits.connection)).has_value();
        if (!self || !isFinished) {
            co_return QDBusConnection(QString());
        }
        m_bus = connecting.result();
    }
    co_return QDBusConnection(m_bus);
}

QCoro::Task<QList<QDBusMessage>> AccessibilityBus::answers(QList<QDBusMessage> questions,
                                                           QDeadlineTimer deadline)
{
    const Limits limits = m_limits;
    const QDBusConnection bus = co_await connection();
    QList<QDBusMessage> answered;
    answered.reserve(questions.size());
    std::deque<QDBusPendingCall> underWay;
    qsizetype next = 0;
    while (answered.size() < questions.size() && !deadline.hasExpired()) {
        while (next < questions.size() && std::cmp_less(underWay.size(), limits.window)) {
            underWay.push_back(bus.asyncCall(questions.at(next++), static_cast<int>(limits.answer.count())));
        }
        const QDBusPendingCall oldest = underWay.front();
        underWay.pop_front();
        if (!oldest.isFinished()) {
            co_await oldest;
        }
        if (isSilence(oldest.reply())) {
            break;
        }
        answered.append(oldest.reply());
    }
    co_return answered;
}

QCoro::Task<QDBusMessage> AccessibilityBus::answer(QDBusMessage question)
{
    const Limits limits = m_limits;
    const QDBusConnection bus = co_await connection();
    co_return co_await bus.asyncCall(question, static_cast<int>(limits.answer.count()));
}

bool AccessibilityBus::isSilence(const QDBusMessage &answer)
{
    using enum QDBusError::ErrorType;
    static constexpr std::array silences{NoReply, Timeout, TimedOut, Disconnected, ServiceUnknown, NoServer};
    return answer.type() == QDBusMessage::ErrorMessage &&
           std::ranges::find(silences, QDBusError(answer).type()) != silences.end();
}

} // namespace KelvaLR
