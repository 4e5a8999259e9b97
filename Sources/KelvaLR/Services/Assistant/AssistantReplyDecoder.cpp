#include "Services/Assistant/AssistantReplyDecoder.h"

#include "Support/JsonMembers.h"
#include "Support/TextTrimming.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView fence("```");
constexpr QLatin1StringView taggedFence("```json");

std::optional<Artifact> decodeArtifact(const QJsonObject &object)
{
    const std::optional<QString> kind = textMember(object, "kind"_L1);
    const std::optional<QString> title = textMember(object, "title"_L1);
    std::optional<QString> body = textMember(object, "body"_L1);
    if (!kind || !title || !body) {
        return std::nullopt;
    }
    // Models escape the line breaks of a body twice now and then.
    body->replace("\\n"_L1, "\n"_L1);
    return Artifact::make(fromRawValue<ArtifactKind>(*kind).value_or(ArtifactKind::note), *title,
                          ArtifactStatus::ready, *body);
}

std::optional<AssistantAction> decodeAction(const QJsonObject &object)
{
    const std::optional<QString> type = textMember(object, "type"_L1);
    if (!type) {
        return std::nullopt;
    }
    return AssistantAction{
        .type = *type,
        .scriptCode = textMember(object, "script_code"_L1),
        .slider = textMember(object, "slider"_L1),
        .value = numberMember(object, "value"_L1),
        .relative = truthMember(object, "relative"_L1),
        .text = textMember(object, "text"_L1),
        .presetName = textMember(object, "preset_name"_L1),
        .folderPath = textMember(object, "folder_path"_L1),
    };
}

} // namespace

std::expected<QString, OpenAIProviderError> chatTextOutput(const QByteArray &body)
{
    const QJsonArray choices = QJsonDocument::fromJson(body).object().value("choices"_L1).toArray();
    const QJsonValue content = choices.at(0).toObject().value("message"_L1).toObject().value("content"_L1);
    const auto isObject = [](const QJsonValue &value) { return value.isObject(); };
    if (!std::ranges::all_of(choices, isObject) || !content.isString()) {
        return std::unexpected(OpenAIProviderError::emptyOutput());
    }
    return trimmedWhitespace(content.toString());
}

QString cleanJsonString(QStringView text)
{
    text = text.trimmed();
    if (text.startsWith(taggedFence)) {
        text = text.sliced(taggedFence.size());
    } else if (text.startsWith(fence)) {
        text = text.sliced(fence.size());
    }
    if (text.endsWith(fence)) {
        text.chop(fence.size());
    }
    return trimmedWhitespace(text);
}

AssistantResponse decodeAssistantReply(const QString &text)
{
    const QJsonDocument document = QJsonDocument::fromJson(cleanJsonString(text).toUtf8());
    if (!document.isObject()) {
        return assistantMessage(text);
    }
    const QJsonObject reply = document.object();
    AssistantResponse response = assistantMessage(reply.value("message"_L1).toString());
    if (const auto artifact = decodeArtifact(reply.value("artifact"_L1).toObject())) {
        response.artifacts.append(*artifact);
    }
    response.action = decodeAction(reply.value("action"_L1).toObject());
    return response;
}

AssistantResponse assistantMessage(const QString &text)
{
    return {ConversationMessage::make(ConversationRole::assistant, InputMode::quiet, text), {}, {}};
}

} // namespace KelvaLR
