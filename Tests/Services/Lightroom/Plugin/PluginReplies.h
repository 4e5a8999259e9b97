#pragma once

#include "LightroomStandIn/HostedPlugin.h"
#include "Support/PrintQt.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace StandIn::Testing {

/// The text of a reply without its identifier.
inline QString textOf(QJsonObject reply)
{
    reply.remove(QStringLiteral("request_id"));
    return QString::fromUtf8(QJsonDocument(reply).toJson(QJsonDocument::Compact));
}

inline QString replyWith(const char *status, const char *message)
{
    return textOf({{QStringLiteral("status"), QLatin1StringView(status)},
                   {QStringLiteral("message"), QString::fromUtf8(message)}});
}

inline QString success(const char *message)
{
    return replyWith("success", message);
}

inline QString error(const char *message)
{
    return replyWith("error", message);
}

/// The text of the reply to a request, whose target paths are given as names of photos.
inline QString replyTo(HostedPlugin &plugin, const QByteArray &request)
{
    QJsonObject fields = QJsonDocument::fromJson(request).object();
    const QJsonArray names = fields[QStringLiteral("target_paths")].toArray();
    QJsonArray paths;
    for (const QJsonValueConstRef name : names) {
        paths.append(name.isString() ? QJsonValue(plugin.photoPath(name.toString())) : QJsonValue(name));
    }
    if (!paths.isEmpty()) {
        fields[QStringLiteral("target_paths")] = paths;
    }
    return textOf(plugin.request(fields));
}

} // namespace StandIn::Testing
