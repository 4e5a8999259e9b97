#pragma once

#include "Platform/Accessibility.h"
#include "Platform/Linux/AtSpiRoles.h"

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

[[nodiscard]] bool isAnswered(const QDBusMessage &answer);
[[nodiscard]] QVariant propertyIn(const QDBusMessage &answer);
[[nodiscard]] QList<AccessibilityElementID> elementsIn(const QDBusMessage &answer);
[[nodiscard]] quint64 statesIn(const QDBusMessage &answer);

/// The index of the action that presses an element among the actions that it lists.
[[nodiscard]] std::optional<int> pressActionIn(const QDBusMessage &answer);

/// One question about an attribute, and how its answer is taken, which may lead to another question.
struct AttributeQuestion
{
    using Next = std::optional<AttributeQuestion>;

    QDBusMessage question;
    Next (*take)(AccessibilityElement &element, const QDBusMessage &answer);
};

/// What has to be asked to know these attributes of an element; nothing for those that it cannot have.
[[nodiscard]] QList<AttributeQuestion> questionsFor(const AccessibilityElement &element,
                                                    ElementAttributes attributes);

} // namespace KelvaLR::AtSpi
