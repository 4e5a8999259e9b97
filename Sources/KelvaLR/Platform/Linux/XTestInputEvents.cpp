#include "Platform/Linux/XTestInputEvents.h"

#include "Platform/Linux/X11Connection.h"
#include "Platform/Linux/X11KeyboardMap.h"
#include "Platform/Linux/X11Keysyms.h"
#include "Platform/Linux/X11Xkb.h"

#include <QCoroFuture>

#include <QSet>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include <X11/keysym.h>
#include <xcb/xtest.h>

namespace KelvaLR {

namespace {

struct ModifierRow
{
    KeyModifier modifier;
    xcb_keysym_t keysym;
};

constexpr ModifierRow modifierTable[] = {
    {KeyModifier::maskCommand, XK_Control_L},
    {KeyModifier::maskControl, XK_Control_L},
    {KeyModifier::maskAlternate, XK_Alt_L},
    {KeyModifier::maskShift, XK_Shift_L},
};

/// The keys of these modifiers, each once; none when the keyboard lacks one of them.
std::optional<QList<xcb_keycode_t>> modifierKeys(const X11KeyboardMap &map, KeyModifiers modifiers,
                                                 quint8 group)
{
    QList<xcb_keycode_t> keycodes;
    for (const ModifierRow &row : modifierTable) {
        if (!modifiers.testFlag(row.modifier)) {
            continue;
        }
        const auto place = map.placeOfKey(row.keysym, group);
        if (!place) {
            return std::nullopt;
        }
        if (!keycodes.contains(place->keycode)) {
            keycodes.append(place->keycode);
        }
    }
    return keycodes;
}

QList<xcb_keysym_t> keysymsOf(const QString &text)
{
    QList<xcb_keysym_t> keysyms;
    for (const uint character : text.toUcs4()) {
        if (const auto keysym = keysymOfCharacter(character)) {
            keysyms.append(*keysym);
        }
    }
    return keysyms;
}

/// Those that the layout lacks, each once, in order; no more than there are free keycodes for.
QList<xcb_keysym_t> missingKeysyms(const QList<xcb_keysym_t> &keysyms, const X11KeyboardMap &map,
                                   quint8 group)
{
    const qsizetype limit = map.freeKeycodes().size();
    QSet<xcb_keysym_t> seen;
    QList<xcb_keysym_t> missing;
    for (const xcb_keysym_t keysym : keysyms) {
        if (missing.size() == limit) {
            break;
        }
        if (!seen.contains(keysym) && !map.placeOfCharacter(keysym, group)) {
            missing.append(keysym);
        }
        seen.insert(keysym);
    }
    return missing;
}

/// Coordinates of the protocol have 16 bits.
qint16 coordinate(double value)
{
    using Limits = std::numeric_limits<qint16>;
    return static_cast<qint16>(std::clamp<double>(std::round(value), Limits::min(), Limits::max()));
}

bool hasExtensions(const X11Connection &connection)
{
    if (!connection.isOpen()) {
        return false;
    }
    xcb_connection_t *c = connection.get();
    const auto *test = xcb_get_extension_data(c, &xcb_test_id);
    const auto *keyboard = xcb_get_extension_data(c, &xcb_xkb_id);
    if (!test || !test->present || !keyboard || !keyboard->present) {
        return false;
    }
    const auto cookie = xcb_xkb_use_extension(c, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION);
    const X11Reply<xcb_xkb_use_extension_reply_t> reply(xcb_xkb_use_extension_reply(c, cookie, nullptr));
    return reply && reply->supported;
}

} // namespace

XTestInputEvents::XTestInputEvents(const X11Connection &connection, Settled settled, MayReceive mayReceive)
    : m_connection(connection)
    , m_settled(std::move(settled))
    , m_mayReceive(std::move(mayReceive))
    , m_hasExtensions(hasExtensions(connection))
{
    if (canPost()) {
        m_borrowed = std::make_unique<BorrowedKeycodes>(m_connection);
    }
}

XTestInputEvents::~XTestInputEvents() = default;

QCoro::Task<bool> XTestInputEvents::postKey(quint16 virtualKeyCode, KeyModifiers modifiers)
{
    const Self self(this);
    const Turns::Turn turn = m_turns.take();
    co_await turn.begun;
    if (!self || !self->mayPost()) {
        co_return false;
    }
    self->post(virtualKeyCode, modifiers);
    self->m_connection.sync();
    co_return true;
}

QCoro::Task<bool> XTestInputEvents::postText(QString text)
{
    const Self self(this);
    const Turns::Turn turn = m_turns.take();
    co_await turn.begun;
    if (!self || !self->mayPost()) {
        co_return false;
    }
    co_return co_await type(self, keysymsOf(text), self->m_settled);
}

QCoro::Task<bool> XTestInputEvents::postClick(QPointF point)
{
    const Self self(this);
    const Turns::Turn turn = m_turns.take();
    co_await turn.begun;
    if (!self || !self->mayPost() || !std::isfinite(point.x()) || !std::isfinite(point.y())) {
        co_return false;
    }
    constexpr quint8 isAbsolute = 0;
    xcb_connection_t *c = self->m_connection.get();
    // The pointer has to be there before the button goes down: programs look at what it entered.
    xcb_test_fake_input(c, XCB_MOTION_NOTIFY, isAbsolute, XCB_CURRENT_TIME, self->m_connection.root(),
                        coordinate(point.x()), coordinate(point.y()), 0);
    for (const quint8 eventType : {quint8(XCB_BUTTON_PRESS), quint8(XCB_BUTTON_RELEASE)}) {
        xcb_test_fake_input(c, eventType, XCB_BUTTON_INDEX_1, XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0, 0);
    }
    self->m_connection.sync();
    co_return true;
}

bool XTestInputEvents::canPost() const
{
    return m_hasExtensions && m_connection.isOpen();
}

QCoro::Task<bool> XTestInputEvents::type(Self self, QList<xcb_keysym_t> keysyms, Settled settled)
{
    bool isPosted = true;
    while (isPosted && !keysyms.isEmpty()) {
        const Batch batch = self->takeBatch(keysyms);
        if (!self->m_borrowed->isEmpty()) {
            co_await settled();
        }
        for (qsizetype next = 0; isPosted && next < batch.strokes.size(); next += keyStrokeLimit) {
            isPosted = self && self->mayPost();
            if (isPosted) {
                postKeyStrokes(self->m_connection, batch.strokes.mid(next, keyStrokeLimit), batch.group);
                self->m_connection.sync();
                co_await settled();
            }
        }
        isPosted = isPosted && self && self->canPost();
    }
    if (self) {
        self->m_borrowed->giveBack();
    }
    co_return isPosted;
}

/// The layout of the XTEST device. A keyboard shows the map of the device that was used last, and the user's
/// may have another one: the release of a key that no keyboard has makes the XTEST device the last one.
std::optional<X11KeyboardMap> XTestInputEvents::layout() const
{
    const xcb_keycode_t lowest = xcb_get_setup(m_connection.get())->min_keycode;
    xcb_test_fake_input(m_connection.get(), XCB_KEY_RELEASE, lowest, XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0,
                        0);
    return m_borrowed->layout();
}

void XTestInputEvents::post(quint16 virtualKeyCode, KeyModifiers modifiers) const
{
    const auto keysym = keysymOfVirtualKey(virtualKeyCode);
    const auto map = layout();
    const auto group = keyboardGroup(m_connection);
    if (!keysym || !map || !group) {
        return;
    }
    const auto place = map->placeOfKey(*keysym, *group);
    const auto keys = modifierKeys(*map, modifiers, *group);
    if (place && keys) {
        postKeyStrokes(m_connection, {KeyStroke{place->keycode, *keys}}, place->group);
    }
}

/// Takes from the front of the keysyms what can be typed with one state of the map, and borrows keycodes for
/// it.
XTestInputEvents::Batch XTestInputEvents::takeBatch(QList<xcb_keysym_t> &keysyms)
{
    const auto map = layout();
    const auto group = keyboardGroup(m_connection);
    const auto shift = map && group ? map->placeOfKey(XK_Shift_L, *group) : std::nullopt;
    if (!shift) {
        keysyms.clear();
        return {};
    }
    m_borrowed->borrow(missingKeysyms(keysyms, *map, *group));
    Batch batch{{}, *group};
    qsizetype taken = 0;
    for (const xcb_keysym_t keysym : std::as_const(keysyms)) {
        if (const auto place = map->placeOfCharacter(keysym, *group)) {
            const bool isShifted = place->level > 0;
            batch.strokes.append(
                {place->keycode, isShifted ? QList{shift->keycode} : QList<xcb_keycode_t>()});
        } else if (const auto keycode = m_borrowed->keycode(keysym)) {
            batch.strokes.append(KeyStroke{*keycode, {}});
        } else if (!m_borrowed->isEmpty()) {
            break; // the next batch; without any free keycode the character is skipped
        }
        ++taken;
    }
    keysyms.remove(0, taken);
    return batch;
}

} // namespace KelvaLR
