#pragma once

#include <QJsonObject>
#include <QLatin1StringView>
#include <QString>

#include <optional>

namespace KelvaLR {

// The members of a JSON object that others have written. A member of another type counts as absent.

[[nodiscard]] inline std::optional<QString> textMember(const QJsonObject &object, QLatin1StringView key)
{
    const QJsonValue value = object.value(key);
    return value.isString() ? std::optional(value.toString()) : std::nullopt;
}

[[nodiscard]] inline std::optional<double> numberMember(const QJsonObject &object, QLatin1StringView key)
{
    const QJsonValue value = object.value(key);
    return value.isDouble() ? std::optional(value.toDouble()) : std::nullopt;
}

[[nodiscard]] inline std::optional<bool> truthMember(const QJsonObject &object, QLatin1StringView key)
{
    const QJsonValue value = object.value(key);
    return value.isBool() ? std::optional(value.toBool()) : std::nullopt;
}

} // namespace KelvaLR
