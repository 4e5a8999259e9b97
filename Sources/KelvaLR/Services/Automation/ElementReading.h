#pragma once

#include "Platform/Accessibility.h"
#include "Services/Automation/UIElementSearch.h"

#include <QCoroTask>

#include <QString>

// Reading an application's interface for one purpose. Every question to another program takes its time, so
// what decides is asked first, and the rest only of the elements that are still in question.

namespace KelvaLR {

/// The application's tree with all that findElement() looks at. The port outlives the task.
QCoro::Task<AccessibilityTree> treeToSearch(Accessibility *accessibility, qint64 processId, QString name,
                                            ElementPurpose purpose);

/// The application's tree with all that visibleElements() looks at. The port outlives the task.
QCoro::Task<AccessibilityTree> treeToList(Accessibility *accessibility, qint64 processId);

} // namespace KelvaLR
