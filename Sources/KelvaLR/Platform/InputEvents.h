#pragma once

#include "Models/KeyModifiers.h"

#include <QCoroTask>

#include <QPointF>
#include <QString>

namespace KelvaLR {

/// Port: synthesised keyboard and mouse input for the frontmost application. Main thread. The tasks end with
/// true once the events are posted, and with false when the one they are meant for was not there, or not to
/// the end. An event that cannot be made, as of a key that no keyboard has, is skipped silently.
class InputEvents
{
public:
    InputEvents() = default;
    virtual ~InputEvents() = default;
    Q_DISABLE_COPY_MOVE(InputEvents)

    /// Key down and key up with exactly these modifiers, also while the user holds others.
    /// @param virtualKeyCode a macOS virtual key code of the US layout
    virtual QCoro::Task<bool> postKey(quint16 virtualKeyCode, KeyModifiers modifiers) = 0;

    /// Types a text, one Unicode scalar after the other.
    virtual QCoro::Task<bool> postText(QString text) = 0;

    /// A left click at a point in global screen coordinates, origin at the top left.
    virtual QCoro::Task<bool> postClick(QPointF point) = 0;
};

} // namespace KelvaLR
