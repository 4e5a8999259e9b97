#pragma once

#include "Services/Assistant/AssistantProvider.h"

namespace KelvaLR {

/// The backend of an application that has no API key: it says how to give it one. Opens no connection.
class UnconfiguredAssistantProvider final : public AssistantProvider
{
public:
    /// @param environmentKeyName the environment variable that would hold the key
    explicit UnconfiguredAssistantProvider(const QString &environmentKeyName);

    AssistantProviderKind kind() const override;
    QCoro::Task<AssistantResponse> respond(AssistantRequest request) override;

private:
    QString m_environmentKeyName;
};

} // namespace KelvaLR
