#include "Services/Assistant/OpenAIAccess.h"

#include "Support/TextTrimming.h"

#include <QHostAddress>

#include <algorithm>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView sharedKeyName("OPENAI_API_KEY");
constexpr QLatin1StringView ownHost("https://api.openai.com/v1"); // OpenAI's API reference

bool isThisComputer(const QString &host)
{
    return host == "localhost"_L1 || QHostAddress(host).isLoopback();
}

std::expected<QUrl, QString> checkedBaseUrl(const QString &configured)
{
    const QString text = trimmedWhitespace(configured);
    const QUrl url(text.isEmpty() ? QString(ownHost) : text, QUrl::StrictMode);
    if (!url.isValid() || url.host().isEmpty() || !url.userInfo().isEmpty() ||
        (url.scheme() != "https"_L1 && url.scheme() != "http"_L1)) {
        return std::unexpected(u"OPENAI_BASE_URL is not an address that begins with https://."_s);
    }
    if (url.scheme() == "http"_L1 && !isThisComputer(url.host())) {
        return std::unexpected(
            u"OPENAI_BASE_URL begins with http://, which is allowed for this computer only."_s);
    }
    return url.adjusted(QUrl::RemoveFragment);
}

} // namespace

OpenAIAccess::OpenAIAccess(QString environmentKeyName, const QString &baseUrl, VariableLookup lookup)
    : m_environmentKeyName(std::move(environmentKeyName))
    , m_baseUrl(checkedBaseUrl(baseUrl))
    , m_lookup(std::move(lookup))
{
}

std::optional<QString> OpenAIAccess::apiKey() const
{
    if (const std::optional<QString> key = m_lookup(m_environmentKeyName)) {
        return key;
    }
    return m_lookup(sharedKeyName);
}

std::expected<QByteArray, QString> OpenAIAccess::authorization(const QString &apiKey)
{
    // A line break in the key would begin a header of its own.
    if (std::ranges::any_of(apiKey, [](QChar c) { return c.category() == QChar::Other_Control; })) {
        return std::unexpected(u"The API key holds a character that cannot be sent."_s);
    }
    return "Bearer " + apiKey.toUtf8();
}

std::expected<QUrl, QString> OpenAIAccess::address(QLatin1StringView operation) const
{
    if (!m_baseUrl) {
        return m_baseUrl;
    }
    QUrl url = *m_baseUrl;
    url.setPath(url.path() + (url.path().endsWith(u'/') ? ""_L1 : "/"_L1) + operation);
    return url;
}

} // namespace KelvaLR
