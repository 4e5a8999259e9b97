#include "Services/Lightroom/AccessibilitySliders.h"

#include "Services/Automation/UIElementSearch.h"

#include <algorithm>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView sliderRole("AXSlider");
constexpr QLatin1StringView staticTextRole("AXStaticText");

/// Visits the elements depth first and in order until one gives an answer. The way is kept in a list of its
/// own: other programs' trees can be deeper than our stack.
template <typename Search>
const AccessibilityElement *firstDepthFirst(const AccessibilityTree &tree, Search search)
{
    QList<qsizetype> pending;
    if (!tree.isEmpty()) {
        pending.append(0);
    }
    while (!pending.isEmpty()) {
        const AccessibilityElement &element = tree.at(pending.takeLast());
        if (const AccessibilityElement *answer = search(element)) {
            return answer;
        }
        std::copy(element.children.rbegin(), element.children.rend(), std::back_inserter(pending));
    }
    return nullptr;
}

bool hasLabelContaining(const AccessibilityElement &element, const QString &lowerName)
{
    return std::ranges::any_of(
        std::initializer_list<const std::optional<QString> *>{&element.title, &element.description,
                                                              &element.help, &element.identifier},
        [&](const std::optional<QString> *label) {
            return *label && (*label)->toLower().contains(lowerName);
        });
}

bool isTextNaming(const AccessibilityElement &element, const QString &lowerName)
{
    const QString *text = std::get_if<QString>(&element.value);
    if (element.role != staticTextRole || !text) {
        return false;
    }
    const QString lowerText = text->toLower();
    return lowerText == lowerName || lowerText.contains(QString(lowerName + u' '));
}

const AccessibilityElement *firstSliderBeside(const AccessibilityTree &tree, const AccessibilityElement &text)
{
    if (!text.parent) {
        return nullptr;
    }
    for (const qsizetype sibling : tree.at(*text.parent).children) {
        if (tree.at(sibling).role == sliderRole) {
            return &tree.at(sibling);
        }
    }
    return nullptr;
}

ElementPlaces placesWithRole(const AccessibilityTree &tree, QLatin1StringView role)
{
    return placesOf(tree, [&](const AccessibilityElement &element) { return element.role == role; });
}

} // namespace

QCoro::Task<std::optional<AccessibilityElement>> sliderNamed(Accessibility *accessibility, qint64 processId,
                                                             QString name)
{
    using enum ElementAttribute;
    AccessibilityTree tree = co_await accessibility->tree(processId, Accessibility::unlimited);
    const ElementPlaces sliders = placesWithRole(tree, sliderRole);
    tree = co_await accessibility->withAttributes(std::move(tree), sliders,
                                                  title | description | help | identifier);
    const AccessibilityElement *slider = findSliderDirectly(tree, name);
    if (!slider) {
        const ElementPlaces texts = placesWithRole(tree, staticTextRole);
        tree = co_await accessibility->withAttributes(std::move(tree), texts, value);
        slider = findSliderByTextLabel(tree, name);
    }
    if (!slider) {
        co_return std::nullopt;
    }
    AccessibilityElement found = *slider;
    found.value = co_await sliderValue(accessibility, found);
    co_return found;
}

QCoro::Task<AccessibilityElement::Value> sliderValue(Accessibility *accessibility,
                                                     AccessibilityElement slider)
{
    const AccessibilityTree read =
        co_await accessibility->withAttributes({std::move(slider)}, {0}, ElementAttribute::value);
    co_return AccessibilityElement::Value(read.constFirst().value);
}

const AccessibilityElement *findSliderDirectly(const AccessibilityTree &tree, const QString &name)
{
    const QString lowerName = name.toLower();
    if (lowerName.isEmpty()) {
        return nullptr;
    }
    return firstDepthFirst(tree, [&](const AccessibilityElement &element) {
        const bool isAnswer = element.role == sliderRole && hasLabelContaining(element, lowerName);
        return isAnswer ? &element : nullptr;
    });
}

const AccessibilityElement *findSliderByTextLabel(const AccessibilityTree &tree, const QString &name)
{
    const QString lowerName = name.toLower();
    if (lowerName.isEmpty()) {
        return nullptr;
    }
    return firstDepthFirst(tree, [&](const AccessibilityElement &element) {
        return isTextNaming(element, lowerName) ? firstSliderBeside(tree, element) : nullptr;
    });
}

} // namespace KelvaLR
