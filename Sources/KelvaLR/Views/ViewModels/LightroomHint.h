#pragma once

#include "Services/Lightroom/LightroomConnection.h"

#include <QString>
#include <QStringList>

namespace KelvaLR {

/// What the window says when requests cannot reach Lightroom.
struct LightroomHint
{
    QString finding;     ///< what is the case, in one sentence
    QString advice;      ///< what to do, in one sentence
    QStringList actions; ///< what a button offers: at most two names of actions, see LightroomHintView.qml

    bool operator==(const LightroomHint &) const = default;
};

[[nodiscard]] LightroomHint lightroomHint(const LightroomConnection &connection);

} // namespace KelvaLR
