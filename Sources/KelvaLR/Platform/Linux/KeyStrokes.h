#pragma once

#include <QList>

#include <optional>

#include <xcb/xcb.h>

namespace KelvaLR {

class X11Connection;

/// A key that goes down and up while its modifier keys are held.
struct KeyStroke
{
    xcb_keycode_t keycode;
    QList<xcb_keycode_t> modifiers;

    bool operator==(const KeyStroke &) const = default;
};

/// So many strokes go into one write: XCB passes on what is queued once that exceeds 16 KiB.
constexpr qsizetype keyStrokeLimit = 64;

/// The layout whose keys the user types with; none when the server has gone.
[[nodiscard]] std::optional<quint8> keyboardGroup(const X11Connection &connection);

/// Posts strokes by the XTEST extension. Their events carry exactly the modifiers of the stroke: what the
/// user holds is let go before them and held again after them, locks such as Caps Lock are dropped and set
/// again. A latched modifier is used up, as by any key.
///
/// All of it is one write, which the server carries out to the end even if we are killed right after it: no
/// modifier stays down.
/// @param strokes at most keyStrokeLimit
/// @param group the layout in which the keycodes are meant; the user's is set again afterwards
void postKeyStrokes(const X11Connection &connection, const QList<KeyStroke> &strokes, quint8 group);

} // namespace KelvaLR
