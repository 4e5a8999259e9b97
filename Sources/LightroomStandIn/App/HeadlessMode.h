#pragma once

namespace StandIn {

struct CommandLine;

/// Serves the plug-in until the program is told to end. Gives the exit code.
[[nodiscard]] int runHeadless(const CommandLine &line, int &argumentCount, char **arguments);

} // namespace StandIn
