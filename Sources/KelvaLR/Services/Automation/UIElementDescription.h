#pragma once

#include <QString>

#include <optional>

namespace KelvaLR {

/// One visible element of the frontmost application, as it is listed for the user.
struct UIElementDescription
{
    QString role;    ///< the accessibility role, such as "AXButton"; empty when the element has none
    QString subrole; ///< empty when the element has none
    QString name;    ///< its label; never empty
    std::optional<QString> description; ///< never empty when present
    std::optional<QString> value;       ///< a text value; never empty when present

    bool operator==(const UIElementDescription &) const = default;
};

} // namespace KelvaLR
