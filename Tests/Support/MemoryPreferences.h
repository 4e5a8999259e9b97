#pragma once

#include "Platform/Preferences.h"

#include <QMap>

namespace KelvaLR::Testing {

/// Preferences that last as long as a test.
class MemoryPreferences final : public Preferences
{
public:
    bool isOn(Preference preference) const override
    {
        return m_written.value(preference, defaultValue(preference));
    }

    bool setOn(Preference preference, bool isOn) override
    {
        m_written.insert(preference, isOn);
        return true;
    }

private:
    QMap<Preference, bool> m_written;
};

} // namespace KelvaLR::Testing
