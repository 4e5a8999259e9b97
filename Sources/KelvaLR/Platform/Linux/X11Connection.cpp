#include "Platform/Linux/X11Connection.h"

namespace KelvaLR {

namespace {

constexpr quint32 longestProperty = 64 * 1024; ///< in units of four bytes

} // namespace

X11Connection::X11Connection()
{
    int screenNumber = 0;
    m_connection = xcb_connect(nullptr, &screenNumber);
    if (!isOpen()) {
        return;
    }
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(m_connection));
    for (int i = 0; i < screenNumber && screens.rem > 1; ++i) {
        xcb_screen_next(&screens);
    }
    m_root = screens.data->root;
}

X11Connection::~X11Connection()
{
    xcb_disconnect(m_connection);
}

bool X11Connection::isOpen() const
{
    return xcb_connection_has_error(m_connection) == 0;
}

xcb_atom_t X11Connection::atom(const QByteArray &name) const
{
    if (!isOpen()) {
        return XCB_ATOM_NONE;
    }
    if (const auto known = m_atoms.constFind(name); known != m_atoms.cend()) {
        return *known;
    }
    constexpr quint8 isMadeWhenMissing = 0;
    const auto cookie =
        xcb_intern_atom(m_connection, isMadeWhenMissing, static_cast<quint16>(name.size()), name.constData());
    const X11Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(m_connection, cookie, nullptr));
    return reply ? *m_atoms.insert(name, reply->atom) : xcb_atom_t(XCB_ATOM_NONE);
}

std::optional<QList<quint32>> X11Connection::items(xcb_window_t window, const QByteArray &name) const
{
    const auto reply = property(window, name, 32);
    if (!reply) {
        return std::nullopt;
    }
    const auto *first = static_cast<const quint32 *>(xcb_get_property_value(reply.get()));
    return QList<quint32>(first, first + reply->value_len);
}

std::optional<QByteArray> X11Connection::text(xcb_window_t window, const QByteArray &name) const
{
    const auto reply = property(window, name, 8);
    if (!reply) {
        return std::nullopt;
    }
    return QByteArray(static_cast<const char *>(xcb_get_property_value(reply.get())), reply->value_len);
}

bool X11Connection::sync() const
{
    if (!isOpen()) {
        return false;
    }
    const X11Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    // Nobody selects events here, but the server tells everyone of a new keyboard map, and of errors.
    while (const X11Reply<xcb_generic_event_t> unasked{xcb_poll_for_queued_event(m_connection)}) {
    }
    return reply != nullptr;
}

X11Reply<xcb_get_property_reply_t> X11Connection::property(xcb_window_t window, const QByteArray &name,
                                                           int format) const
{
    const xcb_atom_t atomOfName = atom(name);
    if (atomOfName == XCB_ATOM_NONE) {
        return nullptr;
    }
    constexpr quint8 isDeletedAfterwards = 0;
    const auto cookie = xcb_get_property(m_connection, isDeletedAfterwards, window, atomOfName,
                                         XCB_GET_PROPERTY_TYPE_ANY, 0, longestProperty);
    X11Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(m_connection, cookie, nullptr));
    if (!reply || reply->format != format) {
        return nullptr;
    }
    return reply;
}

} // namespace KelvaLR
