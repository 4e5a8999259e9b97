#pragma once

#include <QString>

namespace KelvaLR {

/// What an element of the AT-SPI bus says about itself; the numbers are those of at-spi2-core's
/// atspi-constants.h.
struct AtSpiKind
{
    quint32 role = 0;
    quint64 states = 0; ///< a set of bits, one for each state's number

    [[nodiscard]] bool isEditable() const { return has(7); }

    [[nodiscard]] bool isMultiLine() const { return has(17); }

    [[nodiscard]] bool isShowing() const { return has(25); }

    /// An item of a menu, or a menu that opens below one. It can be chosen while its menu is closed.
    [[nodiscard]] bool isOfMenu() const;

    /// May have a child for each row of a table of any length.
    [[nodiscard]] bool isTable() const;

    [[nodiscard]] bool isTitleBar() const;

    bool operator==(const AtSpiKind &) const = default;

private:
    [[nodiscard]] bool has(int state) const { return (states >> state & 1) != 0; }
};

/// The role in the terms of the `Accessibility` port: "AXButton", ...; "AXUnknown" for one that has no
/// counterpart. A combo box with a text input inside is an "AXComboBox"; that is for the caller to see.
[[nodiscard]] QString accessibilityRole(const AtSpiKind &kind);

} // namespace KelvaLR
