#pragma once

#include "Platform/Linux/X11Connection.h"

#include <QCoroTask>

#include <QObject>
#include <QPromise>
#include <QSocketNotifier>

#include <chrono>
#include <memory>

namespace KelvaLR {

struct WindowPingTiming
{
    std::chrono::milliseconds answer{1000};     ///< what a program may take to answer
    std::chrono::milliseconds unanswerable{50}; ///< what one is given that answers no pings
};

/// Finds out that the active window's program has handled the events which it was sent so far: by the
/// _NET_WM_PING of the Extended Window Manager Hints, which a program answers in its turn among other events.
/// On a connection of its own, since it reads events. Main thread.
class WindowPing : public QObject
{
public:
    explicit WindowPing(WindowPingTiming timing = {});

    /// Ends with the answer, or when the time is over. One at a time.
    [[nodiscard]] QCoro::Task<> answered();

private:
    [[nodiscard]] bool isAnswering(xcb_window_t window) const;
    void send(xcb_window_t window);
    void readEvents();
    void end(quint32 serial);

    X11Connection m_connection;
    WindowPingTiming m_timing;
    xcb_atom_t m_protocols;
    xcb_atom_t m_ping;
    std::unique_ptr<QSocketNotifier> m_notifier;
    quint32 m_serial = 0; ///< of the latest ping
    QPromise<void> m_answer;
};

} // namespace KelvaLR
