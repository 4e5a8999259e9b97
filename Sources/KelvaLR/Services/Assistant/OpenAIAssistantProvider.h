#pragma once

#include "Services/Assistant/AssistantProvider.h"
#include "Services/Assistant/HttpPost.h"
#include "Services/Assistant/OpenAIAccess.h"
#include "Services/Assistant/OpenAIProviderError.h"

namespace KelvaLR {

/// Asks the OpenAI chat-completions service; each request stands alone and carries the prompt, nothing else
/// of the conversation. Requests may overlap. Destroying the provider ends those under way: they answer that
/// they failed, at once, to whoever still listens.
class OpenAIAssistantProvider final : public AssistantProvider
{
public:
    /// A reply is one small JSON object: 4 MiB is far more than the service's own limit on its output.
    static constexpr HttpLimits defaultLimits{std::chrono::seconds(60), qint64{4} * 1024 * 1024};

    explicit OpenAIAssistantProvider(OpenAIAccess access, HttpLimits limits = defaultLimits);
    ~OpenAIAssistantProvider() override;

    AssistantProviderKind kind() const override;
    QCoro::Task<AssistantResponse> respond(AssistantRequest request) override;

private:
    using TextOutput = std::expected<QString, OpenAIProviderError>;

    QCoro::Task<TextOutput> createResponse(QString prompt, QString apiKey);

    OpenAIAccess m_access;
    HttpLimits m_limits;
    QNetworkAccessManager m_network;
};

} // namespace KelvaLR
