#pragma once

#include "Platform/Accessibility.h"

namespace KelvaLR {

/// The first slider, depth first, one of whose labels contains the name in any case. An empty name names no
/// slider. The answer points into the tree; null when there is none.
[[nodiscard]] const AccessibilityElement *findSliderDirectly(const AccessibilityTree &tree,
                                                             const QString &name);

/// The first slider beside a text, depth first, that is the name or contains it followed by a blank, in any
/// case. An empty name names no slider. The answer points into the tree; null when there is none.
[[nodiscard]] const AccessibilityElement *findSliderByTextLabel(const AccessibilityTree &tree,
                                                                const QString &name);

} // namespace KelvaLR
