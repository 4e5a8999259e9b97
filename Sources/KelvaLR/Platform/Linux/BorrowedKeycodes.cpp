#include "Platform/Linux/BorrowedKeycodes.h"

#include "Platform/Linux/X11Connection.h"
#include "Platform/Linux/X11KeyboardMap.h"

#include <QRandomGenerator>

#include <algorithm>

namespace KelvaLR {

namespace {

/// On the root window: the loans of all processes. On an owner's window: its token.
const QByteArray recordProperty("_KELVALR_BORROWED_KEYCODES");

constexpr qsizetype cardinalsOfLoan = 4;

/// Nobody else's requests are carried out meanwhile: for a round trip or two only.
class ServerGrab
{
public:
    explicit ServerGrab(const X11Connection &connection)
        : m_connection(connection)
    {
        xcb_grab_server(connection.get());
    }

    ~ServerGrab()
    {
        xcb_ungrab_server(m_connection.get());
        m_connection.sync();
    }

    Q_DISABLE_COPY_MOVE(ServerGrab)

private:
    const X11Connection &m_connection;
};

/// A window that nobody sees.
xcb_window_t makeOwnerWindow(const X11Connection &connection)
{
    constexpr quint32 isUnmanaged = 1;
    const xcb_window_t window = xcb_generate_id(connection.get());
    xcb_create_window(connection.get(), 0, window, connection.root(), -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT,
                      &isUnmanaged);
    return window;
}

void setCardinals(const X11Connection &connection, xcb_window_t window, const QList<quint32> &cardinals)
{
    xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, window, connection.atom(recordProperty),
                        XCB_ATOM_CARDINAL, 32, static_cast<quint32>(cardinals.size()), cardinals.constData());
}

} // namespace

BorrowedKeycodes::BorrowedKeycodes(const X11Connection &connection)
    : m_connection(connection)
    , m_token(QRandomGenerator::global()->generate())
{
    if (m_connection.isOpen()) {
        m_owner = makeOwnerWindow(m_connection);
        setCardinals(m_connection, m_owner, {m_token});
        borrow({});
    }
}

BorrowedKeycodes::~BorrowedKeycodes()
{
    if (m_connection.isOpen()) {
        giveBack();
        xcb_destroy_window(m_connection.get(), m_owner);
        m_connection.sync();
    }
}

void BorrowedKeycodes::borrow(const QList<xcb_keysym_t> &keysyms)
{
    if (!m_connection.isOpen()) {
        m_keycodes.clear();
        return;
    }
    const ServerGrab grab(m_connection);
    auto map = X11KeyboardMap::read(m_connection);
    if (!map) {
        return;
    }
    QList<Loan> loans;
    for (const Loan &loan : recordedLoans()) {
        if (isOwn(loan) || !isOwnerAlive(loan)) {
            end(loan, *map);
        } else {
            loans.append(loan);
        }
    }
    assign(*map, keysyms);
    for (const auto &[keysym, keycode] : m_keycodes.asKeyValueRange()) {
        loans.append({m_owner, m_token, keycode, keysym});
    }
    record(loans);
    map->write(m_connection);
}

std::optional<X11KeyboardMap> BorrowedKeycodes::layout() const
{
    auto map = X11KeyboardMap::read(m_connection);
    if (map) {
        for (const Loan &loan : recordedLoans()) {
            end(loan, *map);
        }
    }
    return map;
}

std::optional<xcb_keycode_t> BorrowedKeycodes::keycode(xcb_keysym_t keysym) const
{
    const auto found = m_keycodes.constFind(keysym);
    return found == m_keycodes.cend() ? std::nullopt : std::optional(*found);
}

QList<BorrowedKeycodes::Loan> BorrowedKeycodes::recordedLoans() const
{
    const QList<quint32> cardinals =
        m_connection.items(m_connection.root(), recordProperty).value_or(QList<quint32>());
    QList<Loan> loans;
    for (qsizetype i = 0; i + cardinalsOfLoan <= cardinals.size(); i += cardinalsOfLoan) {
        loans.append({cardinals[i], cardinals[i + 1], cardinals[i + 2], cardinals[i + 3]});
    }
    return loans;
}

void BorrowedKeycodes::record(const QList<Loan> &loans) const
{
    if (loans.isEmpty()) {
        xcb_delete_property(m_connection.get(), m_connection.root(), m_connection.atom(recordProperty));
        return;
    }
    QList<quint32> cardinals;
    for (const Loan &loan : loans) {
        cardinals << loan.owner << loan.token << loan.keycode << loan.keysym;
    }
    setCardinals(m_connection, m_connection.root(), cardinals);
}

bool BorrowedKeycodes::isOwn(const Loan &loan) const
{
    return loan.owner == m_owner && loan.token == m_token;
}

bool BorrowedKeycodes::isOwnerAlive(const Loan &loan) const
{
    return m_connection.items(loan.owner, recordProperty) == QList<quint32>{loan.token};
}

/// Frees the keycode, unless somebody has given it another meaning since.
void BorrowedKeycodes::end(const Loan &loan, X11KeyboardMap &map)
{
    const auto keycode = static_cast<xcb_keycode_t>(loan.keycode);
    if (map.bareKeysym(keycode) == loan.keysym) {
        map.assign(keycode, XCB_NO_SYMBOL);
    }
}

void BorrowedKeycodes::assign(X11KeyboardMap &map, const QList<xcb_keysym_t> &keysyms)
{
    m_keycodes.clear();
    const QList<xcb_keycode_t> free = map.freeKeycodes();
    const qsizetype count = std::min(free.size(), keysyms.size());
    for (qsizetype i = 0; i < count; ++i) {
        map.assign(free[i], keysyms[i]);
        m_keycodes.insert(keysyms[i], free[i]);
    }
}

} // namespace KelvaLR
