#pragma once

#include "Support/LocalEnvironment.h"

#include <QUrl>

#include <expected>
#include <functional>

namespace KelvaLR {

/// Where the OpenAI service is and the key that opens it. The key is looked up anew for every request, so
/// that an edited `.env.local` needs no restart.
class OpenAIAccess
{
public:
    using VariableLookup = std::function<std::optional<QString>(const QString &name)>;

    /// @param environmentKeyName the variable that holds the key; "OPENAI_API_KEY" is tried after it
    /// @param baseUrl the value of OPENAI_BASE_URL with its trailing "/v1", empty for the service's own host.
    ///        It comes from the process's environment only: a file in some working directory must not be able
    ///        to send the user's key to another host.
    explicit OpenAIAccess(QString environmentKeyName, const QString &baseUrl = {},
                          VariableLookup lookup = LocalEnvironment::value);

    [[nodiscard]] const QString &environmentKeyName() const { return m_environmentKeyName; }

    [[nodiscard]] std::optional<QString> apiKey() const;

    /// The value of the header that carries the key, or a sentence when no header can.
    [[nodiscard]] static std::expected<QByteArray, QString> authorization(const QString &apiKey);

    /// The address of an operation such as "chat/completions", or one sentence that says why the base URL is
    /// not used: it must be https, or plain http to this computer, without a user name or a password.
    [[nodiscard]] std::expected<QUrl, QString> address(QLatin1StringView operation) const;

private:
    QString m_environmentKeyName;
    std::expected<QUrl, QString> m_baseUrl;
    VariableLookup m_lookup;
};

} // namespace KelvaLR
