#pragma once

#include <QDBusConnection>

namespace KelvaLR {

/// The bus of this session, not connected where there is none: asking for one then would start one.
[[nodiscard]] inline QDBusConnection existingSessionBus()
{
    return qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") ? QDBusConnection(QString())
                                                                   : QDBusConnection::sessionBus();
}

} // namespace KelvaLR
