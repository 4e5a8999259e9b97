#include "Platform/Linux/WindowPing.h"

#include <QCoroFuture>

#include <QTimer>

namespace KelvaLR {

namespace {

/// The answer goes to the root window: to the window manager and, unlike what the hints say, in Qt with the
/// second of these masks.
constexpr quint32 answerMask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_STRUCTURE_NOTIFY;

constexpr qsizetype serialItem = 3; ///< of the message: the first one that the hints leave unused

void selectRootEvents(const X11Connection &connection, quint32 mask)
{
    xcb_change_window_attributes(connection.get(), connection.root(), XCB_CW_EVENT_MASK, &mask);
}

} // namespace

WindowPing::WindowPing(WindowPingTiming timing)
    : m_timing(timing)
    , m_protocols(m_connection.atom("WM_PROTOCOLS"))
    , m_ping(m_connection.atom("_NET_WM_PING"))
{
    if (m_connection.isOpen()) {
        m_notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_connection.get()),
                                                       QSocketNotifier::Read);
        connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] { readEvents(); });
    }
}

QCoro::Task<> WindowPing::answered()
{
    const auto active = m_connection.items(m_connection.root(), "_NET_ACTIVE_WINDOW");
    const bool isAnswered = active && !active->isEmpty() && isAnswering(active->constFirst());
    m_answer = QPromise<void>();
    m_answer.start();
    const QFuture<void> answer = m_answer.future();
    ++m_serial;
    if (isAnswered) {
        send(active->constFirst());
    }
    QTimer::singleShot(isAnswered ? m_timing.answer : m_timing.unanswerable, this,
                       [this, serial = m_serial] { end(serial); });
    co_await answer;
}

bool WindowPing::isAnswering(xcb_window_t window) const
{
    return m_connection.items(window, "WM_PROTOCOLS").value_or(QList<quint32>()).contains(m_ping);
}

void WindowPing::send(xcb_window_t window)
{
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = m_protocols;
    message.data.data32[0] = m_ping;
    message.data.data32[1] = XCB_CURRENT_TIME;
    message.data.data32[2] = window;
    message.data.data32[serialItem] = m_serial;
    constexpr quint8 isPropagated = 0;
    selectRootEvents(m_connection, answerMask);
    xcb_send_event(m_connection.get(), isPropagated, window, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char *>(&message));
    xcb_flush(m_connection.get());
}

void WindowPing::readEvents()
{
    while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.get())}) {
        constexpr quint8 sentByClient = 0x80;
        if ((event->response_type & ~sentByClient) != XCB_CLIENT_MESSAGE) {
            continue;
        }
        const auto *message = reinterpret_cast<const xcb_client_message_event_t *>(event.get());
        if (message->type == m_protocols && message->data.data32[0] == m_ping) {
            end(message->data.data32[serialItem]);
        }
    }
    if (!m_connection.isOpen()) {
        m_notifier->setEnabled(false);
        end(m_serial);
    }
}

void WindowPing::end(quint32 serial)
{
    if (serial == m_serial && !m_answer.future().isFinished()) {
        selectRootEvents(m_connection, XCB_EVENT_MASK_NO_EVENT);
        xcb_flush(m_connection.get());
        m_answer.finish();
    }
}

} // namespace KelvaLR
