#include "Platform/Linux/SettingsPreferences.h"

namespace KelvaLR {

using namespace Qt::StringLiterals;

SettingsPreferences::SettingsPreferences()
    : m_settings(QSettings::IniFormat, QSettings::UserScope, u"KelvaLR"_s, u"KelvaLR"_s)
{
}

SettingsPreferences::SettingsPreferences(const QString &file)
    : m_settings(file, QSettings::IniFormat)
{
}

bool SettingsPreferences::isOn(Preference preference) const
{
    m_settings.sync(); // another process may have written, as to take a consent back
    const QString written = m_settings.value(rawValue(preference)).toString();
    if (written == "true"_L1 || written == "false"_L1) {
        return written == "true"_L1;
    }
    return defaultValue(preference);
}

bool SettingsPreferences::setOn(Preference preference, bool isOn)
{
    m_settings.setValue(rawValue(preference), isOn);
    m_settings.sync();
    return m_settings.status() == QSettings::NoError;
}

} // namespace KelvaLR
