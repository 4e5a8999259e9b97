#include "Services/Assistant/AssistantActionRunner.h"

#include "Services/Lightroom/MacComputerUseService.h"

namespace KelvaLR {

namespace {

/// A chat reply names no photos, elements or keys: those arguments stay absent.
RealtimeToolCall toolCall(const AssistantAction &action)
{
    return {
        .action = action.type,
        .text = action.text,
        .slider = action.slider,
        .value = action.value,
        .relative = action.relative,
        .presetName = action.presetName,
        .folderPath = action.folderPath,
    };
}

} // namespace

AssistantActionRunner::AssistantActionRunner(LightroomService &lightroom, MacComputerUseService &computerUse)
    : m_toolRunner(lightroom, computerUse)
    , m_computerUse(computerUse)
{
}

QCoro::Task<ComputerUseResult> AssistantActionRunner::run(const AssistantAction &action)
{
    const RealtimeToolCall call = toolCall(action);
    // For the tool an empty text is a missing one; that of a chat reply is refused by the hands themselves.
    if (call.knownAction() == RealtimeToolAction::type && call.text) {
        return m_computerUse.typeText(*call.text);
    }
    return m_toolRunner.run(call, std::nullopt);
}

} // namespace KelvaLR
