#pragma once

#include <QByteArray>
#include <QList>

#include <array>
#include <optional>

#include <xcb/xcb.h>

namespace KelvaLR {

class X11Connection;

/// Where a keysym is on the keyboard.
struct KeyPlace
{
    xcb_keycode_t keycode;
    quint8 group; ///< the layout, where several are set up
    quint8 level; ///< 0: the bare key, 1: with Shift

    bool operator==(const KeyPlace &) const = default;
};

/// The keyboard map as the XKEYBOARD extension has it. Its keys travel in the form of the wire, so that those
/// we do not touch go back to the server exactly as they came.
class X11KeyboardMap
{
public:
    /// None when the server has gone.
    [[nodiscard]] static std::optional<X11KeyboardMap> read(const X11Connection &connection);

    /// Where a character of a text is: in this group, on a bare key or with Shift.
    [[nodiscard]] std::optional<KeyPlace> placeOfCharacter(xcb_keysym_t keysym, quint8 group) const;

    /// The key that carries the keysym: bare in this group, else bare in another one, else the key that has
    /// it at any level (a digit of a French layout).
    [[nodiscard]] std::optional<KeyPlace> placeOfKey(xcb_keysym_t keysym, quint8 group) const;

    /// The keycodes without any keysym, ascending.
    [[nodiscard]] QList<xcb_keycode_t> freeKeycodes() const;

    /// The keysym of the bare key in the first group; XCB_NO_SYMBOL when it has none.
    [[nodiscard]] xcb_keysym_t bareKeysym(xcb_keycode_t keycode) const;

    /// Gives a free keycode this keysym, with and without Shift; XCB_NO_SYMBOL frees it again.
    void assign(xcb_keycode_t keycode, xcb_keysym_t keysym);

    /// Queues one request that sets what was assigned, for all devices of the keyboard; the programs hear of
    /// one change. Nothing when nothing was assigned.
    void write(const X11Connection &connection) const;

private:
    struct Key
    {
        std::array<quint8, 4> types{}; ///< indices of key types, one for each group
        quint8 groupInfo = 0;          ///< its low half counts the groups
        quint8 width = 0;              ///< levels for each group
        QList<xcb_keysym_t> keysyms;
    };

    [[nodiscard]] static int groupCount(const Key &key);
    [[nodiscard]] static xcb_keysym_t keysym(const Key &key, quint8 group, quint8 level);
    [[nodiscard]] std::optional<KeyPlace> find(xcb_keysym_t keysym, quint8 group, quint8 level) const;
    [[nodiscard]] QByteArray wireForm(qsizetype first, qsizetype last) const;

    quint8 m_firstKeycode = 0;
    QList<Key> m_keys; ///< from m_firstKeycode on, ascending
    QList<xcb_keycode_t> m_assigned;
};

} // namespace KelvaLR
