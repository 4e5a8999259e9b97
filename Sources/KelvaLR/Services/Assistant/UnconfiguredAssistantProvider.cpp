#include "Services/Assistant/UnconfiguredAssistantProvider.h"

namespace KelvaLR {

UnconfiguredAssistantProvider::UnconfiguredAssistantProvider(const QString &environmentKeyName)
    : m_environmentKeyName(environmentKeyName)
{
}

AssistantProviderKind UnconfiguredAssistantProvider::kind() const
{
    return AssistantProviderKind::openAI;
}

QCoro::Task<AssistantResponse> UnconfiguredAssistantProvider::respond(AssistantRequest)
{
    const QString text =
        QStringLiteral("OpenAI is not configured. Add `%1` to `.env.local` for local development.")
            .arg(m_environmentKeyName);
    co_return AssistantResponse{
        ConversationMessage::make(ConversationRole::assistant, InputMode::quiet, text), {}, {}};
}

} // namespace KelvaLR
