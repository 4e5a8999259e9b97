// Any body and any text output gives a reply: one message, at most one card, an action only with finite
// numbers.

#include "FuzzedText.h"

#include "Services/Assistant/AssistantReplyDecoder.h"

#include <QJsonDocument>

#include <cmath>

namespace KelvaLR {

namespace {

using Fuzzing::require;

void decodeReply(const QString &text)
{
    const QString cleaned = cleanJsonString(text);
    require(cleaned.size() <= text.size() && cleaned == cleaned.trimmed());

    const AssistantResponse response = decodeAssistantReply(text);
    require(response.message.role == ConversationRole::assistant && !response.message.id.isNull());
    require(response.artifacts.size() <= 1);
    require(!response.action || !response.action->value || std::isfinite(*response.action->value));
    if (!QJsonDocument::fromJson(cleaned.toUtf8()).isObject()) {
        require(response == AssistantResponse{response.message, {}, {}} && response.message.content == text);
    }
}

} // namespace

} // namespace KelvaLR

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    for (const QString &text : KelvaLR::Fuzzing::textsOf(data, size)) {
        KelvaLR::decodeReply(text);
    }
    const QByteArray body(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    if (const auto output = KelvaLR::chatTextOutput(body)) {
        KelvaLR::decodeReply(*output);
    }
    return 0;
}
