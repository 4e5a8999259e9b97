#include "App/ComputerControlConsent.h"

#include "Platform/Linux/X11Connection.h"
#include "Platform/Preferences.h"

namespace KelvaLR {

ComputerControlConsent::ComputerControlConsent(const Preferences &preferences, const X11Connection &display)
    : m_preferences(preferences)
    , m_display(display)
{
}

bool ComputerControlConsent::isGiven(TrustPrompt prompt)
{
    if (!m_display.isOpen()) {
        return false;
    }
    const bool isGiven = m_preferences.isOn(Preference::allowComputerControl);
    if (!isGiven && prompt == TrustPrompt::shown) {
        Q_EMIT asked();
    }
    return isGiven;
}

} // namespace KelvaLR
