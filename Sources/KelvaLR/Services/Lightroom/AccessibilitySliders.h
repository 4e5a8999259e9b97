#pragma once

#include "Platform/Accessibility.h"

#include <QCoroTask>

namespace KelvaLR {

/// The slider of a running application that bears the name, or stands beside a text that does, with its value
/// as it is now. The port outlives the task.
QCoro::Task<std::optional<AccessibilityElement>> sliderNamed(Accessibility *accessibility, qint64 processId,
                                                             QString name);

/// The slider's value as it is now. The port outlives the task.
QCoro::Task<AccessibilityElement::Value> sliderValue(Accessibility *accessibility,
                                                     AccessibilityElement slider);

/// The first slider, depth first, one of whose labels contains the name in any case. An empty name names no
/// slider. The answer points into the tree; null when there is none.
[[nodiscard]] const AccessibilityElement *findSliderDirectly(const AccessibilityTree &tree,
                                                             const QString &name);

/// The first slider beside a text, depth first, that is the name or contains it followed by a blank, in any
/// case. An empty name names no slider. The answer points into the tree; null when there is none.
[[nodiscard]] const AccessibilityElement *findSliderByTextLabel(const AccessibilityTree &tree,
                                                                const QString &name);

} // namespace KelvaLR
