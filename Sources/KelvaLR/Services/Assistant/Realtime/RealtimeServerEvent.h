#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>

#include <optional>

namespace KelvaLR {

/// One event that the realtime service sends.
struct RealtimeServerEvent
{
    /// A reply's audio comes in pieces of some ten kilobytes; what is far larger is no event of the service.
    static constexpr qsizetype largestFrame = qsizetype{16} * 1024 * 1024;

    QString type;
    QJsonObject members; ///< all of them, "type" included

    /// Reads a frame, text or binary. None when it is no JSON object in UTF-8 with a "type", or too large.
    [[nodiscard]] static std::optional<RealtimeServerEvent> parse(const QByteArray &frame);

    /// A member that is a string.
    [[nodiscard]] std::optional<QString> text(QLatin1StringView key) const;

    bool operator==(const RealtimeServerEvent &) const = default;
};

} // namespace KelvaLR
