#pragma once

#include "Platform/Accessibility.h"
#include "Services/Automation/UIElementDescription.h"

#include <QList>

#include <optional>

// What the snapshot of an application's interface holds: pure functions over plain values.

namespace KelvaLR {

/// What a search is looking for: something to click or read, or a text input that will receive typing.
enum class ElementPurpose { click, field };

/// The listing looks at no more elements than this, so that it stays readable.
inline constexpr qsizetype listedElementLimit = 1500;

[[nodiscard]] bool isTextInput(const AccessibilityElement &element);

/// Whether a user can press it, type into it or read it; needs the element's actions where its role does not
/// decide.
[[nodiscard]] bool isInteractiveOrReadable(const AccessibilityElement &element);

/// What the element is listed as; none for one without a label.
[[nodiscard]] std::optional<QString> label(const AccessibilityElement &element);

/// The places of the elements for which a condition holds.
template <typename Condition>
[[nodiscard]] ElementPlaces placesOf(const AccessibilityTree &tree, Condition condition)
{
    ElementPlaces places;
    for (qsizetype place = 0; place < tree.size(); ++place) {
        if (condition(tree.at(place))) {
            places.append(place);
        }
    }
    return places;
}

/// How well the element's texts alone fit; 0 when none does.
/// @param normalizedTarget the name looked for, normalised
[[nodiscard]] int matchScore(const AccessibilityElement &element, const QString &normalizedTarget);

/// How well an element fits; 0 when it does not.
/// @param normalizedTarget the name looked for, normalised
[[nodiscard]] int elementScore(const AccessibilityElement &element, const QString &normalizedTarget,
                               ElementPurpose purpose);

/// The element that fits best; among equals the one nearest to the root, then the earlier sibling. None when
/// no element fits. Points into the tree.
[[nodiscard]] const AccessibilityElement *findElement(const AccessibilityTree &tree, const QString &name,
                                                      ElementPurpose purpose);

/// The labelled elements that a user can press, type into or read, from the root downwards level by level.
/// Looks at no more than `listedElementLimit` elements.
[[nodiscard]] QList<UIElementDescription> visibleElements(const AccessibilityTree &tree);

} // namespace KelvaLR
