#pragma once

#include "Platform/Linux/DesktopEntries.h"
#include "Platform/Linux/X11Connection.h"

namespace KelvaLR {

/// A program's window as it describes itself; what it does not say is empty or 0.
struct X11Window
{
    xcb_window_t id = XCB_WINDOW_NONE;
    WindowClass windowClass;
    QString title;
    qint64 processId = 0; ///< of a process on this computer

    bool operator==(const X11Window &) const = default;
};

/// The windows of all programs, as the window manager lists them.
/// https://specifications.freedesktop.org/wm-spec/latest/
/// Main thread. Without an X server or a window manager there are none.
class X11Windows
{
public:
    /// @param connection outlives this object
    explicit X11Windows(const X11Connection &connection);

    /// The one that receives keyboard input; none also when it has gone meanwhile.
    [[nodiscard]] std::optional<X11Window> active() const;

    /// From the oldest to the newest.
    [[nodiscard]] QList<X11Window> all() const;

    /// From the one in front to the one at the back, minimised ones among them: all programs' windows that
    /// stand on their own, then their dialogs and panels.
    [[nodiscard]] QList<X11Window> fromTheFront() const;

    /// Asks the window manager to bring a window to the front and to restore it if it is minimised; false
    /// when it could not be asked.
    bool activate(const X11Window &window) const;

private:
    [[nodiscard]] QList<X11Window> listed(const QByteArray &list) const;
    [[nodiscard]] X11Window described(xcb_window_t window) const;
    [[nodiscard]] WindowClass windowClassOf(xcb_window_t window) const;
    [[nodiscard]] QString titleOf(xcb_window_t window) const;
    [[nodiscard]] qint64 processOf(xcb_window_t window) const;
    [[nodiscard]] bool isOnThisComputer(xcb_window_t window) const;
    [[nodiscard]] bool standsOnItsOwn(xcb_window_t window) const;

    const X11Connection &m_connection;
};

} // namespace KelvaLR
