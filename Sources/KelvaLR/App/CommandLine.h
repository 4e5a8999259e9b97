#pragma once

#include "AppIntents/KelvaLRIntents.h"

#include <QString>
#include <QStringList>

#include <expected>
#include <optional>

namespace KelvaLR {

/// What the program was started for.
/// `service` waits without a window until the session bus asks for something.
enum class LaunchMode { window, service, prompts, terminal, explain, installPlugin, consent, help, version };
enum class OutputFormat { text, json };

struct CommandLine
{
    LaunchMode mode = LaunchMode::window;
    OutputFormat format = OutputFormat::text;
    std::optional<KelvaLRIntent> intent; ///< for the window
    QStringList prompts;
    bool isLightroomAssumedFrontmost = false;
    std::optional<bool> allowsComputerControl; ///< what the user's setting becomes

    /// @param arguments with the program's name first
    /// @return the request, or one sentence that says what is wrong with the arguments
    [[nodiscard]] static std::expected<CommandLine, QString> parse(const QStringList &arguments);
    [[nodiscard]] static QString helpText();

    bool operator==(const CommandLine &) const = default;
};

} // namespace KelvaLR
