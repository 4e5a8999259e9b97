#include "Services/Assistant/Realtime/RealtimeServerEvent.h"

#include "Support/JsonMembers.h"

#include <QJsonDocument>

namespace KelvaLR {

using namespace Qt::StringLiterals;

std::optional<RealtimeServerEvent> RealtimeServerEvent::parse(const QByteArray &frame)
{
    if (frame.size() > largestFrame) {
        return std::nullopt;
    }
    const QJsonObject members = QJsonDocument::fromJson(frame).object();
    const std::optional<QString> type = textMember(members, "type"_L1);
    if (!type) {
        return std::nullopt;
    }
    return RealtimeServerEvent{*type, members};
}

std::optional<QString> RealtimeServerEvent::text(QLatin1StringView key) const
{
    return textMember(members, key);
}

} // namespace KelvaLR
