#pragma once

#include <QFlags>

namespace KelvaLR {

/// A modifier key; the values are the event-flag bits of the Quartz event services (`CGEventFlags`).
enum class KeyModifier : quint32 {
    maskCommand = 0x100000,
    maskShift = 0x20000,
    maskAlternate = 0x80000,
    maskControl = 0x40000,
};
Q_DECLARE_FLAGS(KeyModifiers, KeyModifier)
Q_DECLARE_OPERATORS_FOR_FLAGS(KeyModifiers)

} // namespace KelvaLR
