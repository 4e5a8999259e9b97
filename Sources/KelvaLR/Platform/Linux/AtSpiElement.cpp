#include "Platform/Linux/AtSpiElement.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusVariant>
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

/// What toolkits call the action by which an element does what it is there for.
constexpr std::array pressActions{"press"_L1, "click"_L1, "toggle"_L1, "activate"_L1, "jump"_L1};

template <std::size_t size>
bool isOneOf(const QString &name, const std::array<QLatin1StringView, size> &names)
{
    return std::ranges::find(names, name) != names.end();
}

/// The first argument, when it is of this D-Bus type.
std::optional<QDBusArgument> structureIn(const QDBusMessage &answer, QLatin1StringView type)
{
    if (!isAnswered(answer) || answer.signature() != type) {
        return std::nullopt;
    }
    return answer.arguments().constFirst().value<QDBusArgument>();
}

std::optional<QString> textProperty(const QDBusMessage &answer)
{
    const QVariant value = propertyIn(answer);
    return value.typeId() == QMetaType::QString ? std::optional(value.toString()) : std::nullopt;
}

Next takeTitle(AccessibilityElement &element, const QDBusMessage &answer)
{
    element.title = textProperty(answer);
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

AccessibilityElementID elementID(const QString &service, const QString &path)
{
    return service + path; // a path begins with a slash, and no service's name has one
}

QString serviceOf(const AccessibilityElementID &element)
{
    return element.section(u'/', 0, 0);
}

QDBusMessage call(const AccessibilityElementID &element, QLatin1StringView interface,
                  QLatin1StringView method, const QVariantList &arguments)
{
    const QString service = serviceOf(element);
    auto message = QDBusMessage::createMethodCall(service, element.mid(service.size()),
                                                  "org.a11y.atspi."_L1 + interface, method);
    message.setArguments(arguments);
    message.setAutoStartService(false);
    return message;
}

QDBusMessage readProperty(const AccessibilityElementID &element, QLatin1StringView interface,
                          QLatin1StringView property)
{
    const QString service = serviceOf(element);
    auto message = QDBusMessage::createMethodCall(service, element.mid(service.size()),
                                                  u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    message << QString("org.a11y.atspi."_L1 + interface) << QString(property);
    message.setAutoStartService(false);
    return message;
}

QDBusMessage writeProperty(const AccessibilityElementID &element, QLatin1StringView interface,
                           QLatin1StringView property, const QVariant &value)
{
    QDBusMessage message = readProperty(element, interface, property);
    auto write =
        QDBusMessage::createMethodCall(message.service(), message.path(), message.interface(), u"Set"_s);
    write.setArguments(message.arguments() << QVariant::fromValue(QDBusVariant(value)));
    return write;
}

bool isAnswered(const QDBusMessage &answer)
{
    return answer.type() == QDBusMessage::ReplyMessage && !answer.arguments().isEmpty();
}

QVariant propertyIn(const QDBusMessage &answer)
{
    if (!isAnswered(answer) || answer.signature() != "v"_L1) {
        return {};
    }
    return answer.arguments().constFirst().value<QDBusVariant>().variant();
}

QList<AccessibilityElementID> elementsIn(const QDBusMessage &answer)
{
    QList<AccessibilityElementID> elements;
    const auto argument = structureIn(answer, answer.signature() == "(so)"_L1 ? "(so)"_L1 : "a(so)"_L1);
    if (!argument) {
        return elements;
    }
    const auto takeOne = [&] {
        QString service;
        QDBusObjectPath path;
        argument->beginStructure();
        *argument >> service >> path;
        argument->endStructure();
        elements.append(elementID(service, path.path()));
    };
    if (answer.signature() == "(so)"_L1) {
        takeOne();
        return elements;
    }
    argument->beginArray();
    while (!argument->atEnd()) {
        takeOne();
    }
    argument->endArray();
    return elements;
}

quint64 statesIn(const QDBusMessage &answer)
{
    const auto argument = structureIn(answer, "au"_L1);
    if (!argument) {
        return 0;
    }
    const auto words = qdbus_cast<QList<uint>>(*argument);
    return quint64(words.value(0)) | quint64(words.value(1)) << 32U;
}

std::optional<int> pressActionIn(const QDBusMessage &answer)
{
    const auto argument = structureIn(answer, "a(sss)"_L1);
    if (!argument) {
        return std::nullopt;
    }
    std::optional<int> press;
    argument->beginArray();
    for (int index = 0; !argument->atEnd(); ++index) {
        QString name;
        QString description;
        QString keys;
        argument->beginStructure();
        *argument >> name >> description >> keys;
        argument->endStructure();
        if (!press && isOneOf(name.toLower(), pressActions)) {
            press = index;
        }
    }
    argument->endArray();
    return press;
}

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
        questions.append({call(element.id, "Action"_L1, "GetActions"_L1), takeActions});
    }
    if (attributes.testFlag(center)) {
        constexpr uint screenCoordinates = 0; // ATSPI_COORD_TYPE_SCREEN
        questions.append(
            {call(element.id, "Component"_L1, "GetExtents"_L1, {screenCoordinates}), takeCenter});
    }
    if (attributes.testFlag(value)) {
        appendValueQuestions(questions, element);
    }
    return questions;
}

} // namespace KelvaLR::AtSpi
