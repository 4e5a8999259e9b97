#pragma once

#include "Services/Assistant/AssistantProvider.h"
#include "Services/Assistant/Realtime/RealtimeToolRunner.h"

namespace KelvaLR {

/// Carries out the one action that a chat reply may ask for, as a tool call that leaves most arguments out.
/// Main thread.
class AssistantActionRunner
{
public:
    AssistantActionRunner(LightroomService &lightroom, MacComputerUseService &computerUse);

    /// Never fails: what cannot be done is the sentence of the result.
    QCoro::Task<ComputerUseResult> run(const AssistantAction &action);

private:
    RealtimeToolRunner m_toolRunner;
    MacComputerUseService &m_computerUse;
};

} // namespace KelvaLR
