#pragma once

#include "Models/ComputerUseResult.h"
#include "Services/Assistant/AssistantProvider.h"

namespace KelvaLR {

class LightroomService;
class MacComputerUseService;

/// Carries out the one action that a chat reply may ask for. Main thread.
class AssistantActionRunner
{
public:
    AssistantActionRunner(LightroomService &lightroom, MacComputerUseService &computerUse);

    /// Never fails: what cannot be done is the sentence of the result.
    QCoro::Task<ComputerUseResult> run(const AssistantAction &action);

private:
    LightroomService &m_lightroom;
    MacComputerUseService &m_computerUse;
};

} // namespace KelvaLR
