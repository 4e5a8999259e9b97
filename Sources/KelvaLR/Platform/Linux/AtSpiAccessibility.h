#pragma once

#include "Platform/Accessibility.h"
#include "Platform/Linux/AccessibilityBus.h"

#include <functional>

namespace KelvaLR {

/// The interfaces of other programs by AT-SPI2, the accessibility interface of freedesktop.org desktops.
/// Speaks to the bus itself: its library asks one question at a time and blocks for each.
///
/// A program that does not answer for a second and a half, or that has gone, ends a walk with what is known
/// then; a walk ends after ten seconds in any case. What is not on the screen is left out, but for the items
/// of menus: they can be chosen while their menu is closed.
class AtSpiAccessibility final : public Accessibility
{
public:
    using Trust = std::function<bool(TrustPrompt)>;

    /// The bus outlives this object and its tasks.
    AtSpiAccessibility(AccessibilityBus &bus, Trust trust);

    bool isTrusted(TrustPrompt prompt) override;
    QCoro::Task<AccessibilityTree> tree(qint64 processId, qsizetype limit) override;
    QCoro::Task<AccessibilityTree> withAttributes(AccessibilityTree tree, ElementPlaces places,
                                                  ElementAttributes attributes) override;
    QCoro::Task<bool> press(AccessibilityElementID element) override;
    QCoro::Task<bool> setValue(AccessibilityElementID element, double value) override;
    QCoro::Task<> focus(AccessibilityElementID element) override;

private:
    AccessibilityBus &m_bus;
    Trust m_trust;
};

} // namespace KelvaLR
