#pragma once

#include "Platform/InputEvents.h"

namespace KelvaLR {

/// For a system on which this build cannot post input: no event is posted.
class UnavailableInputEvents final : public InputEvents
{
public:
    QCoro::Task<bool> postKey(quint16 virtualKeyCode, KeyModifiers modifiers) override;
    QCoro::Task<bool> postText(QString text) override;
    QCoro::Task<bool> postClick(QPointF point) override;
};

} // namespace KelvaLR
