#include "Platform/Linux/X11KeyboardMap.h"

#include "Platform/Linux/X11Connection.h"
#include "Platform/Linux/X11Xkb.h"

#include <algorithm>

namespace KelvaLR {

namespace {

constexpr quint8 groupLimit = 4;   ///< of the XKEYBOARD protocol
constexpr quint8 twoLevelType = 1; ///< the protocol's second canonical key type: bare and with Shift
constexpr quint8 twoLevels = 2;

template <typename T>
void append(QByteArray &bytes, const T &value)
{
    bytes.append(reinterpret_cast<const char *>(&value), sizeof value);
}

} // namespace

std::optional<X11KeyboardMap> X11KeyboardMap::read(const X11Connection &connection)
{
    if (!connection.isOpen()) {
        return std::nullopt;
    }
    const auto cookie = xcb_xkb_get_map(connection.get(), XCB_XKB_ID_USE_CORE_KBD, XCB_XKB_MAP_PART_KEY_SYMS,
                                        0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
    const X11Reply<xcb_xkb_get_map_reply_t> reply(xcb_xkb_get_map_reply(connection.get(), cookie, nullptr));
    if (!reply) {
        return std::nullopt;
    }
    xcb_xkb_get_map_map_t parts{};
    xcb_xkb_get_map_map_unpack(xcb_xkb_get_map_map(reply.get()), reply->nTypes, reply->nKeySyms,
                               reply->nKeyActions, reply->totalActions, reply->totalKeyBehaviors,
                               reply->virtualMods, reply->totalKeyExplicit, reply->totalModMapKeys,
                               reply->totalVModMapKeys, reply->present, &parts);
    X11KeyboardMap map;
    map.m_firstKeycode = reply->firstKeySym;
    for (auto keys = xcb_xkb_get_map_map_syms_rtrn_iterator(reply.get(), &parts); keys.rem > 0;
         xcb_xkb_key_sym_map_next(&keys)) {
        const xcb_keysym_t *first = xcb_xkb_key_sym_map_syms(keys.data);
        Key key{{}, keys.data->groupInfo, keys.data->width, {first, first + keys.data->nSyms}};
        std::ranges::copy(keys.data->kt_index, key.types.begin());
        map.m_keys.append(std::move(key));
    }
    return map;
}

std::optional<KeyPlace> X11KeyboardMap::placeOfCharacter(xcb_keysym_t keysym, quint8 group) const
{
    const auto bare = find(keysym, group, 0);
    return bare ? bare : find(keysym, group, 1);
}

std::optional<KeyPlace> X11KeyboardMap::placeOfKey(xcb_keysym_t keysym, quint8 group) const
{
    const auto widest = std::ranges::max_element(m_keys, {}, &Key::width);
    const quint8 levels = widest == m_keys.end() ? quint8(0) : widest->width;
    std::optional<KeyPlace> place;
    for (quint8 level = 0; level < levels && !place; ++level) {
        for (quint8 i = 0; i < groupLimit && !place; ++i) {
            place = find(keysym, static_cast<quint8>((group + i) % groupLimit), level);
        }
    }
    return place;
}

QList<xcb_keycode_t> X11KeyboardMap::freeKeycodes() const
{
    QList<xcb_keycode_t> free;
    for (qsizetype i = 0; i < m_keys.size(); ++i) {
        const auto &keysyms = m_keys[i].keysyms;
        if (std::ranges::all_of(keysyms, [](xcb_keysym_t keysym) { return keysym == XCB_NO_SYMBOL; })) {
            free.append(static_cast<xcb_keycode_t>(m_firstKeycode + i));
        }
    }
    return free;
}

xcb_keysym_t X11KeyboardMap::bareKeysym(xcb_keycode_t keycode) const
{
    const qsizetype index = keycode - m_firstKeycode;
    return index >= 0 && index < m_keys.size() ? keysym(m_keys[index], 0, 0) : xcb_keysym_t(XCB_NO_SYMBOL);
}

void X11KeyboardMap::assign(xcb_keycode_t keycode, xcb_keysym_t keysym)
{
    const qsizetype index = keycode - m_firstKeycode;
    if (index < 0 || index >= m_keys.size()) {
        return;
    }
    m_keys[index] = keysym == XCB_NO_SYMBOL ? Key() : Key{{twoLevelType}, 1, twoLevels, {keysym, keysym}};
    m_assigned.append(keycode);
}

void X11KeyboardMap::write(const X11Connection &connection) const
{
    if (m_assigned.isEmpty() || !connection.isOpen()) {
        return;
    }
    const auto [lowest, highest] = std::ranges::minmax(m_assigned);
    const qsizetype first = lowest - m_firstKeycode;
    const qsizetype last = highest - m_firstKeycode;
    qsizetype total = 0;
    for (qsizetype i = first; i <= last; ++i) {
        total += m_keys[i].keysyms.size();
    }
    const QByteArray values = wireForm(first, last);
    const auto highestOfAll = static_cast<xcb_keycode_t>(m_firstKeycode + m_keys.size() - 1);
    xcb_xkb_set_map(connection.get(), XCB_XKB_ID_USE_CORE_KBD, XCB_XKB_MAP_PART_KEY_SYMS, 0, m_firstKeycode,
                    highestOfAll, 0, 0, lowest, static_cast<quint8>(last - first + 1),
                    static_cast<quint16>(total), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
                    values.constData());
}

int X11KeyboardMap::groupCount(const Key &key)
{
    return key.groupInfo & 0x0f;
}

/// A key with fewer groups than the keyboard starts again with its first one.
xcb_keysym_t X11KeyboardMap::keysym(const Key &key, quint8 group, quint8 level)
{
    if (groupCount(key) == 0 || level >= key.width) {
        return XCB_NO_SYMBOL;
    }
    return key.keysyms.value(group % groupCount(key) * key.width + level, XCB_NO_SYMBOL);
}

std::optional<KeyPlace> X11KeyboardMap::find(xcb_keysym_t wanted, quint8 group, quint8 level) const
{
    const auto found =
        std::ranges::find_if(m_keys, [&](const Key &key) { return keysym(key, group, level) == wanted; });
    if (found == m_keys.end()) {
        return std::nullopt;
    }
    return KeyPlace{static_cast<xcb_keycode_t>(m_firstKeycode + (found - m_keys.begin())), group, level};
}

/// The KEYSYMMAP list of the protocol.
QByteArray X11KeyboardMap::wireForm(qsizetype first, qsizetype last) const
{
    QByteArray bytes;
    for (qsizetype i = first; i <= last; ++i) {
        const Key &key = m_keys[i];
        append(bytes, key.types);
        append(bytes, key.groupInfo);
        append(bytes, key.width);
        append(bytes, static_cast<quint16>(key.keysyms.size()));
        for (const xcb_keysym_t keysym : key.keysyms) {
            append(bytes, keysym);
        }
    }
    return bytes;
}

} // namespace KelvaLR
