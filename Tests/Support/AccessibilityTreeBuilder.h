#pragma once

#include "Platform/Accessibility.h"

namespace KelvaLR::Testing {

/// A tree that holds nothing but the application itself.
[[nodiscard]] inline AccessibilityTree applicationTree()
{
    AccessibilityElement application;
    application.role = QLatin1StringView("AXApplication");
    return {application};
}

/// Adds an element as the last child of another and gives its index, which is also its id.
inline qsizetype appendElement(AccessibilityTree &tree, qsizetype parent, AccessibilityElement element)
{
    const qsizetype index = tree.size();
    element.id = QString::number(index);
    element.parent = parent;
    tree.append(element);
    tree[parent].children.append(index);
    return index;
}

} // namespace KelvaLR::Testing
