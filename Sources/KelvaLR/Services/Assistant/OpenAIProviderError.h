#pragma once

#include <QString>

namespace KelvaLR {

/// Why a chat request has no text output. It reaches the user as text only.
struct OpenAIProviderError
{
    QString description; ///< one sentence or a short phrase such as "HTTP 401"

    /// The service, the network or the configuration gave a reason of its own.
    [[nodiscard]] static OpenAIProviderError apiError(const QString &reason) { return {reason}; }

    [[nodiscard]] static OpenAIProviderError invalidResponse()
    {
        return {QStringLiteral("The OpenAI server returned an invalid response.")};
    }

    [[nodiscard]] static OpenAIProviderError emptyOutput()
    {
        return {QStringLiteral("The OpenAI response did not include text output.")};
    }

    bool operator==(const OpenAIProviderError &) const = default;
};

} // namespace KelvaLR
