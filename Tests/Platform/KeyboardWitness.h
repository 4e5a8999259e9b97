#pragma once

#include "Platform/Linux/X11Connection.h"
#include "Platform/Linux/X11KeyboardMap.h"
#include "Platform/Linux/X11Xkb.h"

#include <QList>

#include <iterator>
#include <tuple>

#include <xcb/xtest.h>

namespace KelvaLR::Testing {

/// A window on a connection of its own and what comes to it: all keys, whatever window the window manager
/// gives the focus to.
class KeyboardWitness
{
public:
    KeyboardWitness()
    {
        const X11Reply<xcb_xkb_use_extension_reply_t> reply(xcb_xkb_use_extension_reply(
            m_xcb, xcb_xkb_use_extension(m_xcb, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION), nullptr));
        const xcb_window_t window = xcb_generate_id(m_xcb);
        const quint32 values[] = {1, XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE |
                                         XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE |
                                         XCB_EVENT_MASK_POINTER_MOTION};
        xcb_create_window(m_xcb, 0, window, m_connection.root(), 100, 100, 400, 300, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT,
                          XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
        xcb_map_window(m_xcb, window);
        constexpr quint8 isFocusAskedFirst = 0;
        const X11Reply<xcb_grab_keyboard_reply_t> grab(
            xcb_grab_keyboard_reply(m_xcb,
                                    xcb_grab_keyboard(m_xcb, isFocusAskedFirst, window, XCB_CURRENT_TIME,
                                                      XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
                                    nullptr));
    }

    /// Type, keycode or button, and state of an event.
    using Event = std::tuple<int, int, int>;

    /// What has come since the last call: the server is asked to do all it was sent first.
    [[nodiscard]] QList<Event> takeEvents() const
    {
        const X11Reply<xcb_get_input_focus_reply_t> reply(
            xcb_get_input_focus_reply(m_xcb, xcb_get_input_focus(m_xcb), nullptr));
        QList<Event> events;
        while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(m_xcb)}) {
            if (event->response_type >= XCB_KEY_PRESS && event->response_type <= XCB_MOTION_NOTIFY) {
                const auto *key = reinterpret_cast<const xcb_key_press_event_t *>(event.get());
                const bool isMotion = event->response_type == XCB_MOTION_NOTIFY;
                events.append(
                    {key->response_type, isMotion ? 0 : key->detail, isMotion ? key->root_x : key->state});
            }
        }
        return events;
    }

    /// The whole core keyboard map.
    [[nodiscard]] QList<xcb_keysym_t> map() const
    {
        const xcb_setup_t *setup = xcb_get_setup(m_xcb);
        const auto count = static_cast<quint8>(setup->max_keycode - setup->min_keycode + 1);
        const X11Reply<xcb_get_keyboard_mapping_reply_t> reply(xcb_get_keyboard_mapping_reply(
            m_xcb, xcb_get_keyboard_mapping(m_xcb, setup->min_keycode, count), nullptr));
        const xcb_keysym_t *first = xcb_get_keyboard_mapping_keysyms(reply.get());
        return {first, first + xcb_get_keyboard_mapping_keysyms_length(reply.get())};
    }

    [[nodiscard]] QList<quint8> keysDown() const
    {
        const X11Reply<xcb_query_keymap_reply_t> reply(
            xcb_query_keymap_reply(m_xcb, xcb_query_keymap(m_xcb), nullptr));
        return {std::begin(reply->keys), std::end(reply->keys)};
    }

    /// Modifiers and group.
    [[nodiscard]] std::pair<quint8, quint8> locked() const
    {
        const X11Reply<xcb_xkb_get_state_reply_t> state(
            xcb_xkb_get_state_reply(m_xcb, xcb_xkb_get_state(m_xcb, XCB_XKB_ID_USE_CORE_KBD), nullptr));
        return {state->lockedMods, state->lockedGroup};
    }

    void lock(quint8 modifiers, quint8 group = 0) const
    {
        constexpr quint8 isGroupLocked = 1;
        xcb_xkb_latch_lock_state(m_xcb, XCB_XKB_ID_USE_CORE_KBD, 0xff, modifiers, isGroupLocked, group, 0, 0,
                                 0);
        m_connection.sync();
    }

    [[nodiscard]] xcb_keycode_t keycode(xcb_keysym_t keysym) const
    {
        return X11KeyboardMap::read(m_connection)->placeOfKey(keysym, 0)->keycode;
    }

    void fake(quint8 eventType, xcb_keycode_t keycode) const
    {
        xcb_test_fake_input(m_xcb, eventType, keycode, XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0, 0);
        m_connection.sync();
    }

private:
    X11Connection m_connection;
    xcb_connection_t *m_xcb = m_connection.get();
};

} // namespace KelvaLR::Testing
