#pragma once

#include "Platform/InputEvents.h"

namespace KelvaLR {

/// For a system on which this build cannot post input: every event is skipped.
class UnavailableInputEvents final : public InputEvents
{
public:
    QCoro::Task<> postKey(quint16 virtualKeyCode, KeyModifiers modifiers) override;
    QCoro::Task<> postText(QString text) override;
    QCoro::Task<> postClick(QPointF point) override;
};

} // namespace KelvaLR
