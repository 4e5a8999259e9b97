#include "Platform/Linux/X11Windows.h"

#include <QStringDecoder>
#include <QSysInfo>

#include <array>

namespace KelvaLR {

namespace {

/// Programs write UTF-8 also where X means Latin-1.
QString decoded(const QByteArray &text)
{
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString decoded = utf8.decode(text);
    return utf8.hasError() ? QString::fromLatin1(text) : decoded;
}

/// Where a window may say to which other one it belongs, and which item of the property that is.
struct Owner
{
    const char *property;
    qsizetype item;
};

constexpr std::array owners{
    Owner{"WM_TRANSIENT_FOR", 0}, Owner{"WM_CLIENT_LEADER", 0}, Owner{"WM_HINTS", 8}, // the group's leader
};

bool saysAnything(const X11Window &window)
{
    return window != X11Window{.id = window.id, .windowClass = {}, .title = {}};
}

} // namespace

X11Windows::X11Windows(const X11Connection &connection)
    : m_connection(connection)
{
}

std::optional<X11Window> X11Windows::active() const
{
    const xcb_window_t id =
        m_connection.items(m_connection.root(), "_NET_ACTIVE_WINDOW").value_or(QList<quint32>()).value(0);
    const X11Window window = described(id);
    return saysAnything(window) ? std::optional(window) : std::nullopt;
}

QList<X11Window> X11Windows::all() const
{
    return listed("_NET_CLIENT_LIST");
}

QList<X11Window> X11Windows::fromTheFront() const
{
    QList<X11Window> windows;
    QList<X11Window> dependent;
    for (const X11Window &window : listed("_NET_CLIENT_LIST_STACKING")) {
        (standsOnItsOwn(window.id) ? windows : dependent).prepend(window);
    }
    return windows + dependent;
}

bool X11Windows::activate(const X11Window &window) const
{
    if (!m_connection.isOpen()) {
        return false;
    }
    // As from a pager, that is on the user's behalf: from a program it might be refused.
    constexpr quint32 fromPager = 2;
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window.id;
    message.type = m_connection.atom("_NET_ACTIVE_WINDOW");
    message.data.data32[0] = fromPager;
    message.data.data32[1] = XCB_CURRENT_TIME;

    constexpr quint8 isPropagated = 0;
    xcb_send_event(m_connection.get(), isPropagated, m_connection.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char *>(&message));
    return m_connection.sync();
}

QList<X11Window> X11Windows::listed(const QByteArray &list) const
{
    QList<X11Window> windows;
    for (const xcb_window_t id : m_connection.items(m_connection.root(), list).value_or(QList<quint32>())) {
        if (const X11Window window = described(id); saysAnything(window)) {
            windows.append(window);
        }
    }
    return windows;
}

X11Window X11Windows::described(xcb_window_t window) const
{
    if (window == XCB_WINDOW_NONE) {
        return {};
    }
    return {.id = window,
            .windowClass = windowClassOf(window),
            .title = titleOf(window),
            .processId = processOf(window)};
}

/// The instance and the class, each ended by a zero.
WindowClass X11Windows::windowClassOf(xcb_window_t window) const
{
    const QList<QByteArray> names = m_connection.text(window, "WM_CLASS").value_or(QByteArray()).split('\0');
    return {.instance = decoded(names.value(0)), .name = decoded(names.value(1))};
}

QString X11Windows::titleOf(xcb_window_t window) const
{
    auto title = m_connection.text(window, "_NET_WM_NAME");
    if (!title || title->isEmpty()) {
        title = m_connection.text(window, "WM_NAME");
    }
    return decoded(title.value_or(QByteArray()));
}

qint64 X11Windows::processOf(xcb_window_t window) const
{
    const auto item = [this](xcb_window_t of, const char *property, qsizetype index) {
        return m_connection.items(of, property).value_or(QList<quint32>()).value(index);
    };
    QList<xcb_window_t> candidates{window};
    for (const Owner &owner : owners) {
        candidates.append(item(window, owner.property, owner.item));
    }
    for (const xcb_window_t candidate : candidates) {
        const quint32 process = candidate == XCB_WINDOW_NONE ? 0 : item(candidate, "_NET_WM_PID", 0);
        if (process != 0) {
            return isOnThisComputer(candidate) ? qint64{process} : 0;
        }
    }
    return 0;
}

/// Programs may show windows from another computer. Names may come with or without their domain.
bool X11Windows::isOnThisComputer(xcb_window_t window) const
{
    const auto host = [](const QString &name) { return name.section(u'.', 0, 0).toLower(); };
    const auto computer = m_connection.text(window, "WM_CLIENT_MACHINE");
    return !computer || computer->isEmpty() || host(decoded(*computer)) == host(QSysInfo::machineHostName());
}

bool X11Windows::standsOnItsOwn(xcb_window_t window) const
{
    const QList<quint32> types = m_connection.items(window, "_NET_WM_WINDOW_TYPE").value_or(QList<quint32>());
    return types.isEmpty() ? !m_connection.items(window, "WM_TRANSIENT_FOR")
                           : types.contains(m_connection.atom("_NET_WM_WINDOW_TYPE_NORMAL"));
}

} // namespace KelvaLR
