#pragma once

#include <QString>
#include <QStringList>

#include <expected>
#include <optional>

namespace KelvaLR {

/// What the program was started for.
enum class LaunchMode { window, prompts, terminal, explain, installPlugin, consent, help, version };
enum class OutputFormat { text, json };

struct CommandLine
{
    LaunchMode mode = LaunchMode::window;
    OutputFormat format = OutputFormat::text;
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
