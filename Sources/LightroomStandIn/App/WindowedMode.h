#pragma once

namespace StandIn {

struct CommandLine;

/// Serves the plug-in and the user of the window until it is closed. Gives the exit code.
[[nodiscard]] int runWindowed(const CommandLine &line, int &argumentCount, char **arguments);

} // namespace StandIn
