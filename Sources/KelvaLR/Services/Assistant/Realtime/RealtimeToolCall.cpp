#include "Services/Assistant/Realtime/RealtimeToolCall.h"

#include "Services/Assistant/Realtime/RealtimeServerEvent.h"
#include "Services/Assistant/Realtime/RealtimeToolKeys.h"
#include "Support/JsonMembers.h"
#include "Support/LowercasedText.h"
#include "Support/TextTrimming.h"

#include <QJsonDocument>

namespace KelvaLR {

using namespace Qt::StringLiterals;

std::expected<RealtimeToolCall, QString> RealtimeToolCall::parse(const RealtimeServerEvent &event)
{
    const std::optional<QString> callID = event.text("call_id"_L1);
    if (event.text("name"_L1) != RealtimeToolKey::toolName || !callID) {
        return std::unexpected(QString());
    }
    const QString text = event.text("arguments"_L1).value_or(u"{}"_s);
    const QJsonObject arguments = QJsonDocument::fromJson(text.toUtf8()).object();
    const std::optional<QString> action = textMember(arguments, RealtimeToolKey::action);
    if (!action) {
        return std::unexpected("Failed to parse tool call arguments: "_L1 + text);
    }
    return RealtimeToolCall{
        .callID = *callID,
        .action = *action,
        .arguments = text,
        .appName = textMember(arguments, RealtimeToolKey::appName),
        .targetName = textMember(arguments, RealtimeToolKey::targetName),
        .text = textMember(arguments, RealtimeToolKey::text),
        .key = textMember(arguments, RealtimeToolKey::key),
        .prompt = textMember(arguments, RealtimeToolKey::prompt),
        .scriptCode = textMember(arguments, RealtimeToolKey::scriptCode),
        .slider = textMember(arguments, RealtimeToolKey::slider),
        .value = numberMember(arguments, RealtimeToolKey::value),
        .relative = truthMember(arguments, RealtimeToolKey::relative),
        .presetName = textMember(arguments, RealtimeToolKey::presetName),
        .folderPath = textMember(arguments, RealtimeToolKey::folderPath),
    };
}

std::optional<RealtimeToolAction> RealtimeToolCall::knownAction() const
{
    return fromRawValue<RealtimeToolAction>(lowercased(trimmedWhitespace(action)));
}

RealtimeImportedPhotoTargetRequest targetRequest(const RealtimeToolCall &call, const QString &transcript)
{
    return {
        .action = call.action,
        .text = call.text,
        .targetName = call.targetName,
        .prompt = call.prompt,
        .presetName = call.presetName,
        .transcript = transcript,
    };
}

} // namespace KelvaLR
