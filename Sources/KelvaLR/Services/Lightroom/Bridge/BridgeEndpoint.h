#pragma once

#include <QString>

namespace KelvaLR {

/// Where the plug-in is reached: it listens on a TCP port and leaves its replies in a directory.
struct BridgeEndpoint
{
    QString host = QStringLiteral("127.0.0.1");
    quint16 port = 54321;
    QString replyDirectory = QStringLiteral("/tmp");

    /// The file that the plug-in writes for this request.
    [[nodiscard]] QString replyPath(const QString &requestID) const
    {
        return replyDirectory + QLatin1StringView("/kelvalr-lightroom-") + requestID +
               QLatin1StringView(".json");
    }

    bool operator==(const BridgeEndpoint &) const = default;
};

} // namespace KelvaLR
