#pragma once

#include "Models/ComputerUseResult.h"
#include "Services/Assistant/Realtime/RealtimeToolCall.h"

#include <QCoroTask>

#include <QStringList>

namespace KelvaLR {

class LightroomService;
class MacComputerUseService;

/// Carries out the actions that a language model asks for. A plain value, which its tasks may outlive. Main
/// thread.
class RealtimeToolRunner
{
public:
    /// The services outlive every task.
    RealtimeToolRunner(LightroomService &lightroom, MacComputerUseService &computerUse);

    /// Never fails: what cannot be done is the sentence of the result.
    /// @param targetPaths the photos to act on: none for Lightroom's own selection, an empty list when
    /// imported
    ///        photos are meant and none is selected
    [[nodiscard]] QCoro::Task<ComputerUseResult> run(RealtimeToolCall call,
                                                     std::optional<QStringList> targetPaths) const;

private:
    LightroomService *m_lightroom;
    MacComputerUseService *m_computerUse;
};

} // namespace KelvaLR
