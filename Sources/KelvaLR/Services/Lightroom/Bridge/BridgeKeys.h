#pragma once

#include <QLatin1StringView>

/// The keys of the bridge's JSON records, for the command's writer and the reply's reader.
namespace KelvaLR::BridgeKeys {

// Commands and replies.
inline constexpr QLatin1StringView requestID("request_id");

// Commands.
inline constexpr QLatin1StringView action("action");
inline constexpr QLatin1StringView slider("slider");
inline constexpr QLatin1StringView value("value");
inline constexpr QLatin1StringView relative("relative");
inline constexpr QLatin1StringView type("type");
inline constexpr QLatin1StringView adjustments("adjustments");
inline constexpr QLatin1StringView presetName("preset_name");
inline constexpr QLatin1StringView folderPath("folder_path");
inline constexpr QLatin1StringView targetPaths("target_paths");

// Replies.
inline constexpr QLatin1StringView status("status");
inline constexpr QLatin1StringView message("message");
inline constexpr QLatin1StringView filename("filename");
inline constexpr QLatin1StringView rating("rating");
inline constexpr QLatin1StringView exposure("exposure");

} // namespace KelvaLR::BridgeKeys
