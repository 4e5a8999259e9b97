#pragma once

#include <QString>

#include <optional>

/// Recognises requests to open Lightroom, such as "open Lightroom Classic". Stateless, any thread.
namespace KelvaLR::LightroomLaunchCommandParser {

/// The application name as the user wrote it.
[[nodiscard]] std::optional<QString> parse(const QString &text);

} // namespace KelvaLR::LightroomLaunchCommandParser
