#pragma once

#include "Platform/Accessibility.h"
#include "Services/Automation/UIElementDescription.h"

#include <QList>

// What the snapshot of an application's interface holds: pure functions over plain values.

namespace KelvaLR {

/// What a search is looking for: something to click or read, or a text input that will receive typing.
enum class ElementPurpose { click, field };

/// Lower-case, only letters, numbers and white space, runs of blanks collapsed; so that "Auto-Tone!" names
/// the element "AutoTone".
[[nodiscard]] QString normalizedElementText(const QString &text);

/// How well an element fits; 0 when it does not.
/// @param normalizedTarget the name looked for, normalised
[[nodiscard]] int elementScore(const AccessibilityElement &element, const QString &normalizedTarget,
                               ElementPurpose purpose);

/// The element that fits best; among equals the one nearest to the root, then the earlier sibling. None when
/// no element fits. Points into the tree.
[[nodiscard]] const AccessibilityElement *findElement(const AccessibilityTree &tree, const QString &name,
                                                      ElementPurpose purpose);

/// The labelled elements that a user can press, type into or read, from the root downwards level by level.
/// Looks at no more than 1,500 elements, so that the list stays readable.
[[nodiscard]] QList<UIElementDescription> visibleElements(const AccessibilityTree &tree);

} // namespace KelvaLR
