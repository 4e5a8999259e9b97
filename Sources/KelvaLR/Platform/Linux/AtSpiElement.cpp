#include "Platform/Linux/AtSpiElement.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusVariant>

#include <algorithm>
#include <array>

namespace KelvaLR::AtSpi {

using namespace Qt::StringLiterals;

namespace {

/// What toolkits call the action by which an element does what it is there for.
constexpr std::array pressActions{"press"_L1, "click"_L1, "toggle"_L1, "activate"_L1, "jump"_L1};

AccessibilityElementID elementReference(const QDBusArgument &argument)
{
    QString service;
    QDBusObjectPath path;
    argument.beginStructure();
    argument >> service >> path;
    argument.endStructure();
    return elementID(service, path.path());
}

QList<AccessibilityElementID> elementList(const QDBusArgument &argument)
{
    QList<AccessibilityElementID> elements;
    argument.beginArray();
    while (!argument.atEnd()) {
        elements.append(elementReference(argument));
    }
    argument.endArray();
    return elements;
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
    const QDBusMessage message = readProperty(element, interface, property);
    auto write =
        QDBusMessage::createMethodCall(message.service(), message.path(), message.interface(), u"Set"_s);
    write.setArguments(message.arguments() << QVariant::fromValue(QDBusVariant(value)));
    return write;
}

QDBusMessage askInterfaces(const AccessibilityElementID &element)
{
    return call(element, "Accessible"_L1, "GetInterfaces"_L1);
}

bool isInterfaceIn(const QDBusMessage &answer, QLatin1StringView interface)
{
    return isAnswered(answer) &&
           answer.arguments().constFirst().toStringList().contains("org.a11y.atspi."_L1 + interface);
}

bool isAnswered(const QDBusMessage &answer)
{
    return answer.type() == QDBusMessage::ReplyMessage && !answer.arguments().isEmpty();
}

/// The first argument, when it is of this D-Bus type.
std::optional<QDBusArgument> structureIn(const QDBusMessage &answer, QLatin1StringView type)
{
    if (!isAnswered(answer) || answer.signature() != type) {
        return std::nullopt;
    }
    return answer.arguments().constFirst().value<QDBusArgument>();
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
    if (const auto one = structureIn(answer, "(so)"_L1)) {
        return {elementReference(*one)};
    }
    const auto several = structureIn(answer, "a(so)"_L1);
    return several ? elementList(*several) : QList<AccessibilityElementID>();
}

/// The element that labels another one, in the answer to GetRelationSet.
std::optional<AccessibilityElementID> labelIn(const QDBusMessage &answer)
{
    constexpr uint labelledBy = 2; // ATSPI_RELATION_LABELLED_BY
    const auto argument = structureIn(answer, "a(ua(so))"_L1);
    std::optional<AccessibilityElementID> label;
    if (!argument) {
        return label;
    }
    argument->beginArray();
    while (!argument->atEnd()) {
        uint relation = 0;
        argument->beginStructure();
        *argument >> relation;
        const QList<AccessibilityElementID> targets = elementList(*argument);
        argument->endStructure();
        if (relation == labelledBy && !targets.isEmpty()) {
            label = targets.constFirst();
        }
    }
    argument->endArray();
    return label;
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
        if (!press && std::ranges::find(pressActions, name.toLower()) != pressActions.end()) {
            press = index;
        }
    }
    argument->endArray();
    return press;
}

} // namespace KelvaLR::AtSpi
