#pragma once

#include <QHash>
#include <QList>

#include <optional>

#include <xcb/xcb.h>

namespace KelvaLR {

class X11Connection;
class X11KeyboardMap;

/// Free keycodes of the keyboard that carry, for a while, characters which the layout lacks. They are given
/// back when the object ends.
///
/// What stands borrowed is recorded on the root window, in the same write and before the map changes,
/// together with a window of ours that dies with the connection. So whoever comes after a killed process can
/// tell its keycodes from those of a living one, and frees them. Each change is made while the server is
/// grabbed: two processes never borrow the same keycode, nor overwrite each other's records.
class BorrowedKeycodes
{
public:
    /// Frees what killed processes left behind.
    explicit BorrowedKeycodes(const X11Connection &connection);
    ~BorrowedKeycodes();
    Q_DISABLE_COPY_MOVE(BorrowedKeycodes)

    /// Maps as many of these keysyms as there are free keycodes, the first ones first, in place of what was
    /// borrowed before. Frees what killed processes left behind. Programs hear of the new map some time
    /// later.
    void borrow(const QList<xcb_keysym_t> &keysyms);

    /// The keyboard map without what is borrowed, by us or by others; none when the server has gone.
    [[nodiscard]] std::optional<X11KeyboardMap> layout() const;

    void giveBack() { borrow({}); }

    [[nodiscard]] bool isEmpty() const { return m_keycodes.isEmpty(); }

    [[nodiscard]] std::optional<xcb_keycode_t> keycode(xcb_keysym_t keysym) const;

private:
    /// One borrowed keycode, as four cardinals of the record.
    struct Loan
    {
        xcb_window_t owner;
        quint32 token;
        quint32 keycode;
        xcb_keysym_t keysym;
    };

    [[nodiscard]] QList<Loan> recordedLoans() const;
    void record(const QList<Loan> &loans) const;
    [[nodiscard]] bool isOwn(const Loan &loan) const;
    [[nodiscard]] bool isOwnerAlive(const Loan &loan) const;
    static void end(const Loan &loan, X11KeyboardMap &map);
    void assign(X11KeyboardMap &map, const QList<xcb_keysym_t> &keysyms);

    const X11Connection &m_connection;
    xcb_window_t m_owner = XCB_WINDOW_NONE;
    quint32 m_token; ///< tells our window from a later one of another process with the same id
    QHash<xcb_keysym_t, xcb_keycode_t> m_keycodes;
};

} // namespace KelvaLR
