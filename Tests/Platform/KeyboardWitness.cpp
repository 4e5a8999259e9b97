#include "Platform/KeyboardWitness.h"

#include "Platform/Linux/X11KeyboardMap.h"

#include <iterator>

#include <xcb/xtest.h>

namespace KelvaLR::Testing {

KeyboardWitness::KeyboardWitness()
{
    xcb_connection_t *c = m_connection.get();
    const X11Reply<xcb_xkb_use_extension_reply_t> reply(xcb_xkb_use_extension_reply(
        c, xcb_xkb_use_extension(c, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION), nullptr));
    const xcb_window_t window = xcb_generate_id(c);
    const quint32 values[] = {1, XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE |
                                     XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE |
                                     XCB_EVENT_MASK_POINTER_MOTION};
    xcb_create_window(c, 0, window, m_connection.root(), 100, 100, 400, 300, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    xcb_map_window(c, window);
    constexpr quint8 isFocusAskedFirst = 0;
    const X11Reply<xcb_grab_keyboard_reply_t> grab(
        xcb_grab_keyboard_reply(c,
                                xcb_grab_keyboard(c, isFocusAskedFirst, window, XCB_CURRENT_TIME,
                                                  XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
                                nullptr));
}

QList<KeyboardWitness::Event> KeyboardWitness::takeEvents() const
{
    xcb_connection_t *c = m_connection.get();
    const X11Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(c, xcb_get_input_focus(c), nullptr));
    QList<Event> events;
    while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(c)}) {
        if (event->response_type >= XCB_KEY_PRESS && event->response_type <= XCB_MOTION_NOTIFY) {
            const auto *key = reinterpret_cast<const xcb_key_press_event_t *>(event.get());
            const bool isMotion = event->response_type == XCB_MOTION_NOTIFY;
            events.append(
                {key->response_type, isMotion ? 0 : key->detail, isMotion ? key->root_x : key->state});
        }
    }
    return events;
}

QList<xcb_keysym_t> KeyboardWitness::map() const
{
    xcb_connection_t *c = m_connection.get();
    const xcb_setup_t *setup = xcb_get_setup(c);
    const auto count = static_cast<quint8>(setup->max_keycode - setup->min_keycode + 1);
    const X11Reply<xcb_get_keyboard_mapping_reply_t> reply(
        xcb_get_keyboard_mapping_reply(c, xcb_get_keyboard_mapping(c, setup->min_keycode, count), nullptr));
    const xcb_keysym_t *first = xcb_get_keyboard_mapping_keysyms(reply.get());
    return {first, first + xcb_get_keyboard_mapping_keysyms_length(reply.get())};
}

QList<quint8> KeyboardWitness::keysDown() const
{
    xcb_connection_t *c = m_connection.get();
    const X11Reply<xcb_query_keymap_reply_t> reply(xcb_query_keymap_reply(c, xcb_query_keymap(c), nullptr));
    return {std::begin(reply->keys), std::end(reply->keys)};
}

quint8 KeyboardWitness::lockedModifiers() const
{
    return state()->lockedMods;
}

quint8 KeyboardWitness::lockedGroup() const
{
    return state()->lockedGroup;
}

void KeyboardWitness::lock(quint8 modifiers, quint8 group) const
{
    constexpr quint8 isGroupLocked = 1;
    xcb_xkb_latch_lock_state(m_connection.get(), XCB_XKB_ID_USE_CORE_KBD, 0xff, modifiers, isGroupLocked,
                             group, 0, 0, 0);
    m_connection.sync();
}

xcb_keycode_t KeyboardWitness::keycode(xcb_keysym_t keysym) const
{
    return X11KeyboardMap::read(m_connection)->placeOfKey(keysym, 0)->keycode;
}

void KeyboardWitness::fake(quint8 eventType, xcb_keycode_t keycode) const
{
    xcb_test_fake_input(m_connection.get(), eventType, keycode, XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0, 0);
    m_connection.sync();
}

X11Reply<xcb_xkb_get_state_reply_t> KeyboardWitness::state() const
{
    xcb_connection_t *c = m_connection.get();
    return X11Reply<xcb_xkb_get_state_reply_t>(
        xcb_xkb_get_state_reply(c, xcb_xkb_get_state(c, XCB_XKB_ID_USE_CORE_KBD), nullptr));
}

} // namespace KelvaLR::Testing
