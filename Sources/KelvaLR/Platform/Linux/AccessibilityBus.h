#pragma once

#include "Platform/Linux/SessionBus.h"

#include <QCoroTask>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDeadlineTimer>
#include <QObject>

#include <chrono>
#include <functional>

namespace KelvaLR {

/// The bus on which programs show their interfaces (at-spi2-core), a D-Bus of its own beside the session's.
/// Main thread; the tasks do not block it and may outlive the object.
class AccessibilityBus : public QObject
{
public:
    /// Called in another thread, since connecting may block.
    using SessionBus = std::function<QDBusConnection()>;

    struct Limits
    {
        /// A program that is silent for so long counts as hanging; libatspi waits 0.8 s for its calls.
        std::chrono::milliseconds answer{1500};
        /// For coming to the bus, which may have to be started first.
        std::chrono::milliseconds connection{5000};
        /// Questions on their way at once: enough that nobody waits for the other, few enough for every
        /// queue.
        qsizetype window = 400;
    };

    explicit AccessibilityBus(SessionBus sessionBus = &existingSessionBus);
    AccessibilityBus(SessionBus sessionBus, Limits limits);
    ~AccessibilityBus() override;

    /// The bus, which is then told that somebody wants to see interfaces. Not connected when there is none.
    QCoro::Task<QDBusConnection> connection();

    /// Asks many questions at once and gives the answers in their order, errors among them. A list that is
    /// shorter than the questions was cut off: a program has gone or does not answer, or time is up.
    QCoro::Task<QList<QDBusMessage>> answers(QList<QDBusMessage> questions, QDeadlineTimer deadline);

    /// The answer to one question; an error message when there is none.
    QCoro::Task<QDBusMessage> answer(QDBusMessage question);

    /// Whether the one that was asked is gone or does not answer, rather than answering that it cannot.
    [[nodiscard]] static bool isSilence(const QDBusMessage &answer);

private:
    SessionBus m_sessionBus;
    Limits m_limits;
    QDBusConnection m_bus{QString()};
};

} // namespace KelvaLR
