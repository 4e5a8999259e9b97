#pragma once

#include "Platform/InputEvents.h"
#include "Platform/Linux/BorrowedKeycodes.h"
#include "Platform/Linux/KeyStrokes.h"
#include "Support/Turns.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>

namespace KelvaLR {

class X11Connection;
class X11KeyboardMap;

/// Input by the XTEST extension. Command and Control are both the Control key, Option is Alt. One posting at
/// a time; others wait for their turn. Without a server, or one that lacks XTEST or XKEYBOARD, nothing is
/// posted.
///
/// A character that the layout lacks is typed by a keycode that is free otherwise. A program looks up what a
/// key stands for when it comes to the event, not when the event was posted; so the map stays as it is until
/// the program has settled.
class XTestInputEvents final : public QObject, public InputEvents
{
public:
    /// Ends once the program that has the keyboard focus has handled the events which the X server sent it
    /// before the call, in its own time bounds if the program does not answer.
    using Settled = std::function<QCoro::Task<>()>;

    /// Whether the program in front may get input.
    using MayReceive = std::function<bool()>;

    /// Puts right what a killed process left in the keyboard map.
    /// @param connection outlives this object
    /// @param mayReceive asked before each event, and in a text before each piece of it, of keyStrokeLimit
    /// strokes at most; when the answer is no, nothing more is posted
    XTestInputEvents(
        const X11Connection &connection, Settled settled, MayReceive mayReceive = [] { return true; });

    /// Puts the keyboard map back, also in the middle of a typing, which then ends without another event.
    ~XTestInputEvents() override;

    QCoro::Task<bool> postKey(quint16 virtualKeyCode, KeyModifiers modifiers) override;
    QCoro::Task<bool> postText(QString text) override;
    QCoro::Task<bool> postClick(QPointF point) override;

private:
    using Self = QPointer<XTestInputEvents>;

    /// Strokes of one state of the keyboard map.
    struct Batch
    {
        QList<KeyStroke> strokes;
        quint8 group = 0;
    };

    [[nodiscard]] bool canPost() const;

    [[nodiscard]] bool mayPost() const { return canPost() && m_mayReceive(); }

    [[nodiscard]] static QCoro::Task<bool> type(Self self, QList<xcb_keysym_t> keysyms, Settled settled);
    [[nodiscard]] std::optional<X11KeyboardMap> layout() const;
    void post(quint16 virtualKeyCode, KeyModifiers modifiers) const;
    Batch takeBatch(QList<xcb_keysym_t> &keysyms);

    const X11Connection &m_connection;
    Settled m_settled;
    MayReceive m_mayReceive;
    Turns m_turns;
    bool m_hasExtensions;
    std::unique_ptr<BorrowedKeycodes> m_borrowed;
};

} // namespace KelvaLR
