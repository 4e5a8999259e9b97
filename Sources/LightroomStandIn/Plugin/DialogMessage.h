#pragma once

#include <QMetaType>
#include <QString>

namespace StandIn {

/// A message that the plug-in shows to the user.
struct DialogMessage
{
    QString title;
    QString text;
    QString kind; ///< "info", "warning" or "critical"

    bool operator==(const DialogMessage &) const = default;
};

} // namespace StandIn

Q_DECLARE_METATYPE(StandIn::DialogMessage)
