#include "Services/Automation/ElementReading.h"

#include "Support/NormalizedWords.h"

namespace KelvaLR {

namespace {

using enum ElementAttribute;

} // namespace

QCoro::Task<AccessibilityTree> treeToSearch(Accessibility *accessibility, qint64 processId, QString name,
                                            ElementPurpose purpose)
{
    AccessibilityTree tree = co_await accessibility->tree(processId, Accessibility::unlimited);
    const ElementPlaces candidates = placesOf(tree, [&](const AccessibilityElement &element) {
        return purpose == ElementPurpose::click || isTextInput(element);
    });
    tree = co_await accessibility->withAttributes(
        std::move(tree), candidates, title | description | value | help | placeholder | identifier);
    const QString target = normalizedWords(name);
    const ElementPlaces named =
        placesOf(tree, [&](const AccessibilityElement &element) { return matchScore(element, target) > 0; });
    co_return co_await accessibility->withAttributes(std::move(tree), named, actions | center);
}

QCoro::Task<AccessibilityTree> treeToList(Accessibility *accessibility, qint64 processId)
{
    AccessibilityTree tree = co_await accessibility->tree(processId, listedElementLimit);
    const auto all = placesOf(tree, [](const AccessibilityElement &) { return true; });
    tree = co_await accessibility->withAttributes(std::move(tree), all, title | description);
    const auto unnamed = placesOf(tree, [](const AccessibilityElement &element) { return !label(element); });
    tree = co_await accessibility->withAttributes(std::move(tree), unnamed, identifier);
    const auto undecided = placesOf(tree, [](const AccessibilityElement &element) {
        return label(element) && !isInteractiveOrReadable(element);
    });
    tree = co_await accessibility->withAttributes(std::move(tree), undecided, actions);
    const auto listed = placesOf(tree, [](const AccessibilityElement &element) {
        return label(element) && isInteractiveOrReadable(element);
    });
    co_return co_await accessibility->withAttributes(std::move(tree), listed, value);
}

} // namespace KelvaLR
