#pragma once

#include <QtGlobal>

#include <optional>

#include <xcb/xcb.h>

namespace KelvaLR {

/// The keysym of a macOS virtual key code of the US layout; none for a code that no key of ours has.
[[nodiscard]] std::optional<xcb_keysym_t> keysymOfVirtualKey(quint16 virtualKeyCode);

/// The keysym that types this character: Return for a line feed, Tab for a tabulator. None for the other
/// control characters and for what is no Unicode scalar.
[[nodiscard]] std::optional<xcb_keysym_t> keysymOfCharacter(char32_t character);

} // namespace KelvaLR
