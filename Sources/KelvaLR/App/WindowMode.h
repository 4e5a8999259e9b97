#pragma once

namespace KelvaLR {

/// Opens the main window and runs until it is closed.
/// @param argumentCount, arguments those of main, which outlive the call
/// @return the exit status
int runWindow(int &argumentCount, char **arguments);

} // namespace KelvaLR
