#pragma once

#include "App/CommandLine.h"

namespace KelvaLR {

/// Opens the main window and runs until it is closed. Where KelvaLR already runs in this session, its window
/// comes to the front instead, and this one ends at once.
/// @param line of the mode `window`, or `service`: then there is no window until the session bus asks for it
/// @param argumentCount, arguments those of main, which outlive the call
/// @return the exit status
int runWindow(const CommandLine &line, int &argumentCount, char **arguments);

} // namespace KelvaLR
