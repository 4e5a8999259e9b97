#pragma once

#include "Models/ComputerUseResult.h"
#include "Services/Lightroom/Language/LightroomComputerUseCommand.h"

#include <QCoroTask>

#include <QString>

namespace KelvaLR {

class LightroomService;
class RunningApplications;
class UIAutomationService;

/// Carries out one text command on the user's machine and says in one sentence what happened. It has no state
/// of its own, and a task may outlive it. Main thread.
class MacComputerUseService
{
public:
    /// What is given by reference outlives this object and its tasks.
    MacComputerUseService(LightroomService &lightroom, UIAutomationService &automation,
                          RunningApplications &applications);

    /// Carries out what the command language makes of a text.
    [[nodiscard]] QCoro::Task<ComputerUseResult> execute(QString text) const;

    /// Whether the frontmost application's name or identifier contains "lightroom" in any case.
    [[nodiscard]] bool isFrontmostAppLightroom() const;

    /// Opens an installed Lightroom application.
    [[nodiscard]] QCoro::Task<ComputerUseResult> openLightroomApp(QString name) const;

    // These act on Lightroom's window only while it is in front.

    /// Lists the elements that can be clicked, typed into or read.
    [[nodiscard]] QCoro::Task<ComputerUseResult> inspectUI() const;
    [[nodiscard]] QCoro::Task<ComputerUseResult> clickElement(QString name) const;
    [[nodiscard]] QCoro::Task<ComputerUseResult> typeText(QString text) const;
    [[nodiscard]] QCoro::Task<ComputerUseResult> typeTextIntoField(QString text, QString field) const;
    [[nodiscard]] QCoro::Task<ComputerUseResult> pressKey(KeyboardKey key) const;

private:
    [[nodiscard]] QCoro::Task<ComputerUseResult> perform(const LightroomComputerUseCommand &command) const;

    LightroomService &m_lightroom;
    UIAutomationService &m_automation;
    RunningApplications &m_applications;
};

} // namespace KelvaLR
