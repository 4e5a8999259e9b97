#pragma once

#include "Platform/Linux/X11Connection.h"
#include "Platform/Linux/X11Xkb.h"

#include <QList>

#include <tuple>

namespace KelvaLR::Testing {

/// A window on a connection of its own and what comes to it: all keys, whatever window the window manager
/// gives the focus to.
class KeyboardWitness
{
public:
    KeyboardWitness();

    /// Type, keycode or button, and state of an event.
    using Event = std::tuple<int, int, int>;

    /// What has come since the last call: the server is asked to do all it was sent first.
    [[nodiscard]] QList<Event> takeEvents() const;

    /// The whole core keyboard map, and the keys that are down.
    [[nodiscard]] QList<xcb_keysym_t> map() const;
    [[nodiscard]] QList<quint8> keysDown() const;

    [[nodiscard]] quint8 lockedModifiers() const;
    [[nodiscard]] quint8 lockedGroup() const;
    void lock(quint8 modifiers, quint8 group = 0) const;

    [[nodiscard]] xcb_keycode_t keycode(xcb_keysym_t keysym) const;
    void fake(quint8 eventType, xcb_keycode_t keycode) const;

private:
    [[nodiscard]] X11Reply<xcb_xkb_get_state_reply_t> state() const;

    X11Connection m_connection;
};

} // namespace KelvaLR::Testing
