#pragma once

#include "Platform/Preferences.h"

#include <QSettings>

namespace KelvaLR {

/// Preferences in an INI file of the user, ~/.config/KelvaLR/KelvaLR.ini unless the XDG variables say
/// otherwise. A value that is no Boolean, such as one mistyped by hand, counts as never written.
class SettingsPreferences final : public Preferences
{
public:
    SettingsPreferences();
    explicit SettingsPreferences(const QString &file);

    bool isOn(Preference preference) const override;
    bool setOn(Preference preference, bool isOn) override;

private:
    mutable QSettings m_settings; ///< brought up to date before it is read
};

} // namespace KelvaLR
