#include "Platform/Linux/KeyStrokes.h"

#include "Platform/Linux/X11Connection.h"
#include "Platform/Linux/X11KeyboardMap.h"
#include "Platform/Linux/X11Xkb.h"

#include <algorithm>
#include <array>
#include <set>

#include <X11/keysym.h>
#include <xcb/xtest.h>

namespace KelvaLR {

namespace {

using Keycodes = std::set<xcb_keycode_t>;

constexpr quint8 allModifiers = 0xff;
constexpr std::array<xcb_keysym_t, 5> lockKeysyms{XK_Caps_Lock, XK_Shift_Lock, XK_Num_Lock, XK_Scroll_Lock,
                                                  XK_ISO_Lock};

/// What the keyboard is in the middle of.
struct KeyboardState
{
    Keycodes heldModifiers;
    quint8 lockedModifiers = 0;
    quint8 latchedModifiers = 0;
    quint8 lockedGroup = 0;
    quint8 group = 0; ///< the one in effect
};

void fakeKey(const X11Connection &connection, quint8 eventType, xcb_keycode_t keycode)
{
    xcb_test_fake_input(connection.get(), eventType, keycode, XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0, 0);
}

/// Which modifier keys are down. Keys that lock are left out: going down again, they would lock or unlock.
Keycodes heldModifierKeys(const xcb_query_keymap_reply_t &down, xcb_get_modifier_mapping_reply_t &modifiers,
                          const X11KeyboardMap &map)
{
    Keycodes held;
    const xcb_keycode_t *first = xcb_get_modifier_mapping_keycodes(&modifiers);
    for (const xcb_keycode_t *key = first;
         key != first + xcb_get_modifier_mapping_keycodes_length(&modifiers); ++key) {
        const bool isDown = (down.keys[*key / 8] >> (*key % 8)) & 1;
        const bool isLock = std::ranges::find(lockKeysyms, map.bareKeysym(*key)) != lockKeysyms.end();
        if (isDown && !isLock) {
            held.insert(*key);
        }
    }
    return held;
}

std::optional<KeyboardState> readState(const X11Connection &connection)
{
    xcb_connection_t *c = connection.get();
    const auto map = X11KeyboardMap::read(connection);
    const auto downCookie = xcb_query_keymap(c);
    const auto modifiersCookie = xcb_get_modifier_mapping(c);
    const auto stateCookie = xcb_xkb_get_state(c, XCB_XKB_ID_USE_CORE_KBD);
    const X11Reply<xcb_query_keymap_reply_t> down(xcb_query_keymap_reply(c, downCookie, nullptr));
    const X11Reply<xcb_get_modifier_mapping_reply_t> modifiers(
        xcb_get_modifier_mapping_reply(c, modifiersCookie, nullptr));
    const X11Reply<xcb_xkb_get_state_reply_t> state(xcb_xkb_get_state_reply(c, stateCookie, nullptr));
    if (!map || !down || !modifiers || !state) {
        return std::nullopt;
    }
    return KeyboardState{heldModifierKeys(*down, *modifiers, *map), state->lockedMods, state->latchedMods,
                         state->lockedGroup, state->group};
}

void lock(const X11Connection &connection, quint8 modifiers, quint8 group)
{
    constexpr quint8 isGroupLocked = 1;
    constexpr quint8 isGroupLatched = 0;
    xcb_xkb_latch_lock_state(connection.get(), XCB_XKB_ID_USE_CORE_KBD, allModifiers, modifiers,
                             isGroupLocked, group, allModifiers, isGroupLatched, 0);
}

void postStroke(const X11Connection &connection, const KeyStroke &stroke)
{
    for (const xcb_keycode_t modifier : stroke.modifiers) {
        fakeKey(connection, XCB_KEY_PRESS, modifier);
    }
    fakeKey(connection, XCB_KEY_PRESS, stroke.keycode);
    fakeKey(connection, XCB_KEY_RELEASE, stroke.keycode);
    for (const xcb_keycode_t modifier : stroke.modifiers) {
        fakeKey(connection, XCB_KEY_RELEASE, modifier);
    }
}

/// What has to be up before the strokes. The strokes' own keys too, held or not: the server drops the press
/// of a key that it believes to be down already, and the XTEST device may believe that of a key which we
/// pressed for the user, who has let it go on the real keyboard since.
Keycodes keysToLetGo(const QList<KeyStroke> &strokes, Keycodes held)
{
    for (const KeyStroke &stroke : strokes) {
        held.insert(stroke.keycode);
        held.insert(stroke.modifiers.begin(), stroke.modifiers.end());
    }
    return held;
}

} // namespace

std::optional<quint8> keyboardGroup(const X11Connection &connection)
{
    const auto cookie = xcb_xkb_get_state(connection.get(), XCB_XKB_ID_USE_CORE_KBD);
    const X11Reply<xcb_xkb_get_state_reply_t> state(
        xcb_xkb_get_state_reply(connection.get(), cookie, nullptr));
    return state ? std::optional<quint8>(state->group) : std::nullopt;
}

void postKeyStrokes(const X11Connection &connection, const QList<KeyStroke> &strokes, quint8 group)
{
    const auto state = connection.isOpen() ? readState(connection) : std::nullopt;
    if (!state || strokes.isEmpty()) {
        return;
    }
    const bool isLockChanged =
        state->lockedModifiers != 0 || state->latchedModifiers != 0 || state->group != group;
    for (const xcb_keycode_t keycode : keysToLetGo(strokes, state->heldModifiers)) {
        fakeKey(connection, XCB_KEY_RELEASE, keycode);
    }
    if (isLockChanged) {
        lock(connection, 0, group);
    }
    for (const KeyStroke &stroke : strokes) {
        postStroke(connection, stroke);
    }
    if (isLockChanged) {
        lock(connection, state->lockedModifiers, state->lockedGroup);
    }
    for (const xcb_keycode_t keycode : state->heldModifiers) {
        fakeKey(connection, XCB_KEY_PRESS, keycode);
    }
    xcb_flush(connection.get());
}

} // namespace KelvaLR
