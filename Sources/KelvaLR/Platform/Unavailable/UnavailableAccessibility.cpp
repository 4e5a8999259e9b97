#include "Platform/Unavailable/UnavailableAccessibility.h"

namespace KelvaLR {

bool UnavailableAccessibility::isTrusted(TrustPrompt)
{
    return false;
}

QCoro::Task<AccessibilityTree> UnavailableAccessibility::tree(qint64)
{
    co_return AccessibilityTree();
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
