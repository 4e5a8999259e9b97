#pragma once

#include "Models/AppIntentRoute.h"

#include <QObject>

namespace KelvaLR {

/// Where a system action leaves its request for the window. One exists in a process; main thread. The last
/// route is kept, so that a window which appears later still sees it.
class AppIntentRouter : public QObject
{
    Q_OBJECT

public:
    using Route = AppIntentRoute;

    using QObject::QObject;

    [[nodiscard]] const std::optional<Route> &pendingRoute() const { return m_pendingRoute; }

    /// Publishes the route, also when it equals the last one.
    void setPendingRoute(const Route &route);

Q_SIGNALS:
    void pendingRouteChanged();

private:
    std::optional<Route> m_pendingRoute;
};

} // namespace KelvaLR
