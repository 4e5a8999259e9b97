#include "Services/Automation/UIElementSearch.h"

#include "Support/NormalizedWords.h"

#include <algorithm>
#include <array>

namespace KelvaLR {

namespace {

constexpr std::array<QStringView, 4> textInputRoles{u"AXTextField", u"AXTextArea", u"AXComboBox",
                                                    u"AXSearchField"};

constexpr std::array<QStringView, 7> clickableRoles{
    u"AXButton", u"AXMenuItem", u"AXCheckBox", u"AXRadioButton", u"AXPopUpButton", u"AXTabGroup", u"AXLink",
};

constexpr std::array<QStringView, 4> readableContainerRoles{u"AXStaticText", u"AXRow", u"AXCell", u"AXGroup"};

template <std::size_t size>
bool isOneOf(const QString &role, const std::array<QStringView, size> &roles)
{
    return std::ranges::find(roles, role) != roles.end();
}

bool isClickable(const AccessibilityElement &element)
{
    return isOneOf(element.role, clickableRoles) || element.subrole == u"AXCloseButton";
}

bool isPressable(const AccessibilityElement &element)
{
    return element.actions.contains(QLatin1StringView("AXPress"));
}

QString textValue(const AccessibilityElement &element)
{
    const auto *text = std::get_if<QString>(&element.value);
    return text ? *text : QString();
}

/// The texts by which an element may be named. An absent one is empty, which names nothing.
std::array<QString, 6> elementTextValues(const AccessibilityElement &element)
{
    return {element.title.value_or(QString()),
            element.description.value_or(QString()),
            textValue(element),
            element.help.value_or(QString()),
            element.placeholder.value_or(QString()),
            element.identifier.value_or(QString())};
}

/// How well one normalised text of an element fits the target.
int textScore(const QString &text, const QString &target)
{
    if (text.isEmpty() || target.isEmpty()) {
        return 0; // a name of nothing but punctuation names no element
    }
    if (text == target) {
        return 100;
    }
    if (text.startsWith(target)) {
        return 80;
    }
    if (text.contains(target)) {
        return 60;
    }
    constexpr qsizetype shortestMeaningfulText = 3; // in characters, not code units
    return target.contains(text) && text.toUcs4().size() >= shortestMeaningfulText ? 40 : 0;
}

/// Calls `visit` for every reachable element, level by level from the root, each once; ends early when it
/// answers false. A malformed tree (an index outside, a child of two parents) ends the walk like any other.
template <typename Visit>
void walkBreadthFirst(const AccessibilityTree &tree, Visit visit)
{
    if (tree.isEmpty()) {
        return;
    }
    QList<qsizetype> queue{0};
    QList<bool> isQueued(tree.size(), false);
    isQueued[0] = true;
    for (qsizetype next = 0; next < queue.size(); ++next) {
        const AccessibilityElement &element = tree.at(queue.at(next));
        if (!visit(element)) {
            return;
        }
        for (const qsizetype child : element.children) {
            if (child >= 0 && child < tree.size() && !isQueued.at(child)) {
                isQueued[child] = true;
                queue.append(child);
            }
        }
    }
}

std::optional<QString> nonEmpty(const std::optional<QString> &text)
{
    return text && !text->isEmpty() ? text : std::nullopt;
}

} // namespace

bool isTextInput(const AccessibilityElement &element)
{
    return isOneOf(element.role, textInputRoles) || element.subrole == u"AXSearchField";
}

bool isInteractiveOrReadable(const AccessibilityElement &element)
{
    return isPressable(element) || isTextInput(element) || isClickable(element) ||
           isOneOf(element.role, readableContainerRoles);
}

std::optional<QString> label(const AccessibilityElement &element)
{
    for (const auto &text : {element.title, element.description, element.identifier}) {
        if (nonEmpty(text)) {
            return text;
        }
    }
    return std::nullopt;
}

int matchScore(const AccessibilityElement &element, const QString &normalizedTarget)
{
    int score = 0;
    for (const QString &text : elementTextValues(element)) {
        score = std::max(score, textScore(normalizedWords(text), normalizedTarget));
    }
    return score;
}

int elementScore(const AccessibilityElement &element, const QString &normalizedTarget, ElementPurpose purpose)
{
    const bool isField = purpose == ElementPurpose::field;
    if (isField ? !isTextInput(element) : !isInteractiveOrReadable(element)) {
        return 0;
    }
    int score = matchScore(element, normalizedTarget);
    if (score == 0) {
        return 0;
    }
    if (isField) {
        score += 35;
    } else if (isPressable(element) || isClickable(element)) {
        score += 25;
    }
    return score + (isPressable(element) ? 10 : 0) + (element.center ? 5 : 0);
}

const AccessibilityElement *findElement(const AccessibilityTree &tree, const QString &name,
                                        ElementPurpose purpose)
{
    const QString target = normalizedWords(name);
    const AccessibilityElement *best = nullptr;
    int bestScore = 0;
    walkBreadthFirst(tree, [&](const AccessibilityElement &element) {
        const int score = elementScore(element, target, purpose);
        if (score > bestScore) {
            best = &element;
            bestScore = score;
        }
        return true;
    });
    return best;
}

QList<UIElementDescription> visibleElements(const AccessibilityTree &tree)
{
    QList<UIElementDescription> listed;
    qsizetype visited = 0;
    walkBreadthFirst(tree, [&](const AccessibilityElement &element) {
        if (visited++ == listedElementLimit) {
            return false;
        }
        const std::optional<QString> name = label(element);
        if (name && isInteractiveOrReadable(element)) {
            listed.append({element.role, element.subrole, *name, nonEmpty(element.description),
                           nonEmpty(textValue(element))});
        }
        return true;
    });
    return listed;
}

} // namespace KelvaLR
