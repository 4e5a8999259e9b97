#pragma once

#include <QString>
#include <QStringList>

#include <expected>

namespace StandIn {

/// What the stand-in was started for.
struct CommandLine
{
    bool isHelpWanted = false;
    bool isHeadless = false;
    bool isPluginStartedLater = false; ///< when a menu item of it is chosen
    QString photoFolder;
    QString presetFolder; ///< empty for the shipped presets alone
    QString moduleFolder;
    QString sampleFolder; ///< not empty when sample photos are wanted, and nothing else

    bool operator==(const CommandLine &) const = default;
};

/// Reads the arguments, program name first. The error is a finished sentence.
[[nodiscard]] std::expected<CommandLine, QString> readCommandLine(const QStringList &arguments);

/// How the program is called.
[[nodiscard]] QString usage();

} // namespace StandIn
