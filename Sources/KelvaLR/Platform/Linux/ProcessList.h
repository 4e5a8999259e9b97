#pragma once

#include <QString>

namespace KelvaLR {

/// The name of a process's program; empty when there is no such process.
[[nodiscard]] QString programName(qint64 processId);

/// Whether a process was started by the other one, or by what that one started.
[[nodiscard]] bool descendsFrom(qint64 processId, qint64 ancestor);

} // namespace KelvaLR
