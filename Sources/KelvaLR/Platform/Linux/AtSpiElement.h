#pragma once

#include "Platform/Accessibility.h"

#include <QDBusArgument>
#include <QDBusMessage>

// One element of the AT-SPI bus: what it is asked, and what its answers mean. Pure functions; an answer of
// another shape than expected means that the attribute is absent.

namespace KelvaLR::AtSpi {

/// The element at a path of a program on the bus; the id holds both.
[[nodiscard]] AccessibilityElementID elementID(const QString &service, const QString &path);
[[nodiscard]] QString serviceOf(const AccessibilityElementID &element);

/// A call of a method of one of the element's interfaces, "Accessible" or "Action" for example.
[[nodiscard]] QDBusMessage call(const AccessibilityElementID &element, QLatin1StringView interface,
                                QLatin1StringView method, const QVariantList &arguments = {});
[[nodiscard]] QDBusMessage readProperty(const AccessibilityElementID &element, QLatin1StringView interface,
                                        QLatin1StringView property);
[[nodiscard]] QDBusMessage writeProperty(const AccessibilityElementID &element, QLatin1StringView interface,
                                         QLatin1StringView property, const QVariant &value);

/// Which interfaces the element has. It is asked before one that it may lack: some programs complain about
/// that on their terminal.
[[nodiscard]] QDBusMessage askInterfaces(const AccessibilityElementID &element);
[[nodiscard]] bool isInterfaceIn(const QDBusMessage &answer, QLatin1StringView interface);

[[nodiscard]] bool isAnswered(const QDBusMessage &answer);

/// The first argument of an answer, when it is of this D-Bus type.
[[nodiscard]] std::optional<QDBusArgument> structureIn(const QDBusMessage &answer, QLatin1StringView type);
[[nodiscard]] QVariant propertyIn(const QDBusMessage &answer);
[[nodiscard]] QList<AccessibilityElementID> elementsIn(const QDBusMessage &answer);
/// The element that labels another one, in the answer to GetRelationSet.
[[nodiscard]] std::optional<AccessibilityElementID> labelIn(const QDBusMessage &answer);
[[nodiscard]] quint64 statesIn(const QDBusMessage &answer);

/// The index of the action that presses an element among the actions that it lists.
[[nodiscard]] std::optional<int> pressActionIn(const QDBusMessage &answer);

} // namespace KelvaLR::AtSpi
