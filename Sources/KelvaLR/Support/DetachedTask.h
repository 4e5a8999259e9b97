#pragma once

#include <QCoroTask>

namespace KelvaLR {

/// Starts a task that nobody awaits. Dropping a task would swallow its exception; here it ends in the log, as
/// no service throws and one that does is a fault worth seeing. Main thread.
void startDetached(QCoro::Task<> task);

} // namespace KelvaLR
