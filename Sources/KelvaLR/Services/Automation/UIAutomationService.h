#pragma once

#include "Services/Automation/KeyboardKey.h"
#include "Services/Automation/UIAutomationResult.h"
#include "Services/Automation/UIElementDescription.h"

#include <QCoroTask>

#include <QList>

namespace KelvaLR {

class Accessibility;
class FrontmostApplication;
class InputEvents;

/// Drives the interface of whichever application is frontmost: finds elements by their visible name, clicks,
/// types, presses keys. That the right application is frontmost is for the caller to see to. Every operation
/// works on the interface as it is at the moment of the call and keeps nothing afterwards. Main thread.
///
/// Each operation checks its arguments first and then asks for accessibility, which may show the system's
/// prompt. Its task holds copies of the arguments and the ports, not the service: it may outlive the service,
/// but not the ports.
class UIAutomationService
{
public:
    UIAutomationService(Accessibility &accessibility, InputEvents &inputEvents,
                        const FrontmostApplication &frontmost);

    /// Presses the element that fits the name best, by a click at its centre when it refuses.
    [[nodiscard]] QCoro::Task<UIAutomationResult> clickVisibleElement(const QString &name) const;

    /// Gives keyboard focus to the text input that fits the name best.
    [[nodiscard]] QCoro::Task<UIAutomationResult> focusField(const QString &name) const;

    /// Types the text, exactly as given, into the text input that fits the name best.
    [[nodiscard]] QCoro::Task<UIAutomationResult> typeTextIntoField(const QString &text,
                                                                    const QString &field) const;

    /// Types the trimmed text into whatever has keyboard focus.
    [[nodiscard]] QCoro::Task<UIAutomationResult> typeText(const QString &text) const;

    /// Presses the key with exactly its modifiers.
    [[nodiscard]] QCoro::Task<UIAutomationResult> pressKey(const KeyboardKey &key) const;

    /// The labelled elements of the frontmost application; empty when they cannot be read.
    [[nodiscard]] QCoro::Task<QList<UIElementDescription>> getVisibleElements() const;

    /// What every operation works with.
    struct Ports
    {
        Accessibility *accessibility;
        InputEvents *inputEvents;
        const FrontmostApplication *frontmost;
    };

private:
    Ports m_ports;
};

} // namespace KelvaLR
