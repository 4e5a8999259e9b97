#include "Services/Assistant/OpenAIAssistantProvider.h"

#include "Services/Assistant/AssistantReplyDecoder.h"
#include "Services/Assistant/AssistantTexts.h"
#include "Support/OrderedJsonObject.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QNetworkReply>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView model("gpt-4o");

QJsonObject chatMessage(QLatin1StringView role, const QString &content)
{
    return {{"role"_L1, role}, {"content"_L1, content}};
}

QByteArray requestBody(const QString &prompt)
{
    return OrderedJsonObject()
        .add("model"_L1, QJsonValue(model))
        .add("messages"_L1,
             QJsonArray{chatMessage("system"_L1, chatSystemPrompt()), chatMessage("user"_L1, prompt)})
        .add("response_format"_L1, QJsonObject{{"type"_L1, "json_object"_L1}})
        .toJson();
}

QNetworkRequest chatRequest(const QUrl &address, const QByteArray &authorization)
{
    QNetworkRequest request(address);
    request.setRawHeader("Authorization", authorization);
    request.setRawHeader("Content-Type", "application/json");
    return request;
}

std::expected<QString, OpenAIProviderError> textOutput(const HttpReply &reply)
{
    using Ending = HttpReply::Ending;
    switch (reply.ending) {
    case Ending::timedOut:
        return std::unexpected(OpenAIProviderError::apiError(u"The request timed out."_s));
    case Ending::tooLarge:
    case Ending::notHttp:
        return std::unexpected(OpenAIProviderError::invalidResponse());
    case Ending::failed:
        return std::unexpected(OpenAIProviderError::apiError(reply.failure));
    case Ending::received:
        break;
    }
    if (reply.status < 200 || reply.status > 299) {
        return std::unexpected(OpenAIProviderError::apiError(u"HTTP %1"_s.arg(reply.status)));
    }
    return chatTextOutput(reply.body);
}

} // namespace

OpenAIAssistantProvider::OpenAIAssistantProvider(OpenAIAccess access, HttpLimits limits)
    : m_access(std::move(access))
    , m_limits(limits)
{
}

OpenAIAssistantProvider::~OpenAIAssistantProvider()
{
    // A reply that dies with its manager never finishes, and the coroutine that waits for it would leak.
    for (QNetworkReply *reply : m_network.findChildren<QNetworkReply *>()) {
        reply->abort();
    }
}

AssistantProviderKind OpenAIAssistantProvider::kind() const
{
    return AssistantProviderKind::openAI;
}

// Neither coroutine touches `this` once it has waited.
QCoro::Task<AssistantResponse> OpenAIAssistantProvider::respond(AssistantRequest request)
{
    const std::optional<QString> apiKey = m_access.apiKey();
    if (!apiKey) {
        co_return assistantMessage(
            u"OpenAI is not configured. Add `%1` to `.env.local` for local development."_s.arg(
                m_access.environmentKeyName()));
    }
    const TextOutput output = co_await createResponse(request.prompt, *apiKey);
    co_return output ? decodeAssistantReply(*output)
                     : assistantMessage(u"OpenAI request failed: "_s + output.error().description);
}

QCoro::Task<OpenAIAssistantProvider::TextOutput> OpenAIAssistantProvider::createResponse(QString prompt,
                                                                                         QString apiKey)
{
    const std::expected<QUrl, QString> address = m_access.address("chat/completions"_L1);
    if (!address) {
        co_return std::unexpected(OpenAIProviderError::apiError(address.error()));
    }
    const std::expected<QByteArray, QString> authorization = OpenAIAccess::authorization(apiKey);
    if (!authorization) {
        co_return std::unexpected(OpenAIProviderError::apiError(authorization.error()));
    }
    co_return textOutput(co_await postOverHttp(m_network, chatRequest(*address, *authorization),
                                               requestBody(prompt), m_limits));
}

} // namespace KelvaLR
