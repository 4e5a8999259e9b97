#pragma once

#include "AppIntents/KelvaLRIntents.h"

#include <QDBusConnection>
#include <QObject>

#include <expected>
#include <functional>

namespace KelvaLR {

class AppIntentRouter;

/// The program on the session bus: what the desktop, other programs and a second start may ask of it. Main
/// thread. Interfaces: `org.kelvalr.KelvaLR.Intents`, and the `org.freedesktop.Application` of every desktop
/// program.
class SystemActionService : public QObject
{
    Q_OBJECT

public:
    /// Opens the window, or brings it to the front; false when it cannot be opened.
    using Present = std::function<bool()>;
    /// How publishing went.
    enum class Publication { published, anotherRuns, noBus };

    /// @param router outlives this object
    SystemActionService(AppIntentRouter &router, Present present);
    ~SystemActionService() override;

    /// Takes the program's name on the bus. Calls are served by the event loop.
    [[nodiscard]] Publication publish(QDBusConnection bus);

    /// Brings the window to the front.
    [[nodiscard]] std::expected<void, QString> activate();
    /// Brings the window to the front, then performs the action.
    /// @return what to tell the user, if anything, or the sentence that says what went wrong
    [[nodiscard]] std::expected<std::optional<QString>, QString> run(const KelvaLRIntent &intent);

private:
    AppIntentRouter &m_router;
    Present m_present;
    std::optional<QDBusConnection> m_bus;
};

/// Whether a program of this session has the name.
[[nodiscard]] bool isAnotherRunning(const QDBusConnection &bus);

/// Asks the program that already runs in this session to come to the front, or to perform the action. Waits
/// at most ten seconds; the program needs no event loop for it.
[[nodiscard]] std::expected<std::optional<QString>, QString>
handOver(const QDBusConnection &bus, const std::optional<KelvaLRIntent> &intent);

} // namespace KelvaLR
