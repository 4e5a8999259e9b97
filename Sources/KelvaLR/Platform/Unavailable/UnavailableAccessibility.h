#pragma once

#include "Platform/Accessibility.h"

namespace KelvaLR {

/// For a system whose accessibility interface this build cannot reach: nothing is trusted, nothing is done.
class UnavailableAccessibility final : public Accessibility
{
public:
    bool isTrusted(TrustPrompt prompt) override;
    QCoro::Task<AccessibilityTree> tree(qint64 processId, qsizetype limit) override;
    QCoro::Task<AccessibilityTree> withAttributes(AccessibilityTree tree, ElementPlaces places,
                                                  ElementAttributes attributes) override;
    QCoro::Task<bool> press(AccessibilityElementID element) override;
    QCoro::Task<bool> setValue(AccessibilityElementID element, double value) override;
    QCoro::Task<> focus(AccessibilityElementID element) override;
};

} // namespace KelvaLR
