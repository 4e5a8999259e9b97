#include "Platform/Unavailable/UnavailableAccessibility.h"

namespace KelvaLR {

bool UnavailableAccessibility::isTrusted(TrustPrompt)
{
    return false;
}

QCoro::Task<AccessibilityTree> UnavailableAccessibility::tree(qint64, qsizetype)
{
    co_return AccessibilityTree();
}

QCoro::Task<AccessibilityTree> UnavailableAccessibility::withAttributes(AccessibilityTree tree, ElementPlaces,
                                                                        ElementAttributes)
{
    co_return tree;
}

QCoro::Task<bool> UnavailableAccessibility::press(AccessibilityElementID)
{
    co_return false;
}

QCoro::Task<bool> UnavailableAccessibility::setValue(AccessibilityElementID, double)
{
    co_return false;
}

QCoro::Task<> UnavailableAccessibility::focus(AccessibilityElementID)
{
    co_return;
}

} // namespace KelvaLR
