#pragma once

#include <QString>

#include <optional>

namespace KelvaLR {

/// What a realtime tool call says about the photos it means: its action and every text it carries.
struct RealtimeImportedPhotoTargetRequest
{
    QString action;
    std::optional<QString> text;
    std::optional<QString> targetName;
    std::optional<QString> prompt;
    std::optional<QString> presetName;
    std::optional<QString> transcript;

    bool operator==(const RealtimeImportedPhotoTargetRequest &) const = default;
};

} // namespace KelvaLR
