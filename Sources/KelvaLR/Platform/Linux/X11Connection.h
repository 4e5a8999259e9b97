#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>

#include <cstdlib>
#include <memory>
#include <optional>

#include <xcb/xcb.h>

namespace KelvaLR {

/// What the X server or XCB allocates with malloc, freed with its owner.
template <typename T>
struct X11Free
{
    void operator()(T *memory) const { std::free(memory); } // NOLINT(cppcoreguidelines-no-malloc)
};

template <typename T>
using X11Reply = std::unique_ptr<T, X11Free<T>>;

/// Our own connection to the X server of this session, beside the toolkit's: command-line modes have no
/// toolkit connection. By XCB, since Xlib ends the program when the server goes. Main thread; a request with
/// a reply waits for the server, which answers within a millisecond.
class X11Connection
{
public:
    /// Opens the display named by DISPLAY; where there is none, isOpen() is false.
    X11Connection();
    ~X11Connection();
    Q_DISABLE_COPY_MOVE(X11Connection)

    /// False without a display, and once the server has gone.
    [[nodiscard]] bool isOpen() const;

    /// Only while isOpen().
    [[nodiscard]] xcb_connection_t *get() const { return m_connection; }

    [[nodiscard]] xcb_window_t root() const { return m_root; }

    /// The atom of this name, made when there is none yet; XCB_ATOM_NONE without a connection.
    [[nodiscard]] xcb_atom_t atom(const QByteArray &name) const;

    /// A property of 32-bit items: windows, cardinals, atoms. None when it is absent or of another format.
    [[nodiscard]] std::optional<QList<quint32>> items(xcb_window_t window, const QByteArray &property) const;

    /// A property of 8-bit items: a text.
    [[nodiscard]] std::optional<QByteArray> text(xcb_window_t window, const QByteArray &property) const;

    /// Waits until the server has done what it was sent; false when it has gone.
    bool sync() const;

private:
    [[nodiscard]] X11Reply<xcb_get_property_reply_t> property(xcb_window_t window, const QByteArray &name,
                                                              int format) const;

    xcb_connection_t *m_connection;
    xcb_window_t m_root = XCB_WINDOW_NONE;
    mutable QHash<QByteArray, xcb_atom_t> m_atoms; ///< an atom keeps its number as long as the server runs
};

} // namespace KelvaLR
