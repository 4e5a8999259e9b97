#pragma once

#include <QString>

#include <optional>

class QJsonObject;

namespace KelvaLR {

/// The text shown for a reply. A reply that is no JSON object is shown as it is.
[[nodiscard]] QString formattedPluginResponse(const QString &reply);

/// Whether the reply is a JSON object that reports success.
[[nodiscard]] bool pluginResponseSucceeded(const QString &reply);

/// The sentence about the selected photo; none when the reply does not report success.
[[nodiscard]] std::optional<QString> formatStatusPayload(const QJsonObject &reply);

/// A tidied form of "Adjusted NAME to NUMBER"; none for any other message.
[[nodiscard]] std::optional<QString> formattedAdjustedSliderMessage(const QString &message);

} // namespace KelvaLR
