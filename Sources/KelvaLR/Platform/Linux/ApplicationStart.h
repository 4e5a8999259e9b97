#pragma once

#include "Platform/Linux/DesktopEntry.h"
#include "Platform/Linux/X11Windows.h"

#include <QCoroTask>

#include <chrono>
#include <expected>
#include <memory>

namespace KelvaLR {

/// Starts an application that outlives us and waits for its first window, which comes to the front. A program
/// that shows none until the deadline has started too, unless it has failed; the error is a sentence. An
/// application that has a window already only comes to the front: two would fight over one catalog.
/// @param windows where its window is looked for; the wait ends when they go
QCoro::Task<std::expected<void, QString>> startApplication(DesktopEntry entry,
                                                           std::weak_ptr<const X11Windows> windows,
                                                           std::chrono::milliseconds deadline);

} // namespace KelvaLR
