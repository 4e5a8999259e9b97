#pragma once

#include "Models/Artifact.h"
#include "Models/AssistantProviderKind.h"
#include "Models/ConversationMessage.h"

#include <QCoroTask>

#include <QList>

#include <optional>

namespace KelvaLR {

/// What the chat assistant is asked with.
struct AssistantRequest
{
    QString prompt;            ///< the user's text, trimmed
    QList<Artifact> artifacts; ///< the cards of the conversation so far, oldest first

    bool operator==(const AssistantRequest &) const = default;
};

/// A Lightroom action that a reply asks for; `type` is the backend's own word and not validated.
struct AssistantAction
{
    QString type;
    std::optional<QString> scriptCode;
    std::optional<QString> slider;
    std::optional<double> value;
    std::optional<bool> relative;
    std::optional<QString> text;
    std::optional<QString> presetName;
    std::optional<QString> folderPath;

    bool operator==(const AssistantAction &) const = default;
};

/// A reply: always a message, zero or more cards, at most one action.
struct AssistantResponse
{
    ConversationMessage message;
    QList<Artifact> artifacts;
    std::optional<AssistantAction> action;

    bool operator==(const AssistantResponse &) const = default;
};

/// A chat backend. Main thread; a problem of any kind is the text of the reply.
class AssistantProvider
{
public:
    AssistantProvider() = default;
    virtual ~AssistantProvider() = default;
    Q_DISABLE_COPY_MOVE(AssistantProvider)

    [[nodiscard]] virtual AssistantProviderKind kind() const = 0;

    /// Answers within a bounded time, without blocking the main thread.
    virtual QCoro::Task<AssistantResponse> respond(AssistantRequest request) = 0;
};

} // namespace KelvaLR
