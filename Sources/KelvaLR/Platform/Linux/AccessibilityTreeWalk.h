#pragma once

#include "Platform/Accessibility.h"

#include <QCoroTask>
#include <QDeadlineTimer>

namespace KelvaLR {

class AccessibilityBus;

/// The root element of a running application; none when it shows no interface. The bus outlives the task.
QCoro::Task<std::optional<AccessibilityElementID>> applicationRoot(AccessibilityBus *bus, qint64 processId);

/// The elements below a root, level by level, with their roles and subroles: as many as the limit and the
/// deadline allow. A program that falls silent ends the walk. The bus outlives the task.
QCoro::Task<AccessibilityTree> walkTree(AccessibilityBus *bus, AccessibilityElementID root, qsizetype limit,
                                        QDeadlineTimer deadline);

} // namespace KelvaLR
