#include "AppIntents/AppIntentRouter.h"

namespace KelvaLR {

void AppIntentRouter::setPendingRoute(const Route &route)
{
    m_pendingRoute = route;
    Q_EMIT pendingRouteChanged();
}

} // namespace KelvaLR
