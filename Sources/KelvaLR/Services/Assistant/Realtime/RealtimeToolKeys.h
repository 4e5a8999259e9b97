#pragma once

#include <QLatin1StringView>

/// The words of the one tool that the realtime service may call.
namespace KelvaLR::RealtimeToolKey {

inline constexpr QLatin1StringView toolName("computer_use");

// Its arguments.
inline constexpr QLatin1StringView action("action");
inline constexpr QLatin1StringView appName("app_name");
inline constexpr QLatin1StringView targetName("target_name");
inline constexpr QLatin1StringView text("text");
inline constexpr QLatin1StringView key("key");
inline constexpr QLatin1StringView slider("slider");
inline constexpr QLatin1StringView value("value");
inline constexpr QLatin1StringView relative("relative");
inline constexpr QLatin1StringView presetName("preset_name");
inline constexpr QLatin1StringView folderPath("folder_path");

// Arguments that the tool does not offer and that are read when they come all the same.
inline constexpr QLatin1StringView prompt("prompt");
inline constexpr QLatin1StringView scriptCode("script_code");

} // namespace KelvaLR::RealtimeToolKey
