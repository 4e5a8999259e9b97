#pragma once

#include "Platform/Accessibility.h"

#include <QObject>

namespace KelvaLR {

class Preferences;
class X11Connection;

/// Whether this program may drive other programs' windows. No system here keeps such a permission, so it is
/// the user's own setting, off at first; and without a display there is nothing to drive.
class ComputerControlConsent : public QObject
{
    Q_OBJECT

public:
    /// Both outlive this object.
    ComputerControlConsent(const Preferences &preferences, const X11Connection &display);

    [[nodiscard]] bool isGiven(TrustPrompt prompt);

Q_SIGNALS:
    /// Something was to be done that the user has not allowed; the setting should be shown.
    void asked();

private:
    const Preferences &m_preferences;
    const X11Connection &m_display;
};

} // namespace KelvaLR
