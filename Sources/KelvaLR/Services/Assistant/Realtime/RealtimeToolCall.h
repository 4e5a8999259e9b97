#pragma once

#include "Models/RealtimeImportedPhotoTargetRequest.h"
#include "Services/Assistant/Realtime/RealtimeToolAction.h"

#include <QString>

#include <expected>
#include <optional>

namespace KelvaLR {

struct RealtimeServerEvent;

/// One call of the realtime service's tool.
struct RealtimeToolCall
{
    QString callID;    ///< names the call in its answer
    QString action;    ///< as sent
    QString arguments; ///< the whole argument text as sent, for the log

    std::optional<QString> appName;
    std::optional<QString> targetName;
    std::optional<QString> text;
    std::optional<QString> key;
    std::optional<QString> prompt;
    std::optional<QString> scriptCode;
    std::optional<QString> slider;
    std::optional<double> value;
    std::optional<bool> relative;
    std::optional<QString> presetName;
    std::optional<QString> folderPath;

    /// Reads "response.function_call_arguments.done". The error is the sentence for the user; it is empty for
    /// a call that is none of ours (another tool, no identifier) and is passed over in silence.
    [[nodiscard]] static std::expected<RealtimeToolCall, QString> parse(const RealtimeServerEvent &event);

    /// The action, whatever its case and the white space around it; none when we do not know it.
    [[nodiscard]] std::optional<RealtimeToolAction> knownAction() const;

    bool operator==(const RealtimeToolCall &) const = default;
};

/// What tells which imported photos a call means.
/// @param transcript the words of the reply that makes the call
[[nodiscard]] RealtimeImportedPhotoTargetRequest targetRequest(const RealtimeToolCall &call,
                                                               const QString &transcript);

} // namespace KelvaLR
