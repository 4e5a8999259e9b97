#pragma once

#include "Services/Assistant/AssistantProvider.h"

#include <QCoroTimer>

namespace KelvaLR::Testing {

/// Answers every request with the same response, a moment later.
class ScriptedAssistantProvider final : public AssistantProvider
{
public:
    AssistantProviderKind kind() const override { return AssistantProviderKind::openAI; }

    QCoro::Task<AssistantResponse> respond(AssistantRequest request) override
    {
        requests.append(request);
        const AssistantResponse answer = response;
        co_await QCoro::sleepFor(delay);
        co_return answer;
    }

    AssistantResponse response{
        ConversationMessage::make(ConversationRole::assistant, InputMode::quiet, QStringLiteral("Hello.")),
        {},
        {}};
    std::chrono::milliseconds delay{1};
    QList<AssistantRequest> requests;
};

} // namespace KelvaLR::Testing
