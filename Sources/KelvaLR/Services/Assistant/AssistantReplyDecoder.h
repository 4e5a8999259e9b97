#pragma once

#include "Services/Assistant/AssistantProvider.h"
#include "Services/Assistant/OpenAIProviderError.h"

#include <expected>

// Reads what the chat service sends. Pure functions over text from outside; they accept anything.
namespace KelvaLR {

/// The text output of a chat-completions reply body, choices[0].message.content, trimmed.
[[nodiscard]] std::expected<QString, OpenAIProviderError> chatTextOutput(const QByteArray &body);

/// Takes Markdown code fences off a text: "```json" or "```" at its head and "```" at its end.
[[nodiscard]] QString cleanJsonString(QStringView text);

/// The reply that a text output stands for. A text that is no JSON object is itself the message; a card or an
/// action that is incomplete is left out.
[[nodiscard]] AssistantResponse decodeAssistantReply(const QString &text);

/// A reply that says one thing: no card, no action.
[[nodiscard]] AssistantResponse assistantMessage(const QString &text);

} // namespace KelvaLR
