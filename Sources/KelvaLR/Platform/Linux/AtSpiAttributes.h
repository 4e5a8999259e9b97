#pragma once

#include "Platform/Accessibility.h"

#include <QDBusMessage>

// What an element of the AT-SPI bus is asked to learn its attributes, and how the answers are taken.

namespace KelvaLR::AtSpi {

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
