#pragma once

#include "Platform/FrontmostApplication.h"

#include <QIODevice>

namespace KelvaLR {

/// Reads requests, one a line, and writes for each one JSON object that says how it would be routed. Lines
/// end at a line feed and nothing else. Carries nothing out and installs nothing.
/// @return the exit status
int explainRequests(QIODevice &input, QIODevice &output, const FrontmostApplication &frontmost);

} // namespace KelvaLR
