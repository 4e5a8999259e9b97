#include "Platform/Linux/AtSpiAttributes.h"

#include "Platform/Linux/AtSpiElement.h"

#include <QMap>

#include <algorithm>
#include <array>
#include <limits>

namespace KelvaLR::AtSpi {

using namespace Qt::StringLiterals;

namespace {

using Next = AttributeQuestion::Next;

/// An editor's whole text is no label; names are found in its beginning.
constexpr int longestText = 4096;

constexpr std::array textRoles{"AXStaticText"_L1, "AXTextField"_L1, "AXTextArea"_L1, "AXComboBox"_L1};
constexpr std::array numberRoles{"AXSlider"_L1, "AXScrollBar"_L1, "AXProgressIndicator"_L1};

constexpr std::array labelledRoles{"AXTextField"_L1, "AXTextArea"_L1,    "AXComboBox"_L1,
                                   "AXSlider"_L1,    "AXPopUpButton"_L1, "AXCheckBox"_L1};

template <std::size_t size>
bool isOneOf(const QString &name, const std::array<QLatin1StringView, size> &names)
{
    return std::ranges::find(names, name) != names.end();
}

std::optional<QString> textProperty(const QDBusMessage &answer)
{
    const QVariant value = propertyIn(answer);
    return value.typeId() == QMetaType::QString ? std::optional(value.toString()) : std::nullopt;
}

Next takeLabel(AccessibilityElement &element, const QDBusMessage &answer)
{
    element.title = textProperty(answer);
    return {};
}

Next takeRelations(AccessibilityElement &, const QDBusMessage &answer)
{
    if (const auto label = labelIn(answer)) {
        return AttributeQuestion{readProperty(*label, "Accessible"_L1, "Name"_L1), takeLabel};
    }
    return {};
}

/// A control without a name of its own is called as the label beside it.
Next takeTitle(AccessibilityElement &element, const QDBusMessage &answer)
{
    element.title = textProperty(answer);
    if (element.title == QString() && isOneOf(element.role, labelledRoles)) {
        return AttributeQuestion{call(element.id, "Accessible"_L1, "GetRelationSet"_L1), takeRelations};
    }
    return {};
}

Next takeDescription(AccessibilityElement &element, const QDBusMessage &answer)
{
    element.description = textProperty(answer);
    return {};
}

Next takeIdentifier(AccessibilityElement &element, const QDBusMessage &answer)
{
    element.identifier = textProperty(answer);
    return {};
}

Next takeNameAsValue(AccessibilityElement &element, const QDBusMessage &answer)
{
    if (const auto text = textProperty(answer); text && !text->isEmpty()) {
        element.value = *text;
    }
    return {};
}

Next takeText(AccessibilityElement &element, const QDBusMessage &answer)
{
    if (isAnswered(answer) && answer.signature() == "s"_L1) {
        element.value = answer.arguments().constFirst().toString().left(longestText);
    }
    return {};
}

/// Some toolkits give no text at all when more than all of it is asked for.
Next takeTextLength(AccessibilityElement &element, const QDBusMessage &answer)
{
    const QVariant length = propertyIn(answer);
    if (length.typeId() != QMetaType::Int) {
        return {};
    }
    return AttributeQuestion{
        call(element.id, "Text"_L1, "GetText"_L1, {0, std::min(length.toInt(), longestText)}), takeText};
}

Next takeNumber(AccessibilityElement &element, const QDBusMessage &answer)
{
    if (const QVariant value = propertyIn(answer); value.typeId() == QMetaType::Double) {
        element.value = value.toDouble();
    }
    return {};
}

Next takePlaceholder(AccessibilityElement &element, const QDBusMessage &answer)
{
    if (const auto argument = structureIn(answer, "a{ss}"_L1)) {
        const auto attributes = qdbus_cast<QMap<QString, QString>>(*argument);
        if (const auto found = attributes.constFind(u"placeholder-text"_s); found != attributes.cend()) {
            element.placeholder = *found;
        }
    }
    return {};
}

Next takeActions(AccessibilityElement &element, const QDBusMessage &answer)
{
    if (pressActionIn(answer)) {
        element.actions = {u"AXPress"_s};
    }
    return {};
}

Next takeCenter(AccessibilityElement &element, const QDBusMessage &answer)
{
    const auto argument = structureIn(answer, "(iiii)"_L1);
    if (!argument) {
        return {};
    }
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    argument->beginStructure();
    *argument >> x >> y >> width >> height;
    argument->endStructure();
    constexpr int nowhere = std::numeric_limits<int>::min(); // for what is not on the screen
    if (width > 0 && height > 0 && x != nowhere && y != nowhere) {
        element.center = QPointF(x + width / 2.0, y + height / 2.0);
    }
    return {};
}

Next askActions(AccessibilityElement &element, const QDBusMessage &interfaces)
{
    if (!isInterfaceIn(interfaces, "Action"_L1)) {
        return {};
    }
    return AttributeQuestion{call(element.id, "Action"_L1, "GetActions"_L1), takeActions};
}

Next askCenter(AccessibilityElement &element, const QDBusMessage &interfaces)
{
    if (!isInterfaceIn(interfaces, "Component"_L1)) {
        return {};
    }
    constexpr uint screenCoordinates = 0; // ATSPI_COORD_TYPE_SCREEN
    return AttributeQuestion{call(element.id, "Component"_L1, "GetExtents"_L1, {screenCoordinates}),
                             takeCenter};
}

void appendValueQuestions(QList<AttributeQuestion> &questions, const AccessibilityElement &element)
{
    if (element.role == "AXStaticText"_L1) {
        questions.append({readProperty(element.id, "Accessible"_L1, "Name"_L1), takeNameAsValue});
    }
    if (isOneOf(element.role, numberRoles)) {
        questions.append({readProperty(element.id, "Value"_L1, "CurrentValue"_L1), takeNumber});
    } else if (isOneOf(element.role, textRoles)) {
        questions.append({readProperty(element.id, "Text"_L1, "CharacterCount"_L1), takeTextLength});
    }
}

} // namespace

QList<AttributeQuestion> questionsFor(const AccessibilityElement &element, ElementAttributes attributes)
{
    using enum ElementAttribute;
    QList<AttributeQuestion> questions;
    // The name of a label is what it shows, its value; and there is no help on this bus.
    if (attributes.testFlag(title) && element.role != "AXStaticText"_L1) {
        questions.append({readProperty(element.id, "Accessible"_L1, "Name"_L1), takeTitle});
    }
    if (attributes.testFlag(description)) {
        questions.append({readProperty(element.id, "Accessible"_L1, "Description"_L1), takeDescription});
    }
    if (attributes.testFlag(placeholder) && isOneOf(element.role, textRoles)) {
        questions.append({call(element.id, "Accessible"_L1, "GetAttributes"_L1), takePlaceholder});
    }
    if (attributes.testFlag(identifier)) {
        questions.append({readProperty(element.id, "Accessible"_L1, "AccessibleId"_L1), takeIdentifier});
    }
    if (attributes.testFlag(actions)) {
        questions.append({askInterfaces(element.id), askActions});
    }
    if (attributes.testFlag(center)) {
        questions.append({askInterfaces(element.id), askCenter});
    }
    if (attributes.testFlag(value)) {
        appendValueQuestions(questions, element);
    }
    return questions;
}

} // namespace KelvaLR::AtSpi
